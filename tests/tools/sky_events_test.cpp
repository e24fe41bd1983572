// The sun and moon events of a run of days, against the sky library and
// against published times.
#include "sky_events.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "sky/moon_quarters.h"
#include "when.h"

namespace timetool {
namespace {

constexpr sky::Place kDefaultPlace{43.3, -83.045};
constexpr sky::Place kTromso{69.65, 18.96};

StarDay Day(int year, int month, int day) { return DayOfGregorian(CivilDate{year, month, day}); }

// Seconds from 1970, for comparing instants.
double Seconds(const ExactInstant& instant) {
    return static_cast<double>(instant.day - kUnixEpochStarDay) * 86400.0 + instant.second;
}

double Seconds(int year, int month, int day, int hour, int minute) {
    return static_cast<double>(Day(year, month, day) - kUnixEpochStarDay) * 86400.0 + hour * 3600.0 + minute * 60.0;
}

TEST(SunEventsOfDays, AreTheSkyLibrarysTimesToTheSecond) {
    const StarDay first = Day(2024, 6, 1);
    const std::vector<SkyEvent> events = SunEventsOfDays(first, 30, kDefaultPlace);
    ASSERT_EQ(events.size(), 60u);
    for (int i = 0; i < 30; ++i) {
        const sky::SunDay sun = sky::SunDayAt(first + i - kUnixEpochStarDay, kDefaultPlace);
        const double rise = (sun.horizon.rise.julianDate - 2440587.5) * 86400.0;
        const double set = (sun.horizon.set.julianDate - 2440587.5) * 86400.0;
        EXPECT_EQ(events[2 * i].kind, SkyEventKind::Sunrise);
        EXPECT_EQ(events[2 * i + 1].kind, SkyEventKind::Sunset);
        EXPECT_EQ(Seconds(events[2 * i].instant), std::round(rise)) << i;
        EXPECT_EQ(Seconds(events[2 * i + 1].instant), std::round(set)) << i;
    }
}

// 21 June 2024 at 43.3 N, 83.045 W: the sun rises at 09:52 UTC and sets at
// 01:16 UTC the next day (NOAA solar calculator).
TEST(SunEventsOfDays, MatchTheSolarCalculatorWithinAMinute) {
    const std::vector<SkyEvent> events = SunEventsOfDays(Day(2024, 6, 21), 1, kDefaultPlace);
    ASSERT_EQ(events.size(), 2u);
    EXPECT_NEAR(Seconds(events[0].instant), Seconds(2024, 6, 21, 9, 52), 60.0);
    EXPECT_NEAR(Seconds(events[1].instant), Seconds(2024, 6, 22, 1, 16), 60.0);
}

TEST(SunEventsOfDays, PolarNightAndPolarDayGiveNoEvents) {
    EXPECT_TRUE(SunEventsOfDays(Day(2024, 12, 15), 7, kTromso).empty());
    EXPECT_TRUE(SunEventsOfDays(Day(2024, 6, 15), 7, kTromso).empty());
    EXPECT_EQ(SunEventsOfDays(Day(2024, 3, 15), 7, kTromso).size(), 14u);
}

TEST(SunEventsOfDays, YearsTheSkyIsNotKnownForGiveNoEvents) {
    EXPECT_TRUE(SunEventsOfDays(Day(3001, 1, 1), 3, kDefaultPlace).empty());
}

struct PublishedQuarter {
    SkyEventKind kind;
    int month, day, hour, minute;
};

// Moon phases of 2024 as the almanac offices publish them, to the minute (UTC).
TEST(MoonQuartersOfDays, MatchPublishedTimesWithinAMinute) {
    const PublishedQuarter published[] = {
        {SkyEventKind::NewMoon, 6, 6, 12, 38},   {SkyEventKind::FirstQuarter, 6, 14, 5, 18},
        {SkyEventKind::FullMoon, 6, 22, 1, 8},   {SkyEventKind::LastQuarter, 6, 28, 21, 53},
        {SkyEventKind::NewMoon, 7, 5, 22, 57},   {SkyEventKind::FirstQuarter, 7, 13, 22, 49},
        {SkyEventKind::FullMoon, 7, 21, 10, 17}, {SkyEventKind::LastQuarter, 7, 28, 2, 51},
    };
    const std::vector<SkyEvent> events = MoonQuartersOfDays(Day(2024, 6, 1), 61);
    ASSERT_EQ(events.size(), std::size(published));
    for (std::size_t i = 0; i < events.size(); ++i) {
        const PublishedQuarter& p = published[i];
        EXPECT_EQ(events[i].kind, p.kind) << i;
        EXPECT_NEAR(Seconds(events[i].instant), Seconds(2024, p.month, p.day, p.hour, p.minute), 60.0) << i;
    }
}

TEST(MoonQuartersOfDays, CoverFromMidnightOfTheFirstDayToMidnightAfterTheLast) {
    // Full moon 2024-06-22 01:08 UTC belongs to the 22nd only.
    EXPECT_TRUE(MoonQuartersOfDays(Day(2024, 6, 21), 1).empty());
    const std::vector<SkyEvent> events = MoonQuartersOfDays(Day(2024, 6, 22), 1);
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].kind, SkyEventKind::FullMoon);
}

TEST(MergeSkyEvents, PutsEveryEventInTimeOrder) {
    const StarDay first = Day(2024, 6, 1);
    const std::vector<SkyEvent> merged =
        MergeSkyEvents(SunEventsOfDays(first, 30, kDefaultPlace), MoonQuartersOfDays(first, 30));
    ASSERT_EQ(merged.size(), 64u);
    for (std::size_t i = 1; i < merged.size(); ++i) {
        EXPECT_LE(Seconds(merged[i - 1].instant), Seconds(merged[i].instant)) << i;
    }
}

TEST(CalendarEventsOf, NameKindInstantAndPlaceInTheUid) {
    const std::vector<SkyEvent> events{{SkyEventKind::Sunrise, {Day(2024, 6, 21), 35532}},
                                       {SkyEventKind::FullMoon, {Day(2024, 6, 22), 4084}}};
    const std::vector<CalendarEvent> entries = CalendarEventsOf(events, kDefaultPlace);
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].uid, "sunrise-20240621T095212Z-43.3N-83.045W@timetool");
    EXPECT_EQ(entries[0].summary, "Sunrise");
    EXPECT_EQ(entries[0].geo, "43.300000;-83.045000");
    EXPECT_EQ(entries[1].uid, "full-moon-20240622T010804Z@timetool");
    EXPECT_EQ(entries[1].summary, "Full moon");
    EXPECT_TRUE(entries[1].geo.empty());
}

TEST(CalendarEventsOf, UidsAreUniqueOverAYear) {
    const StarDay first = Day(2024, 1, 1);
    const std::vector<CalendarEvent> entries = CalendarEventsOf(
        MergeSkyEvents(SunEventsOfDays(first, 366, kDefaultPlace), MoonQuartersOfDays(first, 366)), kDefaultPlace);
    std::set<std::string> uids;
    for (const CalendarEvent& entry : entries) uids.insert(entry.uid);
    EXPECT_EQ(uids.size(), entries.size());
    EXPECT_GT(entries.size(), 780u);
}

}  // namespace
}  // namespace timetool
