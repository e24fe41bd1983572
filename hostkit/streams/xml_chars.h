// Character classes of XML 1.0 (fifth edition) and escaping of text for the
// XML stream's writer.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kit::streams {

// Characters a document may hold at all (even as a character reference).
bool IsXmlChar(std::uint32_t code);
bool IsNameStartChar(std::uint32_t code);
bool IsNameChar(std::uint32_t code);
bool IsXmlSpace(std::uint32_t code);

// A non-empty name made of a name-start character and name characters.
bool IsXmlName(std::wstring_view name);

// Appends the UTF-8 form of text with & < > " ' and carriage return written as
// references; false (out partly written) when text holds a character that no
// XML document can carry.
bool AppendEscaped(std::wstring_view text, std::string& out);

}  // namespace kit::streams
