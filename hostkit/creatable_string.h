// The kit's text object, for the other kit components that hand out text.
#pragma once

#include <string_view>

#include "framework_interfaces.h"

namespace kit {

// A new "CreatableString" holding a copy of text; one reference for the caller.
HRESULT NewString(std::wstring_view text, IString** out);

}  // namespace kit
