// Checks of command-line values; each failure is a ToolError with status 2
// and a one-line message naming the argument (echoed through QuoteArgument).
#pragma once

#include <string>

#include "instant.h"

namespace timetool {

int RequireKind(const std::string& option, const std::string& text);
// --lat and --lon, either may be empty (the default place keeps that part).
Location RequireLocation(const std::string& latitude, const std::string& longitude);
// A whole number written in decimal: an optional sign and the digits 0 to 9,
// nothing else (no blanks, no base prefix; a leading zero is still decimal,
// so 010 is ten). A value outside low to high is refused naming the range,
// however many digits it has.
int RequireCount(const std::string& option, const std::string& text, int low, int high);

}  // namespace timetool
