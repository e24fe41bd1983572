#include "time/calendar_kinds.h"

#include "calendar/day_counts.h"
#include "calendar/hebrew.h"
#include "calendar/hebrew_year.h"
#include "calendar/month_rules.h"
#include "time/lunar_days.h"

namespace {

CalendarInfo SolarInfo(bool leap, std::int16_t month) noexcept {
    CalendarInfo info;
    info.daysInMonth = static_cast<std::int16_t>(cal::MonthLength(month, leap));
    info.monthsInYear = 12;
    info.daysInYear = static_cast<std::int16_t>(cal::YearLength(leap));
    return info;
}

CalendarInfo GregorianInfo(const tagDATETIME& date) noexcept {
    return SolarInfo(cal::GregorianLeap(date.Year), date.Month);
}
CalendarInfo JulianInfo(const tagDATETIME& date) noexcept { return SolarInfo(cal::JulianLeap(date.Year), date.Month); }

// Only the variant with flag 0 reports a postponement.
template <short Flag>
CalendarInfo HebrewInfo(const tagDATETIME& date) noexcept {
    CHebrew hebrew;
    static_cast<tagDATETIME&>(hebrew) = date;
    hebrew.flag = Flag;
    CalendarInfo info;
    info.daysInYear = hebrew.DaysInYear(date.Year, &info.yearAdjust);
    info.daysInMonth = static_cast<std::int16_t>(hebrew.DaysInMonth(date.Month, 0));
    info.monthsInYear = cal::HebrewLeapYear(date.Year, Flag) ? 13 : 12;
    return info;
}

double GregorianCalendarDays(const tagDATETIME& date) noexcept {
    return cal::GregorianElapsedDays(date.Day, date.Month, date.Year);
}
// Year 0 counts as 1 BC.
double JulianCalendarDays(const tagDATETIME& date) noexcept {
    return cal::JulianElapsedDays(date.Day, date.Month, date.Year);
}
template <short Flag>
double LunarDays(const tagDATETIME& date) noexcept {
    return LunarCalendarDays(date.Day, date.Year, Flag != 0);
}

void GregorianDaysOnCopy(tagDATETIME date, double days) noexcept { cal::GregorianDateFromCount(days, &date); }
void JulianDaysOnCopy(tagDATETIME date, double days) noexcept { cal::JulianDateFromCount(days, &date); }
template <short Flag>
void HebrewDaysOnCopy(tagDATETIME date, double days) noexcept {
    CHebrew hebrew;
    static_cast<tagDATETIME&>(hebrew) = date;
    hebrew.flag = Flag;
    hebrew.SetEllapsedDays(days, 0);
}

template <short Flag>
double HebrewToStarDate(const tagDATETIME* date) {
    return HebrewToJDN(date, Flag);
}
template <short Flag>
HRESULT StarDateToHebrew(double starDate, tagDATETIME* date) {
    return JDNtoHebrew(starDate, date, Flag);
}

}  // namespace

constexpr std::array<CalendarKindRow, kCalendarKindCount> kCalendarKinds = {{
    // Gregorian
    {GregorianToJDN, JDNtoGregorian, GregorianInfo, GregorianCalendarDays, GregorianDaysOnCopy, 28},
    // Julian
    {JulianToJDN, JDNtoJulian, JulianInfo, JulianCalendarDays, JulianDaysOnCopy, 28},
    // Western: back to the star date with the Gregorian rules
    {GregorianToJDN, JDNtoWestern, GregorianInfo, GregorianCalendarDays, GregorianDaysOnCopy, 28},
    // Hebrew, variant flag 1
    {HebrewToStarDate<1>, StarDateToHebrew<1>, HebrewInfo<1>, LunarDays<1>, HebrewDaysOnCopy<1>, 29},
    // Hebrew, variant flag 0
    {HebrewToStarDate<0>, StarDateToHebrew<0>, HebrewInfo<0>, LunarDays<0>, HebrewDaysOnCopy<0>, 29},
    // Adam: Gregorian lengths
    {AdamToJDN, JDNtoAdam, GregorianInfo, GregorianCalendarDays, GregorianDaysOnCopy, 28},
    // Generic: Gregorian lengths
    {GenericToJDN, JDNtoGeneric, GregorianInfo, GregorianCalendarDays, GregorianDaysOnCopy, 28},
}};
