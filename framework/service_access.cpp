// The framework's string, collection and variant services, each found once
// per process and then asked for a new object on every call.
#include "base/counted_text.h"
#include "base/framework_binding.h"
#include "base/iids.h"
#include "framework/ref_string.h"

namespace {

constexpr tagREFString kServiceModule = CountedText(L"CollectionsEx");
constexpr tagREFString kDescriptorClass = CountedText(L"ComponentString");
constexpr tagREFString kDescriptorLibrary = CountedText(L"Collections");

// A new component descriptor from the services module's "ComponentString"
// class, or null when the module cannot be loaded or does not serve it. The
// module stays loaded for the life of the process.
IComponentString* LoadDescriptor() {
    CREATEFUNCTION createDescriptor = LoadComponentCreator(kServiceModule, kDescriptorClass);
    if (!createDescriptor) return nullptr;
    void* descriptor = nullptr;
    createDescriptor(nullptr, &IID_IComponentString, &descriptor);
    return static_cast<IComponentString*>(descriptor);
}

// The global collection's descriptor for the service when one is registered;
// otherwise a descriptor built from the services module, naming the library
// "Collections" and the service's class. The cache is never refreshed.
template <class Service>
Service* CreateService(SmartPtr<IComponentString>& cache, const tagREFString& component, const IID& iid) {
    if (!cache && gGlobalComponentCollection) {
        gGlobalComponentCollection->GetComponent(component.length, component.string, nullptr, cache.put_void());
    }
    if (!cache) {
        cache.reset(LoadDescriptor());
        if (!cache) return nullptr;
        cache->SetPart(kComponentPartLibrary, kDescriptorLibrary.length, kDescriptorLibrary.string);
        cache->SetPart(kComponentPartClass, component.length, component.string);
    }
    void* instance = nullptr;
    cache->CreateInstance(iid, &instance);
    return static_cast<Service*>(instance);
}

}  // namespace

ICreatableString* CREFString::CreateString() {
    static SmartPtr<IComponentString> gStringComponent;
    return CreateService<ICreatableString>(gStringComponent, CountedText(L"CreatableString"), IID_ICreatableString);
}

ISuperCollection* CREFString::CreateCollection() {
    static SmartPtr<IComponentString> gCollectionComponent;
    return CreateService<ISuperCollection>(gCollectionComponent, CountedText(L"SuperCollection"), IID_ISuperCollection);
}

IVariant* CREFString::CreateVariant() {
    static SmartPtr<IComponentString> gVariantComponent;
    return CreateService<IVariant>(gVariantComponent, CountedText(L"Variant"), IID_IVariant);
}
