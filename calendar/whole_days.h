// Whole and fractional parts of day counts without a libm call on the common
// path: for finite values below 2^52 in magnitude the integer conversion is
// exact, and every result equals the libm function's bit for bit (the sign of
// a zero included).
#pragma once

#include <cmath>
#include <cstdint>

namespace cal {

inline constexpr double kExactIntegerLimit = 4503599627370496.0;  // 2^52; larger doubles are whole

// floor(x) as an integer, for x known to lie inside (-2^52, 2^52).
constexpr std::int64_t FloorInRange(double x) noexcept {
    const auto truncated = static_cast<std::int64_t>(x);
    return static_cast<double>(truncated) > x ? truncated - 1 : truncated;
}

// std::floor(x).
inline double FloorWhole(double x) noexcept {
    if (!(std::fabs(x) < kExactIntegerLimit)) return std::floor(x);
    // floor(-0.5) is -1, floor(-0.0) is -0.0
    return std::copysign(static_cast<double>(FloorInRange(x)), x);
}

// The fractional part std::modf(x, ...) returns, with the sign of x.
inline double FractionOf(double x) noexcept {
    if (!(std::fabs(x) < kExactIntegerLimit)) {
        double whole = 0.0;
        return std::modf(x, &whole);
    }
    const auto truncated = static_cast<double>(static_cast<std::int64_t>(x));
    return std::copysign(x - truncated, x);
}

}  // namespace cal
