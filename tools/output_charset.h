// The character set timetool's text output is written in, and the one place
// that picks each symbol's form for it. JSON is always UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace timetool {

enum class Charset { Utf8, Ascii };

// The character set of the named locale's LC_CTYPE. A name the system does
// not know counts as UTF-8 only when it says so (".UTF-8", ".utf8"); "C",
// "POSIX" and the empty name are ASCII.
Charset CharsetOfLocaleName(std::string_view name);

// The locale name that governs character types, from the values of LC_ALL,
// LC_CTYPE and LANG (null when unset), the first non-empty one winning;
// "C" when none is set.
std::string_view CtypeLocaleName(const char* lcAll, const char* lcCtype, const char* lang);

// The character set of the process environment, read without changing the
// process locale: the module's wide-character classification and number
// formatting depend on the locale staying "C".
Charset EnvironmentCharset();

// The character set text output uses; the environment's until set.
void SetOutputCharset(Charset charset);
Charset OutputCharset();

// Symbols in the output character set. The UTF-8 form is the one JSON
// carries; the ASCII forms keep the width a terminal gives the UTF-8 ones
// where columns depend on it (moon glyphs are two columns).
std::string_view DegreeSign();
std::string_view TextGlyph(std::string_view utf8Glyph);
// Terminal columns of text without wide glyphs: one per character.
std::size_t NarrowTextColumns(std::string_view utf8);
// Text from elsewhere (stored names): in ASCII, each non-ASCII character
// becomes <U+XXXX> and each invalid byte <XX>, so nothing is hidden.
std::string PlainText(std::string_view utf8);

}  // namespace timetool
