#include "hostkit/module_loader.h"

#include <dlfcn.h>

#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/utf8.h"
#include "module_entry.h"

namespace kit {

bool FrameworkModulePath(std::wstring_view library, std::string* path) {
    if (library.empty() || library.size() > kMaxLibraryName) return false;
    if (library.find(L'\0') != std::wstring_view::npos) return false;
    path->assign("./_binlinux/");
    if (!AppendUtf8(library, path)) return false;
    path->append(".so");
    return true;
}

HRESULT LoadCreationFunction(std::wstring_view library, std::wstring_view component, CREATEFUNCTION* out) {
    *out = nullptr;
    if (component.empty() || component.size() > kMaxTextLength) return E_INVALIDARG;
    return NoThrow([&] {
        std::string path;
        if (!FrameworkModulePath(library, &path)) return E_INVALIDARG;
        void* handle = dlopen(path.c_str(), RTLD_NOW);
        if (!handle) {
            dlerror();  // clears the loader's error state
            return E_FAIL;
        }
        auto create_function = reinterpret_cast<CreateFunctionProc>(dlsym(handle, "CreateFunction"));
        if (!create_function) return E_FAIL;
        CREATEFUNCTION create = nullptr;
        const HRESULT hr = create_function(static_cast<std::int32_t>(component.size()), component.data(), &create);
        if (FAILED(hr) || !create) return E_FAIL;
        *out = create;
        return S_OK;
    });
}

}  // namespace kit
