// The vector's property page: one item, keyed by the component's name, whose
// value names the page.
#include "framework/property_pages.h"
#include "vector/dbl_buffer.h"

HRESULT CDblBuffer::GetPages(std::int32_t /*reserved*/, INamedCollection** pages, IUnknown** /*site*/) {
    return NewPropertyPages(pages, m_ObjectName, L"UIPropPages.UIVectorPropPage", PageThirdText::kNone);
}
