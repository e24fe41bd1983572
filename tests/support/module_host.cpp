#include "support/module_host.h"

#include <dlfcn.h>

#include <cwchar>
#include <map>
#include <stdexcept>

std::string ModulePath(const char* module) { return std::string(CAL_BUILD_DIR) + "/_binlinux/" + module + ".so"; }

void* LoadedModule::Symbol(const char* name) const { return dlsym(handle, name); }

CREATEFUNCTION LoadedModule::Factory(const wchar_t* component) const {
    CREATEFUNCTION create = nullptr;
    if (createFunction) {
        createFunction(static_cast<std::int32_t>(std::wcslen(component)), component, &create);
    }
    return create;
}

const LoadedModule& LoadModule(const char* module) {
    static std::map<std::string, LoadedModule> loaded;
    auto found = loaded.find(module);
    if (found != loaded.end()) return found->second;
    LoadedModule entry;
    const std::string path = ModulePath(module);
    entry.handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!entry.handle) throw std::runtime_error("cannot load " + path + ": " + dlerror());
    entry.createFunction = reinterpret_cast<CreateFunctionProc>(dlsym(entry.handle, "CreateFunction"));
    entry.initializeModule = reinterpret_cast<InitializeModuleProc>(dlsym(entry.handle, kInitializeModuleSymbol));
    entry.moduleCreateFunction =
        reinterpret_cast<ModuleCreateFunctionProc>(dlsym(entry.handle, kModuleCreateFunctionSymbol));
    entry.iidOfc = reinterpret_cast<IIDOfcProc>(dlsym(entry.handle, kIIDOfcSymbol));
    return loaded.emplace(module, entry).first->second;
}

ModuleHost::ModuleHost() : calendar_(&LoadModule("Calendar")), kit_(&LoadModule("CollectionsEx")) {
    static const IID kCollection = HostIID("IComponentCollection");
    collection_ = kit_->Create<IComponentCollection>(L"GlobalComponentCollection", kCollection);
    if (calendar_->initializeModule) calendar_->initializeModule(nullptr, collection_.get());
}
