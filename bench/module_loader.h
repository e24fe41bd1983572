// The built module as the benchmarks host it, through the installed host
// helper: Calendar.so and the host kit loaded from one folder, the kit's
// global collection installed, objects reached only through their
// interfaces.
#pragma once

#include <string>
#include <string_view>

#include "module_host.h"

namespace bench {

// Interface identifiers as a host computes them from the names.
inline IID NamedIID(std::string_view name) { return IIDFromName(name); }

// Folder holding Calendar.so and CollectionsEx.so: $CALENDAR_MODULE_DIR when
// set, else the build tree's _binlinux folder.
std::string ModuleFolder();

class ModuleLoader {
public:
    // Throws calendar_module::ModuleLoadError when a library or entry point
    // is missing; the benchmark main reports it and exits.
    ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    // New objects; std::runtime_error when the module does not create one,
    // so that no benchmark runs on a null object.
    SmartPtr<ITime> CreateTime() const;
    SmartPtr<IDblVector> CreateDblBuffer() const;

private:
    calendar_module::ModuleHost host_;
};

// The one loader of the process (loaded on first use, never unloaded).
const ModuleLoader& Module();

}  // namespace bench
