#include "hostkit/utf8.h"

#include <cstdint>

namespace kit {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsScalarValue(char32_t c) { return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF); }

// Decodes one sequence at bytes[*pos]; advances *pos past it on success.
bool DecodeOne(std::string_view bytes, std::size_t* pos, char32_t* out) {
    const auto lead = static_cast<std::uint8_t>(bytes[*pos]);
    std::size_t extra = 0;  // [0, 3] continuation bytes
    char32_t value = 0;
    char32_t minimum = 0;  // smallest value allowed for this length (no overlong forms)
    if (lead < 0x80) {
        *out = lead;
        ++*pos;
        return true;
    } else if ((lead & 0xE0) == 0xC0) {
        extra = 1;
        value = lead & 0x1Fu;
        minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        extra = 2;
        value = lead & 0x0Fu;
        minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        extra = 3;
        value = lead & 0x07u;
        minimum = 0x10000;
    } else {
        return false;
    }
    if (bytes.size() - *pos <= extra) return false;
    for (std::size_t i = 1; i <= extra; ++i) {
        const auto next = static_cast<std::uint8_t>(bytes[*pos + i]);
        if ((next & 0xC0) != 0x80) return false;
        value = (value << 6) | (next & 0x3Fu);
    }
    if (value < minimum || !IsScalarValue(value)) return false;
    *out = value;
    *pos += extra + 1;
    return true;
}

}  // namespace

bool AppendUtf8(std::wstring_view text, std::string* out) {
    for (const wchar_t unit : text) {
        const auto c = static_cast<char32_t>(unit);
        if (!IsScalarValue(c)) return false;
        if (c < 0x80) {
            out->push_back(static_cast<char>(c));
        } else if (c < 0x800) {
            out->push_back(static_cast<char>(0xC0 | (c >> 6)));
            out->push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else if (c < 0x10000) {
            out->push_back(static_cast<char>(0xE0 | (c >> 12)));
            out->push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
            out->push_back(static_cast<char>(0x80 | (c & 0x3F)));
        } else {
            out->push_back(static_cast<char>(0xF0 | (c >> 18)));
            out->push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
            out->push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
            out->push_back(static_cast<char>(0x80 | (c & 0x3F)));
        }
    }
    return true;
}

bool DecodeUtf8(std::string_view bytes, std::wstring* out) {
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        char32_t c = 0;
        if (!DecodeOne(bytes, &pos, &c)) return false;
        out->push_back(static_cast<wchar_t>(c));
    }
    return true;
}

bool IsValidUtf8(std::string_view bytes) {
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        char32_t c = 0;
        if (!DecodeOne(bytes, &pos, &c)) return false;
    }
    return true;
}

std::wstring DecodeUtf8Lenient(std::string_view bytes) {
    std::wstring out;
    std::size_t pos = 0;
    while (pos < bytes.size()) {
        char32_t c = 0;
        if (!DecodeOne(bytes, &pos, &c)) {
            c = kReplacement;
            ++pos;
        }
        out.push_back(static_cast<wchar_t>(c));
    }
    return out;
}

}  // namespace kit
