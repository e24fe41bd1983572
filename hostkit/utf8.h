// Conversion between wide text (UTF-32 code units) and UTF-8 bytes, for file
// names, library names, the registry file and the streams' text. The system's
// converter does the work with both encodings named, so the process locale
// never takes part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace kit {

// A Unicode scalar value: not a surrogate, at most 0x10FFFF.
constexpr bool IsScalarValue(std::uint32_t code) { return code <= 0x10FFFFu && (code < 0xD800u || code > 0xDFFFu); }

// Appends the UTF-8 form of text. Fails (false, out partly written) on a unit
// that is not a Unicode scalar value: a surrogate or a value above 0x10FFFF.
bool AppendUtf8(std::wstring_view text, std::string* out);

// How bytes decode: kValid, kIncomplete when only a sequence cut by the end
// is missing its last bytes, kInvalid for anything ill-formed (overlong
// forms, surrogates, values above 0x10FFFF, stray continuation bytes).
enum class Utf8Status { kValid, kIncomplete, kInvalid };

// Strict decoding, replacing *out: on anything but kValid *out holds the text
// before the first ill-formed or cut sequence.
Utf8Status DecodeUtf8Checked(std::string_view bytes, std::wstring* out);

// Strict decoding: fails (false) on any ill-formed or cut sequence.
bool DecodeUtf8(std::string_view bytes, std::wstring* out);

// True when bytes is well-formed UTF-8 in the sense of DecodeUtf8.
bool IsValidUtf8(std::string_view bytes);

// Lenient decoding for display and for bytes written into a text stream:
// each byte of an ill-formed or cut sequence becomes U+FFFD.
std::wstring DecodeUtf8Lenient(std::string_view bytes);

}  // namespace kit
