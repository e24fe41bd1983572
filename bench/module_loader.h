// Loads the built module the way a host does: dlopen of Calendar.so, the
// host kit's global collection installed through InitializeModule, then
// objects reached only through their interfaces.
#pragma once

#include <string>
#include <string_view>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_entry.h"
#include "module_interfaces.h"

namespace bench {

// Interface identifiers as a host computes them from the names.
inline IID NamedIID(std::string_view name) { return IIDFromName(name); }

// Folder holding Calendar.so and CollectionsEx.so: $CAL_MODULE_DIR when set,
// else the build tree's _binlinux folder.
std::string ModuleFolder();

class ModuleLoader {
public:
    // Throws std::runtime_error when a module or entry point is missing;
    // the benchmark main reports it and exits.
    ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    // A new object of the component answering iid; null on failure.
    void* Create(const wchar_t* component, const IID& iid) const;
    SmartPtr<ITime> CreateTime() const;
    SmartPtr<IDblVector> CreateDblBuffer() const;

private:
    void* calendar_ = nullptr;
    void* kit_ = nullptr;
    CreateFunctionProc calendarCreate_ = nullptr;
    SmartPtr<IComponentCollection> collection_;
};

// The one loader of the process (loaded on first use, never unloaded).
const ModuleLoader& Module();

}  // namespace bench
