#include "text_format.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace timetool {

namespace {

constexpr std::array<std::string_view, 12> kWesternMonths{"January",   "February", "March",    "April",
                                                          "May",       "June",     "July",     "August",
                                                          "September", "October",  "November", "December"};

// Month numbers of the Time component's Hebrew calendar: 1 = Nisan, the year
// starts with month 7; month 12 is Adar I in a 13-month year.
constexpr std::array<std::string_view, 13> kHebrewMonths{"Nisan",  "Iyar",   "Sivan",   "Tammuz", "Av",
                                                         "Elul",   "Tishri", "Heshvan", "Kislev", "Tevet",
                                                         "Shevat", "Adar",   "Adar II"};

constexpr std::array<std::string_view, 7> kWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                    "Thursday", "Friday", "Saturday"};

std::string MonthName(int kind, int month) {
    const bool hebrew = kind == 3 || kind == 4;
    if (hebrew && month >= 1 && month <= 13) return std::string(kHebrewMonths[static_cast<std::size_t>(month - 1)]);
    if (!hebrew && month >= 1 && month <= 12) return std::string(kWesternMonths[static_cast<std::size_t>(month - 1)]);
    return "month " + std::to_string(month);
}

std::string TrimmedDecimal(double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.6f", value);
    std::string text(buffer);
    while (!text.empty() && text.back() == '0') text.pop_back();
    if (!text.empty() && text.back() == '.') text.pop_back();
    return text;
}

}  // namespace

ClockTime ClockOfStarDate(double starDate) {
    if (!std::isfinite(starDate)) return {};
    const double fraction = starDate - std::floor(starDate);  // [0, 1)
    auto seconds = static_cast<int>(std::floor(fraction * 86400.0));
    if (seconds > 86399) seconds = 86399;  // a fraction a hair below 1 rounds up to 86400.0
    return ClockTime{seconds / 3600, seconds / 60 % 60, seconds % 60};
}

std::string FormatClock(const ClockTime& clock) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", clock.hour, clock.minute, clock.second);
    return buffer;
}

std::string FormatIsoDate(int year, int month, int day) {
    char buffer[48];
    std::snprintf(buffer, sizeof buffer, "%s%04d-%02d-%02d", year < 0 ? "-" : "", std::abs(year), month, day);
    return buffer;
}

std::string FormatDateText(int kind, int year, int month, int day) {
    std::string text = std::to_string(day) + " " + MonthName(kind, month) + " ";
    if (year < 0) return text + std::to_string(-year) + " BC";
    return text + std::to_string(year);
}

std::string_view WeekdayName(int weekday) {
    if (weekday < 0 || weekday > 6) return "?";
    return kWeekdays[static_cast<std::size_t>(weekday)];
}

std::string_view WeekdayShortName(int weekday) { return WeekdayName(weekday).substr(0, 2); }

std::string FormatFixed(double value, int decimals) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return buffer;
}

std::string FormatLatitude(double north) { return TrimmedDecimal(std::fabs(north)) + (north < 0.0 ? " S" : " N"); }

std::string FormatLongitude(double east) { return TrimmedDecimal(std::fabs(east)) + (east < 0.0 ? " W" : " E"); }

}  // namespace timetool
