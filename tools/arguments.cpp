#include "arguments.h"

#include "calendar_kind.h"
#include "tool_error.h"

namespace timetool {

namespace {

[[noreturn]] void BadInput(const std::string& message) { throw ToolError{kExitBadInput, "timetool: " + message}; }

}  // namespace

int RequireKind(const std::string& option, const std::string& text) {
    const auto kind = ParseCalendarKind(text);
    if (!kind) {
        BadInput("unknown calendar '" + text + "' for " + option +
                 " (gregorian, julian, western, hebrew1, hebrew, adam, generic or 0 to 6)");
    }
    return *kind;
}

Location RequireLocation(const std::string& latitude, const std::string& longitude) {
    Location location;
    if (!latitude.empty()) {
        const CoordinateParse parsed = ParseLatitude(latitude);
        if (!parsed.degrees) BadInput("bad --lat '" + latitude + "': " + parsed.error);
        location.latitude = *parsed.degrees;
    }
    if (!longitude.empty()) {
        const CoordinateParse parsed = ParseLongitude(longitude);
        if (!parsed.degrees) BadInput("bad --lon '" + longitude + "': " + parsed.error);
        location.longitude = *parsed.degrees;
    }
    return location;
}

int RequireCount(const std::string& option, long long value, long long low, long long high) {
    if (value < low || value > high) {
        BadInput("bad " + option + " '" + std::to_string(value) + "': out of range (" + std::to_string(low) + " to " +
                 std::to_string(high) + ")");
    }
    return static_cast<int>(value);
}

}  // namespace timetool
