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
// starts with month 7.
constexpr std::array<std::string_view, 13> kHebrewMonths{"Nisan",  "Iyar",   "Sivan",   "Tammuz", "Av",
                                                         "Elul",   "Tishri", "Heshvan", "Kislev", "Tevet",
                                                         "Shevat", "Adar",   "Adar II"};

constexpr std::array<std::string_view, 7> kWeekdays{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                    "Thursday", "Friday", "Saturday"};

std::string MonthName(int kind, int year, int month) {
    const bool hebrew = kind == 3 || kind == 4;
    if (hebrew && month == 12) {
        // The mean variant (kind 3) counts its leap years one year later.
        const bool leap = kind == 4 ? HebrewLeapYear(year) : HebrewLeapYear(year - 1);
        return leap ? "Adar I" : "Adar";
    }
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

ExactInstant SplitStarDate(double starDate) {
    if (!std::isfinite(starDate)) return {};
    const double seconds = std::floor(starDate * 86400.0 + 0.5);
    const double day = std::floor(seconds / 86400.0);
    auto second = static_cast<int>(seconds - day * 86400.0);
    auto whole = static_cast<StarDay>(day);
    // The division may land a hair off a day boundary; the remainder decides.
    if (second < 0) {
        second += 86400;
        --whole;
    } else if (second >= 86400) {
        second -= 86400;
        ++whole;
    }
    return ExactInstant{whole, second};
}

std::string FormatClock(int secondOfDay) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", secondOfDay / 3600, secondOfDay / 60 % 60, secondOfDay % 60);
    return buffer;
}

std::string FormatIsoDate(int year, int month, int day) {
    char buffer[48];
    const char* sign = year < 0 ? "-" : (year > 9999 ? "+" : "");
    std::snprintf(buffer, sizeof buffer, "%s%04d-%02d-%02d", sign, std::abs(year), month, day);
    return buffer;
}

std::string FormatUtcIso(const ExactInstant& instant) {
    const CivilDate date = GregorianOfDay(instant.day);
    return FormatIsoDate(date.year, date.month, date.day) + "T" + FormatClock(instant.second) + "Z";
}

std::string FormatUtcText(const ExactInstant& instant) {
    const CivilDate date = GregorianOfDay(instant.day);
    return FormatIsoDate(date.year, date.month, date.day) + " " + FormatClock(instant.second);
}

std::string FormatYearText(int year) {
    if (year <= 0) return std::to_string(1 - static_cast<long>(year)) + " BC";
    return std::to_string(year);
}

std::string FormatDateText(int kind, int year, int month, int day) {
    return std::to_string(day) + " " + FormatMonthTitle(kind, year, month);
}

std::string FormatMonthTitle(int kind, int year, int month) {
    // Hebrew years are counted from the epoch: no BC.
    const std::string yearText = kind == 3 || kind == 4 ? std::to_string(year) : FormatYearText(year);
    return MonthName(kind, year, month) + " " + yearText;
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
