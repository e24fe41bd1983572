// Month and year rules shared by the Gregorian and Julian calendars: month
// lengths, the day of the year and its inverse. Pure functions; the ones
// every date conversion runs are inline.
#pragma once

#include <array>
#include <cstdint>

namespace cal {

// Divisible by 4 and (not by 100, or by 400); negative years by the same
// truncating remainders, so 0 and -4 are leap years and -1 is not.
constexpr bool GregorianLeap(std::int16_t year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}
// Low two bits of the 16-bit year zero: -4 and 0 are leap years, -1 and -5 not.
constexpr bool JulianLeap(std::int16_t year) noexcept { return (year & 3) == 0; }

constexpr int YearLength(bool leap) noexcept { return leap ? 366 : 365; }

namespace detail {

inline constexpr int kOutOfRangeMonth = 30;
// Month 0 first; its 30 days are those of every month outside 1..12.
inline constexpr std::array<int, 13> kMonthLength{30, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
// Days before month m in a common year, m in [1, 13]; index 0 unused.
inline constexpr std::array<int, 14> kDaysBeforeMonth{0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

constexpr int DaysBefore(int month, bool leap) noexcept {  // month in [1, 13]
    return kDaysBeforeMonth[static_cast<std::size_t>(month)] + (leap && month >= 3 ? 1 : 0);
}

// Month of each year-day 0 .. 366, common years then leap years: 1 for day 0,
// 13 for day 366 of a common year.
struct MonthOfYearDayTable {
    std::array<std::array<std::int8_t, 367>, 2> month{};
};

constexpr MonthOfYearDayTable MakeMonthOfYearDay() noexcept {
    MonthOfYearDayTable t;
    for (int leap = 0; leap < 2; ++leap) {
        int m = 1;
        for (int n = 0; n <= 366; ++n) {
            while (m < 13 && DaysBefore(m + 1, leap != 0) < n) ++m;
            t.month[static_cast<std::size_t>(leap)][static_cast<std::size_t>(n)] = static_cast<std::int8_t>(m);
        }
    }
    return t;
}

inline constexpr MonthOfYearDayTable kMonthOfYearDay = MakeMonthOfYearDay();

// SetYearDay for year-days below 0 or above 366.
void SetFarYearDay(int n, bool leap, std::int16_t* day, std::int16_t* month) noexcept;

}  // namespace detail

// Month 2 is February; month 0 and every month outside 1..12 has 30 days,
// which is what carries a year-day past the year's end into month 13, 14 ...
constexpr int MonthLength(int month, bool leap) noexcept {
    if (month < 0 || month > 12) return detail::kOutOfRangeMonth;
    return detail::kMonthLength[static_cast<std::size_t>(month)] + (leap && month == 2 ? 1 : 0);
}

// Sum of the lengths of months 1 .. month-1, plus day.
constexpr int YearDay(int day, int month, bool leap) noexcept {
    if (month <= 1) return day;
    if (month <= 13) return detail::DaysBefore(month, leap) + day;
    return detail::DaysBefore(13, leap) + detail::kOutOfRangeMonth * (month - 13) + day;
}

// Inverse of YearDay: Month = 1 and Day = n for n <= 0; no upper bound on
// Month. Day and Month are stored as 16-bit values.
inline void SetYearDay(int n, bool leap, std::int16_t* day, std::int16_t* month) noexcept {
    if (n < 0 || n > 366) {
        detail::SetFarYearDay(n, leap, day, month);
        return;
    }
    const int m = detail::kMonthOfYearDay.month[leap ? 1 : 0][static_cast<std::size_t>(n)];
    *month = static_cast<std::int16_t>(m);
    *day = static_cast<std::int16_t>(n - detail::DaysBefore(m, leap));
}

// Truncation toward zero of a day count; NaN reads as 0 and values beyond the
// 64-bit range saturate (day counts that large are outside the defined domain).
constexpr std::int64_t TruncateDays(double days) noexcept {
    constexpr double kLimit = 9.0e18;
    if (days >= kLimit) return static_cast<std::int64_t>(kLimit);
    if (days <= -kLimit) return -static_cast<std::int64_t>(kLimit);
    if (!(days == days)) return 0;  // NaN
    return static_cast<std::int64_t>(days);
}

}  // namespace cal
