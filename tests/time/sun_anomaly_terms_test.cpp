// Properties of the anomaly-only terms of the sun's position.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "time/sun_anomaly_terms.h"
#include "time/sun_times.h"

namespace {

constexpr double kNewYear2024 = 738888.0;  // star date of 1 January 2024 00:00

TEST(TabulatedAnomalyTerms, EclipticLongitudeIsWholeDegreesBelowOneTurn) {
    for (std::int32_t m = -(kMeanAnomalyLimit - 1); m < kMeanAnomalyLimit; ++m) {
        const double lambda = TabulatedAnomalyTerms(m).eclipticLongitude;
        EXPECT_EQ(lambda, std::trunc(lambda)) << "mean anomaly " << m;
        EXPECT_LT(std::fabs(lambda), 360.0) << "mean anomaly " << m;
    }
}

// Not-a-number and infinite inputs truncate to INT32_MIN, so the anomaly
// stays a whole number of degrees: -2147483648 % 360 = -128.
TEST(TabulatedSolarEvents, NotANumberLongitudeGivesAnomalyOfInt32Min) {
    const SolarEvents e = ComputeSolarEvents(kNewYear2024 + 172.0, kNewYear2024 + 0.5, std::nan(""), 43.3);
    EXPECT_EQ(e.meanAnomaly, -128.0);
    EXPECT_TRUE(std::isnan(e.sunrise));
    EXPECT_TRUE(std::isnan(e.sunset));
}

}  // namespace
