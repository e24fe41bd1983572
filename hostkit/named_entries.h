// Index and name access shared by the kit's collections of named entries
// (super collection, parameter collection, folder stream values): entries in
// a vector, each with a text member as its name. None of these throws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "framework_interfaces.h"
#include "hostkit/creatable_string.h"
#include "hostkit/kit_text.h"

namespace kit {

// Counts and indexes travel as signed 32-bit values.
inline bool IndexInRange(std::int32_t index, std::size_t count) {
    return index >= 0 && static_cast<std::size_t>(index) < count;
}

inline HRESULT ReportCount(std::size_t count, std::int32_t* out) {
    if (!out) return E_POINTER;
    *out = static_cast<std::int32_t>(count);
    return S_OK;
}

// The common start of an indexed getter: a null out is E_POINTER; otherwise
// *out is cleared (null, 0) before an index outside [0, count) is
// E_INVALIDARG, so callers never see a stale value.
template <class T>
HRESULT ClearIndexedOut(T* out, std::int32_t index, std::size_t count) {
    if (!out) return E_POINTER;
    *out = T{};
    return IndexInRange(index, count) ? S_OK : E_INVALIDARG;
}

// The index of the first entry whose name is exactly text (case matters);
// -1 when there is none.
template <class Entry>
std::ptrdiff_t FindEntry(const std::vector<Entry>& entries, std::wstring Entry::*name, std::wstring_view text) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].*name == text) return static_cast<std::ptrdiff_t>(i);
    }
    return -1;
}

// Name lookup as the collections answer it: *index is -1 and the result is
// `absent` for a name no entry has.
template <class Entry>
HRESULT FindEntryIndex(const std::vector<Entry>& entries, std::wstring Entry::*name, IString* text, std::int32_t* index,
                       HRESULT absent) {
    if (!index) return E_POINTER;
    *index = -1;
    std::wstring_view key;
    const HRESULT hr = ReadString(text, &key);
    if (FAILED(hr)) return hr;
    const std::ptrdiff_t found = FindEntry(entries, name, key);
    if (found < 0) return absent;
    *index = static_cast<std::int32_t>(found);
    return S_OK;
}

// A new text object holding the name of the entry at index.
template <class Entry>
HRESULT EntryName(const std::vector<Entry>& entries, std::wstring Entry::*name, std::int32_t index, IString** out) {
    const HRESULT hr = ClearIndexedOut(out, index, entries.size());
    if (FAILED(hr)) return hr;
    return NewString(entries[static_cast<std::size_t>(index)].*name, out);
}

}  // namespace kit
