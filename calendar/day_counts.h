// Elapsed-day counts of the Gregorian and Julian calendars (1 January AD 1 is
// day 1 in each) and their inverses. Pure functions of the date fields.
//
// Years <= 0 use the complement of the 16-bit year (0 -> -1, -1 -> 0,
// -2 -> 1), so a BC date converted and converted back comes out earlier;
// stored day numbers depend on these exact counts.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"

namespace cal {

// Gregorian: for Year > 0, days of the years before plus the year-day; for
// Year <= 0, the negated count of the complement year. Range: |result| <
// 13'000'000 for months within 1..13.
int GregorianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year);
// Day, Month and Year from a Gregorian count: |count| is split into 400-,
// 100-, 4- and 1-year blocks; a count that ends a 100-year block lands on
// day 366 of a 365-day year (month 13). Positive counts are AD, counts <= 0
// go through the complement year.
void GregorianDateFromCount(double count, tagDATETIME* out);

// Julian: Year 0 is read as 1 BC.
int JulianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year);
// Day, Month and Year from a Julian count: floor(count), then AD for
// count >= 1, 1 BC for -365 <= count < 1, the complement year below.
void JulianDateFromCount(double count, tagDATETIME* out);

}  // namespace cal
