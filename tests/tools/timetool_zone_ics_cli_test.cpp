// timetool run as a user runs it: --tz and TZ, and --ics read back by
// libical. TZ is set only in the child's environment.
#include <gtest/gtest.h>
#include <libical/ical.h>

#include <cstdio>
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

// What GNU date prints for an instant on a zone's clock, TZ set for it alone.
std::string DateClock(const std::string& zone, long long seconds, const std::string& format) {
    const ToolRun run = RunProgram("/bin/date", {"-d", "@" + std::to_string(seconds), format}, "", {"TZ=" + zone});
    EXPECT_EQ(run.status, 0) << run.err;
    return run.out.substr(0, run.out.find('\n'));
}

std::string LineOf(const std::string& text, const std::string& label) {
    const std::size_t start = text.find("\n" + label);
    if (start == std::string::npos) return text.rfind(label, 0) == 0 ? text.substr(0, text.find('\n')) : "";
    return text.substr(start + 1, text.find('\n', start + 1) - start - 1);
}

TEST(TimetoolZones, ShowPrintsClockTimesOnTheZonesClock) {
    const ToolRun run = RunTimetool({"show", "2024-06-21T11:52:07", "--tz", "America/New_York"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Instant"), "Instant        2024-06-21 11:52:07 EDT (-04:00)");
    const std::vector<SkyEvent> sun = SunEventsOfDays(Day(2024, 6, 21), 1, sky::Place{43.3, -83.045});
    ASSERT_EQ(sun.size(), 2u);
    EXPECT_EQ(LineOf(run.out, "Sunrise"),
              "Sunrise        " +
                  DateClock("America/New_York", Seconds(sun[0].instant), "+%Y-%m-%d %H:%M:%S %Z (%:z)") +
                  " at 43.3 N, 83.045 W");
    EXPECT_EQ(LineOf(run.out, "Sunset"), "Sunset         " + DateClock("America/New_York", Seconds(sun[1].instant),
                                                                       "+%Y-%m-%d %H:%M:%S %Z (%:z)"));
}

struct ZoneJsonCase {
    const char* when;
    const char* zone;
    const char* utc;
    const char* local;
    const char* offset;
};

TEST(TimetoolZones, JsonKeepsUtcAndAddsLocalAndOffset) {
    const ZoneJsonCase cases[] = {
        {"2024-06-21T11:52:07", "America/New_York", "2024-06-21T15:52:07Z", "2024-06-21T11:52:07-04:00", "-04:00"},
        {"2024-01-21T11:52:07", "America/New_York", "2024-01-21T16:52:07Z", "2024-01-21T11:52:07-05:00", "-05:00"},
        {"2024-01-21T11:52:07", "Australia/Sydney", "2024-01-21T00:52:07Z", "2024-01-21T11:52:07+11:00", "+11:00"},
        {"2024-07-21T11:52:07", "Australia/Sydney", "2024-07-21T01:52:07Z", "2024-07-21T11:52:07+10:00", "+10:00"},
        {"2024-06-21T11:52:07", "Asia/Kathmandu", "2024-06-21T06:07:07Z", "2024-06-21T11:52:07+05:45", "+05:45"},
        {"2024-06-21T11:52:07", "UTC", "2024-06-21T11:52:07Z", "2024-06-21T11:52:07+00:00", "+00:00"},
    };
    for (const ZoneJsonCase& c : cases) {
        const ToolRun run = RunTimetool({"show", c.when, "--json", "--tz", c.zone});
        ASSERT_EQ(run.status, 0) << run.err;
        const nlohmann::json json = nlohmann::json::parse(run.out);
        EXPECT_EQ(json["utc"], c.utc) << c.zone;
        EXPECT_EQ(json["local"], c.local) << c.zone;
        EXPECT_EQ(json["utc_offset"], c.offset) << c.zone;
        EXPECT_EQ(json["time_zone"], c.zone);
        EXPECT_EQ(json["moon"]["local"], c.local) << c.zone;
    }
}

TEST(TimetoolZones, JsonSunEventsCarryLocalTimes) {
    const ToolRun run = RunTimetool({"sun", "2024-06-21", "--json", "--tz", "America/New_York"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json day = nlohmann::json::parse(run.out)["days"][0];
    const std::vector<SkyEvent> sun = SunEventsOfDays(Day(2024, 6, 21), 1, sky::Place{43.3, -83.045});
    ASSERT_EQ(sun.size(), 2u);
    EXPECT_EQ(day["sunrise_local"], DateClock("America/New_York", Seconds(sun[0].instant), "+%Y-%m-%dT%H:%M:%S%:z"));
    EXPECT_EQ(day["sunset_local"], DateClock("America/New_York", Seconds(sun[1].instant), "+%Y-%m-%dT%H:%M:%S%:z"));
    EXPECT_EQ(day["sunrise_utc_offset"], "-04:00");
    const ToolRun polar = RunTimetool({"sun", "2024-12-21", "--json", "--lat", "69.65", "--lon", "18.96"});
    ASSERT_EQ(polar.status, 0) << polar.err;
    const nlohmann::json night = nlohmann::json::parse(polar.out)["days"][0];
    EXPECT_TRUE(night["sunrise_local"].is_null());
    EXPECT_TRUE(night["sunrise_utc_offset"].is_null());
}

struct SunAcrossChange {
    const char* zone;
    double latitude, longitude;
    int year, month, day;
};

// Each sunrise and sunset of three days around a change of clocks, as GNU
// date shows the sky library's instant on the zone's clock.
TEST(TimetoolZones, SunRowsAcrossClockChangesInBothHemispheres) {
    const SunAcrossChange cases[] = {
        {"America/New_York", 40.71, -74.01, 2024, 3, 9},    {"America/New_York", 40.71, -74.01, 2024, 11, 2},
        {"Australia/Sydney", -33.87, 151.21, 2024, 10, 5},  {"Australia/Sydney", -33.87, 151.21, 2024, 4, 6},
        {"Australia/Adelaide", -34.93, 138.6, 2024, 10, 5},
    };
    for (const SunAcrossChange& c : cases) {
        const std::string lat = std::to_string(c.latitude);
        const std::string lon = std::to_string(c.longitude);
        char when[16];
        std::snprintf(when, sizeof when, "%04d-%02d-%02d", c.year, c.month, c.day);
        const ToolRun run = RunTimetool({"sun", when, "--days", "3", "--lat", lat, "--lon", lon, "--tz", c.zone});
        ASSERT_EQ(run.status, 0) << run.err;
        const std::vector<SkyEvent> sun =
            SunEventsOfDays(Day(c.year, c.month, c.day), 3, sky::Place{c.latitude, c.longitude});
        ASSERT_EQ(sun.size(), 6u);
        std::vector<std::string> rows;
        for (std::size_t start = run.out.find('\n') + 1; start < run.out.size();) {
            const std::size_t end = run.out.find('\n', start);
            rows.push_back(run.out.substr(start, end - start));
            start = end + 1;
        }
        ASSERT_EQ(rows.size(), 4u) << run.out;
        for (int d = 0; d < 3; ++d) {
            const std::string& row = rows[static_cast<std::size_t>(d) + 1];
            const std::string rise = DateClock(c.zone, Seconds(sun[2 * d].instant), "+%H:%M:%S");
            const std::string set = DateClock(c.zone, Seconds(sun[2 * d + 1].instant), "+%H:%M:%S");
            const std::string zone = DateClock(c.zone, Seconds(sun[2 * d].instant), "+%Z %:z");
            EXPECT_EQ(row.substr(26, 8), rise) << c.zone << " " << row;
            EXPECT_EQ(row.substr(39, 8), set) << c.zone << " " << row;
            EXPECT_EQ(row.substr(65, zone.size()), zone) << c.zone << " " << row;
        }
    }
}

TEST(TimetoolZones, MoonRowsOnTheZonesClock) {
    const ToolRun run = RunTimetool({"moon", "2024-06-21T12:00", "--days", "2", "--tz", "Australia/Adelaide"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.substr(0, run.out.find('\n')),
              "Date and time (Australia/Adelaide)  Phase     Lit     Moon                 Module");
    EXPECT_EQ(run.out.find("\n2024-06-21 12:00:00 ACST (+09:30)   "), run.out.find('\n'));
}

}  // namespace
}  // namespace timetool
