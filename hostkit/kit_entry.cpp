// Entry points of the host kit module "CollectionsEx".
#include <cstdint>
#include <iterator>

#include "framework_interfaces.h"
#include "hostkit/kit_components.h"

namespace kit {

namespace {

struct KitComponent {
    std::wstring_view name;
    ComponentCreator create;
};

const KitComponent kKitComponents[] = {
    {L"GlobalComponentCollection", &CreateGlobalComponentCollection},
    {L"ComponentString", &CreateComponentString},
    {L"CreatableString", &CreateCreatableString},
    {L"Variant", &CreateVariant},
    {L"SuperCollection", &CreateSuperCollection},
    {L"Registry", &CreateRegistry},
    {L"DataStream", &CreateDataStream},
    {L"XMLStream", &CreateXMLStream},
    {L"FolderStream", &CreateFolderStream},
    {L"ParametersCreatable", &CreateParametersCreatable},
};

template <ComponentCreator create>
HRESULT CreationFunction(void* /*outer*/, const IID* iid, void** out) {
    if (!iid || !out) return E_POINTER;
    return create(*iid, out);
}

// The framework's creation functions, one per kit component, in table order.
const CREATEFUNCTION kCreationFunctions[] = {
    &CreationFunction<&CreateGlobalComponentCollection>,
    &CreationFunction<&CreateComponentString>,
    &CreationFunction<&CreateCreatableString>,
    &CreationFunction<&CreateVariant>,
    &CreationFunction<&CreateSuperCollection>,
    &CreationFunction<&CreateRegistry>,
    &CreationFunction<&CreateDataStream>,
    &CreationFunction<&CreateXMLStream>,
    &CreationFunction<&CreateFolderStream>,
    &CreationFunction<&CreateParametersCreatable>,
};
static_assert(std::size(kCreationFunctions) == std::size(kKitComponents));

}  // namespace

ComponentCreator FindKitComponent(std::wstring_view name) {
    for (const KitComponent& component : kKitComponents) {
        if (component.name == name) return component.create;
    }
    return nullptr;
}

CREATEFUNCTION FindKitCreationFunction(std::wstring_view name) {
    for (std::size_t i = 0; i < std::size(kKitComponents); ++i) {
        if (kKitComponents[i].name == name) return kCreationFunctions[i];
    }
    return nullptr;
}

std::size_t KitComponentCount() { return std::size(kKitComponents); }

std::wstring_view KitComponentName(std::size_t index) {
    return index < std::size(kKitComponents) ? kKitComponents[index].name : std::wstring_view();
}

}  // namespace kit

// The kit exports both entry points under their plain names.
extern "C" __attribute__((visibility("default"))) HRESULT CreateFunction(std::int32_t length, const wchar_t* name,
                                                                         CREATEFUNCTION* out) {
    if (!out || length <= 0 || !name) return E_FAIL;
    CREATEFUNCTION create = kit::FindKitCreationFunction(std::wstring_view(name, static_cast<std::size_t>(length)));
    if (!create) return E_FAIL;
    *out = create;
    return S_OK;
}

extern "C" __attribute__((visibility("default"))) HRESULT InitializeModule(void* /*reserved*/,
                                                                           IComponentCollection* /*collection*/) {
    return S_OK;  // the kit is the collection's own provider and keeps none
}
