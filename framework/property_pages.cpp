#include "framework/property_pages.h"

#include <cwchar>

#include "base/no_throw.h"
#include "framework/ref_string.h"

namespace {

SmartPtr<ICreatableString> NewText(const wchar_t* text, std::int32_t length) {
    SmartPtr<ICreatableString> result(CREFString::CreateString());
    if (result) result->SetString(length, text);
    return result;
}

}  // namespace

HRESULT NewPropertyPages(INamedCollection** pages, const tagREFString& componentName, const wchar_t* pageClass,
                         PageThirdText third) noexcept {
    if (!pages) return E_POINTER;
    *pages = nullptr;
    return NoThrow([&] {
        SmartPtr<ISuperCollection> collection(CREFString::CreateCollection());
        SmartPtr<ICreatableString> page = NewText(pageClass, static_cast<std::int32_t>(std::wcslen(pageClass)));
        SmartPtr<ICreatableString> name = NewText(componentName.string, componentName.length);
        SmartPtr<ICreatableString> thirdText;
        if (third == PageThirdText::kComponentName) {
            thirdText = NewText(componentName.string, componentName.length);
            if (!thirdText) return E_FAIL;
        }
        if (!collection || !page || !name) return E_FAIL;
        collection->Add(name.get(), page.get(), thirdText.get(), 0);
        *pages = collection.detach();
        return S_OK;
    });
}
