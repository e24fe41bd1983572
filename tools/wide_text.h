// Conversions between the command line's UTF-8 and the framework's UTF-32
// counted strings.
#pragma once

#include <string>
#include <string_view>

#include "com_types.h"

namespace timetool {

// Invalid UTF-8 bytes are carried over one by one as code points 0x80..0xFF.
std::wstring WidenUtf8(std::string_view text);
// Reads exactly `text.length` characters; a non-positive length is empty.
std::string NarrowToUtf8(const tagREFString& text);

}  // namespace timetool
