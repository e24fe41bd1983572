// The year view, the month defaults and --three, date steps in WHEN and
// `between`, run as a user runs timetool. Weekdays of the grids come from
// the date library (Gregorian and Julian) and libhdate (Hebrew); line
// widths are measured with the C library's wcswidth in a UTF-8 locale.
#include <date/date.h>
#include <date/julian.h>
#include <gtest/gtest.h>
#include <hdate.h>

#include <clocale>
#include <cwchar>
#include <functional>
#include <locale.h>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "tool_runner.h"

namespace {

using nlohmann::json;

constexpr long kUnixEpoch = 719165;

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Display columns of a UTF-8 line, as a terminal counts them.
int TerminalWidth(const std::string& line) {
    const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
    EXPECT_NE(utf8, static_cast<locale_t>(nullptr));
    const locale_t previous = uselocale(utf8);
    std::mbstate_t state{};
    const char* source = line.c_str();
    std::wstring wide(line.size() + 1, L'\0');
    const std::size_t count = std::mbsrtowcs(wide.data(), &source, wide.size(), &state);
    const int width = count == static_cast<std::size_t>(-1) ? -1 : wcswidth(wide.c_str(), count);
    uselocale(previous);
    freelocale(utf8);
    return width;
}

void ExpectAtMost80Columns(const std::string& text) {
    for (const std::string& line : Lines(text)) {
        const int width = TerminalWidth(line);
        EXPECT_GE(width, 0) << line;
        EXPECT_LE(width, 80) << line;
    }
}

// One month of a year view as printed: its title and each day number with
// the column it stands in.
struct PrintedMonth {
    std::string title;
    std::vector<std::pair<int, int>> days;  // day number, column [0, 6]
};

// The grids of a year view: the year title, then rows of up to three grids
// of 20 columns two apart, each row after a blank line.
std::vector<PrintedMonth> ParseYearView(const std::string& text) {
    std::vector<PrintedMonth> months;
    const std::vector<std::string> lines = Lines(text);
    std::size_t i = 1;
    while (i < lines.size()) {
        EXPECT_EQ(lines[i], "");
        ++i;
        const std::size_t first = months.size();
        for (std::size_t grid = 0; grid < 3; ++grid) {
            const std::size_t offset = grid * 22;
            if (lines[i].size() <= offset) break;
            months.push_back(PrintedMonth{Trimmed(lines[i].substr(offset, 20)), {}});
        }
        i += 2;  // titles and weekday header
        for (; i < lines.size() && !lines[i].empty(); ++i) {
            for (std::size_t grid = 0; first + grid < months.size(); ++grid) {
                for (int column = 0; column < 7; ++column) {
                    const std::size_t at = grid * 22 + static_cast<std::size_t>(column) * 3;
                    if (lines[i].size() <= at) continue;
                    const std::string cell = Trimmed(lines[i].substr(at, 2));
                    if (!cell.empty()) months[first + grid].days.emplace_back(std::stoi(cell), column);
                }
            }
        }
    }
    return months;
}

// What a month must hold: its title and each day with its weekday (0 = Sunday).
struct ExpectedMonth {
    std::string title;
    std::vector<std::pair<int, int>> days;
};

void ExpectYearView(const std::string& text, const std::vector<ExpectedMonth>& expected, int firstWeekday) {
    const std::vector<PrintedMonth> printed = ParseYearView(text);
    ASSERT_EQ(printed.size(), expected.size());
    for (std::size_t m = 0; m < expected.size(); ++m) {
        EXPECT_EQ(printed[m].title, expected[m].title);
        ASSERT_EQ(printed[m].days.size(), expected[m].days.size()) << expected[m].title;
        for (std::size_t d = 0; d < expected[m].days.size(); ++d) {
            EXPECT_EQ(printed[m].days[d].first, expected[m].days[d].first) << expected[m].title;
            EXPECT_EQ(printed[m].days[d].second, (expected[m].days[d].second - firstWeekday + 7) % 7)
                << expected[m].title << " " << expected[m].days[d].first;
        }
    }
    ExpectAtMost80Columns(text);
}

const std::vector<std::string> kMonthNames{"January", "February", "March",     "April",   "May",      "June",
                                           "July",    "August",   "September", "October", "November", "December"};

std::vector<ExpectedMonth> GregorianYear(int year) {
    std::vector<ExpectedMonth> months;
    for (unsigned month = 1; month <= 12; ++month) {
        ExpectedMonth expected{kMonthNames[month - 1], {}};
        const date::year_month_day_last last{date::year{year}, date::month{month} / date::last};
        for (unsigned day = 1; day <= static_cast<unsigned>(last.day()); ++day) {
            const date::sys_days days{date::year{year} / date::month{month} / date::day{day}};
            expected.days.emplace_back(static_cast<int>(day), static_cast<int>(date::weekday{days}.c_encoding()));
        }
        months.push_back(expected);
    }
    return months;
}

std::vector<ExpectedMonth> JulianYear(int year) {
    std::vector<ExpectedMonth> months;
    for (unsigned month = 1; month <= 12; ++month) {
        ExpectedMonth expected{kMonthNames[month - 1], {}};
        const julian::year_month_day_last last{julian::year{year}, julian::month{month} / julian::last};
        for (unsigned day = 1; day <= static_cast<unsigned>(last.day()); ++day) {
            const date::sys_days days{julian::year{year} / julian::month{month} / julian::day{day}};
            expected.days.emplace_back(static_cast<int>(day), static_cast<int>(date::weekday{days}.c_encoding()));
        }
        months.push_back(expected);
    }
    return months;
}

// libhdate numbers months from Tishri (1) to Elul (12), Adar I and II being
// 13 and 14; its weekdays run from 1 = Sunday.
std::vector<ExpectedMonth> HebrewYear(int year, bool leap) {
    const std::vector<std::pair<int, std::string>> order =
        leap ? std::vector<std::pair<int, std::string>>{{1, "Tishri"}, {2, "Heshvan"}, {3, "Kislev"},   {4, "Tevet"},
                                                        {5, "Shevat"}, {13, "Adar I"}, {14, "Adar II"}, {7, "Nisan"},
                                                        {8, "Iyar"},   {9, "Sivan"},   {10, "Tammuz"},  {11, "Av"},
                                                        {12, "Elul"}}
             : std::vector<std::pair<int, std::string>>{{1, "Tishri"}, {2, "Heshvan"}, {3, "Kislev"}, {4, "Tevet"},
                                                        {5, "Shevat"}, {6, "Adar"},    {7, "Nisan"},  {8, "Iyar"},
                                                        {9, "Sivan"},  {10, "Tammuz"}, {11, "Av"},    {12, "Elul"}};
    std::vector<ExpectedMonth> months;
    for (const auto& [month, name] : order) {
        ExpectedMonth expected{name, {}};
        for (int day = 1; day <= 30; ++day) {
            hdate_struct hebrew{};
            hdate_set_hdate(&hebrew, day, month, year);
            hdate_struct back{};
            hdate_set_jd(&back, hebrew.hd_jd);
            if (back.hd_mon != month || back.hd_day != day) break;
            expected.days.emplace_back(day, hebrew.hd_dw - 1);
        }
        months.push_back(expected);
    }
    return months;
}

TEST(TimetoolYear, GregorianGridsHoldEveryDayUnderItsWeekday) {
    for (int year : {2024, 1900, 2000, 2023}) {
        const ToolRun run = RunTimetool({"year", std::to_string(year)});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(Lines(run.out).front(), std::string(30, ' ') + std::to_string(year));
        ExpectYearView(run.out, GregorianYear(year), 0);
    }
}

TEST(TimetoolYear, MondayStartsTheWeek) {
    const ToolRun run = RunTimetool({"year", "2024", "--monday"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Lines(run.out)[3], "Mo Tu We Th Fr Sa Su  Mo Tu We Th Fr Sa Su  Mo Tu We Th Fr Sa Su");
    ExpectYearView(run.out, GregorianYear(2024), 1);
}

TEST(TimetoolYear, JulianGrids) {
    const ToolRun run = RunTimetool({"year", "2024", "--calendar", "julian"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Trimmed(Lines(run.out).front()), "Julian 2024");
    ExpectYearView(run.out, JulianYear(2024), 0);
}

TEST(TimetoolYear, Western1582SkipsTheTenReformDays) {
    const ToolRun run = RunTimetool({"year", "1582", "--from", "western"});
    ASSERT_EQ(run.status, 0) << run.err;
    std::vector<ExpectedMonth> expected = JulianYear(1582);
    const std::vector<ExpectedMonth> gregorian = GregorianYear(1582);
    expected[9].days.resize(4);  // 1 to 4 October, Julian
    for (std::size_t day = 14; day < 31; ++day) expected[9].days.push_back(gregorian[9].days[day]);
    expected[10] = gregorian[10];
    expected[11] = gregorian[11];
    ExpectYearView(run.out, expected, 0);
    EXPECT_NE(run.out.find("\n    1  2  3  4 15 16      1  2  3  4  5  6            1  2  3  4\n"), std::string::npos);
}

TEST(TimetoolYear, HebrewLeapYearRunsFromTishriToElulWithBothAdars) {
    const ToolRun run = RunTimetool({"year", "5784", "--calendar", "hebrew"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Trimmed(Lines(run.out).front()), "Hebrew 5784");
    ExpectYearView(run.out, HebrewYear(5784, true), 0);
}

TEST(TimetoolYear, HebrewCommonYearHasOneAdar) {
    const ToolRun run = RunTimetool({"year", "5785", "--calendar", "hebrew", "--monday"});
    ASSERT_EQ(run.status, 0) << run.err;
    ExpectYearView(run.out, HebrewYear(5785, false), 1);
}

TEST(TimetoolYear, ModuleCalendarsAreLabelled) {
    const ToolRun run = RunTimetool({"year", "2024", "--calendar", "adam"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Trimmed(Lines(run.out).front()), "Adam 2024 (the module's own calendar)");
    ExpectAtMost80Columns(run.out);
}

TEST(TimetoolYear, WithoutAYearShowsTheCurrentOne) {
    const ToolRun run = RunTimetool({"--now", "2024-06-21T17:54", "year"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, RunTimetool({"year", "2024"}).out);
    const ToolRun hebrew = RunTimetool({"year", "--calendar", "hebrew"}, "", {kNoRegistry, "TIMETOOL_NOW=2024-06-21"});
    EXPECT_EQ(Trimmed(Lines(hebrew.out).front()), "Hebrew 5784");
}

TEST(TimetoolYear, JsonListsTheMonthObjects) {
    const ToolRun run = RunTimetool({"year", "5784", "--calendar", "hebrew", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("calendar"), "hebrew");
    EXPECT_EQ(doc.at("year"), 5784);
    ASSERT_EQ(doc.at("months").size(), 13U);
    EXPECT_EQ(doc.at("months")[0].at("title"), "Tishri 5784");
    EXPECT_EQ(doc.at("months")[5].at("title"), "Adar I 5784");
    EXPECT_EQ(doc.at("months")[5].at("month"), 12);
    EXPECT_EQ(doc.at("months")[6].at("month"), 13);
    EXPECT_EQ(doc.at("months")[12].at("month"), 6);
    // 1 Tishri 5784 is Saturday 16 September 2023.
    EXPECT_EQ(doc.at("months")[0].at("days")[0].at("weekday"), 6);
    EXPECT_EQ(doc.at("months")[0].at("days")[0].at("star_date"), 738781.0);
}

TEST(TimetoolYear, RefusalsExitWith2) {
    for (const std::vector<std::string>& args :
         std::vector<std::vector<std::string>>{{"year", "40000"},
                                               {"year", "20x4"},
                                               {"year", "0", "--calendar", "hebrew"},
                                               {"year", "-32767", "--calendar", "julian"},
                                               {"year", "2024", "--calendar", "x"}}) {
        const ToolRun run = RunTimetool(args);
        EXPECT_EQ(run.status, 2) << args[1];
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(Lines(run.err).size(), 1U) << run.err;
    }
    EXPECT_EQ(RunTimetool({"year", "40000"}).err, "timetool: bad YEAR '40000': out of range (-32767 to 32767)\n");
}

TEST(TimetoolMonth, WithoutAMonthShowsTheCurrentOne) {
    const ToolRun run = RunTimetool({"--now", "2024-06-21T17:54", "month"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, RunTimetool({"month", "2024-06"}).out);
    const ToolRun hebrew = RunTimetool({"month", "--from", "hebrew"}, "", {kNoRegistry, "TIMETOOL_NOW=2024-06-21"});
    EXPECT_EQ(hebrew.out, RunTimetool({"month", "5784-Sivan", "--calendar", "hebrew"}).out);
}

TEST(TimetoolMonth, ThreeMonthsSideBySide) {
    const ToolRun run = RunTimetool({"--now", "2024-06-21", "month", "--three"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "      May 2024             June 2024             July 2024\n"
              "Su Mo Tu We Th Fr Sa  Su Mo Tu We Th Fr Sa  Su Mo Tu We Th Fr Sa\n"
              "          1  2  3  4                     1      1  2  3  4  5  6\n"
              " 5  6  7  8  9 10 11   2  3  4  5  6  7  8   7  8  9 10 11 12 13\n"
              "12 13 14 15 16 17 18   9 10 11 12 13 14 15  14 15 16 17 18 19 20\n"
              "19 20 21 22 23 24 25  16 17 18 19 20 21 22  21 22 23 24 25 26 27\n"
              "26 27 28 29 30 31     23 24 25 26 27 28 29  28 29 30 31\n"
              "                      30\n");
    ExpectAtMost80Columns(run.out);
}

TEST(TimetoolMonth, ThreeHebrewMonthsAcrossTheYearEnd) {
    const ToolRun run = RunTimetool({"month", "5785-Tishri", "--calendar", "hebrew", "--three", "--monday"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Lines(run.out)[0], "     Elul 5784            Tishri 5785           Heshvan 5785");
    EXPECT_EQ(Lines(run.out)[1], "Mo Tu We Th Fr Sa Su  Mo Tu We Th Fr Sa Su  Mo Tu We Th Fr Sa Su");
    ExpectAtMost80Columns(run.out);
}

TEST(TimetoolMonth, MondayFirstGridKeepsTheMoonGlyphs) {
    const ToolRun run = RunTimetool({"month", "2024-06", "--monday"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::vector<std::string> lines = Lines(run.out);
    EXPECT_EQ(lines[1], "Mo   Tu   We   Th   Fr   Sa   Su");
    EXPECT_EQ(lines[2].substr(0, 27), std::string(25, ' ') + " 1");
    EXPECT_EQ(lines.size(), 7U);
    ExpectAtMost80Columns(run.out);
}

TEST(TimetoolMonth, ThreeAsJson) {
    const ToolRun run = RunTimetool({"month", "1582-10", "--calendar", "western", "--three", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("calendar"), "western");
    ASSERT_EQ(doc.at("months").size(), 3U);
    EXPECT_EQ(doc.at("months")[0].at("title"), "September 1582");
    EXPECT_EQ(doc.at("months")[1].at("days").size(), 21U);
    EXPECT_EQ(doc.at("months")[2].at("title"), "November 1582");
}

TEST(TimetoolMonth, ThreeAtTheEndOfTheShownYearsExitsWith2) {
    const ToolRun run = RunTimetool({"month", "32767-12", "--three"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "timetool: the month after December 32767 is outside the years timetool shows\n");
}

std::string GregorianLine(const std::vector<std::string>& args) {
    std::vector<std::string> full = {"convert"};
    full.insert(full.end(), args.begin(), args.end());
    full.insert(full.end(), {"--to", "gregorian"});
    const ToolRun run = RunTimetool(full, "", {kNoRegistry, "TIMETOOL_NOW=2024-06-21T10:00"});
    EXPECT_EQ(run.status, 0) << run.err;
    return Lines(run.out).size() == 2 ? Lines(run.out)[1] : run.out;
}

TEST(TimetoolSteps, WorkedExamples) {
    EXPECT_EQ(GregorianLine({"2024-06-21+40d"}), "Gregorian      31 July 2024");
    EXPECT_EQ(GregorianLine({"today-3w"}), "Gregorian      31 May 2024");
    EXPECT_EQ(GregorianLine({"2024-01-31+1m"}), "Gregorian      29 February 2024");
    EXPECT_EQ(GregorianLine({"2024-01-31+1m+1m"}), "Gregorian      29 March 2024");
    EXPECT_EQ(GregorianLine({"2024-01-31+2m"}), "Gregorian      31 March 2024");
    EXPECT_EQ(GregorianLine({"1582-09-10+1m", "--from", "western"}), "Gregorian      15 October 1582");
    EXPECT_EQ(GregorianLine({"5783-Adar-14+1y", "--from", "hebrew"}), "Gregorian      24 March 2024");
    EXPECT_EQ(GregorianLine({"sd:739060+1w"}), "Gregorian      28 June 2024");
}

TEST(TimetoolSteps, TheTimeOfDayIsKept) {
    const ToolRun run = RunTimetool({"show", "2024-01-31T17:54:30+1m", "--calendar", "gregorian"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(Lines(run.out)[0], "Instant        2024-02-29 17:54:30 UTC");
}

TEST(TimetoolSteps, RefusalsExitWith2) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"show", "32767-12-01+1m"},
         "timetool: bad WHEN '32767-12-01+1m': the result is outside the years timetool shows (Gregorian -32767 to "
         "32767)\n"},
        {{"show", "2024-06-21+123456789d"},
         "timetool: bad WHEN '2024-06-21+123456789d': step count too large (at "
         "most 8 digits)\n"},
        {{"convert", "+3d"}, "timetool: bad WHEN '+3d': a step needs an instant before it (as in today+3d)\n"},
        {{"convert", "2024-06-21+1m", "--from", "hebrew1"},
         "timetool: bad WHEN '2024-06-21+1m': the module's mean Hebrew calendar (hebrew1) counts no months or years "
         "here: step by days or weeks, or read the date with --from hebrew\n"},
    };
    for (const auto& [args, message] : cases) {
        const ToolRun run = RunTimetool(args);
        EXPECT_EQ(run.status, 2) << args[1];
        EXPECT_EQ(run.err, message);
    }
}

TEST(TimetoolBetween, WorkedExampleAsText) {
    const ToolRun run = RunTimetool({"between", "2024-01-31", "2024-03-01T12:00"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "From           2024-01-31 00:00:00 UTC (31 January 2024)\n"
              "To             2024-03-01 12:00:00 UTC (1 March 2024)\n"
              "Days           30 and 12:00:00\n"
              "Weeks          4 weeks and 2 days\n"
              "Months         1 month and 1 day (Gregorian)\n"
              "Years          0 years and 30 days (Gregorian)\n");
}

TEST(TimetoolBetween, NegativeWhenTheSecondIsEarlierAndCountedInHebrew) {
    const ToolRun run = RunTimetool({"between", "2024-06-21", "2023-09-16", "--calendar", "hebrew"});
    ASSERT_EQ(run.status, 0) << run.err;
    // 1 Tishri 5784 to 15 Sivan 5784: Sivan is the tenth month of a leap year.
    EXPECT_EQ(run.out,
              "From           2024-06-21 00:00:00 UTC (15 Sivan 5784)\n"
              "To             2023-09-16 00:00:00 UTC (1 Tishri 5784)\n"
              "Days           -279\n"
              "Weeks          -39 weeks and -6 days\n"
              "Months         -9 months and -14 days (Hebrew)\n"
              "Years          0 years and -279 days (Hebrew)\n");
}

TEST(TimetoolBetween, JsonDaysAgreeWithTheDateLibraryOverRandomPairs) {
    std::mt19937 random(17);
    std::uniform_int_distribution<int> years(-9999, 9999);
    std::uniform_int_distribution<unsigned> months(1, 12);
    std::uniform_int_distribution<unsigned> days(1, 28);
    for (int i = 0; i < 6; ++i) {
        const date::year_month_day a{date::year{years(random)}, date::month{months(random)}, date::day{days(random)}};
        const date::year_month_day b{date::year{years(random)}, date::month{months(random)}, date::day{days(random)}};
        const auto iso = [](const date::year_month_day& ymd) {
            const int y = static_cast<int>(ymd.year());
            char text[32];
            std::snprintf(text, sizeof text, "%d-%02u-%02u", y, static_cast<unsigned>(ymd.month()),
                          static_cast<unsigned>(ymd.day()));
            return std::string(text);
        };
        const ToolRun run = RunTimetool({"between", iso(a), iso(b), "--json"});
        ASSERT_EQ(run.status, 0) << run.err;
        const json doc = json::parse(run.out);
        const long expected = (date::sys_days{b} - date::sys_days{a}).count();
        EXPECT_EQ(doc.at("days"), expected) << iso(a) << " " << iso(b);
        EXPECT_EQ(doc.at("weeks"), expected / 7);
        EXPECT_EQ(doc.at("weeks_days"), expected % 7);
        EXPECT_EQ(doc.at("seconds"), 0);
        EXPECT_EQ(doc.at("first").at("star_date"),
                  static_cast<double>(date::sys_days{a}.time_since_epoch().count() + kUnixEpoch));
    }
}

TEST(TimetoolBetween, JsonKeys) {
    const ToolRun run = RunTimetool({"between", "2024-01-31", "2024-03-01", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const json doc = json::parse(run.out);
    EXPECT_EQ(doc.at("schema"), 3);
    EXPECT_EQ(doc.at("from"), "gregorian");
    EXPECT_EQ(doc.at("calendar"), "gregorian");
    EXPECT_EQ(doc.at("first").at("utc"), "2024-01-31T00:00:00Z");
    EXPECT_EQ(doc.at("second").at("date").at("text"), "1 March 2024");
    EXPECT_EQ(doc.at("days"), 30);
    EXPECT_EQ(doc.at("months"), 1);
    EXPECT_EQ(doc.at("months_days"), 1);
    EXPECT_EQ(doc.at("years"), 0);
    EXPECT_EQ(doc.at("years_days"), 30);
    EXPECT_EQ(doc.at("reason"), nullptr);
    const json mean =
        json::parse(RunTimetool({"between", "2024-01-31", "2024-03-01", "--calendar", "hebrew1", "--json"}).out);
    EXPECT_EQ(mean.at("days"), 30);
    EXPECT_EQ(mean.at("months"), nullptr);
    EXPECT_EQ(mean.at("reason"), "the module's mean Hebrew calendar (hebrew1) counts no months or years here");
}

TEST(TimetoolBetween, RefusalsExitWith2) {
    const ToolRun beyond = RunTimetool({"between", "2024-01-01", "32767-12-31+1d"});
    EXPECT_EQ(beyond.status, 2);
    EXPECT_EQ(beyond.err,
              "timetool: bad WHEN '32767-12-31+1d': the result is outside the years timetool shows "
              "(Gregorian -32767 to 32767)\n");
    EXPECT_EQ(RunTimetool({"between", "2024-01-01"}).status, 2);
    EXPECT_EQ(RunTimetool({"between", "2024-01-01", "2024-02-30"}).status, 2);
}

}  // namespace
