// Conversion between wide text (UTF-32 code units) and UTF-8 bytes, used for
// file names, library names and the registry file.
#pragma once

#include <string>
#include <string_view>

namespace kit {

// Appends the UTF-8 form of text. Fails (false, out partly written) on a unit
// that is not a Unicode scalar value: a surrogate or a value above 0x10FFFF.
bool AppendUtf8(std::wstring_view text, std::string* out);

// Strict decoding: fails (false) on any ill-formed sequence (overlong forms,
// surrogates, values above 0x10FFFF, truncated or stray continuation bytes).
bool DecodeUtf8(std::string_view bytes, std::wstring* out);

// True when bytes is well-formed UTF-8 in the sense of DecodeUtf8.
bool IsValidUtf8(std::string_view bytes);

// Lenient decoding for display (file names from the environment): each byte
// of an ill-formed sequence becomes U+FFFD.
std::wstring DecodeUtf8Lenient(std::string_view bytes);

}  // namespace kit
