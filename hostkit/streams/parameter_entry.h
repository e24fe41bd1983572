// One entry of a parameter collection: its name, kind and value, copied out
// of the variant it was added with.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "framework_interfaces.h"

namespace kit::streams {

// The kinds an entry keeps; the variant type codes of the framework.
enum class ParameterKind : short {
    kEmpty = kVariantEmpty,
    kInteger = kVariantInteger,
    kDouble = kVariantDouble,
    kText = kVariantText,
};

struct ParameterEntry {
    std::wstring name;  // non-empty, unique within a collection
    ParameterKind kind = ParameterKind::kEmpty;
    std::int32_t integer = 0;  // kInteger
    double number = 0.0;       // kDouble
    std::wstring text;         // kText
};

using ParameterEntries = std::vector<ParameterEntry>;

// Whether two entries share a name (n log n, for loaded collections).
bool HasRepeatedName(const ParameterEntries& entries);

// Copies the value of a variant into entry (name untouched). A variant
// holding an object is E_INVALIDARG: objects cannot be saved.
HRESULT EntryFromVariant(IVariant* variant, ParameterEntry* entry);

// A new variant (the kit's "Variant") holding the entry's value; one
// reference for the caller.
HRESULT VariantFromEntry(const ParameterEntry& entry, IVariant** out);

// The name of a kind in saved text ("empty", "integer", "double", "text"),
// and back; false for an unknown name.
std::string_view KindName(ParameterKind kind);
bool KindFromName(std::string_view name, ParameterKind* kind);

}  // namespace kit::streams
