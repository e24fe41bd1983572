// The module's two entry points: the host hands over its global component
// collection and asks for components by name.
#pragma once

#include "com_types.h"
#include "framework_interfaces.h"

extern "C" __attribute__((visibility("default"))) HRESULT CreateFunction(std::int32_t length, const wchar_t* name,
                                                                         CREATEFUNCTION* out);
__attribute__((visibility("default"))) HRESULT InitializeModule(void* reserved, IComponentCollection* collection);
