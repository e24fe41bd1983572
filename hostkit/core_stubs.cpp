// Placeholders until the core services land.
#include "hostkit/kit_components.h"

namespace kit {
HRESULT CreateGlobalComponentCollection(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateComponentString(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateCreatableString(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateVariant(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateSuperCollection(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateRegistry(const IID&, void**) { return E_NOTIMPL; }
}  // namespace kit
