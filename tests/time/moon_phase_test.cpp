#include "time/moon_phase.h"

#include <gtest/gtest.h>

TEST(MeanNewMoonOffset, LunationZeroIsFirstNewMoon) { EXPECT_EQ(MeanNewMoonOffset(0.0), 5.597661); }

TEST(MeanNewMoonOffset, IncludesQuadraticTerm) {
    EXPECT_DOUBLE_EQ(MeanNewMoonOffset(-1.0), -29.5305888611 + 5.597661 + 1.02026e-10);
}

// 21 June 2024 00:00 is 8938 days after 1 January 2000.
TEST(MoonPhaseDegrees, WorkedExampleOfJune2024) { EXPECT_NEAR(MoonPhaseDegrees(8938.0), 172.67579, 0.000005); }

TEST(MoonPhaseDegrees, ReferenceDayTakesNonPositiveBranch) { EXPECT_NEAR(MoonPhaseDegrees(0.0), 291.76, 0.005); }

TEST(MoonPhaseDegrees, NegativeDayCountBeforeReference) {
    // 22 December 1999 17:31.
    EXPECT_NEAR(MoonPhaseDegrees(-10.0 + (17.0 * 60.0 + 31.0) / 1440.0), 178.75, 0.005);
}

TEST(MoonPhaseDegrees, NotANumberPassesThrough) {
    EXPECT_TRUE(MoonPhaseDegrees(__builtin_nan("")) != MoonPhaseDegrees(__builtin_nan("")));
}
