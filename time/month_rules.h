// Month and year lengths of the Gregorian and Julian rules on the 16-bit
// signed year, as the Time component's own operations count them.
#pragma once

#include <array>
#include <cstdint>

namespace month_rules {

// Divisibility is unaffected by the sign, so BC years follow the same test.
constexpr bool IsGregorianLeap(std::int16_t year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Low two bits of the 16-bit year: -4 and 0 are leap, -1 is not.
constexpr bool IsJulianLeap(std::int16_t year) noexcept { return (year & 3) == 0; }

// Month 0, negative months and months above 12 count 30 days; results for a
// year-day beyond the year's end depend on it.
constexpr std::int16_t DaysInMonth(std::int32_t month, bool leap) noexcept {
    constexpr std::array<std::int16_t, 13> kLengths{30, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 0 || month > 12) return 30;
    return month == 2 && leap ? 29 : kLengths[static_cast<std::size_t>(month)];
}

constexpr std::int16_t DaysInYear(bool leap) noexcept { return leap ? 366 : 365; }

// Sum of the lengths of months 1 .. month - 1; 0 for month 1 and below.
constexpr std::int32_t DaysBeforeMonth(std::int32_t month, bool leap) noexcept {
    constexpr std::array<std::int16_t, 13> kBefore{0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    if (month <= 1) return 0;
    if (month <= 12) return kBefore[static_cast<std::size_t>(month)] + (leap && month > 2 ? 1 : 0);
    return DaysInYear(leap) + 30 * (month - 13);  // [365, 983366]
}

}  // namespace month_rules
