#include "hostkit/streams/parameters_folder.h"

#include <string>

#include "hostkit/creatable_string.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/folder_format.h"
#include "hostkit/streams/parameter_values.h"
#include "hostkit/streams/stream_results.h"

namespace kit::streams {

namespace {

constexpr std::wstring_view kValuePrefix = L"Parameter:";

// Names of the stream's values that hold parameters, in the stream's order.
HRESULT ParameterValueNames(IFolderStream* stream, std::vector<SmartPtr<IString>>* names) {
    std::int32_t count = 0;
    HRESULT hr = stream->GetValueCount(&count);
    if (FAILED(hr)) return hr;
    for (std::int32_t i = 0; i < count; ++i) {
        SmartPtr<IString> name;
        hr = stream->GetValueName(i, name.put());
        if (FAILED(hr)) return hr;
        std::wstring_view text;
        hr = ReadString(name.get(), &text);
        if (FAILED(hr)) return hr;
        if (text.starts_with(kValuePrefix)) names->push_back(std::move(name));
    }
    return S_OK;
}

HRESULT ReadEntry(IFolderStream* stream, IString* name, ParameterEntry* entry) {
    std::wstring_view text;
    HRESULT hr = ReadString(name, &text);
    if (FAILED(hr)) return hr;
    entry->name.assign(text.substr(kValuePrefix.size()));
    if (entry->name.empty()) return kE_StreamCorrupt;
    std::int32_t size = 0;
    hr = stream->GetValueSize(name, &size);
    if (FAILED(hr)) return hr;
    if (size <= 0) return kE_StreamCorrupt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    hr = stream->ReadValue(name, bytes.data(), size, 0);
    if (FAILED(hr)) return hr;
    return ValueFromBytes(bytes, entry) ? S_OK : kE_StreamCorrupt;
}

}  // namespace

HRESULT SaveParametersFolder(const ParameterEntries& entries, IFolderStream* stream) {
    if (!stream) return E_POINTER;
    for (const ParameterEntry& entry : entries) {
        if (!IsValueName(std::wstring(kValuePrefix).append(entry.name))) return E_INVALIDARG;
    }
    std::vector<SmartPtr<IString>> stale;
    HRESULT hr = ParameterValueNames(stream, &stale);
    if (FAILED(hr)) return hr;
    for (const SmartPtr<IString>& name : stale) {
        hr = stream->RemoveValue(name.get());
        if (FAILED(hr)) return hr;
    }
    for (const ParameterEntry& entry : entries) {
        SmartPtr<IString> name;
        hr = NewString(std::wstring(kValuePrefix).append(entry.name), name.put());
        if (FAILED(hr)) return hr;
        const std::string bytes = ValueBytes(entry);
        if (bytes.size() > kMaxStreamSize) return E_OUTOFMEMORY;
        hr = stream->WriteValue(name.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), 0);
        if (FAILED(hr)) return hr;
    }
    return S_OK;
}

HRESULT LoadParametersFolder(IFolderStream* stream, ParameterEntries* entries) {
    if (!stream) return E_POINTER;
    std::vector<SmartPtr<IString>> names;
    HRESULT hr = ParameterValueNames(stream, &names);
    if (FAILED(hr)) return hr;
    ParameterEntries loaded(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        hr = ReadEntry(stream, names[i].get(), &loaded[i]);
        if (FAILED(hr)) return hr;
    }
    if (HasRepeatedName(loaded)) return kE_StreamCorrupt;
    *entries = std::move(loaded);
    return S_OK;
}

}  // namespace kit::streams
