// The framework as timetool hosts it: Calendar.so and the host kit
// CollectionsEx.so loaded from the _binlinux folder beside the executable,
// the kit's global collection handed to the module, components created
// through the entry points.
#pragma once

#include <string>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_entry.h"
#include "module_interfaces.h"

namespace timetool {

// Identifiers the way every host computes them.
template <std::size_t N>
IID InterfaceId(const char (&name)[N]) {
    return IIDFromName(std::string_view(name, N - 1));
}

// The folder holding the module libraries: "_binlinux" next to the running
// executable, whatever the current directory.
std::string ModuleFolder();

class ModuleSession {
public:
    // Loads both libraries from `folder` (ModuleFolder() by default) and
    // installs the global collection; throws ToolError (status 1, naming the
    // path tried) when that fails.
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
    CreateFunctionProc calendarCreate_ = nullptr;
    SmartPtr<IComponentCollection> collection_;
};

// Throws ToolError (status 1) naming the operation when hr is a failure.
void CheckModule(HRESULT hr, const char* operation);

// "0x80004001".
std::string FormatResult(HRESULT hr);

}  // namespace timetool
