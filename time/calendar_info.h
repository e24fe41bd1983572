// Month and year lengths of the current date under a calendar kind, as the
// Time component's GetInfo reports them.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"

struct CalendarInfo {
    std::int16_t daysInMonth = 0;
    std::int16_t monthsInYear = 0;
    std::int16_t daysInYear = 0;
    std::int16_t yearAdjust = 0;  // postponement of the year's start; kind 4 only
};

// Kinds 3 and 4 follow the Hebrew rules, kind 1 the Julian rule, every other
// kind (Adam and Generic included) the Gregorian rule.
CalendarInfo ComputeCalendarInfo(std::int32_t kind, const tagDATETIME& date) noexcept;

// 13 or 12 by the 19-year cycle; kind 3 tests the previous year. Negative
// remainders count 12.
std::int16_t HebrewMonthsInYear(std::int32_t kind, std::int16_t year) noexcept;
