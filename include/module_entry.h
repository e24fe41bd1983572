// Entry points of a framework module, as a host resolves them with dlsym.
#pragma once

#include "com_types.h"
#include "framework_interfaces.h"

// Exported under the plain name "CreateFunction".
using CreateFunctionProc = HRESULT (*)(std::int32_t length, const wchar_t* name, CREATEFUNCTION* out);

// Exported with C++ linkage only, under this decorated name; a lookup of the
// plain name "InitializeModule" finds nothing in this module.
using InitializeModuleProc = HRESULT (*)(void* reserved, IComponentCollection* collection);
inline constexpr const char* kInitializeModuleSymbol = "_Z16InitializeModulePvP20IComponentCollection";

// Weak, decorated helpers exported by the module.
using ModuleCreateFunctionProc = CREATEFUNCTION (*)(tagREFString module, tagREFString component);
inline constexpr const char* kModuleCreateFunctionSymbol = "_Z20MODULECreateFunction12tagREFStringS_";
using IIDOfcProc = IID (*)(const char* name);
inline constexpr const char* kIIDOfcSymbol = "_Z8__IIDOfcPKc";
