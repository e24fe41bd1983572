#include "sky/solar_position.h"

#include <gtest/gtest.h>

#include "sky/angles.h"

namespace timetool::sky {
namespace {

// Meeus, Astronomical Algorithms, example 25.a: 1992 October 13, 0h TT.
TEST(SolarPositionAt, MatchesTheWorkedExample) {
    const SolarPosition sun = SolarPositionAt(-0.072183436);
    EXPECT_NEAR(sun.trueLongitude, 199.90988, 0.00001);
    EXPECT_NEAR(sun.apparentLongitude, 199.90895, 0.00001);
    EXPECT_NEAR(sun.distance, 0.99766, 0.000005);
    EXPECT_NEAR(sun.rightAscension, 198.38083, 0.00002);
    EXPECT_NEAR(sun.declination, -7.78507, 0.00002);
}

TEST(SolarPositionAt, ReachesTheSolsticeDeclination) {
    // 2024-06-20 20:51 UT, the June solstice, is 2024-06-20 20:52 TT.
    const SolarPosition sun = SolarPositionAt((2460482.369 - 2451545.0) / 36525.0);
    EXPECT_NEAR(sun.apparentLongitude, 90.0, 0.01);
    EXPECT_NEAR(sun.declination, 23.44, 0.01);
}

TEST(SolarOrbitPointAt, IsTheGeometricPartOfThePosition) {
    for (double t = -30.0; t <= 10.0; t += 0.377) {
        const SolarOrbitPoint point = SolarOrbitPointAt(t);
        const SolarPosition sun = SolarPositionAt(t);
        EXPECT_EQ(sun.trueLongitude, OneTurn(point.trueLongitude)) << t;
        EXPECT_EQ(sun.distance, point.distance) << t;
    }
}

TEST(SolarAberration, IsTwentyArcsecondsAtOneUnit) {
    EXPECT_DOUBLE_EQ(SolarAberration(1.0), -20.4898 / 3600.0);
    EXPECT_DOUBLE_EQ(SolarAberration(0.5), -2.0 * 20.4898 / 3600.0);
}

}  // namespace
}  // namespace timetool::sky
