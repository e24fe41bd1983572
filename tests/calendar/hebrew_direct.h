// The Hebrew day-to-date conversion, year lengths and month lengths computed
// straight from the year rules on every call, with no table: the module's
// tabulated path must give exactly these values.
#pragma once

#include <cmath>
#include <cstdint>

#include "calendar/datetime.h"
#include "calendar/hebrew_year.h"
#include "calendar/month_rules.h"

namespace hebrew_direct {

inline constexpr std::int16_t kMonthsFromTishri[13] = {7, 8, 9, 10, 11, 12, 13, 1, 2, 3, 4, 5, 6};

inline void FillMonthLengths(int yearLength, bool leap, int (&lengths)[14]) {
    constexpr int kFixed[14] = {0, 30, 29, 30, 29, 30, 29, 30, 0, 0, 29, 30, 0, 0};
    for (int m = 0; m < 14; ++m) lengths[m] = kFixed[m];
    lengths[8] = (yearLength == 355 || yearLength == 385 || yearLength == 386) ? 30 : 29;
    lengths[9] = (yearLength == 353 || yearLength == 383) ? 29 : 30;
    lengths[12] = leap ? 30 : 29;
    lengths[13] = leap ? 29 : 0;
}

inline short DaysInYear(std::int16_t flag, short year, short* postponement) {
    if (flag != 0) return static_cast<short>(cal::MonthCountYearLength(year));
    if (postponement) *postponement = static_cast<short>(cal::StartOfHebrewYear(year, flag).postponement);
    return static_cast<short>(cal::ElapsedDaysYearLength(year));
}

inline int DaysInMonth(std::int16_t flag, std::int16_t year, int month) {
    if (month < 1 || month > 13) return 0;
    int lengths[14];
    const bool needsYearLength = month == 8 || month == 9;
    FillMonthLengths(needsYearLength ? DaysInYear(flag, year, nullptr) : 0, cal::HebrewLeapYear(year, flag), lengths);
    return lengths[month];
}

// Writes Day, Month and Year from a count in which day 1 is the epoch day.
inline void SetEllapsedDays(std::int16_t flag, double days, tagDATETIME& date) {
    constexpr std::int64_t kLargestDayCount = std::int64_t{1} << 40;
    constexpr double kMeanYear = 6939.689621913581 / 19.0;
    std::int64_t target = cal::TruncateDays(std::floor(days));
    if (target > kLargestDayCount) target = kLargestDayCount;
    if (target < -kLargestDayCount) target = -kLargestDayCount;
    std::int64_t year = cal::TruncateDays(std::floor(static_cast<double>(target) / kMeanYear)) + 2;
    std::int64_t start = cal::StartOfHebrewYear(year, flag).Day();
    while (start > target) {
        --year;
        start = cal::StartOfHebrewYear(year, flag).Day();
    }
    date.Year = static_cast<std::int16_t>(year);
    std::int64_t remaining = target - start + 1;
    int lengths[14];
    FillMonthLengths(DaysInYear(flag, date.Year, nullptr), cal::HebrewLeapYear(date.Year, flag), lengths);
    int i = 0;
    while (i < 12 && remaining > lengths[kMonthsFromTishri[i]]) {
        remaining -= lengths[kMonthsFromTishri[i]];
        ++i;
    }
    date.Month = kMonthsFromTishri[i];
    date.Day = static_cast<std::int16_t>(remaining);
}

}  // namespace hebrew_direct
