// The Moon's phase at an instant: its angle and how much of the disc is lit.
#pragma once

namespace timetool::sky {

struct MoonPhase {
    double angle;        // degrees, [0, 360): 0 new, 90 first quarter, 180 full, 270 last quarter
    double illuminated;  // fraction of the disc lit, [0, 1]
};

// The Moon's apparent geocentric ecliptic longitude less the Sun's, at a UT
// Julian Date; NaN outside the known years (known_years.h).
double MoonPhaseAngle(double universalJulianDate) noexcept;
// The angle and the lit fraction; both NaN outside the known years.
MoonPhase MoonPhaseAt(double universalJulianDate) noexcept;

// The lit fraction of the disc, [0, 1], seen from the Earth at a geocentric
// elongation of the Moon from the Sun (degrees), the two bodies' distances
// from the Earth in one unit.
double IlluminatedFraction(double elongation, double sunDistance, double moonDistance) noexcept;

// The phase angle at a TT instant (Julian centuries from J2000), for any
// year the series are taken to.
double MoonPhaseAngleAtTerrestrial(double terrestrialCenturies) noexcept;

}  // namespace timetool::sky
