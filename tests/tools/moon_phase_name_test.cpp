#include "moon_phase_name.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace timetool {
namespace {

constexpr const char* kNew = "\xF0\x9F\x8C\x91";
constexpr const char* kWaxingCrescent = "\xF0\x9F\x8C\x92";
constexpr const char* kFirstQuarter = "\xF0\x9F\x8C\x93";
constexpr const char* kWaxingGibbous = "\xF0\x9F\x8C\x94";
constexpr const char* kFull = "\xF0\x9F\x8C\x95";
constexpr const char* kWaningGibbous = "\xF0\x9F\x8C\x96";
constexpr const char* kLastQuarter = "\xF0\x9F\x8C\x97";
constexpr const char* kWaningCrescent = "\xF0\x9F\x8C\x98";

TEST(QuarterName, NamesTheFourQuartersInOrder) {
    EXPECT_EQ(QuarterName(0).name, "new");
    EXPECT_EQ(QuarterName(0).glyph, kNew);
    EXPECT_EQ(QuarterName(1).name, "first quarter");
    EXPECT_EQ(QuarterName(1).glyph, kFirstQuarter);
    EXPECT_EQ(QuarterName(2).name, "full");
    EXPECT_EQ(QuarterName(2).glyph, kFull);
    EXPECT_EQ(QuarterName(3).name, "last quarter");
    EXPECT_EQ(QuarterName(3).glyph, kLastQuarter);
    EXPECT_EQ(QuarterName(4).name, "unknown");
    EXPECT_EQ(QuarterName(-1).glyph, "?");
}

TEST(BetweenQuartersName, NamesTheStretchAfterTheLastQuarterPassed) {
    const struct {
        double degrees;
        const char* name;
        const char* glyph;
    } cases[] = {
        {0.0, "waxing crescent", kWaxingCrescent},
        {89.999, "waxing crescent", kWaxingCrescent},
        {90.0, "waxing gibbous", kWaxingGibbous},
        {179.999, "waxing gibbous", kWaxingGibbous},
        {180.0, "waning gibbous", kWaningGibbous},
        {269.999, "waning gibbous", kWaningGibbous},
        {270.0, "waning crescent", kWaningCrescent},
        {359.999, "waning crescent", kWaningCrescent},
        {360.0, "waxing crescent", kWaxingCrescent},
        {-1.0, "waning crescent", kWaningCrescent},
        {-450.0, "waning crescent", kWaningCrescent},
        {725.0, "waxing crescent", kWaxingCrescent},
        {std::nextafter(360.0, 0.0), "waning crescent", kWaningCrescent},
    };
    for (const auto& c : cases) {
        const MoonPhaseName named = BetweenQuartersName(c.degrees);
        EXPECT_EQ(named.name, c.name) << c.degrees;
        EXPECT_EQ(named.glyph, c.glyph) << c.degrees;
    }
}

TEST(NameMoonPhase, QuarterWithinHalfADayWinsOverTheAngle) {
    // 174 degrees is half a day before a full moon: "full", not "waxing gibbous".
    EXPECT_EQ(NameMoonPhase(174.0, 2).name, "full");
    EXPECT_EQ(NameMoonPhase(174.0, std::nullopt).name, "waxing gibbous");
    EXPECT_EQ(NameMoonPhase(357.0, 0).glyph, kNew);
    EXPECT_EQ(NameMoonPhase(357.0, std::nullopt).glyph, kWaningCrescent);
}

TEST(NameMoonPhase, NonFiniteAngleIsUnknown) {
    EXPECT_EQ(NameMoonPhase(std::numeric_limits<double>::quiet_NaN(), std::nullopt).name, "unknown");
    EXPECT_EQ(NameMoonPhase(std::numeric_limits<double>::quiet_NaN(), 2).name, "unknown");
    EXPECT_EQ(NameMoonPhase(std::numeric_limits<double>::infinity(), std::nullopt).glyph, "?");
    EXPECT_EQ(BetweenQuartersName(-std::numeric_limits<double>::infinity()).name, "unknown");
}

}  // namespace
}  // namespace timetool
