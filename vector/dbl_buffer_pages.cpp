// The vector's property page: one item, keyed by the component's name, whose
// value names the page.
#include <cwchar>
#include <new>

#include "framework/ref_string.h"
#include "vector/dbl_buffer.h"

namespace {
constexpr wchar_t kVectorPropertyPage[] = L"UIPropPages.UIVectorPropPage";
}  // namespace

HRESULT CDblBuffer::GetPages(std::int32_t /*reserved*/, INamedCollection** pages, IUnknown** /*site*/) {
    if (!pages) return E_POINTER;
    *pages = nullptr;
    try {
        SmartPtr<ISuperCollection> collection(CREFString::CreateCollection());
        SmartPtr<ICreatableString> page(CREFString::CreateString());
        SmartPtr<ICreatableString> name(CREFString::CreateString());
        if (!collection || !page || !name) return E_FAIL;  // the framework's services are unavailable
        page->SetString(static_cast<std::int32_t>(std::wcslen(kVectorPropertyPage)), kVectorPropertyPage);
        name->SetString(m_ObjectName.length, m_ObjectName.string);
        collection->Add(name.get(), page.get(), nullptr, 0);
        *pages = collection.detach();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}
