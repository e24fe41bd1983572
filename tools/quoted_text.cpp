#include "quoted_text.h"

#include <algorithm>
#include <cstdio>

namespace timetool {

namespace {

struct Decoded {
    char32_t code = 0;
    std::size_t length = 0;  // bytes taken; 0 when the bytes are not UTF-8
};

// One UTF-8 sequence at the start of `text`: overlong forms, surrogates and
// values past U+10FFFF are not UTF-8.
Decoded DecodeUtf8(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80) return {lead, 1};
    std::size_t length = 0;
    char32_t code = 0;
    char32_t least = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        code = lead & 0x1Fu;
        least = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        code = lead & 0x0Fu;
        least = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        code = lead & 0x07u;
        least = 0x10000;
    } else {
        return {};
    }
    if (text.size() < length) return {};
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0u) != 0x80u) return {};
        code = (code << 6) | (next & 0x3Fu);
    }
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {};
    return {code, length};
}

// Characters a terminal acts on rather than shows.
bool IsControlCharacter(char32_t code) {
    return (code >= 0x80 && code <= 0x9F) || code == 0x2028 || code == 0x2029 || (code >= 0x200E && code <= 0x200F) ||
           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069) || code == 0x061C;
}

std::string HexEscape(const char* format, unsigned value) {
    char buffer[12];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

}  // namespace

std::string EscapeText(std::string_view text, std::size_t maxCharacters) {
    std::string shown;
    shown.reserve(std::min(text.size(), maxCharacters) + 8);
    std::size_t characters = 0;
    while (!text.empty()) {
        if (characters == maxCharacters) {
            shown += "\xE2\x80\xA6";  // …
            break;
        }
        ++characters;
        const auto byte = static_cast<unsigned char>(text[0]);
        const Decoded decoded = DecodeUtf8(text);
        if (decoded.length == 0) {
            shown += HexEscape("\\x%02x", byte);
            text.remove_prefix(1);
            continue;
        }
        const char32_t code = decoded.code;
        if (code == '\n') {
            shown += "\\n";
        } else if (code == '\r') {
            shown += "\\r";
        } else if (code == '\t') {
            shown += "\\t";
        } else if (code == '\\') {
            shown += "\\\\";
        } else if (code < 0x20 || code == 0x7F) {
            shown += HexEscape("\\x%02x", static_cast<unsigned>(code));
        } else if (IsControlCharacter(code)) {
            shown += HexEscape("\\u%04x", static_cast<unsigned>(code));
        } else {
            shown.append(text.substr(0, decoded.length));
        }
        text.remove_prefix(decoded.length);
    }
    return shown;
}

std::string QuoteArgument(std::string_view text) { return "'" + EscapeText(text, kShownArgumentLength) + "'"; }

}  // namespace timetool
