// The default view and the show command: an instant as text and as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "instant.h"

namespace timetool {

using Json = nlohmann::ordered_json;

// Details of the selected calendar that only `show --calendar` prints.
struct CalendarDetail {
    int kind = 0;
    CalendarInfo info;
    double calendarDays = 0.0;
};

// "2024-06-21T02:20:09" (Gregorian date, UTC clock).
std::string FormatUtc(const DateFields& date, const ClockTime& clock);
std::string FormatLinuxTime(double seconds);

std::string InstantText(const InstantReport& report, const std::optional<CalendarDetail>& detail);
Json InstantJson(const InstantReport& report, const CalendarDetail& detail);
Json SunJson(const SunReport& sun);
Json MoonJson(const MoonReport& moon);
Json CalendarJson(const KindDate& date);

}  // namespace timetool
