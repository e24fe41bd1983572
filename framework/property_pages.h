// The property-page description a component hands to the framework's pages:
// a collection holding one item that names the page class for the component.
#pragma once

#include "com_types.h"
#include "framework_interfaces.h"

enum class PageThirdText {
    kNone,           // the item's third text is null
    kComponentName,  // the component's name again
};

// A new collection (one reference for the caller in *pages) with the item
// (component name, page class, third text, 0). E_POINTER for a null pages;
// E_FAIL with *pages null when the framework's services are unavailable;
// exceptions of framework objects are not let through.
HRESULT NewPropertyPages(INamedCollection** pages, const tagREFString& componentName, const wchar_t* pageClass,
                         PageThirdText third) noexcept;
