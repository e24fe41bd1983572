// Numbers from counted text, and bounded wide formatting.
#include <cctype>
#include <cstdarg>
#include <cstdint>
#include <cwchar>

#include "framework/conversions.h"

namespace {

// Upper-cases with the C library's table, which covers codes up to 255 only.
wchar_t UpperCase(wchar_t c) {
    if (c < 0 || c > 255) return c;
    return static_cast<wchar_t>(std::toupper(static_cast<int>(c)));
}

// Value of a digit, or -1. Letters count only when `letters` is set.
int DigitValue(wchar_t c, bool letters) {
    const wchar_t upper = UpperCase(c);
    if (upper >= L'0' && upper <= L'9') return upper - L'0';
    if (letters && upper >= L'A' && upper <= L'F') return upper - L'A' + 10;
    return -1;
}

}  // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): taken by value, as the framework passes it
int _IS2Integer(CREFString text, int base) {
    if (text.length < 1) return 0;
    std::uint32_t sign = 1;
    std::int32_t i = 0;
    if (text.string[0] == L'-') {
        sign = static_cast<std::uint32_t>(-1);
        i = 1;
    } else if (text.string[0] == L'+') {
        i = 1;
    } else if (text.string[0] == L'#') {
        base = 16;
        i = 1;
    }
    // Digits are not checked against the base (9 is taken in base 8, F in
    // base 11); the value wraps in 32 bits.
    const bool letters = base >= 11 && base <= 16;
    const auto factor = static_cast<std::uint32_t>(base);
    std::uint32_t value = 0;
    for (; i < text.length; ++i) {
        const int digit = DigitValue(text.string[i], letters);
        if (digit < 0) break;
        value = value * factor + static_cast<std::uint32_t>(digit);
    }
    return static_cast<std::int32_t>(sign * value);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): taken by value, as the framework passes it
double _IS2Double(CREFString text) {
    if (text.length < 1) return 0.0;
    if (text.string[0] == L'#') {
        std::uint32_t value = 0;
        for (std::int32_t i = 1; i < text.length; ++i) {
            const int digit = DigitValue(text.string[i], true);
            if (digit < 0) break;
            value = value * 16u + static_cast<std::uint32_t>(digit);
        }
        return static_cast<double>(static_cast<std::int32_t>(value));
    }
    double sign = 1.0;
    std::int32_t i = 0;
    if (text.string[0] == L'-') {
        sign = -1.0;
        i = 1;
    } else if (text.string[0] == L'+') {
        i = 1;
    }
    // Both parts wrap in 64 bits rather than overflow; the divisor stops the
    // fraction at its eighteenth digit.
    std::uint64_t whole = 0;
    std::int64_t numerator = 0;  // [0, 10^18)
    std::int64_t divisor = 1;    // [1, 10^18]
    bool fraction = false;
    for (; i < text.length; ++i) {
        const wchar_t c = text.string[i];
        if (c == L'.' && !fraction) {
            fraction = true;
            continue;
        }
        if (c < L'0' || c > L'9') break;
        const int digit = c - L'0';
        if (!fraction) {
            whole = whole * 10u + static_cast<std::uint64_t>(digit);
            continue;
        }
        numerator = numerator * 10 + digit;
        divisor *= 10;
        if (divisor > 999999999999999999) break;
    }
    const double integerPart = static_cast<double>(static_cast<std::int64_t>(whole));
    if (!fraction) return sign * integerPart;
    return sign * (integerPart + static_cast<double>(numerator) / static_cast<double>(divisor));
}

int _swprintf(wchar_t* buffer, unsigned long capacity, const wchar_t* format, ...) {
    if (!buffer || capacity == 0 || !format) return 0;
    va_list arguments;
    va_start(arguments, format);
    int written = std::vswprintf(buffer, capacity, format, arguments);
    va_end(arguments);
    // Output cut at the capacity is kept as far as it fits.
    if (written < 0) {
        buffer[capacity - 1] = L'\0';
        return static_cast<int>(std::wcslen(buffer));
    }
    buffer[written] = L'\0';
    return written;
}
