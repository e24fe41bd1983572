// Conversions between a date record and the day number shared by every
// calendar: day 1 is 1 January AD 1 (Julian), 1 January AD 1 (Gregorian) is
// day 3, and the fraction is the time of day.
#pragma once

#include <array>
#include <cstddef>

#include "calendar/datetime.h"
#include "calendar/day_counts.h"

// Day number of 4 October 1582 (Julian), 577737.0; 0.0 until the first
// Western conversion fills it.
extern double SDPopeGregory;

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

// (Hour / 24 + Minute / 1440) + Second / 86400: the time of day as a
// fraction of a day, not reduced to [0, 1).
constexpr double DayFraction(const tagDATETIME& date) noexcept {
    const int h = date.Hour;
    const int m = date.Minute;
    const double hours = h >= 0 && h < 24 ? kHourFractions[static_cast<std::size_t>(h)] : h / 24.0;
    const double minutes = m >= 0 && m < 60 ? kMinuteFractions[static_cast<std::size_t>(m)] : m / 1440.0;
    // hours + minutes is never -0.0, so adding a zero second (of either
    // sign) would leave it as it is.
    if (date.Second == 0.0f) return hours + minutes;
    return (hours + minutes) + static_cast<double>(date.Second) / 86400.0;
}

// Gregorian date and time of day to day number. BC years and year 0 follow
// the complement rule, so no date yields 2.0 and year 0 overlaps AD 1.
constexpr double GregorianDayNumber(const tagDATETIME& date) noexcept {
    return (GregorianElapsedDays(date.Day, date.Month, date.Year) + kGregorianShift) + DayFraction(date);
}
// Writes Day, Month, Year, Hour, Minute, Second. 31 December of a century
// year not divisible by 400 comes back as day 1 of month 13.
void GregorianDateOfDayNumber(double dayNumber, tagDATETIME& out) noexcept;

// Julian date to whole days; the time fields are ignored.
constexpr double JulianDayNumber(const tagDATETIME& date) noexcept {
    return JulianElapsedDays(date.Day, date.Month, date.Year);
}
// Writes Day, Month, Year only.
inline void JulianDateOfDayNumber(double dayNumber, tagDATETIME& out) noexcept { JulianDateFromCount(dayNumber, &out); }

// Julian before the switch-over day SDPopeGregory, Gregorian from it on;
// whole days only.
double WesternDayNumber(const tagDATETIME& date) noexcept;
// Writes Day, Month, Year only.
void WesternDateOfDayNumber(double dayNumber, tagDATETIME& out) noexcept;

// Time of day, shifted by a zone offset in whole hours, as a fraction of a
// day; not reduced to [0, 1).
constexpr double TimeFraction(const tagDATETIME& date, int offsetHours) noexcept {
    // The difference is exact in double for every pair of 32-bit values.
    const double hours = static_cast<double>(date.Hour) - static_cast<double>(offsetHours);
    return (hours / 24.0 + date.Minute / 1440.0) + static_cast<double>(date.Second) / 86400.0;
}
// Writes Hour, Minute, Second from the fraction of dayNumber (sign kept).
void TimeOfDayNumber(double dayNumber, tagDATETIME& out) noexcept;

}  // namespace cal
