#include "framework/variant_format.h"

#include <cmath>
#include <cwctype>

NumberText ClassifyNumberText(tagREFString text) {
    if (text.length < 1) return NumberText::kNone;
    std::int32_t digits = 0;
    bool decimalPoint = false;
    for (std::int32_t i = text.string[0] == L'-' ? 1 : 0; i < text.length; ++i) {
        const wchar_t c = text.string[i];
        if (c >= L'0' && c <= L'9') {
            ++digits;
        } else if (c == L'.' && !decimalPoint) {
            decimalPoint = true;
        } else if (digits > 0 && std::iswspace(static_cast<wint_t>(c))) {
            break;
        } else {
            return NumberText::kNone;
        }
    }
    if (digits == 0) return NumberText::kNone;
    if (decimalPoint) return NumberText::kDecimal;
    // Longer digit texts (account numbers, codes) are kept verbatim.
    return text.length <= 9 ? NumberText::kInteger : NumberText::kNone;
}

int AutomaticDecimals(double value) {
    int decimals = 0;  // [0, 9]
    double scale = 1.0;
    const double magnitude = std::fabs(value);
    while (decimals < 9) {
        double integral = 0.0;
        const double fraction = std::modf(magnitude * scale, &integral);
        if (fraction < 1e-8 || fraction > 0.9999999) break;
        ++decimals;
        scale *= 10.0;
    }
    return decimals;
}

int BinaryFormatShift(short format) {
    struct FormatShift {
        short format;
        int shift;
    };
    static constexpr FormatShift kShifts[] = {{-22, 8}, {-23, 16}, {-32, 16}, {-24, 24}, {-42, 24}};
    for (const FormatShift& row : kShifts) {
        if (row.format == format) return row.shift;
    }
    return 0;
}

int WriteBinaryByte(wchar_t* buffer, std::uint32_t value, int shift) {
    for (int bit = 0; bit < 8; ++bit) {
        buffer[bit] = ((value >> (shift + 7 - bit)) & 1u) != 0 ? L'1' : L'0';
    }
    buffer[8] = L'\0';
    return 8;
}
