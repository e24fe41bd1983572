// End-to-end tests of the built timetool. Expected values come from the
// module's worked examples (star dates, 21 June 2024 sun and moon, the
// month-13 and BC conventions), published calendar dates (15 Sivan 5784 is
// 21 June 2024) and hand computation of the documented steps; clock times
// are the module's star dates to the nearest second.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tool_runner.h"

namespace {

using nlohmann::json;

constexpr const char* kFullMoon = "\xF0\x9F\x8C\x95";
constexpr const char* kLastQuarter = "\xF0\x9F\x8C\x97";

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
    // Sunrise and sunset: noon of 1 January 2024 (738888.5) plus the day
    // counts 171.59733151711325 and 171.82995345218822, 8409.44 and
    // 28507.98 seconds into the day.
    EXPECT_EQ(run.out,
              "Instant        2024-06-21 00:00:00 UTC\n"
              "Gregorian      21 June 2024\n"
              "Month length   30 days\n"
              "Year length    12 months, 366 days\n"
              "Calendar days  739058 (the module's elapsed-day count)\n"
              "Star date      739060.000000\n"
              "Julian Date    2460482.500000\n"
              "Linux time     1718928000\n"
              "Weekday        Friday\n"
              "Sunrise        2024-06-21 02:20:09 UTC at 43.3 N, 83.045 W\n"
              "Sunset         2024-06-21 07:55:08 UTC\n"
              "Moon phase     172.68\xC2\xB0 full " +
                  std::string(kFullMoon) + "\n");
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
    // Day counts -0.535718842406178 and -0.30228345015752284 from 730122.5.
    // 83313.89 and 17082.71 seconds into their days.
    EXPECT_EQ(LineOf(run.out, "Sunrise"), "Sunrise        1999-12-31 23:08:34 UTC at 43.3 N, 83.045 W");
    EXPECT_EQ(LineOf(run.out, "Sunset"), "Sunset         2000-01-01 04:44:43 UTC");
    // At the reference instant itself the phase is (T(-1) - 0) / (T(-1) - T(0)) x 360.
    EXPECT_EQ(LineOf(run.out, "Moon phase"), "Moon phase     291.76\xC2\xB0 last quarter " + std::string(kLastQuarter));
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
        "Instant        2024-06-21 17:54:00 UTC\n"
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
        "Sunrise        2024-06-21 02:20:09 UTC at 43.3 N, 83.045 W\n"
        "Sunset         2024-06-21 07:55:08 UTC\n"
        "Moon phase     181.77\xC2\xB0 full " +
        std::string(kFullMoon) + "\n";
    const ToolRun option = RunTimetool({"--now", "2024-06-21T17:54:00"});
    ASSERT_EQ(option.status, 0) << option.err;
    EXPECT_EQ(option.out, expected);
    const ToolRun variable = RunTimetool({}, "", {kNoRegistry, "TIMETOOL_NOW=@1718992440"});
    ASSERT_EQ(variable.status, 0) << variable.err;
    EXPECT_EQ(variable.out, expected);
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
    EXPECT_EQ(keys, (std::vector<std::string>{"schema", "utc", "star_date", "julian_date", "linux_time", "weekday",
                                              "weekday_name", "calendars", "calendar", "location", "sun", "moon"}));
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
    EXPECT_EQ(doc.size(), 5u);
    EXPECT_EQ(doc.at("schema"), 3);
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
    EXPECT_EQ(doc.size(), 12u);
    EXPECT_EQ(doc.at("utc"), "2024-06-21T00:00:00Z");
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
    EXPECT_EQ(sun.size(), 8u);
    EXPECT_EQ(sun.at("j0"), 738888.5);
    EXPECT_TRUE(sun.at("polar").is_null());
    EXPECT_EQ(sun.at("sunrise"), "2024-06-21T02:20:09Z");
    EXPECT_EQ(sun.at("sunset"), "2024-06-21T07:55:08Z");
    EXPECT_DOUBLE_EQ(sun.at("sunrise_days").get<double>(), 171.59733151711325);
    EXPECT_DOUBLE_EQ(sun.at("sunset_days").get<double>(), 171.82995345218822);
    EXPECT_DOUBLE_EQ(sun.at("sunrise_star_date").get<double>(), 738888.5 + 171.59733151711325);
    EXPECT_DOUBLE_EQ(sun.at("sunset_star_date").get<double>(), 738888.5 + 171.82995345218822);

    const json& moon = doc.at("moon");
    EXPECT_EQ(moon.size(), 3u);
    EXPECT_NEAR(moon.at("phase").get<double>(), 172.67579, 0.00001);
    EXPECT_EQ(moon.at("name"), "full");
    EXPECT_EQ(moon.at("glyph"), kFullMoon);
}

