// Degree conversions shared by the sun's position terms and sunrise and sunset.
#pragma once

#include <cstdint>

#include "time/truncation.h"

inline constexpr double kRadiansPerDegree = 0.017453292519943295;
inline constexpr double kDegreesPerRadian = 57.29577951308232;

// Whole degrees, keeping the sign of the argument: (-360, 360) for every
// input, not-a-number and infinities included (they truncate to INT32_MIN).
constexpr std::int32_t WholeDegrees(double degrees) noexcept { return TruncateToInt32(degrees) % 360; }
