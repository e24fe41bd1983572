// Hebrew year arithmetic: the leap rule, the molad-based start of a year with
// its postponements, and the two year-length rules. Pure functions.
//
// Day counts here put day 1 on the Sunday before the epoch's first molad
// (day 2 is the first day of year 1), so a count mod 7 gives the weekday
// with 1 = Sunday.
#pragma once

#include <cstdint>

namespace cal {

// 13 months when the test year (year under flag 0, year - 1 otherwise, as a
// 16-bit value) leaves a truncated remainder of 0, 3, 6, 8, 11, 14 or 17
// modulo 19; a negative remainder never does.
constexpr bool HebrewLeapYear(std::int64_t year, int flag) {
    const auto test = static_cast<std::int16_t>(flag == 0 ? year : year - 1);
    switch (test % 19) {
        case 0:
        case 3:
        case 6:
        case 8:
        case 11:
        case 14:
        case 17:
            return true;
        default:
            return false;
    }
}

struct HebrewYearStart {
    std::int64_t moladDay = 0;  // day count of the molad of Tishri
    int moladHour = 0;          // [0, 23]
    int moladPart = 0;          // [0, 1079]
    int postponement = 0;       // [0, 3]; the four rules are summed as they stand
    std::int64_t Day() const { return moladDay + postponement; }
};

// The molad of Tishri of `year` and the postponement of the year's start.
HebrewYearStart StartOfHebrewYear(std::int64_t year, int flag);

// 354 or 384 from the month count between two moladot (the flag 1 rule).
int MonthCountYearLength(std::int64_t year);
// 353..355 or 383..385 from the elapsed-days formula with its two corrections
// (the flag 0 rule).
int ElapsedDaysYearLength(std::int64_t year);

}  // namespace cal
