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

// The same direction in [0, 360).
inline double OneTurn(double degrees) noexcept {
    double turn = std::fmod(degrees, 360.0);  // (-360, 360)
    if (turn < 0.0) turn += 360.0;            // a tiny negative angle rounds up to 360 here
    return turn < 360.0 ? turn : 0.0;
}

// The same direction in [-180, 180): the shorter way round.
inline double HalfTurn(double degrees) noexcept { return OneTurn(degrees + 180.0) - 180.0; }

}  // namespace timetool::sky
