// Sunrise, sunset and moon phase of the Time component.
#include <cmath>

#include "time_host.h"

namespace {

constexpr double kSunrise = 171.59733151711325;
constexpr double kSunset = 171.82995345218822;
constexpr double kFloatStep = 1.6e-5;  // one float step near 172

}  // namespace

class TimeSky : public TimeHostTest {
protected:
    void June21() {
        SetDate(21, 6, 2024);
        ASSERT_EQ(StarDate(), 739060.0);
    }
    float Moon() {
        float phase = -1.0f;
        EXPECT_EQ(time()->get_MoonPhase(&phase), S_OK);
        return phase;
    }
    std::pair<double, double> Sun() {
        double rise = -2.0, set = -2.0;
        EXPECT_EQ(time()->get_SunTimes(&rise, &set), S_OK);
        return {rise, set};
    }
};

TEST_F(TimeSky, SunTimesOfWorkedExample) {
    June21();
    const auto [rise, set] = Sun();
    EXPECT_EQ(rise, kSunrise);
    EXPECT_EQ(set, kSunset);
}

TEST_F(TimeSky, SunTimesIgnoreTimeOfDay) {
    June21();
    ASSERT_EQ(time()->SetTime(15, 30, 0.0), S_OK);
    const auto [rise, set] = Sun();
    EXPECT_EQ(rise, kSunrise);
    EXPECT_EQ(set, kSunset);
}

TEST_F(TimeSky, SunTimesComputedAfreshOnEveryCall) {
    June21();
    Sun();
    ASSERT_EQ(time()->put_StarDate(0, 739061.0), S_OK);
    const auto [rise, set] = Sun();
    EXPECT_NE(rise, kSunrise);
    EXPECT_NE(set, kSunset);
    ASSERT_EQ(time()->put_StarDate(0, 739060.0), S_OK);
    EXPECT_EQ(Sun(), std::make_pair(kSunrise, kSunset));
}

TEST_F(TimeSky, SunTimesWriteOnlyNonNullPointers) {
    June21();
    double set = -2.0;
    EXPECT_EQ(time()->get_SunTimes(nullptr, &set), S_OK);
    EXPECT_EQ(set, kSunset);
    double rise = -2.0;
    EXPECT_EQ(time()->get_SunTimes(&rise, nullptr), S_OK);
    EXPECT_EQ(rise, kSunrise);
    EXPECT_EQ(time()->get_SunTimes(nullptr, nullptr), S_OK);
}

TEST_F(TimeSky, MidnightSunGivesNotANumber) {
    June21();
    ASSERT_EQ(time()->put_location(89.0, 83.045), S_OK);
    const auto [rise, set] = Sun();
    EXPECT_TRUE(std::isnan(rise));
    EXPECT_TRUE(std::isnan(set));
}

TEST_F(TimeSky, PolarNightGivesNotANumber) {
    June21();
    ASSERT_EQ(time()->put_location(-89.0, 83.045), S_OK);
    const auto [rise, set] = Sun();
    EXPECT_TRUE(std::isnan(rise));
    EXPECT_TRUE(std::isnan(set));
}

TEST_F(TimeSky, LocationIsStoredAsGiven) {
    EXPECT_EQ(time()->put_location(10.0, 20.0), S_OK);
    double latitude = 0.0, longitude = 0.0;
    EXPECT_EQ(time()->get_location(&latitude, &longitude), S_OK);
    EXPECT_EQ(latitude, 10.0);
    EXPECT_EQ(longitude, 20.0);
    EXPECT_EQ(time()->put_location(1000.0, -1000.0), S_OK);
    EXPECT_EQ(time()->get_location(&latitude, &longitude), S_OK);
    EXPECT_EQ(latitude, 1000.0);
    EXPECT_EQ(longitude, -1000.0);
}

TEST_F(TimeSky, GetLocationSkipsNullPointers) {
    ASSERT_EQ(time()->put_location(10.0, 20.0), S_OK);
    double longitude = 0.0;
    EXPECT_EQ(time()->get_location(nullptr, &longitude), S_OK);
    EXPECT_EQ(longitude, 20.0);
    double latitude = 0.0;
    EXPECT_EQ(time()->get_location(&latitude, nullptr), S_OK);
    EXPECT_EQ(latitude, 10.0);
    EXPECT_EQ(time()->get_location(nullptr, nullptr), S_OK);
}

TEST_F(TimeSky, NewLocationChangesSunButNotMoon) {
    June21();
    const float moon = Moon();
    ASSERT_EQ(time()->put_location(10.0, 20.0), S_OK);
    EXPECT_NE(Sun().first, kSunrise);
    EXPECT_EQ(Moon(), moon);
    ASSERT_EQ(time()->put_location(43.3, 83.045), S_OK);
    EXPECT_EQ(Moon(), moon);
    EXPECT_EQ(Sun(), std::make_pair(kSunrise, kSunset));
}

TEST_F(TimeSky, MoonPhaseOfWorkedExample) {
    June21();
    EXPECT_NEAR(Moon(), 172.67579, kFloatStep);
}

struct MoonCase {
    const char* what;
    ShortDate date;
    short hour, minute;
    double phase;
};

TEST_F(TimeSky, MoonPhasesOfFurtherDates) {
    const MoonCase cases[] = {
        {"near new moon", {11, 1, 2024}, 11, 57, 3.84},
        {"near full moon", {25, 1, 2024}, 17, 54, 177.54},
        {"before the reference day", {22, 12, 1999}, 17, 31, 178.75},
    };
    for (const MoonCase& c : cases) {
        SCOPED_TRACE(c.what);
        SetDate(c.date.day, c.date.month, c.date.year);
        ASSERT_EQ(time()->SetTime(c.hour, c.minute, 0.0), S_OK);
        EXPECT_NEAR(Moon(), c.phase, 0.005);
    }
}

TEST_F(TimeSky, MoonPhaseAtReferenceDayTakesNonPositiveBranch) {
    SetStarDate(730122.0);
    EXPECT_NEAR(Moon(), 291.76, 0.005);
}

TEST_F(TimeSky, MoonPhaseRejectsNullPointer) { EXPECT_EQ(time()->get_MoonPhase(nullptr), E_POINTER); }

TEST_F(TimeSky, JulianKindKeepsSunAndMoon) {
    June21();
    const float moon = Moon();
    SetKind(1);
    ASSERT_EQ(Date(), (ShortDate{8, 6, 2024}));
    EXPECT_EQ(Sun(), std::make_pair(kSunrise, kSunset));
    EXPECT_EQ(Moon(), moon);
}

TEST_F(TimeSky, HebrewYearFieldMovesTheSunButNotTheMoon) {
    June21();
    const float moon = Moon();
    SetKind(4);
    ASSERT_EQ(Date().year, 5784);
    EXPECT_NE(Sun().second, kSunset);
    EXPECT_EQ(Moon(), moon);
}

TEST_F(TimeSky, NonFiniteStarDateGivesResultsWithoutTrapping) {
    SetStarDate(std::nan(""));
    float phase = 0.0f;
    EXPECT_EQ(time()->get_MoonPhase(&phase), S_OK);
    EXPECT_TRUE(std::isnan(phase));
    double rise = 0.0, set = 0.0;
    EXPECT_EQ(time()->get_SunTimes(&rise, &set), S_OK);
}
