// The framework as timetool hosts it: Calendar.so and the host kit
// CollectionsEx.so loaded from one module folder through the installed host
// helper, the kit's global collection handed to the module, components
// created through the entry points. Failures become ToolErrors (status 1).
#pragma once

#include <string>

#include "module_host.h"

namespace timetool {

// Identifiers the way every host computes them.
template <std::size_t N>
IID InterfaceId(const char (&name)[N]) {
    return IIDFromName(std::string_view(name, N - 1));
}

using calendar_module::FormatResult;

// The module folder timetool uses and why, as --version reports it.
struct ModuleFolderChoice {
    std::string path;
    std::string reason;  // "set by CALENDAR_MODULE_DIR", "build tree", "installed tree" or what is missing
    bool found = false;  // whether Calendar.so is there
};

// CALENDAR_MODULE_DIR when set and not empty; else "_binlinux" beside the
// executable (the build tree); else the installed module folder, found from
// the executable's own folder. When neither holds Calendar.so the build-tree
// folder is chosen, so the load failure names where timetool looked first.
ModuleFolderChoice ChooseModuleFolder();

class ModuleSession {
public:
    // Loads both libraries from `folder` (ChooseModuleFolder() by default)
    // and installs the global collection; throws ToolError (status 1,
    // naming the path tried) when that fails.
    ModuleSession();
    explicit ModuleSession(const std::string& folder);
    ModuleSession(const ModuleSession&) = delete;
    ModuleSession& operator=(const ModuleSession&) = delete;

    // A new component of the module answering iid; throws ToolError when the
    // module does not serve it.
    void CreateComponent(const wchar_t* name, const IID& iid, void** out) const;
    // A new component of the host kit, created through the global collection.
    void CreateKitComponent(const wchar_t* name, const IID& iid, void** out) const;

    template <class I>
    SmartPtr<I> Create(const wchar_t* name, const IID& iid) const {
        SmartPtr<I> result;
        CreateComponent(name, iid, result.put_void());
        return result;
    }
    template <class I>
    SmartPtr<I> CreateKit(const wchar_t* name, const IID& iid) const {
        SmartPtr<I> result;
        CreateKitComponent(name, iid, result.put_void());
        return result;
    }

private:
    calendar_module::ModuleHost host_;
};

// Throws ToolError (status 1) naming the operation when hr is a failure.
void CheckModule(HRESULT hr, const char* operation);

}  // namespace timetool
