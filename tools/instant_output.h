// The default view and the show command: an instant as text and as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "instant.h"
#include "time_zone.h"

namespace timetool {

using Json = nlohmann::ordered_json;

// The version of every JSON document timetool prints (docs/timetool-json.md).
inline constexpr int kJsonSchema = 3;

// A document that starts with its "schema" key.
Json JsonDocument();

// Details of the selected calendar that only `show --calendar` prints: the
// lengths of the day's month and year (true ones where the calendar has a
// truth, else the module's) beside the module's GetInfo, and the module's
// elapsed-day count.
struct CalendarDetail {
    int kind = 0;
    std::optional<CalendarLengths> lengths;
    CalendarInfo module;
    double calendarDays = 0.0;
};

CalendarDetail DescribeCalendarDetail(const ModuleSession& session, const CalendarLine& line, StarDay day);

std::string FormatLinuxTime(double seconds);

// Clock times are shown on the zone's clock; JSON keeps them in UTC and adds
// the zone's reading beside each (AddInstantJson).
std::string InstantText(const InstantReport& report, const std::optional<CalendarDetail>& detail, const TimeZone& zone);
Json InstantJson(const InstantReport& report, const CalendarDetail& detail, const TimeZone& zone);
// One day's sun and one instant's moon, the module's figures under "module".
Json SunJson(const SunReport& sun, const TimeZone& zone);
Json MoonJson(const MoonReport& moon, const TimeZone& zone);

// An instant under `key`, in UTC ("2024-06-21T15:52:07Z"), followed by the
// same instant on the zone's clock ("2024-06-21T11:52:07-04:00") and the
// zone's offset then ("-04:00"): under "local" and "utc_offset" beside
// "utc", else under "<key>_local" and "<key>_utc_offset". All three are
// null for a missing instant.
void AddInstantJson(Json& json, const std::string& key, const std::optional<ExactInstant>& instant,
                    const TimeZone& zone);

// "181.77°".
std::string FormatDegrees(double degrees);
// A sun event's UTC time, or what a person reads instead of one.
std::string SunEventText(const SunEventReport& event, const TimeZone& zone);
// The labelled lines of the sun and of the moon in the instant view.
std::string SunText(const SunReport& sun, const Location& location, const TimeZone& zone);
std::string MoonText(const MoonReport& moon);
Json CalendarJson(const CalendarLine& line);

// "15 Sivan 5784" under its calendar's title, padded like every label.
std::string LabelledLine(std::string_view label, const std::string& value);

}  // namespace timetool
