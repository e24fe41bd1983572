#include "tool_context.h"

#include "commands.h"

namespace timetool {

ToolContext::ToolContext() : session_(), dates_(session_), reader_(dates_, FixedNow()) {}

ToolContext::ToolContext(const std::string& moduleFolder, std::string fixedNow)
    : session_(moduleFolder), dates_(session_), reader_(dates_, std::move(fixedNow)) {}

namespace {

std::string& FixedNowSetting() {
    static std::string when;
    return when;
}

}  // namespace

void SetFixedNow(std::string when) { FixedNowSetting() = std::move(when); }

const std::string& FixedNow() { return FixedNowSetting(); }

}  // namespace timetool
