// Interface identifiers of the framework's catalogue, computed once when the
// library is loaded (zero before that).
#pragma once

#include <cstddef>

#include "com_types.h"

// The identifier of an interface name: up to 25 characters, 5 bits each,
// case-insensitive (the same rule as IIDFromName). Exported as a weak symbol,
// weak at the definition only so that references stay strong.
__attribute__((visibility("default"))) IID __IIDOfc(const char* name);

// One global per catalogue name, named IID_ followed by the name exactly.
#define CATALOGUE_INTERFACE(name) extern IID IID_##name;
#include "base/interface_catalogue.inc"
#undef CATALOGUE_INTERFACE

struct CatalogueEntry {
    const char* name;
    IID* iid;
};

// The catalogue in the framework's order.
inline constexpr std::size_t kCatalogueSize = 106;
extern const CatalogueEntry kCatalogue[kCatalogueSize];
