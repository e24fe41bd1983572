// Component descriptors: which library serves which component class.
#pragma once

#include <string_view>

#include "framework_interfaces.h"

namespace kit {

// The library name under which the kit's own components are registered.
inline constexpr std::wstring_view kKitLibrary = L"Collections";

// A new "ComponentString" with part 4 = library and part 1 = component; one
// reference for the caller.
HRESULT NewComponentString(std::wstring_view library, std::wstring_view component, IComponentString** out);

// The creation function of `component` served by `library`: the kit's own for
// "Collections", otherwise through the module-loading rule.
HRESULT ResolveCreationFunction(std::wstring_view library, std::wstring_view component, CREATEFUNCTION* out);

}  // namespace kit
