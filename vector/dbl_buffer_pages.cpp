// The vector's property page: "UIPropPages.UIVectorPropPage", keyed by the
// component's name.
#include "vector/dbl_buffer.h"

HRESULT CDblBuffer::GetPages(std::int32_t /*reserved*/, INamedCollection** pages, IUnknown** /*site*/) {
    if (!pages) return E_POINTER;
    *pages = nullptr;
    return E_NOTIMPL;  // filled in once the framework string accessors exist
}
