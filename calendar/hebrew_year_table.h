// Start, length and month shape of the Hebrew years most dates fall in
// (3700 to 7199, roughly 60 BC to AD 3440), computed at compile time
// from hebrew_year.h, so a conversion reads them instead of repeating the
// molad arithmetic. Years outside the range are computed on each call, with
// the same functions.
#pragma once

#include <cstdint>

namespace cal {

inline constexpr std::int64_t kHebrewTableFirstYear = 3700;
inline constexpr std::int64_t kHebrewTableLastYear = 7199;
inline constexpr int kHebrewTableYears = static_cast<int>(kHebrewTableLastYear - kHebrewTableFirstYear + 1);

struct HebrewYearEntry {
    std::int32_t start = 0;         // StartOfHebrewYear(year, flag).Day()
    std::int16_t length = 0;        // HebrewYearLength(year, flag)
    std::uint8_t postponement = 0;  // StartOfHebrewYear(year, flag).postponement
    std::uint8_t monthShape = 0;    // HebrewMonthShape(length, HebrewLeapYear(year, flag))
};

struct HebrewYearTable {
    HebrewYearEntry entry[2][kHebrewTableYears];  // [flag != 0][year - kHebrewTableFirstYear]
};

// Constant-initialised: no start-up cost and nothing to synchronise.
extern const HebrewYearTable kHebrewYearTable;

constexpr bool InHebrewYearTable(std::int64_t year) noexcept {
    return year >= kHebrewTableFirstYear && year <= kHebrewTableLastYear;
}

// Only for years in the table.
inline const HebrewYearEntry& HebrewYearTableEntry(std::int64_t year, int flag) noexcept {
    return kHebrewYearTable.entry[flag != 0 ? 1 : 0][year - kHebrewTableFirstYear];
}

}  // namespace cal
