#include "time/lunar_days.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace {

constexpr double kMonth = 29.53059413580247;

struct LunarCase {
    std::int16_t day;
    std::int16_t year;
    double flagZero;  // positions 1 .. r, or r .. -1
    double flagOne;   // positions 0 .. r-1, or r-1 .. -2
};

}  // namespace

// Month counts by hand: year 19 counts one whole cycle (235) plus eighteen
// further years; 13-month positions are 0, 3, 6, 8, 11, 14, 17.
TEST(LunarCalendarDays, TableOfYears) {
    const LunarCase cases[] = {
        {1, 1, 1.0, 1.0},                                // r = 0
        {5, 2, 12 * kMonth + 5, 13 * kMonth + 5},        // r = 1
        {1, 4, 37 * kMonth + 1, 37 * kMonth + 1},        // r = 3: 12+12+13 / 13+12+12
        {1, 19, 457 * kMonth + 1, 458 * kMonth + 1},     // 235 + 222 / 235 + 223
        {1, 20, 235 * kMonth + 1, 235 * kMonth + 1},     // r = 0
        {1, 0, -12 * kMonth + 1, -12 * kMonth + 1},      // r = -1
        {1, -18, 1.0, 1.0},                              // r = 0
        {1, -17, -216 * kMonth + 1, -217 * kMonth + 1},  // r = -18; position -19 counts 13
        {1, -19, -247 * kMonth + 1, -247 * kMonth + 1},  // -235, r = -1
        {0, 1, 0.0, 0.0},
        {-3, 1, -3.0, -3.0},
    };
    for (const LunarCase& c : cases) {
        SCOPED_TRACE(c.year);
        EXPECT_EQ(LunarCalendarDays(c.day, c.year, false), c.flagZero);
        EXPECT_EQ(LunarCalendarDays(c.day, c.year, true), c.flagOne);
    }
}

TEST(LunarCalendarDays, YearNineteenCountsMoreThanYearTwenty) {
    EXPECT_GT(LunarCalendarDays(1, 19, false), LunarCalendarDays(1, 20, false));
}

TEST(LunarCalendarDays, ExtremeYearsStayDefined) {
    // 32767 / 19 = 1724 cycles, r = 32766 % 19 = 10: positions 1..10 hold 3, 6, 8.
    EXPECT_EQ(LunarCalendarDays(1, 32767, false), (1724 * 235 + 123) * kMonth + 1);
    // -32768 / 19 = -1724 cycles, r = -32769 % 19 = -13: positions -13..-1 all count 12.
    EXPECT_EQ(LunarCalendarDays(1, -32768, false), (-1724 * 235 - 156) * kMonth + 1);
}

namespace {

// The count walked position by position, as the rule reads: 13 months at
// positions 0, 3, 6, 8, 11, 14, 17 of the cycle, 12 elsewhere and at every
// negative remainder.
double WalkedLunarDays(std::int16_t day, std::int16_t year, bool shifted) {
    const auto monthsAt = [](int position) {
        constexpr int kLongPositions[] = {0, 3, 6, 8, 11, 14, 17};
        const int remainder = position % 19;
        return std::find(std::begin(kLongPositions), std::end(kLongPositions), remainder) != std::end(kLongPositions)
                   ? 13
                   : 12;
    };
    int months = (year / 19) * 235;
    const int r = (year - 1) % 19;
    const int shift = shifted ? 1 : 0;
    if (r > 0)
        for (int p = 1 - shift; p <= r - shift; ++p) months += monthsAt(p);
    if (r < 0)
        for (int p = r - shift; p <= -1 - shift; ++p) months -= monthsAt(p);
    return months * kMonth + day;
}

TEST(LunarCalendarDays, EveryYearEqualsThePositionWalk) {
    for (int y = -32768; y <= 32767; ++y) {
        const auto year = static_cast<std::int16_t>(y);
        for (bool shifted : {false, true}) {
            ASSERT_EQ(LunarCalendarDays(7, year, shifted), WalkedLunarDays(7, year, shifted)) << y << ' ' << shifted;
        }
    }
}

}  // namespace
