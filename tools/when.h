// WHEN: the instant a user names on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace timetool {

// A civil date and time of day as typed, in the calendar the caller selects.
// Years follow the module's numbering: -1 is 1 BC, there is no year 0.
struct CivilTime {
    int year = 0;
    int month = 0;        // [1, 13]; 13 only makes sense in the Hebrew calendar
    int day = 0;          // [1, 31]
    int hour = 0;         // [0, 23]
    int minute = 0;       // [0, 59]
    double second = 0.0;  // [0, 60)
};

enum class WhenForm { Now, Today, Civil, StarDate, JulianDate, LinuxTime };

struct When {
    WhenForm form = WhenForm::Now;
    CivilTime civil;     // for Civil
    double value = 0.0;  // star date, Julian Date or Linux seconds
};

// Outcome of parsing: either a When or the reason the text was refused.
struct WhenParse {
    std::optional<When> when;
    std::string error;  // one short phrase, empty on success
};

// Accepts "now", "today", "sd:<days>", "jd:<days>", "@<seconds>" and
// "[-]YYYY-MM-DD" optionally followed by "T" or a blank and "HH:MM[:SS[.fff]]"
// and an optional "Z". Reads only the characters of `text`.
WhenParse ParseWhen(std::string_view text);

// Largest star-date magnitude accepted: keeps every calendar's year inside
// the module's 16-bit year field.
inline constexpr double kMaxStarDate = 11000000.0;
inline constexpr double kJulianDateOffset = 1721422.5;
inline constexpr double kLinuxEpochStarDate = 719165.0;

}  // namespace timetool

namespace timetool {

// Why a civil date cannot be given to calendar `kind` (0 to 6), or empty when
// it can: Gregorian-rule kinds (0, 2, 5, 6) and the Julian kind (1) take
// months 1 to 12 and the days of that month; the Hebrew kinds (3, 4) take
// months 1 to 13 and days 1 to 30. BC years are checked in the year the day
// number arithmetic uses for them (1 BC is counted like year 0, a leap year).
std::string CivilDateError(int kind, const CivilTime& civil);

// A month "YYYY-MM" or "-YYYY-MM" (BC) as the month command takes it.
struct YearMonth {
    int year = 0;
    int month = 0;
};
std::optional<YearMonth> ParseYearMonth(std::string_view text);

}  // namespace timetool
