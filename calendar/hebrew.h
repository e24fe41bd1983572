// The Hebrew calendar: months 1 = Nisan .. 12 = Adar (Adar I in a 13-month
// year), 13 = Adar II; the year begins with month 7 (Tishri). The variant
// flag (0 or non-zero) shifts the leap test by one year and switches the
// year-length rule.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"

// No virtual operations: the record is laid out as tagDATETIME plus the flag.
struct CHebrew : tagDATETIME {
    std::int16_t flag = 0;

    // Days in month of the own Year under the own flag; the second argument
    // is not used.
    int DaysInMonth(int month, short) noexcept;
    // Days in the year; for flag 0 also writes the postponement of the
    // year's start (when postponement is not null).
    short DaysInYear(short year, short* postponement) noexcept;
    // Day, Month and Year from a count of days in which day 1 is the epoch
    // day; the second argument is not used.
    void SetEllapsedDays(double days, int) noexcept;
};

// Day number of the Hebrew epoch (Julian 7 October 3761 BC); 0.0 until the
// first Hebrew conversion fills it.
extern double SDHebrew;

// Length of the mean month of the coarse count, in days.
inline constexpr double kMeanHebrewMonth = 29.53059413580247;

// Months before `year` in the coarse count: whole 19-year cycles from
// year / 19, the remaining years by the leap rule of the flag.
int CoarseHebrewMonths(std::int16_t year, short flag) noexcept;

namespace cal {

// A deliberately coarse mean-month count that reads Day and Year only.
double HebrewDayNumber(const tagDATETIME& date, short flag) noexcept;
// Writes Day, Month, Year only.
void HebrewDateOfDayNumber(double dayNumber, tagDATETIME& date, short flag) noexcept;

}  // namespace cal
