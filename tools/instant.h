// An instant as timetool describes it: every calendar's date of the day
// holding it, the star date and its relatives, sunrise, sunset and the moon.
#pragma once

#include <optional>
#include <vector>

#include "calendar_line.h"
#include "coordinates.h"
#include "moon_phase_name.h"
#include "text_format.h"
#include "time_object.h"

namespace timetool {

// North- and east-positive degrees; the default place of the Time component.
struct Location {
    double latitude = 43.3;
    double longitude = -83.045;
};

struct SunEventReport {
    double starDate = 0.0;  // J0 + the module's day count
    ExactInstant instant;   // UTC
    bool shown = false;     // false when the event falls outside the years timetool shows
};

// The module's sunrise and sunset: day counts from noon of 1 January of the
// year the module holds for the instant.
struct SunReport {
    double j0 = 0.0;           // star date of noon, 1 January of that year
    double sunriseDays = 0.0;  // as the module returns them, counted from j0
    double sunsetDays = 0.0;
    std::optional<SunAbsence> absence;  // set when the module gives no times
    SunEventReport sunrise;
    SunEventReport sunset;
};

// The module's mean-lunation moon phase.
struct MoonReport {
    float phase = 0.0f;
    MoonPhaseName name;
};

struct InstantReport {
    double starDate = 0.0;
    double julianDate = 0.0;
    std::optional<double> linuxTime;
    ExactInstant instant;  // UTC; the calendars describe its day
    int weekday = 0;
    std::vector<CalendarLine> calendars;
    Location location;
    SunReport sun;
    MoonReport moon;
};

// The one place that describes the sun of a day and the one that describes
// the moon of an instant.
SunReport DescribeSun(const ModuleSession& session, double starDate, const Location& location);
MoonReport DescribeMoon(const ModuleSession& session, double starDate);

// The instant expressed in each of `kinds`, with sun and moon at `location`.
InstantReport DescribeInstant(ModuleDates& dates, double starDate, const std::vector<int>& kinds,
                              const Location& location);

}  // namespace timetool
