#include "base/iids.h"

#include <cstring>

#include "base/framework_binding.h"

// Defined first so that the one static initialiser below finds it already null
// and its release is registered with the exit handlers before any identifier
// is computed.
SmartPtr<IComponentCollection> gGlobalComponentCollection;

#define CATALOGUE_INTERFACE(name) IID IID_##name;
#include "base/interface_catalogue.inc"
#undef CATALOGUE_INTERFACE

const CatalogueEntry kCatalogue[kCatalogueSize] = {
#define CATALOGUE_INTERFACE(name) {#name, &IID_##name},
#include "base/interface_catalogue.inc"
#undef CATALOGUE_INTERFACE
};

__attribute__((weak)) IID __IIDOfc(const char* name) {
    if (!name) return IID_NULL;
    return IIDFromName(std::string_view(name, std::strlen(name)));
}

namespace {

// The module's one static initialiser.
struct CatalogueInitialiser {
    CatalogueInitialiser() noexcept {
        for (const CatalogueEntry& entry : kCatalogue) *entry.iid = __IIDOfc(entry.name);
    }
};
const CatalogueInitialiser gCatalogueInitialiser;

}  // namespace
