// The built modules as the tests host them, through the installed host
// helper: dlopen, the exported entry points, then interfaces only. The
// shapes here are what the tests use; the loading is the helper's.
#pragma once

#include <string>

#include <module_host.h>

// Identifiers as a host computes them.
template <std::size_t N>
IID HostIID(const char (&name)[N]) {
    return IIDFromName(std::string_view(name, N - 1));
}

// The build tree's module folder.
inline constexpr const char* kBuildModuleFolder = CAL_BUILD_DIR "/_binlinux";

// Path of a module in the build tree's module folder.
inline std::string ModulePath(const char* module) { return calendar_module::ModulePath(kBuildModuleFolder, module); }

using LoadedModule = calendar_module::ModuleLibrary;

// Loads (once per process; libraries stay loaded) a module of the build
// tree; throws calendar_module::ModuleLoadError when it cannot.
const LoadedModule& LoadModule(const char* module);

// The module "Calendar" with the host kit's global collection installed
// through its InitializeModule.
class ModuleHost {
public:
    ModuleHost() : host_(calendar_module::ModuleHost::LoadOrThrow(kBuildModuleFolder)) {}
    const LoadedModule& calendar() const { return host_.calendar(); }
    const LoadedModule& kit() const { return host_.kit(); }
    IComponentCollection* collection() const { return host_.collection(); }

    template <class I>
    SmartPtr<I> CreateTime(const IID& iid) const {
        return host_.Create<I>(L"Time", iid);
    }
    template <class I>
    SmartPtr<I> CreateDblBuffer(const IID& iid) const {
        return host_.Create<I>(L"DblBuffer", iid);
    }
    // One of the kit's components, created through the global collection.
    template <class I>
    SmartPtr<I> CreateKitComponent(const wchar_t* name, const IID& iid) const {
        return host_.CreateKit<I>(name, iid);
    }

private:
    calendar_module::ModuleHost host_;
};
