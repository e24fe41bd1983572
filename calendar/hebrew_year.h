// Hebrew year arithmetic: the leap rule, the molad-based start of a year with
// its postponements, and the two year-length rules. Pure functions, constexpr
// so that the year table (hebrew_year_table.h) is built at compile time.
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
constexpr bool HebrewLeapYear(std::int64_t year, int flag) noexcept {
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
    constexpr std::int64_t Day() const noexcept { return moladDay + postponement; }
};

namespace hebrew_year_detail {

constexpr int kPartsPerHour = 1080;
constexpr int kMonthsPerCycle = 235;
constexpr int kYearsPerCycle = 19;

// Quotient rounded toward minus infinity (positive divisor): a negative
// remainder borrows one unit from the next larger unit.
constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) noexcept {
    const std::int64_t q = a / b;
    return (a % b < 0) ? q - 1 : q;
}
constexpr std::int64_t FloorMod(std::int64_t a, std::int64_t b) noexcept { return a - FloorDiv(a, b) * b; }

// Months before year k: truncating division, as the year-start rule has it.
constexpr std::int64_t MonthsBeforeYear(std::int64_t k) noexcept {
    return ((k - 1) * kMonthsPerCycle + 1) / kYearsPerCycle;
}

// Days from the epoch to the new moon of year k, moved to the next day when
// three times the following day is 0, 1 or 2 modulo 7 (truncated remainder).
constexpr std::int64_t DelayedElapsedDays(std::int64_t k) noexcept {
    const std::int64_t m = (kMonthsPerCycle * k - 234) / kYearsPerCycle;
    const std::int64_t e = 29 * m + (13753 * m + 12084) / 25920;
    return (3 * (e + 1)) % 7 < 3 ? e + 1 : e;
}

}  // namespace hebrew_year_detail

// The molad of Tishri of `year` and the postponement of the year's start.
constexpr HebrewYearStart StartOfHebrewYear(std::int64_t year, int flag) noexcept {
    using namespace hebrew_year_detail;
    const std::int64_t m = MonthsBeforeYear(year);
    const std::int64_t parts = m * 793 + 204;
    const std::int64_t hours = FloorDiv(parts, kPartsPerHour) + m * 12 + 5;
    HebrewYearStart start;
    start.moladDay = m * 29 + FloorDiv(hours, 24) + 2;
    start.moladHour = static_cast<int>(FloorMod(hours, 24));
    start.moladPart = static_cast<int>(FloorMod(parts, kPartsPerHour));

    const int h = start.moladHour;
    const int p = start.moladPart;
    const std::int64_t d = start.moladDay;
    const int late = h > 17 ? 1 : 0;
    const std::int64_t weekday = (d + late) % 7;  // truncated: negative counts never match
    const int avoidedDay = (weekday == 1 || weekday == 4 || weekday == 6) ? 1 : 0;
    const int commonTuesday =
        (!HebrewLeapYear(year, flag) && d % 7 == 3 && ((h == 9 && p > 203) || (h >= 10 && h < 18))) ? 2 : 0;
    const int afterLeapMonday =
        (HebrewLeapYear(year - 1, flag) && d % 7 == 2 && ((h == 15 && p > 588) || (h >= 16 && h < 18))) ? 1 : 0;
    start.postponement = late + avoidedDay + commonTuesday + afterLeapMonday;
    return start;
}

// 354 or 384 from the month count between two moladot (the flag 1 rule).
constexpr int MonthCountYearLength(std::int64_t year) noexcept {
    using namespace hebrew_year_detail;
    const std::int64_t months = ((year - 1) * kMonthsPerCycle + 236) / kYearsPerCycle - MonthsBeforeYear(year);
    return months < 13 ? 354 : 384;
}

// 353..355 or 383..385 from the elapsed-days formula with its two corrections
// (the flag 0 rule).
constexpr int ElapsedDaysYearLength(std::int64_t year) noexcept {
    using hebrew_year_detail::DelayedElapsedDays;
    const std::int64_t before = DelayedElapsedDays(year - 1);
    const std::int64_t first = DelayedElapsedDays(year);
    const std::int64_t next = DelayedElapsedDays(year + 1);
    const std::int64_t after = DelayedElapsedDays(year + 2);
    // A 356-day gap ahead moves the start by two days, a 382-day gap behind by one.
    const auto correction = [](std::int64_t previous, std::int64_t current, std::int64_t following) {
        if (following - current == 356) return 2;
        if (current - previous == 382) return 1;
        return 0;
    };
    return static_cast<int>((next + correction(first, next, after)) - (first + correction(before, first, next)));
}

// The year length CHebrew::DaysInYear reports: the elapsed-days rule under
// flag 0, the month-count rule under any other flag.
constexpr int HebrewYearLength(std::int64_t year, int flag) noexcept {
    return flag == 0 ? ElapsedDaysYearLength(year) : MonthCountYearLength(year);
}

}  // namespace cal
