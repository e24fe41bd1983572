#include "hostkit/registry_location.h"

#include <gtest/gtest.h>

namespace {

struct LocationCase {
    const char* calendar_registry;
    const char* xdg_config_home;
    const char* home;
    const char* path;
};

TEST(RegistryPathFrom, EnvironmentDecidesInOrder) {
    const LocationCase cases[] = {
        {"/tmp/r.ini", "/x", "/home/u", "/tmp/r.ini"},
        {"relative.ini", nullptr, nullptr, "relative.ini"},
        {"", "/x", "/home/u", "/x/calendar-module/registry.ini"},
        {nullptr, "/x", "/home/u", "/x/calendar-module/registry.ini"},
        {nullptr, "x", "/home/u", "/home/u/.config/calendar-module/registry.ini"},
        {nullptr, "", "/home/u", "/home/u/.config/calendar-module/registry.ini"},
        {nullptr, nullptr, "/home/u", "/home/u/.config/calendar-module/registry.ini"},
        {nullptr, nullptr, "", ""},
        {nullptr, nullptr, nullptr, ""},
    };
    for (const LocationCase& c : cases) {
        EXPECT_EQ(kit::RegistryPathFrom({c.calendar_registry, c.xdg_config_home, c.home}), c.path);
    }
}

}  // namespace
