// Text forms of dates, clock times and numbers as timetool prints them.
#pragma once

#include <string>
#include <string_view>

namespace timetool {

struct ClockTime {
    int hour = 0;    // [0, 23]
    int minute = 0;  // [0, 59]
    int second = 0;  // [0, 59]
};

// Time of day of a star date, counted from the midnight at or before it;
// whole seconds, truncated like a clock display.
ClockTime ClockOfStarDate(double starDate);

// "HH:MM:SS".
std::string FormatClock(const ClockTime& clock);

// ISO form of a date as the module's fields hold it: "2024-06-21",
// "-0044-03-15" for 44 BC (the module's year numbering, no year 0).
std::string FormatIsoDate(int year, int month, int day);

// "21 June 2024", "15 March 44 BC", "15 Sivan 5784" (kinds 3 and 4 use the
// Hebrew month names, 1 = Nisan); an unnamed month number shows as "month 13".
std::string FormatDateText(int kind, int year, int month, int day);

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
