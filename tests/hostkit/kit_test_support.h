// Helpers for the host-level tests of the kit: everything goes through the
// loaded CollectionsEx.so, its CreateFunction and the interfaces.
#pragma once

#include <string>

#include "support/module_host.h"

inline const LoadedModule& Kit() { return LoadModule("CollectionsEx"); }

// A new kit component answering iid, created through the kit's CreateFunction.
template <class I, std::size_t N>
SmartPtr<I> NewKit(const wchar_t* component, const char (&iid)[N]) {
    return Kit().Create<I>(component, HostIID(iid));
}

inline SmartPtr<IString> NewText(const wchar_t* text) {
    SmartPtr<IString> string = NewKit<IString>(L"CreatableString", "IString");
    if (string) string->SetString(static_cast<std::int32_t>(std::wcslen(text)), text);
    return string;
}

// The text an object holds, or "<null>" / "<failed>".
inline std::wstring TextOf(IString* string) {
    if (!string) return L"<null>";
    tagREFString ref{-1, nullptr};
    if (FAILED(string->GetString(&ref))) return L"<failed>";
    return std::wstring(ref.string, static_cast<std::size_t>(ref.length));
}

inline std::wstring TextOf(const tagREFString& ref) {
    return std::wstring(ref.string, static_cast<std::size_t>(ref.length));
}

// The count after one more AddRef, undone at once: the number of references held.
inline std::int32_t RefsHeld(IUnknown* object) {
    object->AddRef();
    return object->Release();
}
