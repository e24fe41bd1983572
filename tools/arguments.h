// Checks of command-line values; each failure is a ToolError with status 2
// and a one-line message naming the argument.
#pragma once

#include <string>

#include "instant.h"
#include "when.h"

namespace timetool {

When RequireWhen(const std::string& text);
// A civil WHEN must also be a date of `kind`.
void RequireWhenFitsKind(const std::string& text, const When& when, int kind);
int RequireKind(const std::string& option, const std::string& text);
// --lat and --lon, either may be empty (the default place keeps that part).
Location RequireLocation(const std::string& latitude, const std::string& longitude);
int RequireCount(const std::string& option, long long value, long long low, long long high);

}  // namespace timetool
