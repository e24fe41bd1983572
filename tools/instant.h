// An instant as timetool describes it: every calendar's date of the day
// holding it, the star date and its relatives, the true sun and moon, and
// the module's own sun and moon figures beside them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calendar_line.h"
#include "coordinates.h"
#include "moon_phase_name.h"
#include "sky/sun_events.h"
#include "text_format.h"
#include "time_object.h"

namespace timetool {

// North- and east-positive degrees; the default place of the Time component.
struct Location {
    double latitude = 43.3;
    double longitude = -83.045;
};

// One true sun event: its instant to the nearest second, or why it has none.
struct SunEventReport {
    std::optional<ExactInstant> instant;  // UTC
    sky::SunAbsence absence = sky::SunAbsence::UnknownYears;
};

// The module's sunrise and sunset: day counts from noon of 1 January of the
// year the module holds for the instant (J0). They are not clock times.
struct ModuleSunReport {
    double j0 = 0.0;           // star date of noon, 1 January of that year
    double sunriseDays = 0.0;  // as the module returns them, counted from j0; NaN where it has none
    double sunsetDays = 0.0;
};

// The sun of one civil day: the events of the solar day whose local mean
// noon falls on it, and the module's figures for the instant asked about.
struct SunReport {
    StarDay day = 0;  // the civil day (UTC)
    SunEventReport sunrise;
    SunEventReport sunset;
    SunEventReport civilDawn;
    SunEventReport civilDusk;
    ModuleSunReport module;
};

// The moon at an instant: the true phase and the module's mean lunation.
struct MoonReport {
    ExactInstant instant;  // UTC
    // Degrees, [0, 360): the moon's apparent longitude less the sun's. It and
    // the lit fraction, [0, 1], are NaN outside the known years.
    double phase = 0.0;
    double illuminated = 0.0;
    MoonPhaseName name;
    float modulePhase = 0.0f;  // the module's get_MoonPhase, degrees of its mean lunation
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
// the moon of an instant. The sun is that of the civil day holding the
// star date; the module is asked at the star date itself.
SunReport DescribeSun(const ModuleSession& session, double starDate, const Location& location);
MoonReport DescribeMoon(const ModuleSession& session, double starDate);

// The quarter (0 new .. 3 last quarter) of the day (UTC) holding a star
// day, if one falls in it; only outside the known years nothing is found.
struct DayQuarter {
    int quarter = 0;
    ExactInstant instant;  // UTC
};
std::vector<std::optional<DayQuarter>> QuartersOfDays(StarDay first, std::size_t count);

// The instant expressed in each of `kinds`, with sun and moon at `location`.
InstantReport DescribeInstant(ModuleDates& dates, double starDate, const std::vector<int>& kinds,
                              const Location& location);

}  // namespace timetool
