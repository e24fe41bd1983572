// timetool run as a user runs it: --tz and TZ, and --ics read back by
// libical. TZ is set only in the child's environment.
#include <gtest/gtest.h>
#include <libical/ical.h>

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "sky_events.h"
#include "tool_runner.h"

namespace timetool {
namespace {

using Component = std::unique_ptr<icalcomponent, void (*)(icalcomponent*)>;

struct ParsedEvent {
    std::string summary;
    std::string uid;
    long long start = 0;  // Linux seconds
};

// The events of an iCalendar stream; fails the test on any error libical attaches.
std::vector<ParsedEvent> ParseEvents(const std::string& text) {
    std::vector<ParsedEvent> events;
    const Component calendar(icalparser_parse_string(text.c_str()), icalcomponent_free);
    EXPECT_NE(calendar, nullptr);
    if (!calendar) return events;
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0);
    for (icalcomponent* c = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT); c != nullptr;
         c = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT)) {
        const icaltimetype start = icalcomponent_get_dtstart(c);
        EXPECT_TRUE(icaltime_is_utc(start));
        events.push_back(
            {icalcomponent_get_summary(c), icalcomponent_get_uid(c), static_cast<long long>(icaltime_as_timet(start))});
    }
    return events;
}

long long Seconds(const ExactInstant& instant) {
    return static_cast<long long>(instant.day - kUnixEpochStarDay) * 86400 + instant.second;
}

StarDay Day(int year, int month, int day) { return DayOfGregorian(CivilDate{year, month, day}); }

TEST(TimetoolIcs, SunEventsAreTheSkyLibrarysTimes) {
    const ToolRun run =
        RunTimetool({"sun", "2024-06-21", "--days", "3", "--lat", "-33.87", "--lon", "151.21", "--ics"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<ParsedEvent> events = ParseEvents(run.out);
    const std::vector<SkyEvent> expected = SunEventsOfDays(Day(2024, 6, 21), 3, sky::Place{-33.87, 151.21});
    ASSERT_EQ(events.size(), 6u);
    ASSERT_EQ(expected.size(), 6u);
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(events[i].summary, i % 2 == 0 ? "Sunrise" : "Sunset") << i;
        EXPECT_EQ(events[i].start, Seconds(expected[i].instant)) << i;
    }
    EXPECT_EQ(events[0].uid.rfind("sunrise-20240620T", 0), 0u) << events[0].uid;
}

// Published 2024 moon phases, to the minute (UTC).
TEST(TimetoolIcs, MoonQuartersWithinAMinuteOfPublishedTimes) {
    const ToolRun run = RunTimetool({"moon", "2024-06-01", "--days", "30", "--ics"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<ParsedEvent> events = ParseEvents(run.out);
    ASSERT_EQ(events.size(), 4u);
    const struct {
        const char* summary;
        long long published;
    } expected[] = {{"New moon", 1717677480},       // 2024-06-06 12:38
                    {"First quarter", 1718342280},  // 2024-06-14 05:18
                    {"Full moon", 1719018480},      // 2024-06-22 01:08
                    {"Last quarter", 1719611580}};  // 2024-06-28 21:53
    for (std::size_t i = 0; i < events.size(); ++i) {
        EXPECT_EQ(events[i].summary, expected[i].summary);
        EXPECT_NEAR(static_cast<double>(events[i].start), static_cast<double>(expected[i].published), 60.0);
    }
}

TEST(TimetoolIcs, MonthOfPolarDayHoldsOnlyTheMoon) {
    const ToolRun run = RunTimetool({"month", "2024-06", "--lat", "69.65", "--lon", "18.96", "--ics"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<ParsedEvent> events = ParseEvents(run.out);
    ASSERT_EQ(events.size(), 4u);
    EXPECT_EQ(events[0].summary, "New moon");
}

TEST(TimetoolIcs, MonthHoldsSunAndMoonInTimeOrder) {
    const ToolRun run = RunTimetool({"month", "2024-06", "--ics"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<ParsedEvent> events = ParseEvents(run.out);
    ASSERT_EQ(events.size(), 64u);
    for (std::size_t i = 1; i < events.size(); ++i) EXPECT_LE(events[i - 1].start, events[i].start) << i;
}

TEST(TimetoolIcs, TwoRunsGiveTheSameBytes) {
    const std::vector<std::string> args{"month", "2024-02", "--ics"};
    const ToolRun first = RunTimetool(args);
    const ToolRun second = RunTimetool(args);
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_FALSE(first.out.empty());
    EXPECT_EQ(first.out, second.out);
}

TEST(TimetoolIcs, RefusesYearsOutsideTheCalendarAndJsonBeside) {
    struct Case {
        std::vector<std::string> args;
        const char* message;
    };
    const Case cases[] = {
        {{"sun", "3000-12-30", "--days", "3", "--ics"},
         "timetool: --ics covers the years 1 to 3000 (iCalendar dates start in AD 1; the sky is known up to 3000)\n"},
        {{"moon", "0-12-31", "--ics"},
         "timetool: --ics covers the years 1 to 3000 (iCalendar dates start in AD 1; the sky is known up to 3000)\n"},
        {{"sun", "2024-06-21", "--ics", "--json"}, "timetool: --json excludes --ics\n"},
    };
    for (const Case& c : cases) {
        const ToolRun run = RunTimetool(c.args);
        EXPECT_EQ(run.status, 2) << c.args[0];
        EXPECT_EQ(run.err, c.message);
        EXPECT_TRUE(run.out.empty());
    }
}

std::string UtcOfShow(const std::vector<std::string>& args, const std::vector<std::string>& environment = {}) {
    std::vector<std::string> full = environment;
    full.emplace_back(kNoRegistry);
    const ToolRun run = RunTimetool(args, "", full);
    EXPECT_EQ(run.status, 0) << run.err;
    if (run.status != 0) return run.err;
    return nlohmann::json::parse(run.out)["utc"].get<std::string>();
}

TEST(TimetoolZones, ClockTimeIsReadInTheZone) {
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T11:52:07", "--json", "--tz", "America/New_York"}), "2024-06-21T15:52:07Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-01-15T12:00", "--json", "--tz", "Australia/Sydney"}), "2024-01-15T01:00:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T12:00", "--json", "--tz", "Asia/Kathmandu"}), "2024-06-21T06:15:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T11:52:07", "--json"}), "2024-06-21T11:52:07Z");
}

TEST(TimetoolZones, ZOrAnOffsetOverridesTheZone) {
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T11:52:07Z", "--json", "--tz", "America/New_York"}),
              "2024-06-21T11:52:07Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T11:52:07+02:00", "--json", "--tz", "America/New_York"}),
              "2024-06-21T09:52:07Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T11:52+0530", "--json"}), "2024-06-21T06:22:00Z");
}

TEST(TimetoolZones, DateAloneStaysThatCivilDay) {
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21", "--json", "--tz", "Australia/Sydney"}), "2024-06-21T00:00:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21", "--json", "--tz", "America/New_York"}), "2024-06-21T00:00:00Z");
}

TEST(TimetoolZones, TodayIsTheZonesCivilDay) {
    // 2024-06-21 22:00 UTC is already the 22nd in Sydney and still the 21st in New York.
    EXPECT_EQ(UtcOfShow({"show", "today", "--json", "--now", "2024-06-21T22:00Z", "--tz", "Australia/Sydney"}),
              "2024-06-22T00:00:00Z");
    EXPECT_EQ(UtcOfShow({"show", "today", "--json", "--now", "2024-06-21T22:00Z", "--tz", "America/New_York"}),
              "2024-06-21T00:00:00Z");
}

TEST(TimetoolZones, OptionWinsOverTheVariable) {
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T12:00", "--json"}, {"TZ=America/New_York"}), "2024-06-21T16:00:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T12:00", "--json", "--tz", "UTC"}, {"TZ=America/New_York"}),
              "2024-06-21T12:00:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T12:00", "--json"}, {"TZ=:Europe/Paris"}), "2024-06-21T10:00:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-06-21T12:00", "--json"}, {"TZ="}), "2024-06-21T12:00:00Z");
}

