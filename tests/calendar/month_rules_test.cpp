#include "calendar/month_rules.h"

#include <gtest/gtest.h>

namespace {

// Days of months 1 .. month-1.
int DaysBeforeMonth(int month, bool leap) { return cal::YearDay(0, month, leap); }

}  // namespace

TEST(MonthRules, GregorianLeapYears) {
    EXPECT_TRUE(cal::GregorianLeap(2024));
    EXPECT_TRUE(cal::GregorianLeap(2000));
    EXPECT_TRUE(cal::GregorianLeap(0));
    EXPECT_TRUE(cal::GregorianLeap(-4));
    EXPECT_FALSE(cal::GregorianLeap(1900));
    EXPECT_FALSE(cal::GregorianLeap(2023));
    EXPECT_FALSE(cal::GregorianLeap(-1));
    EXPECT_FALSE(cal::GregorianLeap(-100));
    EXPECT_TRUE(cal::GregorianLeap(-400));
}

TEST(MonthRules, JulianLeapByLowTwoBits) {
    EXPECT_TRUE(cal::JulianLeap(1900));
    EXPECT_TRUE(cal::JulianLeap(-4));
    EXPECT_TRUE(cal::JulianLeap(0));
    EXPECT_FALSE(cal::JulianLeap(-1));
    EXPECT_FALSE(cal::JulianLeap(-5));
    EXPECT_FALSE(cal::JulianLeap(2023));
}

TEST(MonthRules, OutOfRangeMonthsHaveThirtyDays) {
    const std::int32_t lengths[] = {30, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31, 30, 30};
    for (std::int32_t m = 0; m <= 14; ++m) EXPECT_EQ(cal::MonthLength(m, false), lengths[m]) << m;
    EXPECT_EQ(cal::MonthLength(2, true), 29);
    EXPECT_EQ(cal::MonthLength(-1, true), 30);
    EXPECT_EQ(cal::MonthLength(-32768, false), 30);
    EXPECT_EQ(cal::YearLength(false), 365);
    EXPECT_EQ(cal::YearLength(true), 366);
}

TEST(MonthRules, DaysBeforeMonth) {
    EXPECT_EQ(DaysBeforeMonth(-5, false), 0);
    EXPECT_EQ(DaysBeforeMonth(0, false), 0);
    EXPECT_EQ(DaysBeforeMonth(1, true), 0);
    EXPECT_EQ(DaysBeforeMonth(2, true), 31);
    EXPECT_EQ(DaysBeforeMonth(3, false), 59);
    EXPECT_EQ(DaysBeforeMonth(3, true), 60);
    EXPECT_EQ(DaysBeforeMonth(12, false), 334);
    EXPECT_EQ(DaysBeforeMonth(13, false), 365);
    EXPECT_EQ(DaysBeforeMonth(13, true), 366);
    EXPECT_EQ(DaysBeforeMonth(15, false), 425);
}

TEST(MonthRules, DaysBeforeMonthMatchesSummedLengths) {
    for (int leap = 0; leap <= 1; ++leap) {
        std::int32_t sum = 0;
        for (std::int32_t m = 1; m <= 40; ++m) {
            EXPECT_EQ(DaysBeforeMonth(m, leap != 0), sum) << m;
            sum += cal::MonthLength(m, leap != 0);
        }
    }
}
