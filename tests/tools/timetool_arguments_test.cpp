// How the built timetool reads numbers and option values, and how it echoes
// an argument it refuses: decimal only, ranges named, nothing empty, control
// characters escaped, long arguments cut.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tool_runner.h"

namespace {

constexpr const char* kEllipsis = "\xE2\x80\xA6";

// The number of lines of `text`.
std::size_t LineCount(const std::string& text) {
    std::size_t lines = 0;
    for (char c : text) lines += c == '\n' ? 1 : 0;
    return lines;
}

struct Refusal {
    std::vector<std::string> args;
    std::string message;
};

void ExpectRefused(const Refusal& refusal) {
    const ToolRun run = RunTimetool(refusal.args);
    EXPECT_EQ(run.status, 2) << refusal.message;
    EXPECT_EQ(run.out, "") << refusal.message;
    EXPECT_EQ(run.err, refusal.message + "\n");
}

TEST(TimetoolNumbers, ALeadingZeroIsStillDecimal) {
    // Ten days, not eight: "010" is never octal.
    const ToolRun sun = RunTimetool({"sun", "2024-06-21", "--days", "010"});
    ASSERT_EQ(sun.status, 0) << sun.err;
    EXPECT_EQ(LineCount(sun.out), 2u + 10u);
    EXPECT_EQ(sun.out, RunTimetool({"sun", "2024-06-21", "--days", "10"}).out);

    const ToolRun moon = RunTimetool({"moon", "2024-06-21", "--days", "+0003"});
    ASSERT_EQ(moon.status, 0) << moon.err;
    EXPECT_EQ(LineCount(moon.out), 1u + 3u);

    // A window of capacity ten holds the last ten of eleven values.
    const ToolRun window = RunTimetool({"window", "010"}, "1 2 3 4 5 6 7 8 9 11 12");
    ASSERT_EQ(window.status, 0) << window.err;
    EXPECT_EQ(window.out.substr(window.out.rfind('\n', window.out.size() - 2) + 1), "2 3 4 5 6 7 8 9 11 12\n");

    const ToolRun place = RunTimetool({"sun", "2024-06-21", "--lat", "010", "--lon", "-010.5"});
    ASSERT_EQ(place.status, 0) << place.err;
    EXPECT_EQ(place.out.substr(0, place.out.find('\n')),
              "Sun at 10 N, 10.5 W, UTC (+1: on the next day, -1: on the day before)");
}

TEST(TimetoolNumbers, CountsAreDecimalDigitsAndNothingElse) {
    const char* range = " (1 to 3660)";
    for (const char* text : {"0x10", "0X10", "010x", "1e3", "1.0", "1,000", " 5", "5 ", "\t5", "5\n", "+", "-", "--5",
                             "five", "\xD9\xA5"}) {
        ExpectRefused({{"sun", "2024-06-21", "--days", text},
                       "timetool: bad --days " +
                           std::string(text[0] == '\t'   ? "'\\t5'"
                                       : text[1] == '\n' ? "'5\\n'"
                                                         : "'" + std::string(text) + "'") +
                           ": not a whole number in decimal" + range});
    }
    ExpectRefused({{"window", "0x10"}, "timetool: bad N '0x10': not a whole number in decimal (1 to 1000000)"});
    ExpectRefused({{"window", "1000000 "}, "timetool: bad N '1000000 ': not a whole number in decimal (1 to 1000000)"});
}

TEST(TimetoolNumbers, AValueOutOfRangeNamesTheRangeWhateverItsSize) {
    ExpectRefused({{"moon", "2024-06-21", "--days", "3661"}, "timetool: bad --days '3661': out of range (1 to 3660)"});
    ExpectRefused({{"moon", "2024-06-21", "--days", "-1"}, "timetool: bad --days '-1': out of range (1 to 3660)"});
    ExpectRefused({{"moon", "2024-06-21", "--days", "99999999999999999999"},
                   "timetool: bad --days '99999999999999999999': out of range (1 to 3660)"});
    ExpectRefused({{"moon", "2024-06-21", "--days", "-99999999999999999999"},
                   "timetool: bad --days '-99999999999999999999': out of range (1 to 3660)"});
    ExpectRefused(
        {{"sun", "2024-06-21", "--days", "4294967297"}, "timetool: bad --days '4294967297': out of range (1 to 3660)"});
    ExpectRefused({{"window", "1000001"}, "timetool: bad N '1000001': out of range (1 to 1000000)"});
    ExpectRefused(
        {{"window", "99999999999999999999"}, "timetool: bad N '99999999999999999999': out of range (1 to 1000000)"});
    const ToolRun largest = RunTimetool({"window", "1000000"}, "1");
    EXPECT_EQ(largest.status, 0) << largest.err;
    EXPECT_EQ(largest.out, "1\n");
}

TEST(TimetoolNumbers, DegreesAreDecimalToo) {
    for (const char* text : {"0x10", "1e1", " 43", "43 ", "nan", "inf", "43.3.1", "N"}) {
        ExpectRefused({{"sun", "2024-06-21", "--lat", text},
                       "timetool: bad --lat '" + std::string(text) + "': not a number of degrees"});
    }
    ExpectRefused({{"sun", "2024-06-21", "--lon", "0x10E"}, "timetool: bad --lon '0x10E': not a number of degrees"});
    ExpectRefused(
        {{"sun", "2024-06-21", "--lon", "180.000001"}, "timetool: bad --lon '180.000001': out of range (-180 to 180)"});
}

TEST(TimetoolOptions, AnEmptyValueIsAnErrorNotTheDefault) {
    const std::vector<std::vector<std::string>> cases = {
        {"show", "2024-06-21", "--calendar", ""},
        {"show", "2024-06-21", "--from", ""},
        {"sun", "2024-06-21", "--lat", ""},
        {"sun", "2024-06-21", "--lon", ""},
        {"sun", "2024-06-21", "--days", ""},
        {"convert", "2024-06-21", "--to", ""},
        {"month", "2024-06", "--calendar", ""},
        {"save", "x.xml", "--from", ""},
        {"--now", ""},
        {"show", "--now", ""},
    };
    for (const std::vector<std::string>& args : cases) {
        const std::string& option = args.at(args.size() - 2);
        ExpectRefused({args, "timetool: empty " + option + ": give a value or leave the option out"});
    }
    // Written with "=", the value is just as empty.
    ExpectRefused({{"show", "2024-06-21", "--lat="}, "timetool: empty --lat: give a value or leave the option out"});
    ExpectRefused({{"sun", "2024-06-21", "--days="}, "timetool: empty --days: give a value or leave the option out"});
    // Not the next argument taken as the value.
    ExpectRefused({{"--tz=", "show"}, "timetool: empty --tz: give a value or leave the option out"});
    ExpectRefused({{"sun", "--lat=", "2024-06-21"}, "timetool: empty --lat: give a value or leave the option out"});
    // After "--" it is no option.
    ExpectRefused({{"show", "--", "--lat="}, "timetool: bad WHEN '--lat=': expected YYYY-MM-DD"});
}

TEST(TimetoolOptions, AnOptionLastWithoutItsValueIsNamed) {
    ExpectRefused({{"sun", "2024-06-21", "--days"}, "timetool: --days needs a value"});
    ExpectRefused({{"show", "2024-06-21", "--calendar"}, "timetool: --calendar needs a value"});
    ExpectRefused({{"window", "3", "--stat"}, "timetool: --stat needs a value"});
}

TEST(TimetoolEcho, ControlCharactersInAnEchoedArgumentAreEscaped) {
    ExpectRefused({{"show", "\x1b]0;owned\x07"}, "timetool: bad WHEN '\\x1b]0;owned\\x07': expected YYYY-MM-DD"});
    ExpectRefused({{"\x1b[2J"},
                   "timetool: unknown command '\\x1b[2J' (show, convert, sun, moon, month, year, between, save, load, "
                   "window; --help lists them)"});
    ExpectRefused({{"show", "2024-06-21", "--calendar", "gregorian\n"},
                   "timetool: unknown calendar 'gregorian\\n' for --calendar (gregorian, julian, western, hebrew1, "
                   "hebrew, adam, generic or 0 to 6)"});
    ExpectRefused({{"sun", "2024-06-21", "--lat", "4\r3"}, "timetool: bad --lat '4\\r3': not a number of degrees"});
    ExpectRefused({{"sun", "2024-06-21", "--days",
                    "\xC2\x9B"
                    "1m"},
                   "timetool: bad --days '\\u009b1m': not a whole number in decimal (1 to 3660)"});
    ExpectRefused({{"month", "2024-\x07"}, "timetool: bad YEAR-MONTH '2024-\\x07': expected YYYY-MM"});
    ExpectRefused({{"show", "--now", "\x1b"}, "timetool: bad --now '\\x1b': expected YYYY-MM-DD"});
    ExpectRefused({{"load", "/nonexistent/\x1b[31mtime.xml"},
                   "timetool: cannot read FILE '/nonexistent/\\x1b[31mtime.xml': No such file or directory"});

    const ToolRun input = RunTimetool({"window", "2"}, "1 \x1b[31m");
    EXPECT_EQ(input.status, 2);
    EXPECT_EQ(input.err, "timetool: bad number '\\x1b[31m' on standard input\n");

    // The parser's own messages are escaped as well.
    const ToolRun extra = RunTimetool({"show", "2024-06-21", "extra\x1b"});
    EXPECT_EQ(extra.status, 2);
    EXPECT_EQ(extra.err.find('\x1b'), std::string::npos);
    EXPECT_NE(extra.err.find("extra\\x1b"), std::string::npos) << extra.err;
}

TEST(TimetoolEcho, LongArgumentsAreCut) {
    // As long as one argument may be (the kernel takes up to 128 KiB).
    const std::string huge(100000, '7');
    const std::string shown = "'" + std::string(64, '7') + kEllipsis + "'";
    ExpectRefused({{"show", huge}, "timetool: bad WHEN " + shown + ": expected YYYY-MM-DD"});
    ExpectRefused(
        {{"sun", "2024-06-21", "--days", huge}, "timetool: bad --days " + shown + ": out of range (1 to 3660)"});
    ExpectRefused(
        {{"sun", "2024-06-21", "--lat", huge}, "timetool: bad --lat " + shown + ": out of range (-90 to 90)"});
    ExpectRefused({{"convert", "2024-06-21", "--to", huge},
                   "timetool: unknown calendar " + shown +
                       " for --to (gregorian, julian, western, hebrew1, hebrew, adam, generic or 0 to 6)"});
    const ToolRun word = RunTimetool({"window", "2"}, huge + "x");
    EXPECT_EQ(word.status, 2);
    EXPECT_EQ(word.err, "timetool: bad number " + shown + " on standard input\n");
    // The parser's message about an unexpected argument stays short too.
    const ToolRun extra = RunTimetool({"show", "2024-06-21", huge});
    EXPECT_EQ(extra.status, 2);
    EXPECT_LT(extra.err.size(), 300u) << extra.err.substr(0, 300);
}

}  // namespace
