// Degrees, the unit of every angle in the sky computations, and their
// reduction to one turn.
#pragma once

#include <cmath>
#include <numbers>

namespace timetool::sky {

inline constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
inline constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;

inline double SinDegrees(double degrees) noexcept { return std::sin(degrees * kRadiansPerDegree); }
inline double CosDegrees(double degrees) noexcept { return std::cos(degrees * kRadiansPerDegree); }

// The same direction in [0, 360); NaN stays NaN. Within a few units in the
// last place of the argument, which for the mean arguments of the series
// (up to some 10^7 degrees) is under a millionth of a second of arc.
inline double OneTurn(double degrees) noexcept {
    const double turn = degrees - 360.0 * std::floor(degrees / 360.0);  // [0, 360]: a tiny negative angle rounds to 360
    return turn >= 360.0 ? 0.0 : turn;
}

// The same direction in [-180, 180): the shorter way round.
inline double HalfTurn(double degrees) noexcept { return OneTurn(degrees + 180.0) - 180.0; }

}  // namespace timetool::sky
