#include "calendar/hebrew_year.h"

namespace cal {
namespace {

constexpr int kPartsPerHour = 1080;
constexpr int kMonthsPerCycle = 235;
constexpr int kYearsPerCycle = 19;

// Quotient rounded toward minus infinity (positive divisor): a negative
// remainder borrows one unit from the next larger unit.
constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    const std::int64_t q = a / b;
    return (a % b < 0) ? q - 1 : q;
}
constexpr std::int64_t FloorMod(std::int64_t a, std::int64_t b) { return a - FloorDiv(a, b) * b; }

// Months before year k: truncating division, as the year-start rule has it.
constexpr std::int64_t MonthsBeforeYear(std::int64_t k) { return ((k - 1) * kMonthsPerCycle + 1) / kYearsPerCycle; }

// Days from the epoch to the new moon of year k, moved to the next day when
// three times the following day is 0, 1 or 2 modulo 7 (truncated remainder).
std::int64_t DelayedElapsedDays(std::int64_t k) {
    const std::int64_t m = (kMonthsPerCycle * k - 234) / kYearsPerCycle;
    const std::int64_t e = 29 * m + (13753 * m + 12084) / 25920;
    return (3 * (e + 1)) % 7 < 3 ? e + 1 : e;
}

}  // namespace

HebrewYearStart StartOfHebrewYear(std::int64_t year, int flag) {
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

int MonthCountYearLength(std::int64_t year) {
    const std::int64_t months = ((year - 1) * kMonthsPerCycle + 236) / kYearsPerCycle - MonthsBeforeYear(year);
    return months < 13 ? 354 : 384;
}

int ElapsedDaysYearLength(std::int64_t year) {
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

}  // namespace cal
