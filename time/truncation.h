// Conversion of a double to a 32-bit integer toward zero, defined for every
// input.
#pragma once

#include <cstdint>
#include <limits>

// Values outside the 32-bit range and not-a-number give INT32_MIN, the value
// the processor's own truncating conversion yields; stored results depend on it.
constexpr std::int32_t TruncateToInt32(double value) noexcept {
    constexpr double kLimit = 2147483648.0;  // 2^31
    if (!(value > -kLimit - 1.0 && value < kLimit)) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);
}
