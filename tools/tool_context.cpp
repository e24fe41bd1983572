#include "tool_context.h"

#include <cstdlib>

#include "commands.h"

namespace timetool {

ToolContext::ToolContext()
    : session_(), dates_(session_), reader_(dates_, FixedNow(), ResolveZone(ZoneOption(), std::getenv("TZ"))) {}

ToolContext::ToolContext(const std::string& moduleFolder, std::string fixedNow, TimeZone zone)
    : session_(moduleFolder), dates_(session_), reader_(dates_, std::move(fixedNow), std::move(zone)) {}

namespace {

std::string& FixedNowSetting() {
    static std::string when;
    return when;
}

std::string& ZoneOptionSetting() {
    static std::string zone;
    return zone;
}

}  // namespace

void SetFixedNow(std::string when) { FixedNowSetting() = std::move(when); }

const std::string& FixedNow() { return FixedNowSetting(); }

void SetZoneOption(std::string zone) { ZoneOptionSetting() = std::move(zone); }

const std::string& ZoneOption() { return ZoneOptionSetting(); }

}  // namespace timetool
