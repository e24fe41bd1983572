#include "support/module_host.h"

#include <map>

const LoadedModule& LoadModule(const char* module) {
    static std::map<std::string, LoadedModule> loaded;
    auto found = loaded.find(module);
    if (found != loaded.end()) return found->second;
    return loaded.emplace(module, LoadedModule::OpenOrThrow(ModulePath(module))).first->second;
}
