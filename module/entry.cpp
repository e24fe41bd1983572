#include "module/entry.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "module/iids.h"
#include "module/object.h"
#include "time/calendar_component.h"
#include "vector/dbl_buffer.h"

namespace {

struct ServedComponent {
    const tagREFString* name;
    CREATEFUNCTION create;
};

// Tried in this order; hosts rely on "DblBuffer" being matched first.
const ServedComponent kServedComponents[] = {
    {&IObjectInfoImpl<CDblBuffer>::m_ObjectName, &CObject<CDblBuffer>::_CreateInstance},
    {&IObjectInfoImpl<CCalendar>::m_ObjectName, &CObject<CCalendar>::_CreateInstance},
};

// Exact, case-sensitive comparison of a counted name with a served name;
// never reads more than `length` characters of `name`.
bool NameMatches(const tagREFString& served, std::int32_t length, const wchar_t* name) {
    if (length != served.length) return false;
    for (std::int32_t i = 0; i < length; ++i) {
        if (name[i] != served.string[i]) return false;
    }
    return true;
}

constexpr char kModuleFolder[] = "./_binlinux/";                       // no slash between "_bin" and "linux"
constexpr std::size_t kModuleFolderLength = sizeof kModuleFolder - 1;  // 12

}  // namespace

HRESULT InitializeModule(void* /*reserved*/, IComponentCollection* collection) {
    // The new reference is taken before the old one is dropped, so passing the
    // collection already held is safe.
    if (collection) collection->AddRef();
    // The slot is empty while the old collection is released, so a release
    // that re-enters the module finds no collection rather than the new one.
    IComponentCollection* previous = gGlobalComponentCollection.detach();
    if (previous) previous->Release();
    gGlobalComponentCollection.reset(collection);
    return S_OK;
}

extern "C" HRESULT CreateFunction(std::int32_t length, const wchar_t* name, CREATEFUNCTION* out) {
    if (!out || (length > 0 && !name)) return E_POINTER;
    for (const ServedComponent& component : kServedComponents) {
        if (NameMatches(*component.name, length, name)) {
            *out = component.create;
            return S_OK;
        }
    }
    return E_FAIL;
}

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

__attribute__((weak)) CREATEFUNCTION MODULECreateFunction(tagREFString module, tagREFString component) {
    void* library = OpenFrameworkModule(module);
    if (!library) return nullptr;
    auto create =
        reinterpret_cast<HRESULT (*)(std::int32_t, const wchar_t*, CREATEFUNCTION*)>(dlsym(library, "CreateFunction"));
    auto initialize = reinterpret_cast<HRESULT (*)(void*, IComponentCollection*)>(dlsym(library, "InitializeModule"));
    if (!create) return nullptr;
    if (initialize && gGlobalComponentCollection) initialize(nullptr, gGlobalComponentCollection.get());
    CREATEFUNCTION result = nullptr;
    create(component.length, component.string, &result);
    return result;
}

IComponentCollection* GLOBALComponents() {
    if (!gGlobalComponentCollection) {
        CREATEFUNCTION create =
            MODULECreateFunction(tagREFString{13, L"CollectionsEx"}, tagREFString{25, L"GlobalComponentCollection"});
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
