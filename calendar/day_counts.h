// Elapsed-day counts of the Gregorian and Julian calendars (1 January AD 1 is
// day 1 in each) and their inverses. Pure functions of the date fields,
// inline because every date conversion runs them.
//
// Years <= 0 use the complement of the 16-bit year (0 -> -1, -1 -> 0,
// -2 -> 1), so a BC date converted and converted back comes out earlier;
// stored day numbers depend on these exact counts.
#pragma once

#include <cstdint>
#include <limits>

#include "calendar/datetime.h"
#include "calendar/month_rules.h"
#include "calendar/whole_days.h"

namespace cal {
namespace detail {

constexpr std::int16_t Complement(std::int16_t year) noexcept { return static_cast<std::int16_t>(~year); }

// |trunc(value)| as a 32-bit count; magnitudes beyond 32 bits are outside the
// defined domain and saturate, and NaN reads as 0.
constexpr int MagnitudeDays(double value) noexcept {
    constexpr double kMax = std::numeric_limits<std::int32_t>::max();
    if (value >= 0.0) return value < kMax ? static_cast<int>(value) : static_cast<int>(kMax);
    if (value < 0.0) return value > -kMax ? static_cast<int>(-value) : static_cast<int>(kMax);
    return 0;
}

// a in [-1, 32767]: year 0's complement is -1.
constexpr int GregorianDaysBeforeYear(int a) noexcept { return 365 * a + a / 4 - a / 100 + a / 400; }
// The same for a in [0, 32766], unsigned: the quotients are the same and
// cheaper to form.
constexpr int GregorianDaysBeforeADYear(int a) noexcept {
    const auto u = static_cast<unsigned>(a);
    return static_cast<int>(365u * u + u / 4u - u / 100u + u / 400u);
}
constexpr int JulianDaysBeforeYear(int a) noexcept {  // a in [0, 32766], AD years only
    const auto u = static_cast<unsigned>(a);
    return static_cast<int>(365u * u + u / 4u);
}

}  // namespace detail

// Gregorian: for Year > 0, days of the years before plus the year-day; for
// Year <= 0, the negated count of the complement year. Range: |result| <
// 13'000'000 for months within 1..13.
constexpr int GregorianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year) noexcept {
    if (year > 0) return detail::GregorianDaysBeforeADYear(year - 1) + YearDay(day, month, GregorianLeap(year));
    const std::int16_t a = detail::Complement(year);  // [0, 32767]
    const bool leap = GregorianLeap(a);
    const int length = leap ? 366 : 365;
    return -detail::GregorianDaysBeforeYear(a) - (length - YearDay(day, month, leap) + 1);
}

// Day, Month and Year from a Gregorian count: |count| is split into 400-,
// 100-, 4- and 1-year blocks; a count that ends a 100-year block lands on
// day 366 of a 365-day year (month 13). Positive counts are AD, counts <= 0
// go through the complement year.
inline void GregorianDateFromCount(double count, tagDATETIME* out) noexcept {
    const int n = detail::MagnitudeDays(count);
    int q400 = n / 146097;
    int r = n % 146097;
    int q100 = r / 36524;  // [0, 4]
    r %= 36524;
    int q4 = r / 1461;  // [0, 24]
    r %= 1461;
    int q1 = r / 365;  // [0, 4]
    int d = r % 365;
    if (d == 0) {
        // The third case yields day 366 of a 365-day century year on purpose:
        // such year ends read back as day 1 of month 13.
        if (q1 != 0) {
            q1 -= 1;
            d = 365;
        } else if (q4 != 0) {
            q4 -= 1;
            q1 = 3;
            d = 366;
        } else if (q100 != 0) {
            q100 -= 1;
            q1 = 99;
            d = 366;
        } else if (q400 != 0) {
            q400 -= 1;
            q4 = 0;
            q1 = 399;
            d = 366;
        }
    }
    const int years = 400 * q400 + 100 * q100 + 4 * q4 + q1;
    if (count > 0) {
        out->Year = static_cast<std::int16_t>(years + 1);
        SetYearDay(d, GregorianLeap(out->Year), &out->Day, &out->Month);
        return;
    }
    const auto y = static_cast<std::int16_t>(years);
    const bool leap = GregorianLeap(y);
    SetYearDay((leap ? 366 : 365) - d, leap, &out->Day, &out->Month);
    out->Year = detail::Complement(y);
}

// Julian: Year 0 is read as 1 BC.
constexpr int JulianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year) noexcept {
    if (year > 0) return detail::JulianDaysBeforeYear(year - 1) + YearDay(day, month, JulianLeap(year));
    if (year == 0) return YearDay(day, month, true) - 367;
    const std::int16_t a = detail::Complement(year);  // [0, 32766]
    const bool leap = JulianLeap(a);
    const int length = leap ? 366 : 365;
    return -365 * a - a / 4 - (length - YearDay(day, month, leap) + 1);
}

// Day, Month and Year from a Julian count: floor(count), then AD for
// count >= 1, 1 BC for -365 <= count < 1, the complement year below.
inline void JulianDateFromCount(double count, tagDATETIME* out) noexcept {
    const double f = FloorWhole(count);
    if (count >= 1.0 || count < -365.0) {
        const int n = count >= 1.0 ? detail::MagnitudeDays(f) : detail::MagnitudeDays(f) - 366;
        int q4 = n / 1461;
        const int r = n % 1461;
        int q1 = r / 365;  // [0, 4]
        int d = r % 365;
        if (d == 0) {
            if (q1 != 0) {
                q1 -= 1;
                d = 365;
            } else {
                q4 -= 1;
                q1 = 3;
                d = 366;
            }
        }
        const int years = 4 * q4 + q1 + 1;
        if (count >= 1.0) {
            out->Year = static_cast<std::int16_t>(years);
            SetYearDay(d, JulianLeap(out->Year), &out->Day, &out->Month);
            return;
        }
        const auto y = static_cast<std::int16_t>(years);
        const bool leap = JulianLeap(y);
        SetYearDay((leap ? 366 : 365) - d, leap, &out->Day, &out->Month);
        if (out->Day == 0) {
            out->Month = 12;
            out->Day = 31;
        }
        out->Year = detail::Complement(y);
        return;
    }
    // 1 BC, read as the leap year 0.
    SetYearDay(366 - detail::MagnitudeDays(f), true, &out->Day, &out->Month);
    out->Year = -1;
}

}  // namespace cal
