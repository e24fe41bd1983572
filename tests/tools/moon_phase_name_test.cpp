#include "moon_phase_name.h"

#include <gtest/gtest.h>

#include <limits>

namespace timetool {
namespace {

TEST(NameMoonPhase, NamesEightSectorsCentredOnTheQuarters) {
    const struct {
        double degrees;
        const char* name;
        const char* glyph;
    } cases[] = {
        {0.0, "new", "\xF0\x9F\x8C\x91"},
        {22.49, "new", "\xF0\x9F\x8C\x91"},
        {22.5, "waxing crescent", "\xF0\x9F\x8C\x92"},
        {3.84, "new", "\xF0\x9F\x8C\x91"},
        {67.5, "first quarter", "\xF0\x9F\x8C\x93"},
        {90.0, "first quarter", "\xF0\x9F\x8C\x93"},
        {112.5, "waxing gibbous", "\xF0\x9F\x8C\x94"},
        {157.49, "waxing gibbous", "\xF0\x9F\x8C\x94"},
        {172.67579, "full", "\xF0\x9F\x8C\x95"},
        {177.54, "full", "\xF0\x9F\x8C\x95"},
        {202.5, "waning gibbous", "\xF0\x9F\x8C\x96"},
        {270.0, "last quarter", "\xF0\x9F\x8C\x97"},
        {291.76, "last quarter", "\xF0\x9F\x8C\x97"},
        {292.5, "waning crescent", "\xF0\x9F\x8C\x98"},
        {337.49, "waning crescent", "\xF0\x9F\x8C\x98"},
        {337.5, "new", "\xF0\x9F\x8C\x91"},
        {359.99, "new", "\xF0\x9F\x8C\x91"},
        {360.0, "new", "\xF0\x9F\x8C\x91"},
        {-90.0, "last quarter", "\xF0\x9F\x8C\x97"},
        {450.0, "first quarter", "\xF0\x9F\x8C\x93"},
    };
    for (const auto& c : cases) {
        const MoonPhaseName named = NameMoonPhase(c.degrees);
        EXPECT_EQ(named.name, c.name) << c.degrees;
        EXPECT_EQ(named.glyph, c.glyph) << c.degrees;
    }
}

TEST(NameMoonPhase, NonFiniteAngleIsUnknown) {
    EXPECT_EQ(NameMoonPhase(std::numeric_limits<double>::quiet_NaN()).name, "unknown");
    EXPECT_EQ(NameMoonPhase(std::numeric_limits<double>::infinity()).glyph, "?");
}

}  // namespace
}  // namespace timetool
