#include "hostkit/streams/parameter_entry.h"

#include <algorithm>

#include "hostkit/creatable_string.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/byte_store.h"

namespace kit::streams {

namespace {

struct KindRow {
    ParameterKind kind;
    std::string_view name;
};
constexpr KindRow kKinds[] = {
    {ParameterKind::kEmpty, "empty"},
    {ParameterKind::kInteger, "integer"},
    {ParameterKind::kDouble, "double"},
    {ParameterKind::kText, "text"},
};

}  // namespace

bool HasRepeatedName(const ParameterEntries& entries) {
    std::vector<std::wstring_view> names;
    names.reserve(entries.size());
    for (const ParameterEntry& entry : entries) names.push_back(entry.name);
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) != names.end();
}

std::string_view KindName(ParameterKind kind) {
    for (const KindRow& row : kKinds) {
        if (row.kind == kind) return row.name;
    }
    return {};
}

bool KindFromName(std::string_view name, ParameterKind* kind) {
    for (const KindRow& row : kKinds) {
        if (row.name == name) {
            *kind = row.kind;
            return true;
        }
    }
    return false;
}

HRESULT EntryFromVariant(IVariant* variant, ParameterEntry* entry) {
    if (!variant) return E_POINTER;
    if (variant->IsString()) {
        SmartPtr<IString> string;
        HRESULT hr = variant->GetString(string.put());
        if (FAILED(hr)) return hr;
        std::wstring_view text;
        hr = ReadString(string.get(), &text);
        if (FAILED(hr)) return hr;
        entry->text.assign(text);
        entry->kind = ParameterKind::kText;
        return S_OK;
    }
    switch (variant->GetType()) {
        case kVariantEmpty: {
            // An object reports the empty type too; only GetObject tells them apart.
            SmartPtr<IUnknown> object;
            if (SUCCEEDED(variant->GetObject(object.put())) && object) return E_INVALIDARG;
            entry->kind = ParameterKind::kEmpty;
            return S_OK;
        }
        case kVariantInteger:
            entry->kind = ParameterKind::kInteger;
            entry->integer = variant->GetInteger();
            return S_OK;
        case kVariantDouble:
            entry->kind = ParameterKind::kDouble;
            entry->number = variant->GetDouble();
            return S_OK;
        default:
            return E_INVALIDARG;
    }
}

HRESULT VariantFromEntry(const ParameterEntry& entry, IVariant** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    SmartPtr<IVariant> variant;
    HRESULT hr = CreateVariant(kIID_IVariant, variant.put_void());
    if (FAILED(hr)) return hr;
    if (!variant) return E_FAIL;
    switch (entry.kind) {
        case ParameterKind::kEmpty:
            hr = S_OK;
            break;
        case ParameterKind::kInteger:
            hr = variant->SetInteger(entry.integer);
            break;
        case ParameterKind::kDouble:
            hr = variant->SetDouble(entry.number);
            break;
        case ParameterKind::kText:
            if (entry.text.size() > kMaxStreamSize) return E_OUTOFMEMORY;
            hr = variant->SetText(static_cast<std::int32_t>(entry.text.size()), entry.text.data());
            break;
    }
    if (FAILED(hr)) return hr;
    *out = variant.detach();
    return S_OK;
}

}  // namespace kit::streams
