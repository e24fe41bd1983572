// SetDate stores a date that cannot carry without looking up any length;
// these tests pin that shortcut to the full carrying.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "time/calendar_kinds.h"
#include "time/date_normalisation.h"

namespace {

constexpr std::int32_t kKinds[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7};

TEST(DateCannotCarry, HebrewMonthsOneToTwelveNeverShorterThan29DaysInAnyYear) {
    for (std::int32_t kind : {3, 4}) {
        for (int y = std::numeric_limits<std::int16_t>::min(); y <= std::numeric_limits<std::int16_t>::max(); ++y) {
            tagDATETIME date;
            date.Year = static_cast<std::int16_t>(y);
            date.Month = 1;
            const CalendarInfo year = ComputeCalendarInfo(kind, date);
            ASSERT_GE(year.monthsInYear, 12) << kind << ' ' << y;
            // A length of 0 or less stops the year carry as surely as a long year.
            ASSERT_TRUE(year.daysInYear <= 0 || year.daysInYear >= 29) << kind << ' ' << y << ' ' << year.daysInYear;
            for (std::int16_t m = 1; m <= 12; ++m) {
                date.Month = m;
                ASSERT_GE(ComputeCalendarInfo(kind, date).daysInMonth, 29) << kind << ' ' << y << ' ' << m;
            }
        }
    }
}

TEST(DateCannotCarry, SolarMonthsOneToTwelveNeverShorterThan28Days) {
    for (std::int32_t kind : {0, 1, 2, 5, 6}) {
        for (int y = std::numeric_limits<std::int16_t>::min(); y <= std::numeric_limits<std::int16_t>::max(); y += 1) {
            tagDATETIME date;
            date.Year = static_cast<std::int16_t>(y);
            for (std::int16_t m = 1; m <= 12; ++m) {
                date.Month = m;
                const CalendarInfo info = ComputeCalendarInfo(kind, date);
                ASSERT_GE(info.daysInMonth, 28) << kind << ' ' << y << ' ' << m;
                ASSERT_EQ(info.monthsInYear, 12);
                ASSERT_GE(info.daysInYear, 365);
            }
        }
    }
}

// Every date the shortcut takes, on every kind, from both 16-bit ends of the
// year: the full carrying stores it as given. Hebrew month numbers
// outside 1 to 12 are left out: carrying through them walks the whole 16-bit
// month range, and they never take the shortcut.
TEST(DateCannotCarry, AgreesWithFullCarryingOnEveryKind) {
    constexpr std::int16_t kYears[] = {-32768, -32767, -4000, -401, -400, -101, -100, -5,    -4,
                                       -1,     0,      1,     2,    3,    4,    19,   100,   1582,
                                       1900,   2000,   2024,  3761, 3762, 5784, 5785, 32766, 32767};
    int checked = 0;
    for (std::int32_t kind : kKinds) {
        const bool hebrew = kind == 3 || kind == 4;
        const int firstMonth = hebrew ? 1 : -14;
        const int lastMonth = hebrew ? 12 : 27;
        const int lastDay = hebrew ? 31 : 400;
        for (std::int16_t year : kYears) {
            for (int month = firstMonth; month <= lastMonth; ++month) {
                for (int day = -3; day <= lastDay; ++day) {
                    const auto d = static_cast<std::int16_t>(day);
                    const auto m = static_cast<std::int16_t>(month);
                    if (!DateCannotCarry(kind, d, m)) continue;
                    tagDATETIME carried;
                    CarryDate(kind, d, m, year, carried);
                    ASSERT_EQ(carried.Day, d) << kind << ' ' << day << ' ' << month << ' ' << year;
                    ASSERT_EQ(carried.Month, m) << kind << ' ' << day << ' ' << month << ' ' << year;
                    ASSERT_EQ(carried.Year, year) << kind << ' ' << day << ' ' << month << ' ' << year;
                    ++checked;
                }
            }
        }
    }
    EXPECT_EQ(checked, 27 * (7 * 12 * 32 + 2 * 12 * 33));  // days -3 to 28 (29 Hebrew)
}

TEST(DateCannotCarry, BoundsAreTheShortestMonthOfTheKind) {
    EXPECT_TRUE(DateCannotCarry(0, 28, 12));
    EXPECT_FALSE(DateCannotCarry(0, 29, 2));
    EXPECT_TRUE(DateCannotCarry(0, -5, 1));
    EXPECT_FALSE(DateCannotCarry(0, 1, 0));
    EXPECT_FALSE(DateCannotCarry(0, 1, 13));
    EXPECT_FALSE(DateCannotCarry(0, 1, -1));
    EXPECT_TRUE(DateCannotCarry(4, 29, 12));
    EXPECT_TRUE(DateCannotCarry(3, 29, 1));
    EXPECT_FALSE(DateCannotCarry(4, 30, 12));
    EXPECT_FALSE(DateCannotCarry(1, 29, 6));
}

TEST(CarryDate, ThirtiethOfAdarInCommonYearWrapsRoundToNisanOfTheSameYear) {
    // 5785 has 12 months; Adar (12) has 29 days, so the day carries into
    // month 13, which is empty like every month number outside 1 to 13; the
    // 16-bit month wraps round to month 1 and the year is kept.
    tagDATETIME date;
    CarryDate(4, 30, 12, 5785, date);
    EXPECT_EQ(date.Day, 1);
    EXPECT_EQ(date.Month, 1);
    EXPECT_EQ(date.Year, 5785);
}

}  // namespace
