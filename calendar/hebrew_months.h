// Month lengths of a Hebrew year. They depend only on the year's length
// (Heshvan, Kislev) and on its leap test (Adar, Adar II), so the eight
// combinations ("shapes") are tabulated once, with the running totals that
// turn a day of the year into a month without a loop over month lengths.
#pragma once

#include <cstdint>

namespace cal {

// Months of a year in the order they are walked, from Tishri.
inline constexpr std::int16_t kHebrewMonthsFromTishri[13] = {7, 8, 9, 10, 11, 12, 13, 1, 2, 3, 4, 5, 6};

// [0, 7]: bit 0 = Heshvan has 30 days, bit 1 = Kislev has 29, bit 2 = the
// leap test holds. Heshvan also accepts a 386-day year, a length that never
// occurs; the test is kept as it stands.
constexpr int HebrewMonthShape(int yearLength, bool leap) noexcept {
    const int longHeshvan = (yearLength == 355 || yearLength == 385 || yearLength == 386) ? 1 : 0;
    const int shortKislev = (yearLength == 353 || yearLength == 383) ? 2 : 0;
    return longHeshvan | shortKislev | (leap ? 4 : 0);
}

struct HebrewMonthShapes {
    // Days by month number (month 0 unused); month 13 has 0 days outside a
    // leap year.
    std::int16_t length[8][14] = {};
    // Days in the first i months from Tishri, i in [0, 12]; never decreasing.
    std::int16_t end[8][13] = {};
};

constexpr HebrewMonthShapes MakeHebrewMonthShapes() noexcept {
    constexpr std::int16_t kFixed[14] = {0, 30, 29, 30, 29, 30, 29, 30, 0, 0, 29, 30, 0, 0};
    HebrewMonthShapes shapes;
    for (int shape = 0; shape < 8; ++shape) {
        const bool leap = (shape & 4) != 0;
        auto& length = shapes.length[shape];
        for (int m = 0; m < 14; ++m) length[m] = kFixed[m];
        length[8] = (shape & 1) != 0 ? 30 : 29;
        length[9] = (shape & 2) != 0 ? 29 : 30;
        length[12] = leap ? 30 : 29;
        length[13] = leap ? 29 : 0;
        for (int i = 0; i < 12; ++i)
            shapes.end[shape][i + 1] =
                static_cast<std::int16_t>(shapes.end[shape][i] + length[kHebrewMonthsFromTishri[i]]);
    }
    return shapes;
}

inline constexpr HebrewMonthShapes kHebrewMonthShapes = MakeHebrewMonthShapes();

// Months from Tishri that `dayOfYear` (>= 1) passes entirely, in [0, 12]: the
// last month takes whatever remains, however large.
constexpr int HebrewMonthIndex(int shape, std::int64_t dayOfYear) noexcept {
    const auto& end = kHebrewMonthShapes.end[shape];
    int passed = 0;
    for (int i = 1; i <= 12; ++i) passed += dayOfYear > end[i] ? 1 : 0;
    return passed;
}

// HebrewMonthIndex by table lookup; every day of the year beyond the first
// twelve months (at most 356 days) shares the last row.
inline constexpr int kHebrewDaysTabulated = 360;
struct HebrewMonthsPassedTable {
    std::uint8_t passed[8][kHebrewDaysTabulated + 1] = {};  // [shape][min(dayOfYear, kHebrewDaysTabulated)]
};

constexpr HebrewMonthsPassedTable MakeHebrewMonthsPassedTable() noexcept {
    HebrewMonthsPassedTable table;
    for (int shape = 0; shape < 8; ++shape)
        for (int day = 1; day <= kHebrewDaysTabulated; ++day)
            table.passed[shape][day] = static_cast<std::uint8_t>(HebrewMonthIndex(shape, day));
    return table;
}

inline constexpr HebrewMonthsPassedTable kHebrewMonthsPassed = MakeHebrewMonthsPassedTable();

constexpr bool FirstTwelveMonthsFitTable() noexcept {
    for (const auto& end : kHebrewMonthShapes.end)
        if (end[12] >= kHebrewDaysTabulated) return false;
    return true;
}
static_assert(FirstTwelveMonthsFitTable(), "the last row must stand for every later day");

constexpr int HebrewMonthsPassed(int shape, std::int64_t dayOfYear) noexcept {
    return kHebrewMonthsPassed.passed[shape][dayOfYear < kHebrewDaysTabulated ? dayOfYear : kHebrewDaysTabulated];
}

}  // namespace cal
