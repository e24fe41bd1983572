// What a command that reads instants needs: the loaded module, its date
// conversions and the WHEN reader.
#pragma once

#include <string>

#include "module_dates.h"
#include "when_reader.h"

namespace timetool {

class ToolContext {
public:
    // The module from ModuleFolder(), "now" as FixedNow() says.
    ToolContext();
    ToolContext(const std::string& moduleFolder, std::string fixedNow);
    ToolContext(const ToolContext&) = delete;
    ToolContext& operator=(const ToolContext&) = delete;

    const ModuleSession& session() const { return session_; }
    ModuleDates& dates() { return dates_; }
    WhenReader& reader() { return reader_; }

private:
    ModuleSession session_;
    ModuleDates dates_;
    WhenReader reader_;
};

}  // namespace timetool
