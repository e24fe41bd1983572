#include "sky/moon_quarters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "reference_table.h"
#include "sky/angles.h"
#include "sky/delta_t.h"
#include "sky/julian_date.h"
#include "sky/known_years.h"
#include "sky/moon_phase.h"

namespace timetool::sky {
namespace {

using testing::JulianDateAt;
using testing::kSecondsPerDay;
using testing::NearThePresent;
using testing::ReferenceRows;

// Seconds. The series are fitted near the present: from 1500 to 2500 the two
// models agree within a minute and a half, at the ends of the known years
// within five minutes.
constexpr double kQuarterTolerance = 120.0;
constexpr double kFarQuarterTolerance = 300.0;

MoonQuarter QuarterOfRow(const nlohmann::json& row) { return static_cast<MoonQuarter>(row["quarter"].get<int>()); }

// Compared in TT: the Delta T models differ by minutes far from the present.
TEST(NextMoonQuarter, AgreesWithTheReferenceTableInTerrestrialTime) {
    const nlohmann::json& rows = ReferenceRows("moon_quarters.json");
    ASSERT_GT(rows.size(), 1000u);
    for (const nlohmann::json& row : rows) {
        const double expected = row["julian_date"].get<double>();
        const double found = NextMoonQuarter(QuarterOfRow(row), expected - 3.0);
        const double ours = TerrestrialJulianDate(found);
        const double theirs = expected + row["delta_t"].get<double>() / kSecondsPerDay;
        EXPECT_NEAR(ours, theirs,
                    (NearThePresent(expected) ? kQuarterTolerance : kFarQuarterTolerance) / kSecondsPerDay)
            << "JD " << expected << " quarter " << row["quarter"] << ": off by " << (ours - theirs) * kSecondsPerDay
            << " s";
    }
}

TEST(MoonQuartersBetween, ListsEveryQuarterOfTheReferenceTable) {
    const double from = JulianDateAtMidnight(DaysFromCivil(2020, 1, 1));
    const double to = JulianDateAtMidnight(DaysFromCivil(2031, 1, 1));
    std::vector<const nlohmann::json*> expected;
    for (const nlohmann::json& row : ReferenceRows("moon_quarters.json")) {
        const double jd = row["julian_date"].get<double>();
        if (jd >= from && jd < to) expected.push_back(&row);
    }
    const std::vector<MoonQuarterEvent> events = MoonQuartersBetween(from, to);
    ASSERT_EQ(events.size(), expected.size());
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(events[i].quarter, QuarterOfRow(*expected[i])) << i;
        EXPECT_NEAR(events[i].julianDate, (*expected[i])["julian_date"].get<double>(),
                    kQuarterTolerance / kSecondsPerDay)
            << i;
    }
}

// Published times, rounded to the minute, that a reader can look up.
TEST(NextMoonQuarter, FindsPublishedNewAndFullMoons) {
    const struct {
        MoonQuarter quarter;
        double published;
    } cases[] = {
        {MoonQuarter::New, JulianDateAt(2000, 1, 6, 18, 14)},  {MoonQuarter::Full, JulianDateAt(2000, 1, 21, 4, 40)},
        {MoonQuarter::New, JulianDateAt(2024, 1, 11, 11, 57)}, {MoonQuarter::Full, JulianDateAt(2024, 1, 25, 17, 54)},
        {MoonQuarter::New, JulianDateAt(2024, 4, 8, 18, 21)},
    };
    for (const auto& c : cases) {
        const double found = NextMoonQuarter(c.quarter, c.published - 10.0);
        EXPECT_NEAR(found, c.published, kQuarterTolerance / kSecondsPerDay)
            << "off by " << (found - c.published) * kSecondsPerDay << " s";
    }
}

TEST(NextMoonQuarter, LandsWithinASecondOfTheAnglesRoot) {
    const double second = 1.0 / kSecondsPerDay;
    for (double start = JulianDateAt(-999, 3, 1, 0, 0); start < JulianDateAt(3000, 1, 1, 0, 0); start += 36524.25) {
        for (MoonQuarter quarter :
             {MoonQuarter::New, MoonQuarter::FirstQuarter, MoonQuarter::Full, MoonQuarter::LastQuarter}) {
            const double root = NextMoonQuarter(quarter, start);
            EXPECT_LT(HalfTurn(MoonPhaseAngle(root - second) - PhaseAngleOf(quarter)), 0.0) << start;
            EXPECT_GT(HalfTurn(MoonPhaseAngle(root + second) - PhaseAngleOf(quarter)), 0.0) << start;
            EXPECT_GE(root, start);
            EXPECT_LT(root, start + 29.9);
        }
    }
}

TEST(NextMoonQuarter, CountsAQuarterAtTheStartAsNext) {
    const double root = NextMoonQuarter(MoonQuarter::Full, JulianDateAt(2024, 1, 20, 0, 0));
    EXPECT_EQ(NextMoonQuarter(MoonQuarter::Full, root), root);
    const double later = NextMoonQuarter(MoonQuarter::Full, root + 1.0 / kSecondsPerDay);
    EXPECT_NEAR(later - root, 29.5, 0.5);
}

TEST(NextMoonQuarter, PicksTheFirstOfTheFour) {
    const double start = JulianDateAt(2024, 1, 12, 0, 0);  // a waxing crescent
    const MoonQuarterEvent next = NextMoonQuarter(start);
    EXPECT_EQ(next.quarter, MoonQuarter::FirstQuarter);
    EXPECT_EQ(next.julianDate, NextMoonQuarter(MoonQuarter::FirstQuarter, start));
    const MoonQuarterEvent after = NextMoonQuarter(next.julianDate + 0.5);
    EXPECT_EQ(after.quarter, MoonQuarter::Full);
}

TEST(NextMoonQuarter, IsNotANumberOutsideTheKnownYears) {
    const double end = JulianDateAtMidnight(kEndKnownDay);
    EXPECT_TRUE(std::isnan(NextMoonQuarter(MoonQuarter::New, JulianDateAtMidnight(kFirstKnownDay) - 1.0)));
    EXPECT_TRUE(std::isnan(NextMoonQuarter(MoonQuarter::New, end)));
    EXPECT_TRUE(std::isnan(NextMoonQuarter(MoonQuarter::New, end - 0.5)));  // the root would lie past the end
    EXPECT_TRUE(std::isnan(NextMoonQuarter(std::nan("")).julianDate));
}

TEST(MoonQuartersBetween, StopsAtTheEndOfTheKnownYears) {
    const double end = JulianDateAtMidnight(kEndKnownDay);
    const std::vector<MoonQuarterEvent> events = MoonQuartersBetween(end - 40.0, end + 40.0);
    ASSERT_GE(events.size(), 4u);
    EXPECT_LT(events.back().julianDate, end);
    EXPECT_GT(events.back().julianDate, end - 8.0);
    EXPECT_TRUE(MoonQuartersBetween(end, end + 100.0).empty());
}

TEST(MoonQuartersBetween, IsEmptyForAnEmptyInterval) {
    const double jd = JulianDateAt(2024, 1, 1, 0, 0);
    EXPECT_TRUE(MoonQuartersBetween(jd, jd).empty());
    EXPECT_TRUE(MoonQuartersBetween(jd, jd - 30.0).empty());
}

}  // namespace
}  // namespace timetool::sky
