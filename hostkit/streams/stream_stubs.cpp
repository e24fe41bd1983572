// Placeholders until the streams and parameter collections land.
#include "hostkit/kit_components.h"

namespace kit {
HRESULT CreateDataStream(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateXMLStream(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateFolderStream(const IID&, void**) { return E_NOTIMPL; }
HRESULT CreateParametersCreatable(const IID&, void**) { return E_NOTIMPL; }
}  // namespace kit
