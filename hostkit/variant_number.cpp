#include "hostkit/variant_number.h"

#include <charconv>
#include <cmath>
#include <limits>

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
    // Out of range: from_chars leaves value untouched; report the overflow direction.
    if (result.ec == std::errc::result_out_of_range) {
        value = 0.0;
        for (std::size_t i = 0; i < length && buffer[i] != 'e' && buffer[i] != 'E'; ++i) {
            if (buffer[i] >= '1' && buffer[i] <= '9') {
                value = std::numeric_limits<double>::infinity();
                break;
            }
        }
        // An exponent that overflowed downward gives zero.
        for (std::size_t i = 0; i + 1 < length; ++i) {
            if ((buffer[i] == 'e' || buffer[i] == 'E') && buffer[i + 1] == '-') value = 0.0;
        }
    }
    return sign * value;
}

}  // namespace kit
