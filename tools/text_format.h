// Text forms of dates, clock times and numbers as timetool prints them.
// Years are astronomical (0 = 1 BC) everywhere except in text dates, which
// say "BC".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "true_calendar.h"

namespace timetool {

// An instant to the nearest second: the day holding it and the second of
// that day. Every clock time timetool prints comes from here.
struct ExactInstant {
    StarDay day = 0;
    int second = 0;  // [0, 86399]
};

// The star date to the nearest second, halves going to the later second.
// Exact for every star date whose year lies in [kMinYear, kMaxYear]: the
// double carries its fraction of a day to about a ten-thousandth of a second
// there.
ExactInstant SplitStarDate(double starDate);

// "HH:MM:SS".
std::string FormatClock(int secondOfDay);

// ISO 8601 date: "2024-06-21", "-0043-03-15" for 44 BC, "+10000-01-01".
std::string FormatIsoDate(int year, int month, int day);
// "2024-06-21T17:54:00Z" and "2024-06-21 17:54:00" (proleptic Gregorian, UTC).
std::string FormatUtcIso(const ExactInstant& instant);
std::string FormatUtcText(const ExactInstant& instant);

// "21 June 2024", "15 March 44 BC", "15 Sivan 5784", "1 Adar I 5784" (kinds
// 3 and 4 use the Hebrew month names, 1 = Nisan, month 12 of a leap year
// being Adar I); an unnamed month number shows as "month 13".
std::string FormatDateText(int kind, int year, int month, int day);
// "June 2024", "Adar I 5784", "March 44 BC".
std::string FormatMonthTitle(int kind, int year, int month);
// "2024", "44 BC".
std::string FormatYearText(int year);

// "Sunday" for 0 up to "Saturday" for 6; "?" otherwise.
std::string_view WeekdayName(int weekday);
// "Su" .. "Sa".
std::string_view WeekdayShortName(int weekday);

// printf "%.<decimals>f".
std::string FormatFixed(double value, int decimals);

// "43.3 N", "83.045 W": a coordinate with its hemisphere letter (north- and
// east-positive degrees), shortest decimals up to 6.
std::string FormatLatitude(double north);
std::string FormatLongitude(double east);

}  // namespace timetool
