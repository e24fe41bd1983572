#include "wide_text.h"

namespace timetool {

std::wstring WidenUtf8(std::string_view text) {
    std::wstring out;
    std::size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        std::size_t extra = 0;  // continuation bytes, [0, 3]
        char32_t code = lead;
        if (lead >= 0xF0 && lead < 0xF8) {
            extra = 3;
            code = lead & 0x07u;
        } else if (lead >= 0xE0) {
            extra = lead < 0xF0 ? 2 : 0;
            code = lead & 0x0Fu;
        } else if (lead >= 0xC0) {
            extra = 1;
            code = lead & 0x1Fu;
        }
        bool valid = extra > 0;
        for (std::size_t k = 1; valid && k <= extra; ++k) {
            if (i + k >= text.size() || (static_cast<unsigned char>(text[i + k]) & 0xC0u) != 0x80u) valid = false;
        }
        if (!valid) {
            out += static_cast<wchar_t>(lead);
            ++i;
            continue;
        }
        for (std::size_t k = 1; k <= extra; ++k) code = (code << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3Fu);
        out += static_cast<wchar_t>(code);
        i += extra + 1;
    }
    return out;
}

std::string NarrowToUtf8(const tagREFString& text) {
    std::string out;
    if (text.length <= 0 || !text.string) return out;
    for (std::int32_t i = 0; i < text.length; ++i) {
        const auto code = static_cast<std::uint32_t>(text.string[i]);
        if (code < 0x80) {
            out += static_cast<char>(code);
        } else if (code < 0x800) {
            out += static_cast<char>(0xC0 | (code >> 6));
            out += static_cast<char>(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            out += static_cast<char>(0xE0 | (code >> 12));
            out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (code & 0x3F));
        } else if (code < 0x110000) {
            out += static_cast<char>(0xF0 | (code >> 18));
            out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (code & 0x3F));
        } else {
            out += '?';
        }
    }
    return out;
}

}  // namespace timetool
