// Wide text (UTF-32 code units) to and from UTF-8 bytes, for file names, the
// XML stream's text and the XML reader.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kit::streams {

// A Unicode scalar value: not a surrogate, at most 0x10FFFF.
constexpr bool IsScalarValue(std::uint32_t code) { return code <= 0x10FFFFu && (code < 0xD800u || code > 0xDFFFu); }

// Appends the UTF-8 form of one scalar value (caller checked it).
void AppendCodePoint(std::uint32_t code, std::string& out);

// Appends the UTF-8 form of text; false (out partly written) on a unit that
// is not a scalar value.
bool AppendUtf8(std::wstring_view text, std::string& out);

// Outcome of decoding one character.
enum class DecodeStep { kOk, kIncomplete, kInvalid };

// Decodes the character starting at bytes[at]: overlong forms, surrogates and
// values above 0x10FFFF are invalid; a sequence cut by the end is incomplete.
// On kOk, *code and *length (1..4) are set.
DecodeStep DecodeCodePoint(std::string_view bytes, std::size_t at, std::uint32_t* code, std::size_t* length);

// Decodes bytes for display; every byte of an ill-formed or cut sequence
// becomes U+FFFD, so arbitrary bytes written into a text stream still read.
void DecodeUtf8Lenient(std::string_view bytes, std::wstring& out);

}  // namespace kit::streams
