// The components the host kit serves, by name. Each creator makes a new
// object answering iid (one reference for the caller) or returns a code.
#pragma once

#include <string_view>

#include "com_types.h"

namespace kit {

using ComponentCreator = HRESULT (*)(const IID& iid, void** out);

// Core services.
HRESULT CreateGlobalComponentCollection(const IID& iid, void** out);
HRESULT CreateComponentString(const IID& iid, void** out);
HRESULT CreateCreatableString(const IID& iid, void** out);
HRESULT CreateVariant(const IID& iid, void** out);
HRESULT CreateSuperCollection(const IID& iid, void** out);
HRESULT CreateRegistry(const IID& iid, void** out);
// Streams and parameter collections.
HRESULT CreateDataStream(const IID& iid, void** out);
HRESULT CreateXMLStream(const IID& iid, void** out);
HRESULT CreateFolderStream(const IID& iid, void** out);
HRESULT CreateParametersCreatable(const IID& iid, void** out);

// The creator of a kit component, or null for a name the kit does not serve.
ComponentCreator FindKitComponent(std::wstring_view name);
// The framework creation function of a kit component, or null.
CREATEFUNCTION FindKitCreationFunction(std::wstring_view name);
// The kit's component names in table order, index in [0, KitComponentCount()).
std::size_t KitComponentCount();
std::wstring_view KitComponentName(std::size_t index);

}  // namespace kit
