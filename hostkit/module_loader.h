// Loading another framework module by name and resolving the creation
// function of one of its components.
#pragma once

#include <string>
#include <string_view>

#include "com_types.h"

namespace kit {

// Longest library name accepted, in characters.
inline constexpr std::size_t kMaxLibraryName = 255;

// "./_binlinux/" + library (UTF-8) + ".so", relative to the current directory.
// Fails (false) for an empty or too long name, a NUL, or a unit that is not a
// Unicode scalar value.
bool FrameworkModulePath(std::wstring_view library, std::string* path);

// Loads the library with immediate binding (never closed again), looks up its
// plain "CreateFunction" and asks it for `component`. E_INVALIDARG for an
// unusable name, E_FAIL when the library cannot be loaded, lacks the entry
// point or does not serve the component.
HRESULT LoadCreationFunction(std::wstring_view library, std::wstring_view component, CREATEFUNCTION* out);

}  // namespace kit
