// Loads the built modules the way a host does: dlopen, the exported entry
// points, then interfaces only.
#pragma once

#include <string>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_entry.h"
#include "module_interfaces.h"

// Identifiers as a host computes them.
template <std::size_t N>
IID HostIID(const char (&name)[N]) {
    return IIDFromName(std::string_view(name, N - 1));
}

// Path of a module in the build tree's "_binlinux" folder.
std::string ModulePath(const char* module);

struct LoadedModule {
    void* handle = nullptr;
    CreateFunctionProc createFunction = nullptr;
    // The decorated exports; null in a module that lacks them.
    InitializeModuleProc initializeModule = nullptr;
    ModuleCreateFunctionProc moduleCreateFunction = nullptr;
    IIDOfcProc iidOfc = nullptr;

    // Resolves a symbol of the module (null when absent).
    void* Symbol(const char* name) const;
    // The creation function of a served component (null when not served).
    CREATEFUNCTION Factory(const wchar_t* component) const;
    // Creates a component answering iid; null on failure.
    template <class I>
    SmartPtr<I> Create(const wchar_t* component, const IID& iid) const {
        SmartPtr<I> result;
        if (CREATEFUNCTION create = Factory(component)) create(nullptr, &iid, result.put_void());
        return result;
    }
};

// Loads (once per process; libraries stay loaded) a module of the build tree.
const LoadedModule& LoadModule(const char* module);

// The module "Calendar" with the host kit's global collection installed
// through its InitializeModule.
class ModuleHost {
public:
    ModuleHost();
    const LoadedModule& calendar() const { return *calendar_; }
    const LoadedModule& kit() const { return *kit_; }
    IComponentCollection* collection() const { return collection_.get(); }

    template <class I>
    SmartPtr<I> CreateTime(const IID& iid) const {
        return calendar_->Create<I>(L"Time", iid);
    }
    template <class I>
    SmartPtr<I> CreateDblBuffer(const IID& iid) const {
        return calendar_->Create<I>(L"DblBuffer", iid);
    }
    // Creates one of the kit's components through the global collection.
    template <class I>
    SmartPtr<I> CreateKitComponent(const wchar_t* name, const IID& iid) const {
        SmartPtr<I> result;
        if (collection_) {
            collection_->GetComponent(static_cast<std::int32_t>(std::wcslen(name)), name, &iid, result.put_void());
        }
        return result;
    }

private:
    const LoadedModule* calendar_;
    const LoadedModule* kit_;
    SmartPtr<IComponentCollection> collection_;
};
