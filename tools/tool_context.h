// What a command that reads instants needs: the loaded module, its date
// conversions and the WHEN reader.
#pragma once

#include <string>

#include "module_dates.h"
#include "when_reader.h"

namespace timetool {

class ToolContext {
public:
    // The module from ModuleFolder(), "now" as FixedNow() says, the zone
    // --tz or TZ names (ZoneOption()); throws ToolError for an unknown zone.
    ToolContext();
    ToolContext(const std::string& moduleFolder, std::string fixedNow, TimeZone zone = TimeZone{});
    ToolContext(const ToolContext&) = delete;
    ToolContext& operator=(const ToolContext&) = delete;

    const ModuleSession& session() const { return session_; }
    ModuleDates& dates() { return dates_; }
    WhenReader& reader() { return reader_; }
    const TimeZone& zone() const { return reader_.zone(); }

private:
    ModuleSession session_;
    ModuleDates dates_;
    WhenReader reader_;
};

}  // namespace timetool