// The clock time of a star date to the nearest second, "HH:MM:SS".
std::string NearestSecond(double starDate) {
    const auto seconds = static_cast<long long>(std::floor(starDate * 86400.0 + 0.5));
    const long long ofDay = ((seconds % 86400) + 86400) % 86400;
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02lld:%02lld:%02lld", ofDay / 3600, ofDay / 60 % 60, ofDay % 60);
    return buffer;
}

TEST(TimetoolSun, TwoDaysOfTheSolstice) {
    const ToolRun run = RunTimetool({"sun", "2024-06-21", "--lat", "43.3", "--lon", "-83.045", "--days", "2"});
    ASSERT_EQ(run.status, 0) << run.err;
    const ToolRun doc = RunTimetool({"sun", "2024-06-21", "--days", "2", "--json"});
    ASSERT_EQ(doc.status, 0) << doc.err;
    const json second = json::parse(doc.out).at("days").at(1);
    EXPECT_EQ(run.out,
              "Sunrise and sunset (UTC) at 43.3 N, 83.045 W\n"
              "Date         Sunrise              Sunset\n"
              "2024-06-21   2024-06-21 02:20:09  2024-06-21 07:55:08\n"
              "2024-06-22   2024-06-22 " +
                  NearestSecond(second.at("sunrise_star_date").get<double>()) + "  2024-06-22 " +
                  NearestSecond(second.at("sunset_star_date").get<double>()) + "\n");
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
    EXPECT_EQ(keys, (std::vector<std::string>{"date", "j0", "polar", "sunrise", "sunset", "sunrise_days", "sunset_days",
                                              "sunrise_star_date", "sunset_star_date"}));
    EXPECT_EQ(row.at("date"), "2024-06-21");
    EXPECT_EQ(row.at("j0"), 738888.5);
    EXPECT_TRUE(row.at("polar").is_null());
    EXPECT_EQ(row.at("sunrise"), "2024-06-21T02:20:09Z");
    EXPECT_EQ(row.at("sunset"), "2024-06-21T07:55:08Z");
    EXPECT_DOUBLE_EQ(row.at("sunrise_days").get<double>(), 171.59733151711325);
    EXPECT_DOUBLE_EQ(row.at("sunset_days").get<double>(), 171.82995345218822);
    EXPECT_DOUBLE_EQ(row.at("sunrise_star_date").get<double>(), 738888.5 + 171.59733151711325);
    EXPECT_DOUBLE_EQ(row.at("sunset_star_date").get<double>(), 738888.5 + 171.82995345218822);
}

TEST(TimetoolSun, HemisphereLettersMeanTheSamePlace) {
    const ToolRun run = RunTimetool({"sun", "2024-06-21", "--lat", "43.3N", "--lon", "83.045W"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "2024-06-21"), "2024-06-21   2024-06-21 02:20:09  2024-06-21 07:55:08");
}

TEST(TimetoolSun, MidnightSunAndPolarNightAreNamed) {
    const ToolRun day = RunTimetool({"sun", "2024-06-21", "--lat", "89"});
    ASSERT_EQ(day.status, 0) << day.err;
    EXPECT_EQ(LineOf(day.out, "2024-06-21"), "2024-06-21   polar day            polar day");
    const ToolRun night = RunTimetool({"sun", "2024-06-21", "--lat", "89S"});
    ASSERT_EQ(night.status, 0) << night.err;
    EXPECT_EQ(LineOf(night.out, "2024-06-21"), "2024-06-21   polar night          polar night");

    const ToolRun doc = RunTimetool({"sun", "2024-06-21", "--lat", "89", "--json"});
    ASSERT_EQ(doc.status, 0) << doc.err;
    const json parsed = json::parse(doc.out);
    EXPECT_EQ(parsed.at("latitude"), 89.0);
    EXPECT_EQ(parsed.at("longitude"), -83.045);
    const json& row = parsed.at("days").at(0);
    EXPECT_EQ(row.at("date"), "2024-06-21");
    EXPECT_EQ(day.out.find("nan"), std::string::npos);
    EXPECT_EQ(row.at("polar"), "polar day");
    EXPECT_TRUE(row.at("sunrise").is_null());
    EXPECT_TRUE(row.at("sunset").is_null());
}

