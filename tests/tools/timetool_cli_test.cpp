// End-to-end tests of the built timetool. Expected values come from the
// module's worked examples (star dates, 21 June 2024 sun and moon, the
// month-13 and BC conventions), published calendar dates (15 Sivan 5784 is
// 21 June 2024), published 2024 new, quarter and full moon days, PyEphem's
// sunrise, sunset and twilight (tests/tools/sky/data/sun_events.json, to
// the second; timetool must be within a minute) and hand computation of the
// documented steps.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "tool_runner.h"

namespace {

using nlohmann::json;

constexpr const char* kFullMoon = "\xF0\x9F\x8C\x95";

constexpr const char* kNewMoon = "\xF0\x9F\x8C\x91";

const std::regex kClock("([0-9]{2}):([0-9]{2}):([0-9]{2})");

// The text with every clock time "HH:MM:SS" written "hh:mm:ss".
std::string MaskClocks(const std::string& text) { return std::regex_replace(text, kClock, "hh:mm:ss"); }

// The clock times of the text, in seconds of their day, in order.
std::vector<int> ClocksOf(const std::string& text) {
    std::vector<int> seconds;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), kClock); match != std::sregex_iterator();
         ++match) {
        seconds.push_back(std::stoi((*match)[1]) * 3600 + std::stoi((*match)[2]) * 60 + std::stoi((*match)[3]));
    }
    return seconds;
}

// Each clock time of the text within a minute of the reference "HH:MM:SS".
void ExpectClocksNear(const std::string& text, const std::vector<std::string>& reference) {
    const std::vector<int> clocks = ClocksOf(text);
    ASSERT_EQ(clocks.size(), reference.size()) << text;
    for (std::size_t i = 0; i < clocks.size(); ++i) {
        const int expected = ClocksOf(reference[i]).at(0);
        int off = clocks[i] - expected;
        if (off > 43200) off -= 86400;
        if (off < -43200) off += 86400;
        EXPECT_LE(std::abs(off), 60) << text << " #" << i << " against " << reference[i];
    }
}

// Lines of `text` (without the newline) that start with `label`.
std::string LineOf(const std::string& text, const std::string& label) {
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(start, end - start);
        if (line.rfind(label, 0) == 0) return line;
        start = end + 1;
    }
    return "";
}

TEST(TimetoolShow, SolsticeInstantInTheGregorianCalendar) {
    const ToolRun run = RunTimetool({"show", "2024-06-21", "--calendar", "gregorian"});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
    // The module's sun: noon of 1 January 2024 (738888.5) plus the day counts
    // 171.59733151711325 and 171.82995345218822; its moon 172.67579. PyEphem:
    // civil dawn 09:16:28, sunrise 09:52:11, sunset 01:16:06 and civil dusk
    // 01:51:49 on the next day; the full moon of 22 June 01:08 is more than
    // half a day away (waxing gibbous, 98.6% lit).
    EXPECT_EQ(LineOf(run.out, "Instant"), "Instant        2024-06-21 00:00:00 UTC");
    EXPECT_EQ(MaskClocks(run.out),
              "Instant        2024-06-21 hh:mm:ss UTC\n"
              "Gregorian      21 June 2024\n"
              "Month length   30 days\n"
              "Year length    12 months, 366 days\n"
              "Calendar days  739058 (the module's elapsed-day count)\n"
              "Star date      739060.000000\n"
              "Julian Date    2460482.500000\n"
              "Linux time     1718928000\n"
              "Weekday        Friday\n"
              "Sunrise        2024-06-21 hh:mm:ss UTC at 43.3 N, 83.045 W\n"
              "Sunset         2024-06-22 hh:mm:ss UTC\n"
              "Civil dawn     2024-06-21 hh:mm:ss UTC\n"
              "Civil dusk     2024-06-22 hh:mm:ss UTC\n"
              "Module sun     171.597332, 171.829953 days from J0 738888.5 (noon, 1 January)\n"
              "Moon           166.95\xC2\xB0 waxing gibbous \xF0\x9F\x8C\x94, 98.6% lit\n"
              "Module moon    172.68\xC2\xB0 (its mean lunation)\n");
    ExpectClocksNear(run.out.substr(run.out.find("Sunrise")), {"09:52:11", "01:16:06", "09:16:28", "01:51:49"});
}

TEST(TimetoolShow, EveryWayOfNamingTheSolsticeGivesTheSameStarDate) {
    const std::vector<std::vector<std::string>> whens = {
        {"2024-06-21"},
        {"2024-06-21T00:00:00"},
        {"2024-06-21T00:00:00Z"},
        {"sd:739060"},
        {"jd:2460482.5"},
        {"@1718928000"},
        {"+2024-06-21"},
        {"2024-06-08", "--from", "julian"},
        {"5784-03-15", "--from", "hebrew"},
        {"5784-Sivan-15", "--from", "hebrew"},
        {"5784-SIVAN-15", "--from", "4"},
        {"2024-06-24", "--from", "adam"},
    };
    for (const std::vector<std::string>& when : whens) {
        std::vector<std::string> args{"show"};
        args.insert(args.end(), when.begin(), when.end());
        const ToolRun run = RunTimetool(args);
        EXPECT_EQ(run.status, 0) << when.at(0) << run.err;
        EXPECT_EQ(LineOf(run.out, "Star date"), "Star date      739060.000000") << when.at(0);
        EXPECT_EQ(LineOf(run.out, "Instant"), "Instant        2024-06-21 00:00:00 UTC") << when.at(0);
    }
}

