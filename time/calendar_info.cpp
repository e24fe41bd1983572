#include "time/calendar_info.h"

#include "calendar/hebrew.h"
#include "calendar/hebrew_year.h"
#include "calendar/month_rules.h"
#include "time/calendar_kinds.h"

namespace {

CalendarInfo hebrew_info(std::int32_t kind, const tagDATETIME& date) noexcept {
    CHebrew hebrew;
    static_cast<tagDATETIME&>(hebrew) = date;
    hebrew.flag = kind == kCalendarHebrewFlagOne ? 1 : 0;
    CalendarInfo info;
    // Only the variant with flag 0 reports a postponement.
    info.daysInYear = hebrew.DaysInYear(date.Year, &info.yearAdjust);
    info.daysInMonth = static_cast<std::int16_t>(hebrew.DaysInMonth(date.Month, 0));
    info.monthsInYear = HebrewMonthsInYear(kind, date.Year);
    return info;
}

CalendarInfo solar_info(bool leap, std::int16_t month) noexcept {
    CalendarInfo info;
    info.daysInMonth = static_cast<std::int16_t>(cal::MonthLength(month, leap));
    info.monthsInYear = 12;
    info.daysInYear = static_cast<std::int16_t>(cal::YearLength(leap));
    return info;
}

}  // namespace

std::int16_t HebrewMonthsInYear(std::int32_t kind, std::int16_t year) noexcept {
    return cal::HebrewLeapYear(year, kind == kCalendarHebrewFlagOne ? 1 : 0) ? 13 : 12;
}

CalendarInfo ComputeCalendarInfo(std::int32_t kind, const tagDATETIME& date) noexcept {
    switch (kind) {
        case kCalendarHebrewFlagOne:
        case kCalendarHebrewFlagZero:
            return hebrew_info(kind, date);
        case kCalendarJulian:
            return solar_info(cal::JulianLeap(date.Year), date.Month);
        default:
            return solar_info(cal::GregorianLeap(date.Year), date.Month);
    }
}
