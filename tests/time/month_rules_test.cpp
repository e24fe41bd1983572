#include "time/month_rules.h"

#include <gtest/gtest.h>

using namespace month_rules;

TEST(MonthRules, GregorianLeapYears) {
    EXPECT_TRUE(IsGregorianLeap(2024));
    EXPECT_TRUE(IsGregorianLeap(2000));
    EXPECT_TRUE(IsGregorianLeap(0));
    EXPECT_TRUE(IsGregorianLeap(-4));
    EXPECT_FALSE(IsGregorianLeap(1900));
    EXPECT_FALSE(IsGregorianLeap(2023));
    EXPECT_FALSE(IsGregorianLeap(-1));
    EXPECT_FALSE(IsGregorianLeap(-100));
    EXPECT_TRUE(IsGregorianLeap(-400));
}

TEST(MonthRules, JulianLeapByLowTwoBits) {
    EXPECT_TRUE(IsJulianLeap(1900));
    EXPECT_TRUE(IsJulianLeap(-4));
    EXPECT_TRUE(IsJulianLeap(0));
    EXPECT_FALSE(IsJulianLeap(-1));
    EXPECT_FALSE(IsJulianLeap(-5));
    EXPECT_FALSE(IsJulianLeap(2023));
}

TEST(MonthRules, OutOfRangeMonthsHaveThirtyDays) {
    const std::int32_t lengths[] = {30, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31, 30, 30};
    for (std::int32_t m = 0; m <= 14; ++m) EXPECT_EQ(DaysInMonth(m, false), lengths[m]) << m;
    EXPECT_EQ(DaysInMonth(2, true), 29);
    EXPECT_EQ(DaysInMonth(-1, true), 30);
    EXPECT_EQ(DaysInMonth(-32768, false), 30);
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
            sum += DaysInMonth(m, leap != 0);
        }
    }
}
