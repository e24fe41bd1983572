#include "sky/angles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace timetool::sky {
namespace {

TEST(OneTurn, ReducesToZeroUpToThreeHundredSixty) {
    const struct {
        double degrees;
        double turn;
    } cases[] = {
        {0.0, 0.0},    {359.5, 359.5}, {360.0, 0.0},      {725.25, 5.25},       {-90.0, 270.0},
        {-720.0, 0.0}, {-0.5, 359.5},  {481267.5, 307.5}, {-17329500.0, 180.0}, {-1e-17, 0.0},
    };
    for (const auto& c : cases) EXPECT_EQ(OneTurn(c.degrees), c.turn) << c.degrees;
}

TEST(OneTurn, KeepsNotANumber) { EXPECT_TRUE(std::isnan(OneTurn(std::nan("")))); }

TEST(HalfTurn, TakesTheShorterWayRound) {
    const struct {
        double degrees;
        double half;
    } cases[] = {
        {0.0, 0.0}, {179.5, 179.5}, {180.0, -180.0}, {181.0, -179.0}, {-181.0, 179.0}, {359.0, -1.0}, {-1.0, -1.0},
    };
    for (const auto& c : cases) EXPECT_EQ(HalfTurn(c.degrees), c.half) << c.degrees;
}

TEST(SinDegrees, TakesDegrees) {
    EXPECT_NEAR(SinDegrees(30.0), 0.5, 1e-15);
    EXPECT_NEAR(CosDegrees(60.0), 0.5, 1e-15);
    EXPECT_NEAR(SinDegrees(-90.0), -1.0, 1e-15);
}

}  // namespace
}  // namespace timetool::sky
