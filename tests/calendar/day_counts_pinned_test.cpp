// The inline day counts, their table-driven inverses and the libm-free
// rounding, pinned value for value to the code as first written
// (day_counts_direct.h).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "calendar/day_counts.h"
#include "calendar/day_numbers.h"
#include "calendar/month_rules.h"
#include "calendar/whole_days.h"
#include "date_fields.h"
#include "day_counts_direct.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }
bool SameBits(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Values where rounding, saturation or a sign is decided.
std::vector<double> EdgeValues() {
    std::vector<double> v = {0.0,
                             -0.0,
                             0.5,
                             -0.5,
                             0.25,
                             -0.75,
                             1.0,
                             -1.0,
                             1e-300,
                             -1e-300,
                             std::numeric_limits<double>::denorm_min(),
                             -std::numeric_limits<double>::denorm_min(),
                             2147483646.5,
                             2147483647.0,
                             2147483647.5,
                             2147483648.0,
                             -2147483647.0,
                             -2147483647.5,
                             -2147483648.0,
                             -2147483649.0,
                             4503599627370495.5,
                             4503599627370496.0,
                             -4503599627370495.5,
                             -4503599627370496.0,
                             9007199254740993.0,
                             8.9e18,
                             9.0e18,
                             9.5e18,
                             -9.0e18,
                             -9.5e18,
                             1e300,
                             -1e300,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest(),
                             kInf,
                             -kInf,
                             kNaN,
                             -kNaN};
    for (double x : {-366.0, -365.5, -365.0, -364.5, -1.5, 1.5, 365.5, 366.0, 146097.0, 146097.5}) v.push_back(x);
    return v;
}

using DateFromCount = void (*)(double, tagDATETIME*);

// The date the inline inverse writes against the first-written one's, from
// a record whose other fields must stay as they are.
void ExpectSameDate(DateFromCount fast, DateFromCount direct, double count) {
    tagDATETIME a = MakeDate(7, 7, 7, 1, 2, 3.0f);
    tagDATETIME b = a;
    fast(count, &a);
    direct(count, &b);
    ASSERT_EQ(DateOf(a), DateOf(b)) << count;
    ASSERT_EQ(a.Hour, 1);
    ASSERT_EQ(a.Minute, 2);
}

void ExpectSameGregorian(double count) {
    ExpectSameDate(cal::GregorianDateFromCount, day_counts_direct::GregorianDateFromCount, count);
}

void ExpectSameJulian(double count) {
    ExpectSameDate(cal::JulianDateFromCount, day_counts_direct::JulianDateFromCount, count);
}

TEST(DayCountsPinned, GregorianAndJulianCountsOfEveryYearMatch) {
    constexpr std::int16_t kDays[] = {-32768, -1, 0, 1, 15, 28, 29, 30, 31, 32, 366, 32767};
    for (int y = std::numeric_limits<std::int16_t>::min(); y <= std::numeric_limits<std::int16_t>::max(); ++y) {
        const auto year = static_cast<std::int16_t>(y);
        for (int m = -2; m <= 15; ++m) {
            const auto month = static_cast<std::int16_t>(m);
            for (std::int16_t day : kDays) {
                ASSERT_EQ(cal::GregorianElapsedDays(day, month, year),
                          day_counts_direct::GregorianElapsedDays(day, month, year))
                    << y << ' ' << m << ' ' << day;
                ASSERT_EQ(cal::JulianElapsedDays(day, month, year),
                          day_counts_direct::JulianElapsedDays(day, month, year))
                    << y << ' ' << m << ' ' << day;
            }
        }
    }
}

TEST(DayCountsPinned, FarMonthsCountThirtyDaysEach) {
    for (std::int16_t month : {std::int16_t{16}, std::int16_t{1000}, std::int16_t{32767}, std::int16_t{-32768}}) {
        for (std::int16_t year : {std::int16_t{-5}, std::int16_t{0}, std::int16_t{2024}}) {
            EXPECT_EQ(cal::GregorianElapsedDays(1, month, year),
                      day_counts_direct::GregorianElapsedDays(1, month, year));
            EXPECT_EQ(cal::JulianElapsedDays(1, month, year), day_counts_direct::JulianElapsedDays(1, month, year));
        }
    }
    EXPECT_EQ(cal::YearDay(1, 14, false), 396);
}

// Every whole count of the 16-bit years and beyond, and a half-day and a
// quarter-day beside every seventh.
TEST(DayCountsPinned, DatesOfEveryCountMatch) {
    for (int n = -12'500'000; n <= 12'500'000; ++n) {
        ExpectSameGregorian(n);
        ExpectSameJulian(n);
        if (n % 7 == 0) {
            ExpectSameGregorian(n + 0.5);
            ExpectSameJulian(n + 0.5);
            ExpectSameGregorian(n - 0.25);
            ExpectSameJulian(n - 0.25);
        }
    }
}

TEST(DayCountsPinned, DatesOfEdgeCountsMatch) {
    for (double x : EdgeValues()) {
        ExpectSameGregorian(x);
        ExpectSameJulian(x);
    }
}

TEST(DayCountsPinned, YearDayInverseMatchesOverEveryReachableDay) {
    for (bool leap : {false, true}) {
        for (int n = -40'000; n <= 983'400; ++n) {
            std::int16_t day = 0, month = 0, directDay = 0, directMonth = 0;
            cal::SetYearDay(n, leap, &day, &month);
            day_counts_direct::SetYearDay(n, leap, &directDay, &directMonth);
            ASSERT_EQ(day, directDay) << n << ' ' << leap;
            ASSERT_EQ(month, directMonth) << n << ' ' << leap;
        }
        for (int n : {std::numeric_limits<int>::min(), -1, 0, 365, 366, 367, 983'366, 983'367, 983'400, 2'000'000}) {
            std::int16_t day = 0, month = 0, directDay = 0, directMonth = 0;
            cal::SetYearDay(n, leap, &day, &month);
            day_counts_direct::SetYearDay(n, leap, &directDay, &directMonth);
            EXPECT_EQ(day, directDay) << n << ' ' << leap;
            EXPECT_EQ(month, directMonth) << n << ' ' << leap;
        }
    }
}

TEST(DayCountsPinned, YearDayInverseOfCommonYearDay366IsFirstOfMonth13) {
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

TEST(DayCountsPinned, TruncationOfEdgeValuesMatches) {
    for (double x : EdgeValues()) EXPECT_EQ(cal::TruncateDays(x), day_counts_direct::TruncateDays(x)) << x;
}

TEST(WholeDays, FloorAndFractionEqualLibmBitForBit) {
    std::vector<double> values = EdgeValues();
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

// The time of day split from a day number's fraction, field for field.
TEST(DayCountsPinned, TimeOfDayMatches) {
    std::vector<double> values = EdgeValues();
    for (int i = -20000; i <= 20000; ++i) values.push_back(738000.0 + i / 7.3);
    for (double x : values) {
        tagDATETIME fast = MakeDate(1, 1, 1, 9, 9, 9.0f);
        tagDATETIME direct = fast;
        JDNtoTime(x, &fast);
        day_counts_direct::WriteTimeOfDay(x, &direct);
        ASSERT_EQ(fast.Hour, direct.Hour) << x;
        ASSERT_EQ(fast.Minute, direct.Minute) << x;
        ASSERT_TRUE(SameBits(fast.Second, direct.Second)) << x;
    }
}

}  // namespace

namespace {

// The time of day as a fraction, against the three divisions as written.
TEST(DayFraction, EqualsTheQuotientsBitForBit) {
    const float seconds[] = {0.0f,
                             -0.0f,
                             0.5f,
                             59.999996f,
                             -1.0f,
                             3.25e7f,
                             std::numeric_limits<float>::quiet_NaN(),
                             std::numeric_limits<float>::infinity()};
    std::vector<int> hours;
    for (int h = -30; h <= 60; ++h) hours.push_back(h);
    hours.insert(hours.end(), {-32768, 32767, 1000});
    std::vector<int> minutes;
    for (int m = -70; m <= 130; ++m) minutes.push_back(m);
    minutes.insert(minutes.end(), {-32768, 32767, 1439, 1440});
    for (int h : hours) {
        for (int m : minutes) {
            for (float s : seconds) {
                const tagDATETIME date = MakeDate(2024, 6, 21, h, m, s);
                const double expected =
                    (date.Hour / 24.0 + date.Minute / 1440.0) + static_cast<double>(date.Second) / 86400.0;
                ASSERT_TRUE(SameBits(DayFraction(&date), expected) ||
                            (std::isnan(expected) && std::isnan(DayFraction(&date))))
                    << h << ' ' << m << ' ' << s;
            }
        }
    }
}

TEST(DayFraction, MiddayIsOneHalf) {
    const tagDATETIME date = MakeDate(2024, 6, 21, 12, 0, 0.0f);
    EXPECT_EQ(DayFraction(&date), 0.5);
    EXPECT_EQ(GregorianToJDN(&date), 739060.5);  // 739058 elapsed days, shifted by 2
}

}  // namespace
