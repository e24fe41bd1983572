// Month and year rules shared by the Gregorian and Julian calendars: month
// lengths, the day of the year and its inverse. Pure functions.
#pragma once

#include <cstdint>

namespace cal {

// Divisible by 4 and (not by 100, or by 400); negative years by the same
// truncating remainders, so 0 and -4 are leap years and -1 is not.
constexpr bool GregorianLeap(std::int16_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }
// Low two bits of the 16-bit year zero: -4 and 0 are leap years, -1 and -5 not.
constexpr bool JulianLeap(std::int16_t year) { return (year & 3) == 0; }

// Month 2 is February; month 0 and every month outside 1..12 has 30 days,
// which is what carries a year-day past the year's end into month 13, 14 ...
int MonthLength(int month, bool leap);

// Sum of the lengths of months 1 .. month-1, plus day.
int YearDay(int day, int month, bool leap);

// Inverse of YearDay: Month = 1 and Day = n for n <= 0; no upper bound on
// Month. Day and Month are stored as 16-bit values.
void SetYearDay(int n, bool leap, std::int16_t* day, std::int16_t* month);

// Truncation toward zero of a day count; NaN reads as 0 and values beyond the
// 64-bit range saturate (day counts that large are outside the defined domain).
std::int64_t TruncateDays(double days);

}  // namespace cal
