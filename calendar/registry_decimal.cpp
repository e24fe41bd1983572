#include "calendar/registry_decimal.h"

#include <cstdint>

namespace cal {

double ReadRegistryDecimal(const wchar_t* text, int length) noexcept {
    constexpr std::int64_t kLargestDivisor = 999999999999999999;
    double sign = 1.0;
    int i = 0;
    if (length > 0 && (text[0] == L'-' || text[0] == L'+')) {
        if (text[0] == L'-') sign = -1.0;
        i = 1;
    }
    std::uint64_t integer = 0;  // wraps like the stored 64-bit accumulator
    std::int64_t fraction = 0;  // [0, 10^18)
    std::int64_t divisor = 1;   // [1, 10^18]
    bool seenPoint = false;
    for (; i < length; ++i) {
        const wchar_t c = text[i];
        if (c == L'.' && !seenPoint) {
            seenPoint = true;
            continue;
        }
        if (c < L'0' || c > L'9') break;
        const int digit = static_cast<int>(c - L'0');
        if (!seenPoint) {
            integer = integer * 10u + static_cast<std::uint64_t>(digit);
            continue;
        }
        fraction = fraction * 10 + digit;
        divisor *= 10;
        if (divisor > kLargestDivisor) break;
    }
    double value = static_cast<double>(static_cast<std::int64_t>(integer));
    if (seenPoint) value += static_cast<double>(fraction) / static_cast<double>(divisor);
    return sign * value;
}

}  // namespace cal