TEST(TimetoolShow, MillenniumInstant) {
    const ToolRun run = RunTimetool({"show", "2000-01-01"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Gregorian"), "Gregorian      1 January 2000");
    EXPECT_EQ(LineOf(run.out, "Julian "), "Julian         19 December 1999");
    EXPECT_EQ(LineOf(run.out, "Western"), "Western        1 January 2000");
    // The module's Hebrew SetDate reads day and year only: 23 Tevet 5760 as 23 days after 29 Elul 5759.
    EXPECT_EQ(LineOf(run.out, "Hebrew   "),
              "Hebrew         23 Tevet 5760 (module's SetDate of it lands on 21 Tishri 5760)");
    EXPECT_EQ(LineOf(run.out, "Star date"), "Star date      730122.000000");
    EXPECT_EQ(LineOf(run.out, "Julian Date"), "Julian Date    2451544.500000");
    EXPECT_EQ(LineOf(run.out, "Linux time"), "Linux time     946684800");
    EXPECT_EQ(LineOf(run.out, "Weekday"), "Weekday        Saturday");
    // The module's day counts -0.535718842406178 and -0.30228345015752284
    // from 730122.5; PyEphem: sunrise 13:04:31 and sunset 22:06:46 UTC.
    EXPECT_EQ(MaskClocks(LineOf(run.out, "Sunrise")), "Sunrise        2000-01-01 hh:mm:ss UTC at 43.3 N, 83.045 W");
    EXPECT_EQ(MaskClocks(LineOf(run.out, "Sunset")), "Sunset         2000-01-01 hh:mm:ss UTC");
    ExpectClocksNear(LineOf(run.out, "Sunrise") + LineOf(run.out, "Sunset"), {"13:04:31", "22:06:46"});
    EXPECT_EQ(LineOf(run.out, "Module sun"),
              "Module sun     -0.535719, -0.302283 days from J0 730122.5 (noon, 1 January)");
    // At the module's reference instant its phase is (T(-1) - 0) / (T(-1) - T(0)) x 360;
    // the true moon is past last quarter (28 December 1999).
    EXPECT_EQ(LineOf(run.out, "Module moon"), "Module moon    291.76\xC2\xB0 (its mean lunation)");
    EXPECT_EQ(LineOf(run.out, "Moon ").substr(0, 15 + 8), "Moon           297.43\xC2\xB0");
    EXPECT_NE(LineOf(run.out, "Moon ").find("waning crescent"), std::string::npos);
}

TEST(TimetoolShow, FirstDayOfTheGregorianReform) {
    const ToolRun run = RunTimetool({"show", "1582-10-15"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Gregorian"), "Gregorian      15 October 1582");
    EXPECT_EQ(LineOf(run.out, "Julian "), "Julian         5 October 1582");
    EXPECT_EQ(LineOf(run.out, "Western"), "Western        15 October 1582");
    EXPECT_EQ(LineOf(run.out, "Hebrew   "),
              "Hebrew         19 Tishri 5343 (module's SetDate of it lands on 18 Tishri 5343)");
    EXPECT_EQ(LineOf(run.out, "Star date"), "Star date      577738.000000");
    EXPECT_EQ(LineOf(run.out, "Julian Date"), "Julian Date    2299160.500000");
    EXPECT_EQ(LineOf(run.out, "Linux time"), "Linux time     -12219292800");
    EXPECT_EQ(LineOf(run.out, "Weekday"), "Weekday        Friday");
}

TEST(TimetoolShow, LastDayOfTheJulianCalendarIsTheDayBefore) {
    const ToolRun run = RunTimetool({"convert", "1582-10-04", "--from", "julian", "--to", "western"});
    ASSERT_EQ(run.status, 0) << run.err;
    // The module's SetDate of kind 2 reads 4 October 1582 with Gregorian rules.
    EXPECT_EQ(run.out,
              "Star date      577737.000000\n"
              "Western        4 October 1582 (module's SetDate of it lands on 24 September 1582)\n");
}

TEST(TimetoolShow, BcDatesAreShownAsGivenWithTheModulesDayBeside) {
    // 15 March 44 BC (Gregorian; -43 in ISO numbering) is day number -15995;
    // the module turns that day number back into 14 March, one day earlier.
    // The Julian calendar names the day 17 March 44 BC.
    const ToolRun run = RunTimetool({"show", "-43-03-15"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Instant"), "Instant        -0043-03-15 00:00:00 UTC");
    EXPECT_EQ(LineOf(run.out, "Gregorian"), "Gregorian      15 March 44 BC (module's GetDate: 14 March 44 BC)");
    EXPECT_EQ(LineOf(run.out, "Julian "), "Julian         17 March 44 BC");
    EXPECT_EQ(LineOf(run.out, "Star date"), "Star date      -15995.000000");
    EXPECT_EQ(LineOf(run.out, "Julian Date"), "Julian Date    1705427.500000");
    EXPECT_EQ(LineOf(run.out, "Linux time"), "Linux time     -63517824000");
    EXPECT_EQ(LineOf(run.out, "Weekday"), "Weekday        Friday");

    // 1 January 2 BC: the module gives "January 0".
    const ToolRun early = RunTimetool({"show", "-1-01-01", "--calendar", "gregorian"});
    ASSERT_EQ(early.status, 0) << early.err;
    EXPECT_EQ(LineOf(early.out, "Instant"), "Instant        -0001-01-01 00:00:00 UTC");
    EXPECT_EQ(LineOf(early.out, "Gregorian"), "Gregorian      1 January 2 BC (module's GetDate: 0 January 2 BC)");
}

TEST(TimetoolShow, CenturyYearEndIsTheThirtyFirstOfDecember) {
    const ToolRun run = RunTimetool({"show", "1900-12-31", "--calendar", "gregorian"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Gregorian"), "Gregorian      31 December 1900 (module's GetDate: 1 month 13 1900)");
    EXPECT_EQ(LineOf(run.out, "Month length"), "Month length   31 days (module's GetInfo: 30)");
    EXPECT_EQ(LineOf(run.out, "Year length"), "Year length    12 months, 365 days");
}

TEST(TimetoolShow, ClockTimesAreTheSecondGiven) {
    const struct {
        std::vector<std::string> args;
        const char* instant;
    } cases[] = {
        {{"show", "2066-04-04T15:01:57"}, "Instant        2066-04-04 15:01:57 UTC"},
        {{"show", "@-1"}, "Instant        1969-12-31 23:59:59 UTC"},
        {{"show", "@1718992439"}, "Instant        2024-06-21 17:53:59 UTC"},
        {{"show", "2024-06-21T23:59:59.6"}, "Instant        2024-06-22 00:00:00 UTC"},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunTimetool(c.args);
        ASSERT_EQ(run.status, 0) << c.args.at(1) << run.err;
        EXPECT_EQ(LineOf(run.out, "Instant"), c.instant);
    }
}

TEST(TimetoolShow, YearsPastTheSixteenBitRangeAreOutOfRangeNotWrapped) {
    const ToolRun run = RunTimetool({"show", "32767-12-31"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Instant"), "Instant        +32767-12-31 00:00:00 UTC");
    EXPECT_EQ(LineOf(run.out, "Hebrew   "), "Hebrew         out of range: year outside -32767 to 32767");
    EXPECT_EQ(LineOf(run.out, "Adam"), "Adam           out of range: year outside -32767 to 32767");
    const ToolRun doc = RunTimetool({"show", "32767-12-31", "--json"});
    ASSERT_EQ(doc.status, 0) << doc.err;
    const json hebrew = json::parse(doc.out).at("calendars").at(4);
    EXPECT_TRUE(hebrew.at("year").is_null());
    EXPECT_EQ(hebrew.at("reason"), "year outside -32767 to 32767");
}

TEST(TimetoolShow, DefaultViewAtAFixedNow) {
    const std::string expected =
        "Instant        2024-06-21 hh:mm:ss UTC\n"
        "Gregorian      21 June 2024\n"
        "Julian         8 June 2024\n"
        "Western        21 June 2024\n"
        "Hebrew (mean)  14 Tammuz 5784 (the module's own calendar; module's SetDate of it lands on 11 Heshvan 5784)\n"
        "Hebrew         15 Sivan 5784 (module's SetDate of it lands on 13 Tishri 5784)\n"
        "Adam           24 June 2024 (the module's own calendar)\n"
        "Generic        24 June 2024 (the module's own calendar)\n"
        "Star date      739060.745833\n"
        "Julian Date    2460483.245833\n"
        "Linux time     1718992440\n"
        "Weekday        Friday\n"
        "Sunrise        2024-06-21 hh:mm:ss UTC at 43.3 N, 83.045 W\n"
        "Sunset         2024-06-22 hh:mm:ss UTC\n"
        "Civil dawn     2024-06-21 hh:mm:ss UTC\n"
        "Civil dusk     2024-06-22 hh:mm:ss UTC\n"
        "Module sun     171.597332, 171.829953 days from J0 738888.5 (noon, 1 January)\n"
        "Moon           176.21\xC2\xB0 full " +
        std::string(kFullMoon) +
        ", 99.7% lit\n"
        "Module moon    181.77\xC2\xB0 (its mean lunation)\n";
    // The full moon of 22 June 01:08 UTC is 7 h 14 min away: "full".
    const ToolRun option = RunTimetool({"--now", "2024-06-21T17:54:00"});
    ASSERT_EQ(option.status, 0) << option.err;
    EXPECT_EQ(LineOf(option.out, "Instant"), "Instant        2024-06-21 17:54:00 UTC");
    EXPECT_EQ(MaskClocks(option.out), expected);
    ExpectClocksNear(option.out.substr(option.out.find("Sunrise")), {"09:52:11", "01:16:06", "09:16:28", "01:51:49"});
    const ToolRun variable = RunTimetool({}, "", {kNoRegistry, "TIMETOOL_NOW=@1718992440"});
    ASSERT_EQ(variable.status, 0) << variable.err;
    EXPECT_EQ(variable.out, option.out);
    // The option wins over the variable.
    const ToolRun both =
        RunTimetool({"show", "now", "--now", "2024-06-21T17:54"}, "", {kNoRegistry, "TIMETOOL_NOW=2000-01-01"});
    EXPECT_EQ(LineOf(both.out, "Instant"), "Instant        2024-06-21 17:54:00 UTC");
}

TEST(TimetoolShow, TodayIsMidnightUtcOfNow) {
    const ToolRun run = RunTimetool({"show", "today", "--json"}, "", {kNoRegistry, "TIMETOOL_NOW=2024-06-21T17:54"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.at("star_date"), 739060.0);
    EXPECT_EQ(doc.at("utc"), "2024-06-21T00:00:00Z");
    const ToolRun clock = RunTimetool({"show", "today", "--json"});
    ASSERT_EQ(clock.status, 0) << clock.err;
    const double starDate = json::parse(clock.out).at("star_date").get<double>();
    EXPECT_EQ(starDate, std::floor(starDate));
}

TEST(TimetoolShow, DefaultViewAsJsonHasTheShowKeys) {
    const ToolRun run = RunTimetool({"--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::ordered_json doc = nlohmann::ordered_json::parse(run.out);
    std::vector<std::string> keys;
    for (auto entry = doc.begin(); entry != doc.end(); ++entry) keys.push_back(entry.key());
    EXPECT_EQ(keys, (std::vector<std::string>{"schema", "utc", "local", "utc_offset", "time_zone", "star_date",
                                              "julian_date", "linux_time", "weekday", "weekday_name", "calendars",
                                              "calendar", "location", "sun", "moon"}));
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("calendars").size(), 7u);
}

TEST(TimetoolConvert, SolsticeInEachCalendarKind) {
    const struct {
        const char* kind;
        const char* line;
    } cases[] = {
        {"gregorian", "Gregorian      21 June 2024"},
        {"0", "Gregorian      21 June 2024"},
        {"julian", "Julian         8 June 2024"},
        {"1", "Julian         8 June 2024"},
        {"western", "Western        21 June 2024"},
        {"hebrew", "Hebrew         15 Sivan 5784 (module's SetDate of it lands on 13 Tishri 5784)"},
        {"4", "Hebrew         15 Sivan 5784 (module's SetDate of it lands on 13 Tishri 5784)"},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunTimetool({"convert", "2024-06-21", "--to", c.kind});
        ASSERT_EQ(run.status, 0) << c.kind << run.err;
        EXPECT_EQ(run.out, "Star date      739060.000000\n" + std::string(c.line) + "\n") << c.kind;
    }
}

TEST(TimetoolConvert, MeanHebrewKindByNameAndNumber) {
    // Kind 3 places 21 June 2024 in the Hebrew year 5784, as kind 4 does;
    // its month walk is the module's own choice, so only the year is pinned.
    for (const char* kind : {"hebrew1", "3"}) {
        const ToolRun run = RunTimetool({"convert", "2024-06-21", "--to", kind, "--json"});
        ASSERT_EQ(run.status, 0) << kind << run.err;
        const json doc = json::parse(run.out);
        EXPECT_EQ(doc.at("calendars").at(0).at("kind"), 3);
        EXPECT_EQ(doc.at("calendars").at(0).at("name"), "hebrew1");
        EXPECT_EQ(doc.at("calendars").at(0).at("year"), 5784);
    }
}

TEST(TimetoolConvert, AdamAndGenericWithoutARegistryEpoch) {
    // No registry value: the epoch offset is -1, so day number 739060 is
    // Gregorian elapsed day 739061, three days after 21 June 2024 (739058).
    for (const char* kind : {"adam", "generic"}) {
        const ToolRun run = RunTimetool({"convert", "2024-06-21", "--to", kind});
        ASSERT_EQ(run.status, 0) << kind << run.err;
        EXPECT_EQ(LineOf(run.out, kind[0] == 'a' ? "Adam" : "Generic").substr(15),
                  "24 June 2024 (the module's own calendar)")
            << kind;
    }
    const ToolRun back = RunTimetool({"convert", "2024-06-24", "--from", "adam", "--to", "gregorian"});
    ASSERT_EQ(back.status, 0) << back.err;
    EXPECT_EQ(back.out, "Star date      739060.000000\nGregorian      21 June 2024\n");
}

TEST(TimetoolConvert, AdamAndGenericEpochsFromTheRegistry) {
    // Epoch values 1 and 3 give offsets 0 and 2: Gregorian elapsed days
    // 739060 (23 June 2024) and 739058 (21 June 2024).
    const TempDir dir;
    const std::string registry = dir.path() + "/registry.ini";
    std::ofstream(registry) << "[Calendar]\nSDAdam=1\nSDGeneric=3\n";
    const ToolRun run = RunTimetool({"convert", "2024-06-21"}, "", {"CALENDAR_REGISTRY=" + registry});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "Adam"), "Adam           23 June 2024 (the module's own calendar)");
    EXPECT_EQ(LineOf(run.out, "Generic"), "Generic        21 June 2024 (the module's own calendar)");
}

TEST(TimetoolConvert, TheIssuesExamplesComeOutTrue) {
    const struct {
        std::vector<std::string> args;
        const char* out;
    } cases[] = {
        {{"convert", "5784-03-15", "--from", "hebrew", "--to", "gregorian"},
         "Star date      739060.000000\nGregorian      21 June 2024\n"},
        {{"convert", "1582-10-04", "--from", "western", "--to", "gregorian"},
         "Star date      577737.000000\nGregorian      14 October 1582\n"},
        {{"convert", "1582-10-04", "--from", "western", "--to", "western"},
         "Star date      577737.000000\nWestern        4 October 1582 (module's SetDate of it lands on 24 September "
         "1582)\n"},
        {{"convert", "5784-Adar II-14", "--from", "hebrew", "--to", "gregorian"},
         "Star date      738971.000000\nGregorian      24 March 2024\n"},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunTimetool(c.args);
        ASSERT_EQ(run.status, 0) << c.args.at(1) << run.err;
        EXPECT_EQ(run.out, c.out) << c.args.at(1);
    }
}

TEST(TimetoolConvert, JulianDateIntoGregorian) {
    const ToolRun run = RunTimetool({"convert", "1999-12-19", "--from", "julian", "--to", "gregorian"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "Star date      730122.000000\nGregorian      1 January 2000\n");
}

TEST(TimetoolConvert, JsonListsTheTargets) {
    const ToolRun run = RunTimetool({"convert", "2024-06-21", "--to", "julian", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.size(), 7u);
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("local"), "2024-06-21T00:00:00+00:00");
    EXPECT_EQ(doc.at("utc_offset"), "+00:00");
    EXPECT_EQ(doc.at("from"), "gregorian");
    EXPECT_EQ(doc.at("star_date"), 739060.0);
    EXPECT_EQ(doc.at("utc"), "2024-06-21T00:00:00Z");
    ASSERT_EQ(doc.at("calendars").size(), 1u);
    const json& julian = doc.at("calendars").at(0);
    EXPECT_EQ(julian.size(), 10u);
    EXPECT_EQ(julian.at("source"), "true");
    EXPECT_TRUE(julian.at("reason").is_null());
    EXPECT_EQ(julian.at("module"),
              json::parse(R"({"year":2024,"month":6,"day":8,"star_date":739060.0,"agrees":true})"));
    EXPECT_EQ(julian.at("kind"), 1);
    EXPECT_EQ(julian.at("name"), "julian");
    EXPECT_EQ(julian.at("title"), "Julian");
    EXPECT_EQ(julian.at("year"), 2024);
    EXPECT_EQ(julian.at("month"), 6);
    EXPECT_EQ(julian.at("day"), 8);
    EXPECT_EQ(julian.at("text"), "8 June 2024");
}

TEST(TimetoolShowJson, EveryKeyOfTheSolstice) {
    const ToolRun run = RunTimetool({"show", "2024-06-21", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.size(), 15u);
    EXPECT_EQ(doc.at("utc"), "2024-06-21T00:00:00Z");
    EXPECT_EQ(doc.at("local"), "2024-06-21T00:00:00+00:00");
    EXPECT_EQ(doc.at("utc_offset"), "+00:00");
    EXPECT_EQ(doc.at("time_zone"), "UTC");
    EXPECT_EQ(doc.at("star_date"), 739060.0);
    EXPECT_EQ(doc.at("julian_date"), 2460482.5);
    EXPECT_EQ(doc.at("linux_time"), 1718928000.0);
    EXPECT_EQ(doc.at("weekday"), 5);
    EXPECT_EQ(doc.at("weekday_name"), "Friday");

    const json& calendars = doc.at("calendars");
    ASSERT_EQ(calendars.size(), 7u);
    const char* names[] = {"gregorian", "julian", "western", "hebrew1", "hebrew", "adam", "generic"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(calendars.at(i).at("kind"), i);
        EXPECT_EQ(calendars.at(i).at("name"), names[i]);
        for (const char* key : {"title", "source", "year", "month", "day", "text", "reason", "module"}) {
            EXPECT_TRUE(calendars.at(i).contains(key));
        }
        EXPECT_EQ(calendars.at(i).at("source"), i == 3 || i == 5 || i == 6 ? "module" : "true");
    }
    EXPECT_EQ(calendars.at(0).at("text"), "21 June 2024");
    EXPECT_EQ(calendars.at(1).at("text"), "8 June 2024");
    EXPECT_EQ(calendars.at(2).at("text"), "21 June 2024");
    EXPECT_EQ(calendars.at(4).at("text"), "15 Sivan 5784");
    // The module's SetDate of 15 Sivan 5784 counts mean months up to the
    // year (71526 by its cycle rule) from its epoch day -1373426, ignoring
    // the month: a time on 28 September 2023 (day 738793).
    const json& module = calendars.at(4).at("module");
    EXPECT_EQ(module.at("year"), 5784);
    EXPECT_EQ(module.at("month"), 3);
    EXPECT_EQ(module.at("day"), 15);
    EXPECT_DOUBLE_EQ(module.at("star_date").get<double>(), 71526 * 29.53059413580247 + 15 + (-1373426.0 - 1.0));
    EXPECT_EQ(module.at("agrees"), false);

    const json& calendar = doc.at("calendar");
    EXPECT_EQ(calendar.size(), 7u);
    EXPECT_EQ(calendar.at("module"), json::parse(R"({"days_in_month":30,"months_in_year":12,"days_in_year":366})"));
    EXPECT_EQ(calendar.at("kind"), 0);
    EXPECT_EQ(calendar.at("name"), "gregorian");
    EXPECT_EQ(calendar.at("days_in_month"), 30);
    EXPECT_EQ(calendar.at("months_in_year"), 12);
    EXPECT_EQ(calendar.at("days_in_year"), 366);
    EXPECT_EQ(calendar.at("calendar_days"), 739058.0);

    const json& location = doc.at("location");
    EXPECT_EQ(location.size(), 2u);
    EXPECT_EQ(location.at("latitude"), 43.3);
    EXPECT_EQ(location.at("longitude"), -83.045);

    const json& sun = doc.at("sun");
    EXPECT_EQ(sun.size(), 17u);
    EXPECT_EQ(sun.at("date"), "2024-06-21");
    EXPECT_TRUE(sun.at("polar").is_null());
    EXPECT_TRUE(sun.at("civil_polar").is_null());
    EXPECT_TRUE(sun.at("reason").is_null());
    EXPECT_EQ(MaskClocks(sun.at("sunrise")), "2024-06-21Thh:mm:ssZ");
    EXPECT_EQ(MaskClocks(sun.at("sunset")), "2024-06-22Thh:mm:ssZ");
    EXPECT_EQ(MaskClocks(sun.at("civil_dawn")), "2024-06-21Thh:mm:ssZ");
    EXPECT_EQ(MaskClocks(sun.at("civil_dusk")), "2024-06-22Thh:mm:ssZ");
    ExpectClocksNear(sun.at("sunrise").get<std::string>() + sun.at("sunset").get<std::string>() +
                         sun.at("civil_dawn").get<std::string>() + sun.at("civil_dusk").get<std::string>(),
                     {"09:52:11", "01:16:06", "09:16:28", "01:51:49"});
    const json& moduleSun = sun.at("module");
    EXPECT_EQ(moduleSun.size(), 5u);
    EXPECT_EQ(moduleSun.at("j0"), 738888.5);
    EXPECT_DOUBLE_EQ(moduleSun.at("sunrise_days").get<double>(), 171.59733151711325);
    EXPECT_DOUBLE_EQ(moduleSun.at("sunset_days").get<double>(), 171.82995345218822);
    EXPECT_DOUBLE_EQ(moduleSun.at("sunrise_star_date").get<double>(), 738888.5 + 171.59733151711325);
    EXPECT_DOUBLE_EQ(moduleSun.at("sunset_star_date").get<double>(), 738888.5 + 171.82995345218822);

    const json& moon = doc.at("moon");
    EXPECT_EQ(moon.size(), 9u);
    EXPECT_EQ(moon.at("utc"), "2024-06-21T00:00:00Z");
    EXPECT_EQ(moon.at("local"), "2024-06-21T00:00:00+00:00");
    // 25 h 8 min before the full moon of 22 June 01:08 UTC, at about 0.5 degrees an hour.
    EXPECT_NEAR(moon.at("phase").get<double>(), 167.0, 0.5);
    EXPECT_NEAR(moon.at("illuminated").get<double>(), 0.986, 0.002);
    EXPECT_EQ(moon.at("name"), "waxing gibbous");
    EXPECT_EQ(moon.at("glyph"), "\xF0\x9F\x8C\x94");
    EXPECT_TRUE(moon.at("reason").is_null());
    EXPECT_NEAR(moon.at("module").at("phase").get<double>(), 172.67579, 0.00001);
}

TEST(TimetoolSun, TwoDaysOfTheSolstice) {
    const ToolRun run = RunTimetool({"sun", "2024-06-21", "--lat", "43.3", "--lon", "-83.045", "--days", "2"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(MaskClocks(run.out),
              "Sun at 43.3 N, 83.045 W, UTC (+1: on the next day, -1: on the day before)\n"
              "Date         Civil dawn   Sunrise      Sunset       Civil dusk   Module sunrise, sunset (days from J0)\n"
              "2024-06-21   hh:mm:ss     hh:mm:ss     hh:mm:ss+1   hh:mm:ss+1   171.597332  171.829953\n"
              "2024-06-22   hh:mm:ss     hh:mm:ss     hh:mm:ss+1   hh:mm:ss+1   172.597345  172.830117\n");
    // PyEphem for the 21st; the 22nd moves by seconds.
    ExpectClocksNear(LineOf(run.out, "2024-06-21"), {"09:16:28", "09:52:11", "01:16:06", "01:51:49"});
    ExpectClocksNear(LineOf(run.out, "2024-06-22"), {"09:16:28", "09:52:11", "01:16:06", "01:51:49"});
}

TEST(TimetoolSun, LondonInDecemberSetsAfterItRises) {
    // PyEphem: civil dawn 07:23:38, sunrise 08:03:56, sunset 15:53:42, civil dusk 16:34:00.
    const ToolRun run = RunTimetool({"sun", "2024-12-21", "--lat", "51.5", "--lon", "-0.13"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string row = LineOf(run.out, "2024-12-21");
    EXPECT_EQ(MaskClocks(row),
              "2024-12-21   hh:mm:ss     hh:mm:ss     hh:mm:ss     hh:mm:ss     354.669884  354.669382");
    ExpectClocksNear(row, {"07:23:38", "08:03:56", "15:53:42", "16:34:00"});
    const std::vector<int> clocks = ClocksOf(row);
    ASSERT_EQ(clocks.size(), 4u);
    EXPECT_LT(clocks[1], clocks[2]);
}

TEST(TimetoolSun, BothHemispheresAndTheTropics) {
    const struct {
        const char* lat;
        const char* lon;
        const char* mask;
        std::vector<std::string> reference;  // PyEphem: dawn, sunrise, sunset, dusk
    } cases[] = {
        // Sydney: the solar day of 21 June starts in the evening of the 20th, UTC.
        {"33.87S",
         "151.21E",
         "2024-06-21   hh:mm:ss-1   hh:mm:ss-1   hh:mm:ss     hh:mm:ss     ",
         {"20:32:20", "21:00:06", "06:53:53", "07:21:39"}},
        {"-0.18",
         "-78.47",
         "2024-06-21   hh:mm:ss     hh:mm:ss     hh:mm:ss     hh:mm:ss     ",
         {"10:49:57", "11:12:30", "23:19:12", "23:41:45"}},
        {"33.92S",
         "18.42E",
         "2024-06-21   hh:mm:ss     hh:mm:ss     hh:mm:ss     hh:mm:ss     ",
         {"05:23:41", "05:51:28", "15:45:00", "16:12:47"}},
    };
    for (const auto& c : cases) {
        const ToolRun run = RunTimetool({"sun", "2024-06-21", "--lat", c.lat, "--lon", c.lon});
        ASSERT_EQ(run.status, 0) << run.err;
        const std::string row = LineOf(run.out, "2024-06-21");
        EXPECT_EQ(MaskClocks(row).substr(0, std::string(c.mask).size()), c.mask) << c.lat;
        ExpectClocksNear(row, c.reference);
    }
}

TEST(TimetoolSun, JsonRowOfTheSolstice) {
    const ToolRun run = RunTimetool({"sun", "2024-06-21", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::ordered_json doc = nlohmann::ordered_json::parse(run.out);
    EXPECT_EQ(doc.size(), 4u);
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("latitude"), 43.3);
    EXPECT_EQ(doc.at("longitude"), -83.045);
    ASSERT_EQ(doc.at("days").size(), 1u);
    const auto& row = doc.at("days").at(0);
    std::vector<std::string> keys;
    for (auto entry = row.begin(); entry != row.end(); ++entry) keys.push_back(entry.key());
    EXPECT_EQ(keys, (std::vector<std::string>{"date", "sunrise", "sunrise_local", "sunrise_utc_offset", "sunset",
                                              "sunset_local", "sunset_utc_offset", "civil_dawn", "civil_dawn_local",
                                              "civil_dawn_utc_offset", "civil_dusk", "civil_dusk_local",
                                              "civil_dusk_utc_offset", "polar", "civil_polar", "reason", "module"}));
    EXPECT_EQ(row.at("date"), "2024-06-21");
    EXPECT_TRUE(row.at("polar").is_null());
    EXPECT_EQ(MaskClocks(row.at("sunrise").get<std::string>()), "2024-06-21Thh:mm:ssZ");
    EXPECT_EQ(MaskClocks(row.at("sunset").get<std::string>()), "2024-06-22Thh:mm:ssZ");
    ExpectClocksNear(row.at("sunrise").get<std::string>() + row.at("sunset").get<std::string>(),
                     {"09:52:11", "01:16:06"});
    const auto& module = row.at("module");
    EXPECT_EQ(module.at("j0"), 738888.5);
    EXPECT_DOUBLE_EQ(module.at("sunrise_days").get<double>(), 171.59733151711325);
    EXPECT_DOUBLE_EQ(module.at("sunset_days").get<double>(), 171.82995345218822);
    EXPECT_DOUBLE_EQ(module.at("sunrise_star_date").get<double>(), 738888.5 + 171.59733151711325);
    EXPECT_DOUBLE_EQ(module.at("sunset_star_date").get<double>(), 738888.5 + 171.82995345218822);
}

TEST(TimetoolSun, HemisphereLettersMeanTheSamePlace) {
    const ToolRun letters = RunTimetool({"sun", "2024-06-21", "--lat", "43.3N", "--lon", "83.045W"});
    const ToolRun signs = RunTimetool({"sun", "2024-06-21", "--lat", "43.3", "--lon", "-83.045"});
    ASSERT_EQ(letters.status, 0) << letters.err;
    EXPECT_EQ(letters.out, signs.out);
    EXPECT_EQ(LineOf(letters.out, "Sun at"), LineOf(RunTimetool({"sun", "2024-06-21"}).out, "Sun at"));
}

TEST(TimetoolSun, MidnightSunAndPolarNightAreNamed) {
    const ToolRun day = RunTimetool({"sun", "2024-06-21", "--lat", "89"});
    ASSERT_EQ(day.status, 0) << day.err;
    EXPECT_EQ(LineOf(day.out, "2024-06-21"), "2024-06-21   polar day    polar day    polar day    polar day    none");
    const ToolRun night = RunTimetool({"sun", "2024-06-21", "--lat", "89S"});
    ASSERT_EQ(night.status, 0) << night.err;
    EXPECT_EQ(LineOf(night.out, "2024-06-21"), "2024-06-21   polar night  polar night  polar night  polar night  none");
    // Tromso at the winter solstice: no sunrise, but a civil dawn at 08:31:31 and dusk at 12:53:20 (PyEphem).
    const ToolRun tromso = RunTimetool({"sun", "2024-12-21", "--lat", "69.65N", "--lon", "18.96E"});
    ASSERT_EQ(tromso.status, 0) << tromso.err;
    const std::string row = LineOf(tromso.out, "2024-12-21");
    EXPECT_EQ(MaskClocks(row), "2024-12-21   hh:mm:ss     polar night  polar night  hh:mm:ss     none");
    ExpectClocksNear(row, {"08:31:31", "12:53:20"});

    const ToolRun doc = RunTimetool({"sun", "2024-06-21", "--lat", "89", "--json"});
    ASSERT_EQ(doc.status, 0) << doc.err;
    const json parsed = json::parse(doc.out);
    EXPECT_EQ(parsed.at("latitude"), 89.0);
    EXPECT_EQ(parsed.at("longitude"), -83.045);
    const json& row89 = parsed.at("days").at(0);
    EXPECT_EQ(row89.at("date"), "2024-06-21");
    EXPECT_EQ(doc.out.find("nan"), std::string::npos);
    EXPECT_EQ(row89.at("polar"), "polar day");
    EXPECT_EQ(row89.at("civil_polar"), "polar day");
    EXPECT_TRUE(row89.at("sunrise").is_null());
    EXPECT_TRUE(row89.at("civil_dusk").is_null());
    EXPECT_TRUE(row89.at("module").at("sunrise_days").is_null());
}

TEST(TimetoolSun, OutsideTheKnownYearsTheReasonStandsInstead) {
    const ToolRun run = RunTimetool({"sun", "-1001-06-21"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "-1001"),
              "-1001-06-21  Earth's rotation is not known well enough outside the years -1000 to 3000  module "
              "170.597292  170.829763");
    const ToolRun doc = RunTimetool({"sun", "3001-01-01", "--json"});
    ASSERT_EQ(doc.status, 0) << doc.err;
    const json row = json::parse(doc.out).at("days").at(0);
    EXPECT_TRUE(row.at("sunrise").is_null());
    EXPECT_EQ(row.at("reason"), "Earth's rotation is not known well enough outside the years -1000 to 3000");
}

TEST(TimetoolMoon, PublishedNewMoonOfJanuary2024) {
    // New moon 11 January 2024 11:57 UTC, full moon 25 January 17:54 UTC
    // (published); the module's mean lunation reads 3.84 and 177.54 there.
    const ToolRun run = RunTimetool({"moon", "2024-01-11T11:57", "--days", "3"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<std::string> lines = {
        "Date and time (UTC)  Phase     Lit     Moon                 Module",
        "2024-01-11 11:57:00  359.99\xC2\xB0   0.2%    " + std::string(kNewMoon) + " new               3.84\xC2\xB0",
        "2024-01-12 11:57:00  13.76\xC2\xB0    1.6%    \xF0\x9F\x8C\x92 waxing crescent   16.04\xC2\xB0",
        "2024-01-13 11:57:00  27.61\xC2\xB0    5.8%    \xF0\x9F\x8C\x92 waxing crescent   28.23\xC2\xB0",
    };
    std::string expected;
    for (const std::string& line : lines) expected += line + "\n";
    EXPECT_EQ(run.out, expected);
    const ToolRun full = RunTimetool({"moon", "2024-01-25T17:54", "--json"});
    ASSERT_EQ(full.status, 0) << full.err;
    const json doc = json::parse(full.out);
    ASSERT_EQ(doc.at("days").size(), 1u);
    const json& day = doc.at("days").at(0);
    EXPECT_EQ(day.size(), 9u);
    EXPECT_EQ(day.at("utc"), "2024-01-25T17:54:00Z");
    EXPECT_NEAR(day.at("phase").get<double>(), 180.0, 0.01);
    EXPECT_NEAR(day.at("illuminated").get<double>(), 1.0, 0.003);
    EXPECT_EQ(day.at("name"), "full");
    EXPECT_EQ(day.at("glyph"), kFullMoon);
    EXPECT_NEAR(day.at("module").at("phase").get<double>(), 177.54, 0.005);
}

TEST(TimetoolMoon, ModulePhaseOfItsNegativeBranchBesideTheTrueFullMoon) {
    // Full moon 22 December 1999 17:31 UTC (published); the module's mean lunation reads 178.75.
    const ToolRun run = RunTimetool({"moon", "1999-12-22T17:31"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "1999"), "1999-12-22 17:31:00  179.99\xC2\xB0   99.9%   " + std::string(kFullMoon) +
                                           " full              178.75\xC2\xB0");
}

TEST(TimetoolMonth, June2024Grid) {
    // Published: new moon 6 June, first quarter 14 June, full moon 22 June,
    // last quarter 28 June 2024 (UTC); the days between carry the glyph of
    // their stretch.
    const ToolRun run = RunTimetool({"month", "2024-06"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "            June 2024\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "                               1\xF0\x9F\x8C\x98\n"
              " 2\xF0\x9F\x8C\x98  3\xF0\x9F\x8C\x98  4\xF0\x9F\x8C\x98  5\xF0\x9F\x8C\x98  6\xF0\x9F\x8C\x91"
              "  7\xF0\x9F\x8C\x92  8\xF0\x9F\x8C\x92\n"
              " 9\xF0\x9F\x8C\x92 10\xF0\x9F\x8C\x92 11\xF0\x9F\x8C\x92 12\xF0\x9F\x8C\x92 13\xF0\x9F\x8C\x92"
              " 14\xF0\x9F\x8C\x93 15\xF0\x9F\x8C\x94\n"
              "16\xF0\x9F\x8C\x94 17\xF0\x9F\x8C\x94 18\xF0\x9F\x8C\x94 19\xF0\x9F\x8C\x94 20\xF0\x9F\x8C\x94"
              " 21\xF0\x9F\x8C\x94 22\xF0\x9F\x8C\x95\n"
              "23\xF0\x9F\x8C\x96 24\xF0\x9F\x8C\x96 25\xF0\x9F\x8C\x96 26\xF0\x9F\x8C\x96 27\xF0\x9F\x8C\x96"
              " 28\xF0\x9F\x8C\x97 29\xF0\x9F\x8C\x98\n"
              "30\xF0\x9F\x8C\x98\n");
}

TEST(TimetoolMonth, WesternOctober1582SkipsTheTenReformDays) {
    // 1 October 1582 (Julian) is day number 577734, a Monday; 4 October is
    // followed by 15 October (577738). Each quarter's glyph stands on one day.
    const ToolRun run = RunTimetool({"month", "1582-10", "--calendar", "western"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "           October 1582\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "      1🌕  2🌖  3🌖  4🌖 15🌖 16🌖\n"
              "17🌖 18🌗 19🌘 20🌘 21🌘 22🌘 23🌘\n"
              "24🌘 25🌘 26🌑 27🌒 28🌒 29🌒 30🌒\n"
              "31🌒\n");
}

TEST(TimetoolMonth, HebrewSivan5784StartsOnFriday7June2024) {
    // 1 Sivan 5784 is 7 June 2024, day number 739046: the first quarter of
    // 14 June is 8 Sivan, the full moon of 22 June 16 Sivan, the last quarter
    // of 28 June 22 Sivan and the new moon of 5 July 29 Sivan.
    const ToolRun run = RunTimetool({"month", "5784-03", "--calendar", "hebrew"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "            Sivan 5784\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "                          1🌒  2🌒\n"
              " 3🌒  4🌒  5🌒  6🌒  7🌒  8🌓  9🌔\n"
              "10🌔 11🌔 12🌔 13🌔 14🌔 15🌔 16🌕\n"
              "17🌖 18🌖 19🌖 20🌖 21🌖 22🌗 23🌘\n"
              "24🌘 25🌘 26🌘 27🌘 28🌘 29🌑 30🌒\n");
}

TEST(TimetoolMonth, JsonDays) {
    const ToolRun run = RunTimetool({"month", "2024-06", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.size(), 6u);
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("calendar"), "gregorian");
    EXPECT_EQ(doc.at("year"), 2024);
    EXPECT_EQ(doc.at("month"), 6);
    EXPECT_EQ(doc.at("title"), "June 2024");
    ASSERT_EQ(doc.at("days").size(), 30u);
    const json& first = doc.at("days").at(0);
    EXPECT_EQ(first.size(), 5u);
    EXPECT_EQ(first.at("day"), 1);
    EXPECT_EQ(first.at("weekday"), 6);
    EXPECT_EQ(first.at("star_date"), 739040.0);
    EXPECT_EQ(first.at("moon").at("utc"), "2024-06-01T12:00:00Z");
    EXPECT_EQ(first.at("moon").at("name"), "waning crescent");
    // The module's mean lunation at noon of 1 June.
    EXPECT_NEAR(first.at("moon").at("module").at("phase").get<double>(), 294.95618, 0.0001);
    EXPECT_TRUE(first.at("quarter").is_null());
    // Full moon 22 June 2024 01:08 UTC (published).
    const json& full = doc.at("days").at(21).at("quarter");
    EXPECT_EQ(full.at("name"), "full");
    EXPECT_EQ(MaskClocks(full.at("utc").get<std::string>()), "2024-06-22Thh:mm:ssZ");
    ExpectClocksNear(full.at("utc").get<std::string>(), {"01:08:00"});
    EXPECT_EQ(doc.at("days").at(20).at("star_date"), 739060.0);
}

class TimetoolPersist : public ::testing::TestWithParam<const char*> {};

TEST_P(TimetoolPersist, SaveThenLoadInAnotherProcess) {
    const TempDir dir;
    const std::string file = dir.path() + "/" + GetParam();
    const ToolRun save = RunTimetool({"save", file, "2024-06-21T17:54:00"});
    ASSERT_EQ(save.status, 0) << save.err;
    EXPECT_TRUE(std::filesystem::exists(file));
    const std::string form = std::string(GetParam()).ends_with(".xml") ? "xml" : "folder";
    EXPECT_EQ(save.out, "File           " + file + " (" + form +
                            " stream)\n"
                            "Saved          day 21, month 6, year 2024, hour 17, minute 54, second 0\n");

    const ToolRun load = RunTimetool({"load", file});
    ASSERT_EQ(load.status, 0) << load.err;
    // The Time component applies the stored Year to its month field and keeps
    // its own (zero) year: stored data has always been read this way.
    EXPECT_EQ(load.out, "File           " + file + " (" + form +
                            " stream)\n"
                            "Stored         Day 21, Month 6, Year 2024, Hour 17, Minute 54, Second 0\n"
                            "Loaded         day 21, month 2024, year 0, hour 17, minute 54, second 0\n"
                            "               (the Time component reads the stored Year into its month field and "
                            "keeps\n"
                            "               its own year; stored data relies on this)\n");

    const ToolRun doc = RunTimetool({"load", file, "--json"});
    ASSERT_EQ(doc.status, 0) << doc.err;
    const json parsed = json::parse(doc.out);
    EXPECT_EQ(parsed.size(), 5u);
    EXPECT_EQ(parsed.at("schema"), 3);
    EXPECT_EQ(parsed.at("file"), file);
    EXPECT_EQ(parsed.at("form"), form);
    EXPECT_EQ(parsed.at("stored"),
              json::parse(R"({"Day":21,"Month":6,"Year":2024,"Hour":17,"Minute":54,"Second":0.0})"));
    EXPECT_EQ(parsed.at("loaded"),
              json::parse(R"({"day":21,"month":2024,"year":0,"hour":17,"minute":54,"second":0.0})"));
}

TEST(TimetoolSave, JsonNamesTheFileFormAndFields) {
    const TempDir dir;
    const std::string file = dir.path() + "/time.xml";
    const ToolRun run = RunTimetool({"save", file, "2024-06-21T17:54:30.5", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::ordered_json doc = nlohmann::ordered_json::parse(run.out);
    std::vector<std::string> keys;
    for (auto entry = doc.begin(); entry != doc.end(); ++entry) keys.push_back(entry.key());
    EXPECT_EQ(keys, (std::vector<std::string>{"schema", "file", "form", "star_date", "saved", "date"}));
    EXPECT_EQ(doc.at("file"), file);
    EXPECT_EQ(doc.at("form"), "xml");
    EXPECT_DOUBLE_EQ(doc.at("star_date").get<double>(), 739060.0 + ((17 / 24.0 + 54 / 1440.0) + 30.5 / 86400.0));
    EXPECT_EQ(doc.at("saved"),
              nlohmann::ordered_json::parse(R"({"day":21,"month":6,"year":2024,"hour":17,"minute":54,"second":30.5})"));
}

TEST(TimetoolSave, FromAnotherCalendarStoresTheGregorianFieldsOfTheDay) {
    const TempDir dir;
    const std::string file = dir.path() + "/time.xml";
    const ToolRun run = RunTimetool({"save", file, "5784-Sivan-15T17:54", "--from", "hebrew"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "File           " + file +
                           " (xml stream)\n"
                           "Saved          day 21, month 6, year 2024, hour 17, minute 54, second 0\n"
                           "Hebrew         15 Sivan 5784 (module's SetDate of it lands on 13 Tishri 5784)\n");

    // Before AD 1 the Time object's year counts 1 BC as -1.
    const ToolRun bc = RunTimetool({"save", file, "-43-03-15T06:00"});
    ASSERT_EQ(bc.status, 0) << bc.err;
    EXPECT_EQ(bc.out, "File           " + file +
                          " (xml stream)\n"
                          "Saved          day 15, month 3, year -44, hour 6, minute 0, second 0\n"
                          "               (the Time object counts 1 BC as year -1: year -44 is 44 BC)\n");
}

INSTANTIATE_TEST_SUITE_P(XmlAndFolder, TimetoolPersist, ::testing::Values("time.xml", "time.dat"));

TEST(TimetoolWindow, PrintsTheWindowByAgeAfterEachValue) {
    const ToolRun run = RunTimetool({"window", "3"}, "1 2\n3 4.5\n");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "1\n1 2\n1 2 3\n2 3 4.5\n");
}

TEST(TimetoolWindow, PrintsEachNotificationAsAListener) {
    const ToolRun run = RunTimetool({"window", "2", "--events"}, "7 8 9");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "event SizeChanged\n"
              "event ElementChanged index -1\n7\n"
              "event ElementChanged index -1\n7 8\n"
              "event ElementChanged index -1\n8 9\n");
}

TEST(TimetoolWindow, JsonSteps) {
    const ToolRun run = RunTimetool({"window", "2", "--events", "--json"}, "7 8 9");
    ASSERT_EQ(run.status, 0) << run.err;
    const json expected = json::parse(R"({"schema":3,"capacity":2,"events":[{"event":"SizeChanged"}],"steps":[
        {"value":7.0,"window":[7.0],"events":[{"event":"ElementChanged","index":-1}]},
        {"value":8.0,"window":[7.0,8.0],"events":[{"event":"ElementChanged","index":-1}]},
        {"value":9.0,"window":[8.0,9.0],"events":[{"event":"ElementChanged","index":-1}]}]})");
    EXPECT_EQ(json::parse(run.out), expected);
}

struct BadInputCase {
    std::vector<std::string> args;
    const char* message;
};

TEST(TimetoolBadInput, OneLineNamingTheArgumentAndStatus2) {
    const BadInputCase cases[] = {
        {{"frobnicate"},
         "timetool: unknown command 'frobnicate' (show, convert, sun, moon, month, year, between, save, load, window; "
         "--help lists them)\n"},
        {{"show", "2023-02-29"}, "timetool: bad WHEN '2023-02-29': February 2023 has 28 days\n"},
        {{"convert", "5784-02-30", "--from", "hebrew"}, "timetool: bad WHEN '5784-02-30': Iyar 5784 has 29 days\n"},
        {{"sun", "5783-13-01", "--from", "hebrew"},
         "timetool: bad WHEN '5783-13-01': 5783 has no Adar II (a 12-month year)\n"},
        {{"moon", "5784-Adar-01", "--from", "hebrew"},
         "timetool: bad WHEN '5784-Adar-01': Adar is ambiguous in 5784, a leap year: name Adar I or Adar II\n"},
        {{"show", "1582-10-10", "--from", "western"},
         "timetool: bad WHEN '1582-10-10': 5 to 14 October 1582 do not exist in the Western calendar (4 October "
         "was followed by 15 October)\n"},
        {{"show", "2024-00-01"}, "timetool: bad WHEN '2024-00-01': there is no month 0 (months count from 1)\n"},
        {{"show", "2024-06-00"}, "timetool: bad WHEN '2024-06-00': there is no day 0 (days count from 1)\n"},
        {{"show", "2024-06-21T23:59:60"},
         "timetool: bad WHEN '2024-06-21T23:59:60': second out of range (below 60: no leap seconds are counted)\n"},
        {{"convert", "32767-12-31", "--from", "julian"},
         "timetool: bad WHEN '32767-12-31': outside the years timetool shows (Gregorian -32767 to 32767)\n"},
        {{"show", "--now", "yesterday"}, "timetool: bad --now 'yesterday': expected YYYY-MM-DD\n"},
        {{"show", "21/06/2024"}, "timetool: bad WHEN '21/06/2024': expected YYYY-MM-DD\n"},
        {{"show", "sd:abc"}, "timetool: bad WHEN 'sd:abc': not a number\n"},
        {{"convert", "2024-06-21", "--to", "mayan"},
         "timetool: unknown calendar 'mayan' for --to (gregorian, julian, western, hebrew1, hebrew, adam, generic or "
         "0 to 6)\n"},
        {{"show", "--calendar", "7"},
         "timetool: unknown calendar '7' for --calendar (gregorian, julian, western, hebrew1, hebrew, adam, generic "
         "or 0 to 6)\n"},
        {{"sun", "2024-06-21", "--lat", "91"}, "timetool: bad --lat '91': out of range (-90 to 90)\n"},
        {{"sun", "2024-06-21", "--lon", "200E"}, "timetool: bad --lon '200E': out of range (-180 to 180)\n"},
        {{"sun", "2024-06-21", "--days", "0"}, "timetool: bad --days '0': out of range (1 to 3660)\n"},
        {{"month", "2024-6"}, "timetool: bad YEAR-MONTH '2024-6': expected YYYY-MM\n"},
        {{"window", "0"}, "timetool: bad N '0': out of range (1 to 1000000)\n"},
        {{"month", "5783-13", "--calendar", "hebrew"},
         "timetool: bad YEAR-MONTH '5783-13': 5783 has no Adar II (a 12-month year)\n"},
        {{"load", "/nonexistent/time.xml"},
         "timetool: cannot read FILE '/nonexistent/time.xml': No such file or directory\n"},
    };
    for (const BadInputCase& c : cases) {
        const ToolRun run = RunTimetool(c.args);
        EXPECT_EQ(run.status, 2) << c.args.at(0);
        EXPECT_EQ(run.err, c.message);
        EXPECT_EQ(run.out, "");
    }
}

TEST(TimetoolBadInput, FilesTheStreamsCannotUse) {
    const TempDir dir;
    const std::string bad = dir.path() + "/bad.xml";
    std::ofstream(bad) << "not xml";
    const ToolRun load = RunTimetool({"load", bad});
    EXPECT_EQ(load.status, 2);
    EXPECT_EQ(load.out, "");
    EXPECT_EQ(load.err,
              "timetool: cannot read FILE '" + bad + "': the file is not a saved stream of this form (0x8007000D)\n");

    const ToolRun save = RunTimetool({"save", dir.path() + "/missing/time.xml", "2024-06-21"});
    EXPECT_EQ(save.status, 2);
    EXPECT_EQ(save.out, "");
    EXPECT_EQ(save.err, "timetool: cannot write FILE '" + dir.path() +
                            "/missing/time.xml': no such file or folder (0x80070002)\n");
}

TEST(TimetoolBadInput, NonNumberOnStandardInput) {
    const ToolRun run = RunTimetool({"window", "2"}, "1 x");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "1\n");
    EXPECT_EQ(run.err, "timetool: bad number 'x' on standard input\n");
}

TEST(TimetoolMissingModule, NamesThePathTriedAndExitsWith1) {
    const TempDir dir;
    const std::string copy = dir.path() + "/timetool";
    std::filesystem::copy_file(TIMETOOL_PATH, copy);
    const ToolRun run = RunProgram(copy, {"show", "2024-06-21"}, "", {kNoRegistry});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "timetool: cannot load module " + dir.path() +
                           "/_binlinux/Calendar.so (cannot open shared object file: No such file or directory)\n");
}

TEST(TimetoolHelp, HelpStatesTheGrammarTheYearNumberingAndTheModulesCalendars) {
    for (const char* command : {"--help", "show", "convert", "month"}) {
        const ToolRun run = command[0] == '-' ? RunTimetool({command}) : RunTimetool({command, "--help"});
        EXPECT_EQ(run.status, 0) << command;
        EXPECT_NE(run.out.find("0 is 1 BC, -1 is 2 BC"), std::string::npos) << command;
        EXPECT_NE(run.out.find("are the module's own calendars"), std::string::npos) << command;
        EXPECT_NE(run.out.find("TIMETOOL_NOW"), std::string::npos) << command;
    }
}

TEST(TimetoolHelp, EverySubcommandHasHelp) {
    for (const char* command : {"show", "convert", "sun", "moon", "month", "save", "load", "window"}) {
        const ToolRun run = RunTimetool({command, "--help"});
        EXPECT_EQ(run.status, 0) << command;
        EXPECT_NE(run.out.find(std::string("Usage: timetool ") + command), std::string::npos) << command;
    }
}

}  // namespace