TEST(TimetoolMoon, WorkedPhasesOfJanuary2024) {
    const ToolRun run = RunTimetool({"moon", "2024-01-11T11:57", "--days", "3"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "Date and time (UTC)  Phase     Moon\n"
              "2024-01-11 11:57:00  3.84\xC2\xB0     \xF0\x9F\x8C\x91 new\n"
              "2024-01-12 11:57:00  16.04\xC2\xB0    \xF0\x9F\x8C\x91 new\n"
              "2024-01-13 11:57:00  28.23\xC2\xB0    \xF0\x9F\x8C\x92 waxing crescent\n");
    const ToolRun full = RunTimetool({"moon", "2024-01-25T17:54", "--json"});
    ASSERT_EQ(full.status, 0) << full.err;
    const json doc = json::parse(full.out);
    ASSERT_EQ(doc.at("days").size(), 1u);
    const json& day = doc.at("days").at(0);
    EXPECT_EQ(day.size(), 4u);
    EXPECT_EQ(day.at("utc"), "2024-01-25T17:54:00Z");
    EXPECT_NEAR(day.at("phase").get<double>(), 177.54, 0.005);
    EXPECT_EQ(day.at("name"), "full");
    EXPECT_EQ(day.at("glyph"), kFullMoon);
}

TEST(TimetoolMoon, NegativeAgeBranchBeforeTheReference) {
    const ToolRun run = RunTimetool({"moon", "1999-12-22T17:31"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(LineOf(run.out, "1999"), "1999-12-22 17:31:00  178.75\xC2\xB0   " + std::string(kFullMoon) + " full");
}

TEST(TimetoolMonth, June2024Grid) {
    // Moon at noon UTC of each day: 294.96 on the 1st, then about 12.19
    // degrees a day (full from the 20th to the 22nd).
    const ToolRun run = RunTimetool({"month", "2024-06"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "            June 2024\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "                               1\xF0\x9F\x8C\x98\n"
              " 2\xF0\x9F\x8C\x98  3\xF0\x9F\x8C\x98  4\xF0\x9F\x8C\x98  5\xF0\x9F\x8C\x91  6\xF0\x9F\x8C\x91"
              "  7\xF0\x9F\x8C\x91  8\xF0\x9F\x8C\x91\n"
              " 9\xF0\x9F\x8C\x92 10\xF0\x9F\x8C\x92 11\xF0\x9F\x8C\x92 12\xF0\x9F\x8C\x93 13\xF0\x9F\x8C\x93"
              " 14\xF0\x9F\x8C\x93 15\xF0\x9F\x8C\x93\n"
              "16\xF0\x9F\x8C\x94 17\xF0\x9F\x8C\x94 18\xF0\x9F\x8C\x94 19\xF0\x9F\x8C\x94 20\xF0\x9F\x8C\x95"
              " 21\xF0\x9F\x8C\x95 22\xF0\x9F\x8C\x95\n"
              "23\xF0\x9F\x8C\x96 24\xF0\x9F\x8C\x96 25\xF0\x9F\x8C\x96 26\xF0\x9F\x8C\x96 27\xF0\x9F\x8C\x97"
              " 28\xF0\x9F\x8C\x97 29\xF0\x9F\x8C\x97\n"
              "30\xF0\x9F\x8C\x97\n");
}

TEST(TimetoolMonth, WesternOctober1582SkipsTheTenReformDays) {
    // 1 October 1582 (Julian) is day number 577734, a Monday; 4 October is
    // followed by 15 October (577738).
    const ToolRun run = RunTimetool({"month", "1582-10", "--calendar", "western"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "           October 1582\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "      1🌕  2🌕  3🌕  4🌖 15🌖 16🌖\n"
              "17🌖 18🌗 19🌗 20🌗 21🌘 22🌘 23🌘\n"
              "24🌘 25🌑 26🌑 27🌑 28🌑 29🌒 30🌒\n"
              "31🌒\n");
}

TEST(TimetoolMonth, HebrewSivan5784StartsOnFriday7June2024) {
    // 1 Sivan 5784 is 7 June 2024, day number 739046.
    const ToolRun run = RunTimetool({"month", "5784-03", "--calendar", "hebrew"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "            Sivan 5784\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "                          1🌑  2🌑\n"
              " 3🌒  4🌒  5🌒  6🌓  7🌓  8🌓  9🌓\n"
              "10🌔 11🌔 12🌔 13🌔 14🌕 15🌕 16🌕\n"
              "17🌖 18🌖 19🌖 20🌖 21🌗 22🌗 23🌗\n"
              "24🌗 25🌘 26🌘 27🌘 28🌘 29🌑 30🌑\n");
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
    EXPECT_EQ(first.size(), 4u);
    EXPECT_EQ(first.at("day"), 1);
    EXPECT_EQ(first.at("weekday"), 6);
    EXPECT_EQ(first.at("star_date"), 739040.0);
    EXPECT_NEAR(first.at("moon").at("phase").get<double>(), 294.95618, 0.0001);
    EXPECT_EQ(first.at("moon").at("name"), "waning crescent");
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
         "timetool: unknown command 'frobnicate' (show, convert, sun, moon, month, save, load, window; --help lists "
         "them)\n"},
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
