#include <gtest/gtest.h>

#include <cmath>

#include "sky/julian_date.h"
#include "sky/known_years.h"

namespace timetool::sky {
namespace {

TEST(DaysFromCivil, CountsFromTheUnixEpoch) {
    const struct {
        std::int64_t year;
        unsigned month;
        unsigned day;
        std::int64_t days;
    } cases[] = {
        {1970, 1, 1, 0},       {1969, 12, 31, -1},      {2000, 1, 1, 10957},  {2000, 3, 1, 11017},
        {2024, 6, 21, 19895},  {1900, 3, 1, -25508},    {1, 1, 1, -719162},   {0, 12, 31, -719163},
        {-400, 1, 1, -865625}, {-1000, 1, 1, -1084770}, {3001, 1, 1, 376565},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(DaysFromCivil(c.year, c.month, c.day), c.days) << c.year << "-" << c.month << "-" << c.day;
    }
}

TEST(DaysFromCivil, YearZeroIsALeapYear) {
    EXPECT_EQ(DaysFromCivil(0, 3, 1) - DaysFromCivil(0, 2, 28), 2);
    EXPECT_EQ(DaysFromCivil(-100, 3, 1) - DaysFromCivil(-100, 2, 28), 1);
    EXPECT_EQ(DaysFromCivil(-400, 3, 1) - DaysFromCivil(-400, 2, 28), 2);
}

TEST(StarDate, IsTheJulianDateLessItsOffset) {
    EXPECT_EQ(StarDateFromJulianDate(JulianDateAtMidnight(DaysFromCivil(2000, 1, 1))), 730122.0);
    EXPECT_EQ(JulianDateFromStarDate(1.0), 1721423.5);  // 0001-01-01 of the Julian calendar, 00:00
    EXPECT_EQ(JulianDateAtMidnight(0), 2440587.5);
}

TEST(JulianCenturies, CountFromJ2000) {
    EXPECT_EQ(JulianCenturies(2451545.0), 0.0);
    EXPECT_DOUBLE_EQ(JulianCenturies(2448908.5), -0.072183436002737850);  // 1992-10-13 00:00
}

TEST(DecimalYear, StaysWithinADayOfTheCalendarYear) {
    for (std::int64_t year : {-1000, -1, 0, 1, 1582, 1900, 2000, 2024, 3000}) {
        const double start = DecimalYear(JulianDateAtMidnight(DaysFromCivil(year, 1, 1)));
        EXPECT_NEAR(start, static_cast<double>(year), 1.0 / 365.0) << year;
    }
}

TEST(KnownYears, RunFromMinus1000To3000) {
    EXPECT_TRUE(IsKnownDay(DaysFromCivil(-1000, 1, 1)));
    EXPECT_FALSE(IsKnownDay(DaysFromCivil(-1000, 1, 1) - 1));
    EXPECT_TRUE(IsKnownDay(DaysFromCivil(3000, 12, 31)));
    EXPECT_FALSE(IsKnownDay(DaysFromCivil(3001, 1, 1)));

    EXPECT_TRUE(IsKnownInstant(JulianDateAtMidnight(DaysFromCivil(-1000, 1, 1))));
    EXPECT_FALSE(IsKnownInstant(std::nextafter(JulianDateAtMidnight(DaysFromCivil(-1000, 1, 1)), 0.0)));
    EXPECT_TRUE(IsKnownInstant(JulianDateAtMidnight(DaysFromCivil(3001, 1, 1)) - 1e-6));
    EXPECT_FALSE(IsKnownInstant(JulianDateAtMidnight(DaysFromCivil(3001, 1, 1))));
    EXPECT_FALSE(IsKnownInstant(std::nan("")));
}

}  // namespace
}  // namespace timetool::sky
