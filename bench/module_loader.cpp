#include "module_loader.h"

#include <dlfcn.h>

#include <cstdlib>
#include <cwchar>
#include <stdexcept>

namespace bench {
namespace {

void* Open(const std::string& path) {
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) throw std::runtime_error("cannot load " + path + ": " + dlerror());
    return handle;
}

template <class Proc>
Proc Entry(void* handle, const char* name) {
    void* symbol = dlsym(handle, name);
    if (!symbol) throw std::runtime_error(std::string("missing entry point ") + name);
    return reinterpret_cast<Proc>(symbol);
}

void* CreateWith(CreateFunctionProc createFunction, const wchar_t* component, const IID& iid) {
    CREATEFUNCTION create = nullptr;
    createFunction(static_cast<std::int32_t>(std::wcslen(component)), component, &create);
    void* object = nullptr;
    if (create) create(nullptr, &iid, &object);
    return object;
}

}  // namespace

std::string ModuleFolder() {
    if (const char* folder = std::getenv("CAL_MODULE_DIR")) return folder;
    return CAL_MODULE_FOLDER;
}

ModuleLoader::ModuleLoader() {
    const std::string folder = ModuleFolder();
    kit_ = Open(folder + "/CollectionsEx.so");
    calendar_ = Open(folder + "/Calendar.so");
    auto kitCreate = Entry<CreateFunctionProc>(kit_, "CreateFunction");
    calendarCreate_ = Entry<CreateFunctionProc>(calendar_, "CreateFunction");
    auto initialize = Entry<InitializeModuleProc>(calendar_, kInitializeModuleSymbol);
    collection_ = SmartPtr<IComponentCollection>(static_cast<IComponentCollection*>(
        CreateWith(kitCreate, L"GlobalComponentCollection", NamedIID("IComponentCollection"))));
    if (!collection_) throw std::runtime_error("the host kit gives no GlobalComponentCollection");
    initialize(nullptr, collection_.get());
}

void* ModuleLoader::Create(const wchar_t* component, const IID& iid) const {
    return CreateWith(calendarCreate_, component, iid);
}

SmartPtr<ITime> ModuleLoader::CreateTime() const {
    auto* time = static_cast<ITime*>(Create(L"Time", NamedIID("ITime")));
    if (!time) throw std::runtime_error("the module gives no Time object");
    return SmartPtr<ITime>(time);
}

SmartPtr<IDblVector> ModuleLoader::CreateDblBuffer() const {
    auto* vector = static_cast<IDblVector*>(Create(L"DblBuffer", NamedIID("IDblVector")));
    if (!vector) throw std::runtime_error("the module gives no DblBuffer object");
    return SmartPtr<IDblVector>(vector);
}

const ModuleLoader& Module() {
    static const ModuleLoader loader;
    return loader;
}

}  // namespace bench
