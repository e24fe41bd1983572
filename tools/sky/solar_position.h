// Where the Sun is seen from the centre of the Earth, to about 0.01 degree.
#pragma once

namespace timetool::sky {

struct SolarPosition {
    double trueLongitude;      // degrees, [0, 360): geometric, on the mean ecliptic and equinox of date
    double apparentLongitude;  // degrees, [0, 360): with aberration and nutation
    double rightAscension;     // degrees, [0, 360): apparent
    double declination;        // degrees, [-23.5, 23.5]: apparent
    double distance;           // astronomical units, [0.983, 1.017]
};

// The geometric part alone, for the Moon's phase.
struct SolarOrbitPoint {
    double trueLongitude;  // degrees, not reduced to one turn: geometric, on the mean ecliptic and equinox of date
    double distance;       // astronomical units, [0.983, 1.017]
};

// The arguments are Julian centuries of TT from J2000.
SolarPosition SolarPositionAt(double terrestrialCenturies) noexcept;
SolarOrbitPoint SolarOrbitPointAt(double terrestrialCenturies) noexcept;

// The shift of the Sun's apparent longitude by the Earth's motion
// (aberration), in degrees, at a distance in astronomical units.
constexpr double SolarAberration(double distance) noexcept { return -20.4898 / 3600.0 / distance; }

}  // namespace timetool::sky
