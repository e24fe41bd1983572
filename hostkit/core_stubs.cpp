// Placeholders until the remaining core services land.
#include "hostkit/kit_components.h"

namespace kit {
HRESULT CreateRegistry(const IID&, void**) { return E_NOTIMPL; }
}  // namespace kit
