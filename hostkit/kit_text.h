// Counted text arguments at the kit's interfaces: checking them and reading
// the text of framework string objects.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "framework_interfaces.h"

namespace kit {

// Longest text a kit object holds: its length must fit the counted form.
inline constexpr std::size_t kMaxTextLength = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());

// A negative length is E_INVALIDARG; null characters with a positive length
// are E_POINTER; length 0 is the empty text whatever the pointer.
inline HRESULT CheckText(std::int32_t length, const wchar_t* text) {
    if (length < 0) return E_INVALIDARG;
    if (length > 0 && !text) return E_POINTER;
    return S_OK;
}

// The characters of a text that passed CheckText.
inline std::wstring_view TextView(std::int32_t length, const wchar_t* text) {
    if (length <= 0) return {};
    return std::wstring_view(text, static_cast<std::size_t>(length));
}

// The text a framework string object holds (a view owned by that object,
// valid until it changes). A null object is E_POINTER; a failing getter
// passes its code on; a length of 0 or less is the empty text.
inline HRESULT ReadString(IString* string, std::wstring_view* text) {
    *text = {};
    if (!string) return E_POINTER;
    tagREFString ref{0, nullptr};
    const HRESULT hr = string->GetString(&ref);
    if (FAILED(hr)) return hr;
    if (ref.length > 0) {
        if (!ref.string) return E_POINTER;
        *text = std::wstring_view(ref.string, static_cast<std::size_t>(ref.length));
    }
    return S_OK;
}

// ReadString for an optional text: a null object is the empty text.
inline HRESULT ReadOptionalString(IString* string, std::wstring_view* text) {
    if (!string) {
        *text = {};
        return S_OK;
    }
    return ReadString(string, text);
}

}  // namespace kit
