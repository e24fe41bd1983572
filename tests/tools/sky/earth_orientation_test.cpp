#include <gtest/gtest.h>

#include "sky/nutation.h"
#include "sky/sidereal_time.h"

namespace timetool::sky {
namespace {

constexpr double kArcsecond = 1.0 / 3600.0;

// Meeus, Astronomical Algorithms, example 22.a: 1987 April 10, 0h TT.
constexpr double kCenturies1987April10 = -0.127296372348;

TEST(NutationAt, MatchesTheWorkedExampleWithinTheShortSeriesAccuracy) {
    const Nutation n = NutationAt(kCenturies1987April10);
    EXPECT_NEAR(n.longitude, -3.788 * kArcsecond, 0.5 * kArcsecond);
    EXPECT_NEAR(n.obliquity, 9.443 * kArcsecond, 0.1 * kArcsecond);
}

TEST(MeanObliquity, MatchesTheWorkedExample) {
    EXPECT_NEAR(MeanObliquity(kCenturies1987April10), 23.0 + 26.0 / 60.0 + 27.407 * kArcsecond, 0.001 * kArcsecond);
    EXPECT_NEAR(MeanObliquity(0.0), 23.0 + 26.0 / 60.0 + 21.448 * kArcsecond, 1e-12);
}

// Meeus, examples 12.a and 12.b.
TEST(GreenwichMeanSiderealTime, MatchesTheWorkedExamples) {
    EXPECT_NEAR(GreenwichMeanSiderealTime(2446895.5), 197.693195, 1e-6);       // 1987-04-10 00:00 UT
    EXPECT_NEAR(GreenwichMeanSiderealTime(2446896.30625), 128.7378734, 1e-6);  // 19:21:00 UT
}

TEST(GreenwichMeanSiderealTime, StaysInOneTurnFarFromJ2000) {
    for (double jd : {1355807.5, 1721423.5, 2451545.0, 2816787.5}) {
        const double angle = GreenwichMeanSiderealTime(jd);
        EXPECT_GE(angle, 0.0) << jd;
        EXPECT_LT(angle, 360.0) << jd;
    }
}

}  // namespace
}  // namespace timetool::sky
