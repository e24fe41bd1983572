// timetool's text in and out of UTF-8 locales, run as a user runs it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tool_runner.h"

namespace {

// The locale variables a run sees; empty values stand for unset ones.
std::vector<std::string> Locale(const std::string& lcAll, const std::string& lang) {
    return {kNoRegistry, "LC_ALL=" + lcAll, "LC_CTYPE=", "LANG=" + lang};
}

const char* const kAsciiJune2024 =
    "            June 2024\n"
    "Su   Mo   Tu   We   Th   Fr   Sa\n"
    "                               1(\n"
    " 2(   3(   4(   5(   6()  7 )  8 )\n"
    " 9 ) 10 ) 11 ) 12 ) 13 ) 14|) 15@)\n"
    "16@) 17@) 18@) 19@) 20@) 21@) 22@@\n"
    "23(@ 24(@ 25(@ 26(@ 27(@ 28(| 29(\n"
    "30(\n";

const char* const kUtf8June2024 =
    "            June 2024\n"
    "Su   Mo   Tu   We   Th   Fr   Sa\n"
    "                               1\xF0\x9F\x8C\x98\n"
    " 2\xF0\x9F\x8C\x98  3\xF0\x9F\x8C\x98  4\xF0\x9F\x8C\x98  5\xF0\x9F\x8C\x98  6\xF0\x9F\x8C\x91  7\xF0\x9F\x8C\x92 "
    " 8\xF0\x9F\x8C\x92\n"
    " 9\xF0\x9F\x8C\x92 10\xF0\x9F\x8C\x92 11\xF0\x9F\x8C\x92 12\xF0\x9F\x8C\x92 13\xF0\x9F\x8C\x92 14\xF0\x9F\x8C\x93 "
    "15\xF0\x9F\x8C\x94\n"
    "16\xF0\x9F\x8C\x94 17\xF0\x9F\x8C\x94 18\xF0\x9F\x8C\x94 19\xF0\x9F\x8C\x94 20\xF0\x9F\x8C\x94 21\xF0\x9F\x8C\x94 "
    "22\xF0\x9F\x8C\x95\n"
    "23\xF0\x9F\x8C\x96 24\xF0\x9F\x8C\x96 25\xF0\x9F\x8C\x96 26\xF0\x9F\x8C\x96 27\xF0\x9F\x8C\x96 28\xF0\x9F\x8C\x97 "
    "29\xF0\x9F\x8C\x98\n"
    "30\xF0\x9F\x8C\x98\n";

TEST(TimetoolCharset, MonthGridFollowsTheLocale) {
    struct Case {
        std::vector<std::string> args;
        std::vector<std::string> environment;
        const char* expected;
    };
    const Case cases[] = {
        {{"month", "2024-06"}, Locale("", "C"), kAsciiJune2024},
        {{"month", "2024-06"}, Locale("C", "C.UTF-8"), kAsciiJune2024},
        {{"month", "2024-06"}, Locale("POSIX", ""), kAsciiJune2024},
        {{"month", "2024-06"}, Locale("", ""), kAsciiJune2024},
        {{"month", "2024-06"}, Locale("", "C.UTF-8"), kUtf8June2024},
        {{"month", "2024-06"}, Locale("C.UTF-8", "C"), kUtf8June2024},
        {{"--ascii", "month", "2024-06"}, Locale("", "C.UTF-8"), kAsciiJune2024},
        {{"month", "2024-06", "--ascii"}, Locale("C.UTF-8", ""), kAsciiJune2024},
    };
    for (const Case& c : cases) {
        const ToolRun run = RunTimetool(c.args, "", c.environment);
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out, c.expected) << c.environment[1] << " " << c.environment[3];
    }
}

TEST(TimetoolCharset, MoonLinesKeepTheirColumnsInAscii) {
    const ToolRun ascii = RunTimetool({"moon", "2024-06-21", "--days", "2"}, "", Locale("", "C"));
    ASSERT_EQ(ascii.status, 0) << ascii.err;
    EXPECT_EQ(ascii.out,
              "Date and time (UTC)  Phase     Lit     Moon                 Module\n"
              "2024-06-21 00:00:00  166.95deg 98.6%   @) waxing gibbous    172.68deg\n"
              "2024-06-22 00:00:00  179.40deg 99.8%   @@ full              184.87deg\n");
    const ToolRun utf8 = RunTimetool({"moon", "2024-06-21", "--days", "2"}, "", Locale("", "C.UTF-8"));
    EXPECT_EQ(utf8.out,
              "Date and time (UTC)  Phase     Lit     Moon                 Module\n"
              "2024-06-21 00:00:00  166.95\xC2\xB0   98.6%   \xF0\x9F\x8C\x94 waxing gibbous    172.68\xC2\xB0\n"
              "2024-06-22 00:00:00  179.40\xC2\xB0   99.8%   \xF0\x9F\x8C\x95 full              184.87\xC2\xB0\n");
}

TEST(TimetoolCharset, ShowHasNoOtherByteAboveAscii) {
    for (const char* command : {"show", "sun", "moon", "convert"}) {
        const ToolRun run = RunTimetool({command, "2024-06-21"}, "", Locale("", "C"));
        ASSERT_EQ(run.status, 0) << command << ": " << run.err;
        for (const char c : run.out) ASSERT_LT(static_cast<unsigned char>(c), 0x80) << command << ":\n" << run.out;
    }
    const ToolRun show = RunTimetool({"show", "2024-06-21"}, "", Locale("", "C"));
    EXPECT_NE(show.out.find("Moon           166.95deg waxing gibbous @), 98.6% lit\n"), std::string::npos) << show.out;
}

TEST(TimetoolCharset, JsonStaysUtf8) {
    const ToolRun run = RunTimetool({"--ascii", "moon", "2024-06-21", "--json"}, "", Locale("", "C"));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(nlohmann::json::parse(run.out)["days"][0]["glyph"], "\xF0\x9F\x8C\x94");
}

TEST(TimetoolCharset, Latin1LocaleGetsAscii) {
    // A Latin-1 and a UTF-8 locale compiled into a folder of the test's own,
    // under names that do not tell their character set: only the locale's
    // codeset can decide.
    const TempDir locales;
    const std::string make = "localedef -i en_US -f ISO-8859-1 " + locales.path() + "/latin 2>/dev/null && " +
                             "localedef -i en_US -f UTF-8 " + locales.path() + "/wide 2>/dev/null";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "localedef cannot build en_US here";
    const std::string path = "LOCPATH=" + locales.path();
    const ToolRun latin =
        RunTimetool({"month", "2024-06"}, "", {kNoRegistry, path, "LC_ALL=", "LC_CTYPE=", "LANG=latin"});
    EXPECT_EQ(latin.out, kAsciiJune2024);
    const ToolRun wide =
        RunTimetool({"month", "2024-06"}, "", {kNoRegistry, path, "LC_ALL=", "LC_CTYPE=wide", "LANG=C"});
    EXPECT_EQ(wide.out, kUtf8June2024);
}

}  // namespace
