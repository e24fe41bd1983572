// An instant as the Time component describes it: every calendar's date, the
// star date and its relatives, sunrise, sunset and the moon.
#pragma once

#include <optional>
#include <vector>

#include "coordinates.h"
#include "moon_phase_name.h"
#include "text_format.h"
#include "time_object.h"
#include "when.h"

namespace timetool {

// North- and east-positive degrees; the default place of the Time component.
struct Location {
    double latitude = 43.3;
    double longitude = -83.045;
};

// The star date that `when` names, read as a date of calendar `kind` when it
// is a civil date. For kinds whose conversion counts whole days only, the
// time of day is added to the day number here.
double StarDateOfWhen(const ModuleSession& session, const When& when, int kind);

struct SunEventReport {
    double starDate = 0.0;  // J0 + the module's day count
    DateFields date;        // Gregorian
    ClockTime clock;        // UTC
};

struct SunReport {
    double j0 = 0.0;           // star date of noon, 1 January of the instant's Gregorian year
    double sunriseDays = 0.0;  // as the module returns them, counted from j0
    double sunsetDays = 0.0;
    std::optional<SunAbsence> absence;  // set when the module gives no times
    SunEventReport sunrise;
    SunEventReport sunset;
};

struct MoonReport {
    float phase = 0.0f;
    MoonPhaseName name;
};

struct KindDate {
    int kind = 0;
    DateFields date;
};

struct InstantReport {
    double starDate = 0.0;
    double julianDate = 0.0;
    std::optional<double> linuxTime;
    int weekday = 0;
    DateFields gregorian;
    ClockTime clock;  // UTC
    std::vector<KindDate> calendars;
    Location location;
    SunReport sun;
    MoonReport moon;
};

// The Gregorian date of the day holding a star date (the module's conversion
// of the star date's floor).
DateFields GregorianDateOf(const ModuleSession& session, double starDate);

SunReport DescribeSun(const ModuleSession& session, double starDate, const Location& location);
MoonReport DescribeMoon(const ModuleSession& session, double starDate);

// The instant expressed in each of `kinds`, with sun and moon at `location`.
InstantReport DescribeInstant(const ModuleSession& session, double starDate, const std::vector<int>& kinds,
                              const Location& location);

}  // namespace timetool
