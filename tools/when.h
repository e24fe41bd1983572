// WHEN: the instant a user names on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "date_arithmetic.h"
#include "true_calendar.h"

namespace timetool {

// Whose clock a civil time of day is read on.
enum class ClockBasis {
    Zone,    // no "Z" and no offset: the clock of the zone timetool shows
    Utc,     // "Z"
    Offset,  // "+02:00", "-0530", "+05"
};

// A civil date and time of day as typed, in the calendar the caller selects.
// Years are astronomical, as in ISO 8601: 0 is 1 BC, -1 is 2 BC.
struct CivilTime {
    int year = 0;           // [kMinYear, kMaxYear]
    int month = 0;          // [1, 13], or 0 when the month is given by name
    std::string monthName;  // a Hebrew month name, lower case without blanks ("sivan", "adarii")
    int day = 0;            // [1, 31]
    int hour = 0;           // [0, 23]
    int minute = 0;         // [0, 59]
    double second = 0.0;    // [0, 60)
    bool hasTime = false;   // false for a date alone, which names the civil day
    ClockBasis basis = ClockBasis::Zone;
    int offsetSeconds = 0;  // for ClockBasis::Offset: east positive, [-86340, 86340]
};

enum class WhenForm { Now, Today, Civil, StarDate, JulianDate, LinuxTime };

struct When {
    WhenForm form = WhenForm::Now;
    CivilTime civil;              // for Civil
    double value = 0.0;           // star date, Julian Date or Linux seconds
    std::vector<DateStep> steps;  // applied left to right after the instant is read
};

// Outcome of parsing: either a When or the reason the text was refused.
struct WhenParse {
    std::optional<When> when;
    std::string error;  // one short phrase, empty on success
};

// Accepts "now", "today", "sd:<days>", "jd:<days>", "@<seconds>" and
// "[+-]Y-MM-DD" (Y of 1 to 5 digits, MM a number or a Hebrew month name)
// optionally followed by "T" or a blank and "HH:MM[:SS[.fff]]" and an
// optional "Z" or UTC offset ("+02:00", "+0530", "-03"; an offset needs a
// time of day); any of them followed by steps such as "+40d-1w" (see
// SplitDateSteps). Reads only the characters of `text`.
WhenParse ParseWhen(std::string_view text);

// Largest star-date magnitude a numbered WHEN may name before the finer
// range check of the calendars: a little beyond year 32767 either way.
inline constexpr double kMaxStarDate = 12500000.0;
inline constexpr double kJulianDateOffset = 1721422.5;
inline constexpr double kLinuxEpochStarDate = 719165.0;

// The date a civil WHEN names in calendar `kind` (0 to 6), or why there is
// no such date. Hebrew month names are read for kinds 3 and 4; Adar of a
// leap year must be named Adar I or Adar II. Kinds 3, 5 and 6 are only
// checked against their month lengths here: the module decides the rest.
struct CivilCheck {
    std::optional<CivilDate> date;
    std::string error;  // one short phrase, empty on success
};
CivilCheck CheckCivilDate(int kind, const CivilTime& civil);

// A month "Y-MM" as the month command takes it (astronomical year, MM a
// number or a Hebrew month name).
struct YearMonth {
    int year = 0;
    int month = 0;
    std::string monthName;
};
std::optional<YearMonth> ParseYearMonth(std::string_view text);

}  // namespace timetool
