// The host kit's services as the module sees them, for tests that run the
// module's internal code against the real kit.
#pragma once

#include <string>

#include "com_types.h"
#include "framework_interfaces.h"
#include "support/module_host.h"

// A new global collection from the built kit (./_binlinux/CollectionsEx.so of
// the build tree); null when the kit cannot be loaded.
inline SmartPtr<IComponentCollection> CreateKitCollection() {
    return LoadModule("CollectionsEx")
        .Create<IComponentCollection>(L"GlobalComponentCollection", HostIID("IComponentCollection"));
}

// The characters of a text object; "<null>" for no object.
inline std::wstring TextOf(IString* text) {
    if (!text) return L"<null>";
    tagREFString view{0, nullptr};
    if (FAILED(text->GetString(&view))) return L"<failed>";
    return view.length > 0 ? std::wstring(view.string, static_cast<std::size_t>(view.length)) : std::wstring();
}