TEST(TimetoolZones, SkippedAndRepeatedHoursAsGnuDateReadsThem) {
    EXPECT_EQ(UtcOfShow({"show", "2024-11-03T01:30", "--json", "--tz", "America/New_York"}), "2024-11-03T05:30:00Z");
    EXPECT_EQ(UtcOfShow({"show", "2024-04-07T02:30", "--json", "--tz", "Australia/Sydney"}), "2024-04-06T16:30:00Z");
    const ToolRun gap = RunTimetool({"show", "2024-03-10T02:30", "--tz", "America/New_York"});
    EXPECT_EQ(gap.status, 2);
    EXPECT_EQ(gap.err,
              "timetool: bad WHEN '2024-03-10T02:30': this clock time does not occur in America/New_York: the clocks "
              "went from UTC-05:00 to UTC-04:00\n");
}

TEST(TimetoolZones, UnknownZonesExit2NamingWhereTheyCameFrom) {
    const ToolRun option = RunTimetool({"show", "now", "--tz", "Nowhere/Land"});
    EXPECT_EQ(option.status, 2);
    EXPECT_EQ(
        option.err,
        "timetool: bad --tz 'Nowhere/Land': not a zone of the tz database (a name such as Europe/Paris or UTC)\n");
    const ToolRun variable = RunTimetool({"show", "now"}, "", {kNoRegistry, "TZ=CET-1CEST,M3.5.0,M10.5.0/3"});
    EXPECT_EQ(variable.status, 2);
    EXPECT_EQ(variable.err,
              "timetool: bad TZ 'CET-1CEST,M3.5.0,M10.5.0/3': not a zone of the tz database (a name such as "
              "Europe/Paris or UTC)\n");
    EXPECT_TRUE(variable.out.empty());
}

}  // namespace
}  // namespace timetool
