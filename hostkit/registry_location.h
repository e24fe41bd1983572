// Where the registry file lives when no path is set on the registry object.
#pragma once

#include <string>

namespace kit {

// The environment variables that decide the location; null when unset.
struct RegistryEnvironment {
    const char* calendar_registry;  // CALENDAR_REGISTRY: the file itself
    const char* xdg_config_home;    // XDG_CONFIG_HOME: the user's configuration folder
    const char* home;               // HOME
};

// CALENDAR_REGISTRY when set and not empty; else
// $XDG_CONFIG_HOME/calendar-module/registry.ini when that is an absolute
// path (relative values are ignored, as configuration folders must be
// absolute); else $HOME/.config/calendar-module/registry.ini when HOME is set
// and not empty; else the empty text (no location: an empty registry that
// cannot be written).
std::string RegistryPathFrom(const RegistryEnvironment& environment);

// RegistryPathFrom the process's current environment.
std::string DefaultRegistryPath();

}  // namespace kit
