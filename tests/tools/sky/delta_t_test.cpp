#include "sky/delta_t.h"

#include <gtest/gtest.h>

#include <cmath>

#include "sky/julian_date.h"

namespace timetool::sky {
namespace {

// Delta T in seconds as tabulated with the NASA eclipse canon (from
// historical eclipses and, since 1620, telescopic observations), which the
// polynomials were fitted to.
struct Tabulated {
    double year;
    double seconds;
};

TEST(DeltaTSeconds, FollowsTheHistoricalTableBeforeTheTelescope) {
    const Tabulated table[] = {
        {-1000, 25400}, {-500, 17190}, {-400, 15530}, {-300, 14080}, {-200, 12790}, {-100, 11640},
        {0, 10580},     {100, 9600},   {200, 8640},   {300, 7680},   {400, 6700},   {500, 5710},
        {600, 4740},    {700, 3810},   {800, 2960},   {900, 2200},   {1000, 1570},  {1100, 1090},
        {1200, 740},    {1300, 490},   {1400, 320},   {1500, 200},   {1600, 120},
    };
    for (const Tabulated& t : table) {
        EXPECT_NEAR(DeltaTSeconds(t.year), t.seconds, std::max(5.0, 0.002 * t.seconds)) << t.year;
    }
}

TEST(DeltaTSeconds, FollowsTheTableOfMeasuredValues) {
    const Tabulated table[] = {
        {1700, 9},    {1750, 13},   {1800, 14},   {1850, 7},    {1900, -3},   {1950, 29},
        {1955, 31.1}, {1960, 33.2}, {1965, 35.7}, {1970, 40.2}, {1975, 45.5}, {1980, 50.5},
        {1985, 54.3}, {1990, 56.9}, {1995, 60.8}, {2000, 63.8}, {2005, 64.7},
    };
    for (const Tabulated& t : table) EXPECT_NEAR(DeltaTSeconds(t.year), t.seconds, 0.4) << t.year;
}

TEST(DeltaTSeconds, GoesOnAsTheLongTermParabolaOutsideTheFit) {
    for (double year : {-3000.0, -1999.0, -600.0, 2150.0, 2500.0, 3000.0, 5000.0}) {
        const double u = (year - 1820.0) / 100.0;
        EXPECT_NEAR(DeltaTSeconds(year), -20.0 + 32.0 * u * u, 1e-9 * (1.0 + 32.0 * u * u)) << year;
    }
    // The piece from 2050 to 2150 bends the near future towards the parabola.
    EXPECT_NEAR(DeltaTSeconds(2100.0), -20.0 + 32.0 * 2.8 * 2.8 - 0.5628 * 50.0, 1e-9);
}

TEST(DeltaTSeconds, JoinsItsPiecesWithinAQuarterSecond) {
    for (double year : {-500.0, 500.0, 1600.0, 1700.0, 1800.0, 1860.0, 1900.0, 1920.0, 1941.0, 1961.0, 1986.0, 2005.0,
                        2050.0, 2150.0}) {
        EXPECT_NEAR(DeltaTSeconds(year), DeltaTSeconds(std::nextafter(year, -1e9)), 0.26) << year;
    }
}

TEST(TerrestrialJulianDate, AddsDeltaTOfTheInstant) {
    const double j2000 = 2451545.0;
    EXPECT_NEAR((TerrestrialJulianDate(j2000) - j2000) * kSecondsPerDay, 63.86, 0.01);
    const double ancient = JulianDateAtMidnight(DaysFromCivil(-1000, 6, 1));
    EXPECT_NEAR((TerrestrialJulianDate(ancient) - ancient) * kSecondsPerDay, 25400.0, 60.0);
}

}  // namespace
}  // namespace timetool::sky
