// Conversions between a date record and the day number shared by every
// calendar: day 1 is 1 January AD 1 (Julian), 1 January AD 1 (Gregorian) is
// day 3, and the fraction is the time of day.
#pragma once

#include <array>
#include <cstddef>

#include "calendar/datetime.h"
#include "calendar/day_counts.h"
#include "com_types.h"

namespace cal {

// Day numbers put 1 January AD 1 (Gregorian) at 3.0, two days after the
// Julian count's origin.
inline constexpr double kGregorianShift = 2.0;

// Hour / 24 and Minute / 1440 over a day's usual hours and minutes. The
// compiler divides exactly as the processor does (both round the quotient
// to nearest), so the values are the quotients themselves.
inline constexpr auto kHourFractions = [] {
    std::array<double, 24> a{};
    for (int h = 0; h < 24; ++h) a[static_cast<std::size_t>(h)] = h / 24.0;
    return a;
}();
inline constexpr auto kMinuteFractions = [] {
    std::array<double, 60> a{};
    for (int m = 0; m < 60; ++m) a[static_cast<std::size_t>(m)] = m / 1440.0;
    return a;
}();

}  // namespace cal

// (Hour / 24 + Minute / 1440) + Second / 86400: the time of day as a
// fraction of a day, not reduced to [0, 1).
inline double DayFraction(const tagDATETIME* date) {
    const int h = date->Hour;
    const int m = date->Minute;
    const double hours = h >= 0 && h < 24 ? cal::kHourFractions[static_cast<std::size_t>(h)] : h / 24.0;
    const double minutes = m >= 0 && m < 60 ? cal::kMinuteFractions[static_cast<std::size_t>(m)] : m / 1440.0;
    // hours + minutes is never -0.0, so adding a zero second (of either
    // sign) would leave it as it is.
    if (date->Second == 0.0f) return hours + minutes;
    return (hours + minutes) + static_cast<double>(date->Second) / 86400.0;
}

// Gregorian date and time of day to day number. BC years and year 0 follow
// the complement rule, so no date yields 2.0 and year 0 overlaps AD 1.
inline double GregorianToJDN(const tagDATETIME* date) {
    return (cal::GregorianElapsedDays(date->Day, date->Month, date->Year) + cal::kGregorianShift) + DayFraction(date);
}
// Writes Day, Month, Year, Hour, Minute, Second; always 0. 31 December of a
// century year not divisible by 400 comes back as day 1 of month 13.
HRESULT JDNtoGregorian(double jdn, tagDATETIME* out);

// Julian date to whole days; the time fields are ignored.
double JulianToJDN(const tagDATETIME* date);
// Writes Day, Month, Year only; always 0.
HRESULT JDNtoJulian(double jdn, tagDATETIME* out);

// Julian before the switch-over day SDPopeGregory, Gregorian from it on;
// whole days only.
double WesternToJDN(const tagDATETIME* date);
// Writes Day, Month, Year only; always 0.
HRESULT JDNtoWestern(double jdn, tagDATETIME* out);

// Time of day, shifted by a zone offset in whole hours, as a fraction of a
// day; not reduced to [0, 1).
double TimeToJDN(const tagDATETIME* date, int offsetHours);
// Writes Hour, Minute, Second from the fraction of jdn (sign kept); always 0.
HRESULT JDNtoTime(double jdn, tagDATETIME* out);

// Day number of 4 October 1582 (Julian), 577737.0; 0.0 until the first
// Western conversion fills it.
extern double SDPopeGregory;
