#include "hostkit/variant_number.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace kit {

std::int32_t TruncateToInt32(double value) {
    if (std::isnan(value)) return 0;
    constexpr double kLimit = 2147483648.0;  // 2^31, exact in a double
    if (value >= kLimit) return std::numeric_limits<std::int32_t>::max();
    if (value <= -kLimit) return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(value);  // within (-2^31, 2^31): truncation is defined
}

double ParseTextNumber(std::wstring_view text) {
    std::size_t pos = 0;
    while (pos < text.size() && (text[pos] == L' ' || (text[pos] >= L'\t' && text[pos] <= L'\r'))) ++pos;
    double sign = 1.0;
    if (pos < text.size() && (text[pos] == L'+' || text[pos] == L'-')) {
        if (text[pos] == L'-') sign = -1.0;
        ++pos;
    }
    // The number is ASCII; the first other unit ends the copy.
    char buffer[kMaxNumberText];
    std::size_t length = 0;  // [0, kMaxNumberText]
    while (pos < text.size() && length < kMaxNumberText && text[pos] > 0 && text[pos] < 0x80) {
        buffer[length++] = static_cast<char>(text[pos++]);
    }
    // A second sign is not part of the number.
    if (length > 0 && (buffer[0] == '+' || buffer[0] == '-')) return 0.0;
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(buffer, buffer + length, value);
    if (result.ec == std::errc::invalid_argument) return 0.0;
    if (result.ec == std::errc::result_out_of_range) {
        // Only the exponent can carry a value out of range: upward gives
        // infinity, downward zero.
        const std::string_view number(buffer, static_cast<std::size_t>(result.ptr - buffer));
        const std::size_t exponent = number.find_first_of("eE");
        const bool downward =
            exponent != std::string_view::npos && exponent + 1 < number.size() && number[exponent + 1] == '-';
        value = downward ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return sign * value;
}

}  // namespace kit
