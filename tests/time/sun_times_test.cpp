#include "time/sun_times.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

// 21 June 2024 00:00 at the default location.
constexpr double kJune21 = 739060.0;
constexpr double kNewYearNoon2024 = 738888.5;
constexpr double kLongitude = 83.045;
constexpr double kLatitude = 43.3;

SolarEvents June21() { return ComputeSolarEvents(kJune21, kNewYearNoon2024, kLongitude, kLatitude); }

}  // namespace

TEST(ComputeSolarEvents, DayCountOfWorkedExample) { EXPECT_EQ(June21().dayCount, 171.26841944444445); }

TEST(ComputeSolarEvents, DayIndexIsTruncatedDayCount) { EXPECT_EQ(June21().dayIndex, 171.0); }

TEST(ComputeSolarEvents, TransitOfWorkedExample) { EXPECT_EQ(June21().transit, 171.23158055555555); }

TEST(ComputeSolarEvents, MeanAnomalyInWholeDegrees) { EXPECT_EQ(June21().meanAnomaly, 166.0); }

TEST(ComputeSolarEvents, EquationOfCentreOfWorkedExample) { EXPECT_EQ(June21().equationOfCentre, 0.45404335362043363); }

TEST(ComputeSolarEvents, EclipticLongitudeInWholeDegrees) { EXPECT_EQ(June21().eclipticLongitude, 89.0); }

TEST(ComputeSolarEvents, DeclinationAndHourAngleOfWorkedExample) {
    const SolarEvents e = June21();
    EXPECT_NEAR(e.declination * 57.29577951308232, 23.446, 0.0005);
    EXPECT_NEAR(e.hourAngle * 57.29577951308232, 115.492, 0.0005);
}

TEST(ComputeSolarEvents, SunsetOfWorkedExample) { EXPECT_EQ(June21().sunset, 171.82995345218822); }

TEST(ComputeSolarEvents, SunriseOfWorkedExample) { EXPECT_EQ(June21().sunrise, 171.59733151711325); }

TEST(ComputeSolarEvents, MidnightSunGivesNotANumber) {
    const SolarEvents e = ComputeSolarEvents(kJune21, kNewYearNoon2024, kLongitude, 89.0);
    EXPECT_TRUE(std::isnan(e.sunrise));
    EXPECT_TRUE(std::isnan(e.sunset));
}

TEST(ComputeSolarEvents, PolarNightGivesNotANumber) {
    const SolarEvents e = ComputeSolarEvents(kJune21, kNewYearNoon2024, kLongitude, -89.0);
    EXPECT_TRUE(std::isnan(e.sunrise));
    EXPECT_TRUE(std::isnan(e.sunset));
}

// Anomaly and longitude keep the sign of a negative day count.
TEST(ComputeSolarEvents, WholeDegreesKeepTheSignOfTheDividend) {
    // n = -599 gives J* = -598.768..., and -598.768... * 0.98560028 + 357.5291
    // = -232.617..., truncated toward zero to -232.
    const SolarEvents e = ComputeSolarEvents(kNewYearNoon2024 - 599.5, kNewYearNoon2024, kLongitude, kLatitude);
    EXPECT_EQ(e.dayIndex, -599.0);
    EXPECT_EQ(e.meanAnomaly, -232.0);
}

TEST(ComputeSolarEvents, NotANumberStarDateTruncatesToInt32Min) {
    const SolarEvents e = ComputeSolarEvents(std::nan(""), kNewYearNoon2024, kLongitude, kLatitude);
    EXPECT_EQ(e.dayCount, -2147483648.0 - 738888.5 - 0.0009 - 83.045 / 360.0);
}
