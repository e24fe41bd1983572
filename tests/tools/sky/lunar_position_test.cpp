#include "sky/lunar_position.h"

#include <gtest/gtest.h>

#include "sky/moon_phase.h"
#include "sky/nutation.h"

namespace timetool::sky {
namespace {

// Meeus, Astronomical Algorithms, example 47.a: 1992 April 12, 0h TT.
constexpr double kCenturies1992April12 = -0.077221081451;

TEST(LunarPositionAt, MatchesTheWorkedExample) {
    const LunarPosition moon = LunarPositionAt(kCenturies1992April12);
    EXPECT_NEAR(moon.longitude, 133.162655, 0.000001);
    EXPECT_NEAR(moon.latitude, -3.229126, 0.000001);
    EXPECT_NEAR(moon.distance, 368409.7, 0.05);
    // The apparent longitude adds the nutation, +0.004610 degrees that day.
    EXPECT_NEAR(moon.longitude + NutationAt(kCenturies1992April12).longitude, 133.167265, 0.00015);
}

TEST(LunarLongitudeAt, IsTheLongitudeOfTheFullPosition) {
    for (double t = -30.0; t <= 10.0; t += 0.731) {
        EXPECT_EQ(LunarLongitudeAt(t), LunarPositionAt(t).longitude) << t;
    }
}

// Meeus, example 48.a, the same day: elongation 110.7929 degrees, the Sun
// 149971520 km and the Moon 368410 km away.
TEST(IlluminatedFraction, MatchesTheWorkedExample) {
    EXPECT_NEAR(IlluminatedFraction(110.7929, 149971520.0, 368410.0), 0.6786, 0.00005);
}

TEST(IlluminatedFraction, IsDarkAtConjunctionAndFullAtOpposition) {
    EXPECT_NEAR(IlluminatedFraction(0.0, 1.5e8, 3.8e5), 0.0, 1e-15);
    EXPECT_NEAR(IlluminatedFraction(180.0, 1.5e8, 3.8e5), 1.0, 1e-15);
    // At quadrature the Moon is a little past half lit: the Sun is not infinitely far.
    EXPECT_NEAR(IlluminatedFraction(90.0, 1.496e8, 3.844e5), 0.5 + 3.844e5 / 1.496e8 / 2.0, 1e-7);
}

}  // namespace
}  // namespace timetool::sky
