#include "hostkit/streams/xml_chars.h"

#include <iterator>

#include "hostkit/utf8.h"

namespace kit::streams {

namespace {

struct CodeRange {
    std::uint32_t first;
    std::uint32_t last;
};

constexpr CodeRange kXmlChars[] = {
    {0x9, 0xA}, {0xD, 0xD}, {0x20, 0xD7FF}, {0xE000, 0xFFFD}, {0x10000, 0x10FFFF},
};

constexpr CodeRange kNameStartChars[] = {
    {':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},         {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},   {0x2070, 0x218F}, {0x2C00, 0x2FEF},
    {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
};

// Added to the name-start characters inside a name.
constexpr CodeRange kNameOnlyChars[] = {
    {'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t N>
bool InRanges(const CodeRange (&ranges)[N], std::uint32_t code) {
    for (const CodeRange& range : ranges) {
        if (code >= range.first && code <= range.last) return true;
    }
    return false;
}

// Carriage return is written as a reference because readers turn a literal
// one into a line feed.
struct Escape {
    wchar_t character;
    std::string_view reference;
};
constexpr Escape kEscapes[] = {
    {L'&', "&amp;"}, {L'<', "&lt;"}, {L'>', "&gt;"}, {L'"', "&quot;"}, {L'\'', "&apos;"}, {L'\r', "&#13;"},
};

}  // namespace

bool IsXmlChar(std::uint32_t code) { return InRanges(kXmlChars, code); }
bool IsNameStartChar(std::uint32_t code) { return InRanges(kNameStartChars, code); }
bool IsNameChar(std::uint32_t code) { return IsNameStartChar(code) || InRanges(kNameOnlyChars, code); }
bool IsXmlSpace(std::uint32_t code) { return code == 0x20 || code == 0x9 || code == 0xA || code == 0xD; }

bool IsXmlName(std::wstring_view name) {
    if (name.empty() || !IsNameStartChar(static_cast<std::uint32_t>(name.front()))) return false;
    for (const wchar_t unit : name) {
        if (!IsNameChar(static_cast<std::uint32_t>(unit))) return false;
    }
    return true;
}

bool AppendEscaped(std::wstring_view text, std::string& out) {
    std::size_t plain = 0;  // start of the run of characters written as they are
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!IsXmlChar(static_cast<std::uint32_t>(text[at]))) return false;
        for (const Escape& escape : kEscapes) {
            if (escape.character != text[at]) continue;
            if (!AppendUtf8(text.substr(plain, at - plain), &out)) return false;
            out.append(escape.reference);
            plain = at + 1;
        }
    }
    return AppendUtf8(text.substr(plain), &out);
}

}  // namespace kit::streams
