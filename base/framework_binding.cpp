#include "base/framework_binding.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "base/counted_text.h"
#include "base/iids.h"

namespace {

constexpr char kModuleFolder[] = "./_binlinux/";                       // no slash between "_bin" and "linux"
constexpr std::size_t kModuleFolderLength = sizeof kModuleFolder - 1;  // 12

using ModuleCreateFunction = HRESULT (*)(std::int32_t length, const wchar_t* name, CREATEFUNCTION* out);
using ModuleInitialize = HRESULT (*)(void* reserved, IComponentCollection* collection);

}  // namespace

void* OpenFrameworkModule(tagREFString module) {
    const std::size_t nameLength = module.length > 0 && module.string ? static_cast<std::size_t>(module.length) : 0;
    // At least 264 bytes; grown for long names so the path always fits.
    std::vector<char> path(std::max<std::size_t>(264, kModuleFolderLength + nameLength * MB_CUR_MAX + 4), '\0');
    std::memcpy(path.data(), kModuleFolder, kModuleFolderLength);
    if (nameLength > 0) {
        std::wstring name(module.string, nameLength);
        const std::size_t written = std::wcstombs(path.data() + kModuleFolderLength, name.c_str(), nameLength);
        (void)written;  // the suffix goes after the name's length whatever was written
    }
    std::memcpy(path.data() + kModuleFolderLength + nameLength, ".so", 4);
    void* library = dlopen(path.data(), RTLD_NOW);
    if (!library) {
        const char* error = dlerror();
        std::printf("Module not available %s, error %s\n", path.data(), error ? error : "");
        std::fflush(stdout);
        dlerror();
    }
    return library;
}

CREATEFUNCTION LoadComponentCreator(tagREFString module, tagREFString component) {
    void* library = OpenFrameworkModule(module);
    if (!library) return nullptr;
    auto create = reinterpret_cast<ModuleCreateFunction>(dlsym(library, "CreateFunction"));
    auto initialize = reinterpret_cast<ModuleInitialize>(dlsym(library, "InitializeModule"));
    if (!create) return nullptr;
    if (initialize && gGlobalComponentCollection) initialize(nullptr, gGlobalComponentCollection.get());
    CREATEFUNCTION result = nullptr;
    create(component.length, component.string, &result);
    return result;
}

__attribute__((weak)) CREATEFUNCTION MODULECreateFunction(tagREFString module, tagREFString component) {
    return LoadComponentCreator(module, component);
}

IComponentCollection* GLOBALComponents() {
    if (!gGlobalComponentCollection) {
        CREATEFUNCTION create =
            MODULECreateFunction(CountedText(L"CollectionsEx"), CountedText(L"GlobalComponentCollection"));
        if (create) {
            void* slot = nullptr;
            create(nullptr, &IID_IComponentCollection, &slot);
            gGlobalComponentCollection.reset(static_cast<IComponentCollection*>(slot));
        }
    }
    IComponentCollection* collection = gGlobalComponentCollection.get();
    if (collection) collection->AddRef();
    return collection;
}
