// The rotation of the Earth against the stars, in Universal Time.
#pragma once

namespace timetool::sky {

// Degrees the Earth turns against the mean equinox per day of UT.
inline constexpr double kSiderealDegreesPerDay = 360.98564736629;

// Greenwich mean sidereal time in degrees, [0, 360), at a UT Julian Date.
double GreenwichMeanSiderealTime(double universalJulianDate) noexcept;

}  // namespace timetool::sky
