#include "hostkit/registry_location.h"

#include <cstdlib>

namespace kit {

namespace {

bool IsSet(const char* value) { return value && value[0] != '\0'; }

}  // namespace

std::string RegistryPathFrom(const RegistryEnvironment& environment) {
    if (IsSet(environment.calendar_registry)) return environment.calendar_registry;
    if (IsSet(environment.xdg_config_home) && environment.xdg_config_home[0] == '/') {
        return std::string(environment.xdg_config_home) + "/calendar-module/registry.ini";
    }
    if (IsSet(environment.home)) return std::string(environment.home) + "/.config/calendar-module/registry.ini";
    return {};
}

std::string DefaultRegistryPath() {
    return RegistryPathFrom({std::getenv("CALENDAR_REGISTRY"), std::getenv("XDG_CONFIG_HOME"), std::getenv("HOME")});
}

}  // namespace kit
