#include "output_charset.h"

#include <langinfo.h>
#include <locale.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace timetool {

namespace {

struct GlyphRow {
    std::string_view utf8;
    std::string_view ascii;
};

// Moon glyphs by phase, then the degree sign. The ASCII moons draw the lit
// side: ")" waxing, "(" waning, "@" lit, "|" the quarter's straight edge.
constexpr std::array<GlyphRow, 9> kGlyphs{{
    {"\xF0\x9F\x8C\x91", "()"},  // new
    {"\xF0\x9F\x8C\x92", " )"},  // waxing crescent
    {"\xF0\x9F\x8C\x93", "|)"},  // first quarter
    {"\xF0\x9F\x8C\x94", "@)"},  // waxing gibbous
    {"\xF0\x9F\x8C\x95", "@@"},  // full
    {"\xF0\x9F\x8C\x96", "(@"},  // waning gibbous
    {"\xF0\x9F\x8C\x97", "(|"},  // last quarter
    {"\xF0\x9F\x8C\x98", "( "},  // waning crescent
    {"\xC2\xB0", "deg"},
}};

bool SaysUtf8(std::string_view name) {
    std::string lower;
    for (const char c : name) {
        if (c != '-' && c != '_') lower += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    }
    return lower.find(".utf8") != std::string::npos;
}

std::optional<Charset>& OutputCharsetSetting() {
    static std::optional<Charset> charset;
    return charset;
}

}  // namespace

Charset CharsetOfLocaleName(std::string_view name) {
    const std::string text(name);
    if (text.empty() || text == "C" || text == "POSIX") return Charset::Ascii;
    const locale_t locale = newlocale(LC_CTYPE_MASK, text.c_str(), static_cast<locale_t>(nullptr));
    if (locale == static_cast<locale_t>(nullptr)) return SaysUtf8(name) ? Charset::Utf8 : Charset::Ascii;
    const std::string_view codeset = nl_langinfo_l(CODESET, locale);
    const Charset charset = codeset == "UTF-8" ? Charset::Utf8 : Charset::Ascii;
    freelocale(locale);
    return charset;
}

std::string_view CtypeLocaleName(const char* lcAll, const char* lcCtype, const char* lang) {
    for (const char* value : {lcAll, lcCtype, lang}) {
        if (value && *value) return value;
    }
    return "C";
}

Charset EnvironmentCharset() {
    return CharsetOfLocaleName(CtypeLocaleName(std::getenv("LC_ALL"), std::getenv("LC_CTYPE"), std::getenv("LANG")));
}

void SetOutputCharset(Charset charset) { OutputCharsetSetting() = charset; }

Charset OutputCharset() {
    std::optional<Charset>& setting = OutputCharsetSetting();
    if (!setting) setting = EnvironmentCharset();
    return *setting;
}

std::string_view DegreeSign() { return TextGlyph("\xC2\xB0"); }

std::string_view TextGlyph(std::string_view utf8Glyph) {
    if (OutputCharset() == Charset::Utf8) return utf8Glyph;
    for (const GlyphRow& row : kGlyphs) {
        if (row.utf8 == utf8Glyph) return row.ascii;
    }
    for (const char c : utf8Glyph) {
        if (static_cast<unsigned char>(c) >= 0x80) return "?";
    }
    return utf8Glyph;
}

std::size_t NarrowTextColumns(std::string_view utf8) {
    std::size_t columns = 0;
    for (const char c : utf8) {
        if ((static_cast<unsigned char>(c) & 0xC0u) != 0x80u) ++columns;
    }
    return columns;
}

std::string PlainText(std::string_view utf8) {
    if (OutputCharset() == Charset::Utf8) return std::string(utf8);
    std::string out;
    std::size_t i = 0;
    while (i < utf8.size()) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
        bool valid = length > 0 && lead < 0xF8 && i + length <= utf8.size();
        char32_t code = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t k = 1; valid && k < length; ++k) {
            const auto next = static_cast<unsigned char>(utf8[i + k]);
            valid = (next & 0xC0u) == 0x80u;
            code = (code << 6) | (next & 0x3Fu);
        }
        char buffer[16];
        if (length == 1) {
            out += static_cast<char>(lead);
        } else if (valid) {
            std::snprintf(buffer, sizeof buffer, "<U+%04X>", static_cast<unsigned>(code));
            out += buffer;
        } else {
            std::snprintf(buffer, sizeof buffer, "<%02X>", static_cast<unsigned>(lead));
            out += buffer;
        }
        i += valid ? length : 1;
    }
    return out;
}

}  // namespace timetool
