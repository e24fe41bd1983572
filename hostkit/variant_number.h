// Number conversions of the kit's variant, kept free of interface glue.
#pragma once

#include <cstdint>
#include <string_view>

namespace kit {

// Toward zero; values beyond the 32-bit range saturate at its ends and NaN
// gives 0 (a plain cast would be undefined there).
std::int32_t TruncateToInt32(double value);

// Reads a decimal number: leading white space skipped, an optional sign, then
// the longest prefix that forms a number (digits, one '.', an exponent, "inf",
// "nan"). Only the first kMaxNumberText characters after the white space are
// read. Text that does not start a number gives 0.0.
double ParseTextNumber(std::wstring_view text);

inline constexpr std::size_t kMaxNumberText = 128;

}  // namespace kit
