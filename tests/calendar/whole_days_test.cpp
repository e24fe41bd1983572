// Floor and fraction of day counts against libm, the year-day inverse at
// the year's end, and the time of day as a fraction.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "calendar/day_numbers.h"
#include "calendar/month_rules.h"
#include "calendar/whole_days.h"
#include "date_fields.h"
#include "time/conversions.h"

namespace {

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST(WholeDays, FloorAndFractionEqualLibmBitForBit) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    std::vector<double> values = {0.0,
                                  -0.0,
                                  0.5,
                                  -0.5,
                                  1e-300,
                                  -1e-300,
                                  2147483647.5,
                                  -2147483648.5,
                                  4503599627370495.5,
                                  -4503599627370495.5,
                                  4503599627370496.0,
                                  9007199254740993.0,
                                  1e300,
                                  -1e300,
                                  kInf,
                                  -kInf};
    for (int i = -5000; i <= 5000; ++i) values.push_back(i * 0.37 + 1e-9 * i);
    for (double x : values) {
        EXPECT_TRUE(SameBits(cal::FloorWhole(x), std::floor(x))) << x;
        double whole = 0.0;
        EXPECT_TRUE(SameBits(cal::FractionOf(x), std::modf(x, &whole))) << x;
    }
    EXPECT_TRUE(SameBits(cal::FloorWhole(-0.0), -0.0));
    EXPECT_TRUE(SameBits(cal::FloorWhole(-0.5), -1.0));
    EXPECT_TRUE(SameBits(cal::FractionOf(-3.0), -0.0));
    EXPECT_TRUE(SameBits(cal::FractionOf(3.0), 0.0));
    EXPECT_EQ(cal::FractionOf(-2.25), -0.25);
}

TEST(SetYearDay, CommonYearDay366IsFirstOfMonth13) {
    std::int16_t day = 0, month = 0;
    cal::SetYearDay(366, false, &day, &month);
    EXPECT_EQ(month, 13);
    EXPECT_EQ(day, 1);
    cal::SetYearDay(366, true, &day, &month);
    EXPECT_EQ(month, 12);
    EXPECT_EQ(day, 31);
    cal::SetYearDay(0, true, &day, &month);
    EXPECT_EQ(month, 1);
    EXPECT_EQ(day, 0);
}

TEST(SetYearDay, FarMonthsCountThirtyDaysEach) {
    EXPECT_EQ(cal::YearDay(1, 14, false), 396);
    std::int16_t day = 0, month = 0;
    cal::SetYearDay(396, false, &day, &month);
    EXPECT_EQ(month, 14);
    EXPECT_EQ(day, 1);
}

TEST(DayFraction, MiddayIsOneHalf) {
    const tagDATETIME date = MakeDate(2024, 6, 21, 12, 0, 0.0f);
    EXPECT_EQ(cal::DayFraction(date), 0.5);
    EXPECT_EQ(GregorianToJDN(&date), 739060.5);  // 739058 elapsed days, shifted by 2
}

}  // namespace
