#include "time/calendar_info.h"

#include "calendar/hebrew.h"
#include "time/calendar_kinds.h"
#include "time/month_rules.h"

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
    info.daysInMonth = month_rules::DaysInMonth(month, leap);
    info.monthsInYear = 12;
    info.daysInYear = month_rules::DaysInYear(leap);
    return info;
}

}  // namespace

std::int16_t HebrewMonthsInYear(std::int32_t kind, std::int16_t year) noexcept {
    const auto tested = kind == kCalendarHebrewFlagOne ? static_cast<std::int16_t>(year - 1) : year;
    switch (tested % 19) {
        case 0:
        case 3:
        case 6:
        case 8:
        case 11:
        case 14:
        case 17:
            return 13;
        default:
            return 12;
    }
}

CalendarInfo ComputeCalendarInfo(std::int32_t kind, const tagDATETIME& date) noexcept {
    switch (kind) {
        case kCalendarHebrewFlagOne:
        case kCalendarHebrewFlagZero:
            return hebrew_info(kind, date);
        case kCalendarJulian:
            return solar_info(month_rules::IsJulianLeap(date.Year), date.Month);
        default:
            return solar_info(month_rules::IsGregorianLeap(date.Year), date.Month);
    }
}
