// Checks of command-line values; each failure is a ToolError with status 2
// and a one-line message naming the argument.
#pragma once

#include <string>

#include "instant.h"

namespace timetool {

int RequireKind(const std::string& option, const std::string& text);
// --lat and --lon, either may be empty (the default place keeps that part).
Location RequireLocation(const std::string& latitude, const std::string& longitude);
int RequireCount(const std::string& option, long long value, long long low, long long high);

}  // namespace timetool
