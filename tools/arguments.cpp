#include "arguments.h"

#include "calendar_kind.h"
#include "quoted_text.h"
#include "tool_error.h"

namespace timetool {

namespace {

[[noreturn]] void BadInput(const std::string& message) { throw ToolError{kExitBadInput, "timetool: " + message}; }

[[noreturn]] void BadValue(const std::string& option, const std::string& text, const std::string& why) {
    BadInput("bad " + option + " " + QuoteArgument(text) + ": " + why);
}

}  // namespace

int RequireKind(const std::string& option, const std::string& text) {
    const auto kind = ParseCalendarKind(text);
    if (!kind) {
        BadInput("unknown calendar " + QuoteArgument(text) + " for " + option +
                 " (gregorian, julian, western, hebrew1, hebrew, adam, generic or 0 to 6)");
    }
    return *kind;
}

Location RequireLocation(const std::string& latitude, const std::string& longitude) {
    Location location;
    if (!latitude.empty()) {
        const CoordinateParse parsed = ParseLatitude(latitude);
        if (!parsed.degrees) BadValue("--lat", latitude, parsed.error);
        location.latitude = *parsed.degrees;
    }
    if (!longitude.empty()) {
        const CoordinateParse parsed = ParseLongitude(longitude);
        if (!parsed.degrees) BadValue("--lon", longitude, parsed.error);
        location.longitude = *parsed.degrees;
    }
    return location;
}

int RequireCount(const std::string& option, const std::string& text, int low, int high) {
    const std::string range = "(" + std::to_string(low) + " to " + std::to_string(high) + ")";
    std::size_t digits = 0;
    bool negative = false;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        negative = text[0] == '-';
        digits = 1;
    }
    if (digits == text.size()) BadValue(option, text, "not a whole number in decimal " + range);
    // The magnitude stops growing once it is past every int, so any number of
    // digits is read without overflow and still refused as out of range.
    long long magnitude = 0;
    for (std::size_t i = digits; i < text.size(); ++i) {
        const char c = text[i];
        if (c < '0' || c > '9') BadValue(option, text, "not a whole number in decimal " + range);
        if (magnitude <= 9999999999LL) magnitude = magnitude * 10 + (c - '0');
    }
    const long long value = negative ? -magnitude : magnitude;
    if (value < low || value > high) BadValue(option, text, "out of range " + range);
    return static_cast<int>(value);
}

}  // namespace timetool
