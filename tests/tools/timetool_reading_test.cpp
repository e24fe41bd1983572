// timetool's reading and showing of dates, in process with the module loaded
// as the tool loads it. Expected days and dates come from published
// calendars (15 Sivan 5784 is 21 June 2024, Purim 5784 is 24 March 2024),
// the module's worked examples (its SetDate reads 15 Sivan 5784 as a day of
// 28 September 2023; 31 December 1900 comes back as day 1 of month 13; BC
// dates and their day numbers part by a day; kind 2 reads a date with
// Gregorian rules) and the date library.
#include <date/date.h>
#include <date/julian.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "calendar_line.h"
#include "instant_output.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {
namespace {

constexpr StarDay kUnixEpoch = 719165;
constexpr const char* kModuleFolder = CAL_BUILD_DIR "/_binlinux";

StarDay GregorianDay(int year, unsigned month, unsigned day) {
    return date::sys_days{date::year{year} / static_cast<int>(month) / static_cast<int>(day)}
               .time_since_epoch()
               .count() +
           kUnixEpoch;
}

StarDay JulianDay(int year, unsigned month, unsigned day) {
    const julian::year_month_day ymd{julian::year{year}, julian::month{month}, julian::day{day}};
    return date::sys_days{ymd}.time_since_epoch().count() + kUnixEpoch;
}

// The Adam and Generic calendars read no registry: a file that does not
// exist, in a folder of the test's own.
class NoRegistry {
public:
    NoRegistry() {
        std::string pattern = (std::filesystem::temp_directory_path() / "timetool-reading-XXXXXX").string();
        if (mkdtemp(pattern.data())) folder_ = pattern;
        setenv("CALENDAR_REGISTRY", (folder_ + "/registry.ini").c_str(), 1);
    }
    ~NoRegistry() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    NoRegistry(const NoRegistry&) = delete;
    NoRegistry& operator=(const NoRegistry&) = delete;

private:
    std::string folder_;
};

class TimetoolReading : public ::testing::Test {
protected:
    TimetoolReading() : context_(kModuleFolder, "") {}

    double Read(const std::string& text, int kind) { return context_.reader().StarDate(text, kind); }

    // The one line a refused WHEN prints.
    std::string Refusal(const std::string& text, int kind) {
        try {
            Read(text, kind);
        } catch (const ToolError& e) {
            EXPECT_EQ(e.status, 2) << text;
            return e.message;
        }
        return "accepted";
    }

    CalendarLine Line(int kind, StarDay day) { return DescribeCalendarDay(context_.dates(), kind, day); }

    NoRegistry registry_;
    ToolContext context_;
};

TEST_F(TimetoolReading, HebrewDatesLandOnTheirDayByNumberAndByName) {
    const StarDay solstice = GregorianDay(2024, 6, 21);
    EXPECT_EQ(Read("5784-03-15", 4), solstice);
    EXPECT_EQ(Read("5784-Sivan-15", 4), solstice);
    EXPECT_EQ(Read("5784-sivan-15T12:00", 4), solstice + 0.5);
    EXPECT_EQ(Read("5784-Adar II-14", 4), GregorianDay(2024, 3, 24));  // Purim
    EXPECT_EQ(Read("5784-13-14", 4), GregorianDay(2024, 3, 24));
    EXPECT_EQ(Read("5784-Adar I-14", 4), GregorianDay(2024, 2, 23));  // Purim Katan
    EXPECT_EQ(Read("5783-Adar-14", 4), GregorianDay(2023, 3, 7));
    EXPECT_EQ(Read("5784-Tishri-01", 4), GregorianDay(2023, 9, 16));
    EXPECT_EQ(Read("1-Tishri-01", 4), JulianDay(-3760, 10, 7));  // the epoch, 7 October 3761 BC
}

TEST_F(TimetoolReading, BcDatesLandOnTheDayTheDateLibraryGives) {
    EXPECT_EQ(Read("-43-03-15", 0), GregorianDay(-43, 3, 15));
    EXPECT_EQ(Read("-43-03-15", 1), JulianDay(-43, 3, 15));
    EXPECT_EQ(Read("0-12-31", 0), 2);  // 31 December 1 BC, the day before 1 January AD 1 (day 3)
    EXPECT_EQ(Read("0-12-31", 1), 0);
    EXPECT_EQ(Read("-1-01-01", 0), GregorianDay(-1, 1, 1));
    EXPECT_EQ(Read("-32767-01-01", 0), GregorianDay(-32767, 1, 1));
}

TEST_F(TimetoolReading, WesternDatesFollowTheReform) {
    EXPECT_EQ(Read("1582-10-04", 2), 577737);
    EXPECT_EQ(Read("1582-10-15", 2), 577738);
    EXPECT_EQ(Read("1582-10-04", 0), 577727);
    EXPECT_EQ(Read("1500-02-29", 2), JulianDay(1500, 2, 29));
}

TEST_F(TimetoolReading, TheModulesOwnCalendarsLandOnTheDayTheyName) {
    // Without a registry epoch Adam and Generic run three days ahead.
    EXPECT_EQ(Read("2024-06-24", 5), GregorianDay(2024, 6, 21));
    EXPECT_EQ(Read("2024-06-24", 6), GregorianDay(2024, 6, 21));
    // The mean Hebrew calendar's SetDate reads day and year only; the day
    // found is the one whose date in that calendar is the one given.
    const double day = Read("5784-03-15", 3);
    const CalendarLine line = Line(3, static_cast<StarDay>(day));
    ASSERT_TRUE(line.date);
    EXPECT_EQ(*line.date, (CivilDate{5784, 3, 15}));
    EXPECT_TRUE(line.moduleCalendar);
}

TEST_F(TimetoolReading, NumberedInstantsAndTimesOfDay) {
    EXPECT_EQ(Read("sd:739060.5", 0), 739060.5);
    EXPECT_EQ(Read("jd:2451544.5", 0), 730122.0);
    EXPECT_EQ(Read("@1718928000", 0), 739060.0);
    EXPECT_EQ(Read("2024-06-21T18:00", 0), 739060.75);
    EXPECT_EQ(Read("1999-12-19T06:00", 1), 730122.25);
    EXPECT_EQ(FormatUtcText(SplitStarDate(Read("2066-04-04T15:01:57", 0))), "2066-04-04 15:01:57");
    EXPECT_EQ(FormatUtcText(SplitStarDate(Read("@-1", 0))), "1969-12-31 23:59:59");
}

TEST_F(TimetoolReading, AFixedNowStandsInForNowAndToday) {
    ToolContext fixed(kModuleFolder, "2024-06-21T17:54:30");
    EXPECT_EQ(fixed.reader().StarDate("now", 0), 739060.0 + ((17 / 24.0 + 54 / 1440.0) + 30 / 86400.0));
    EXPECT_EQ(fixed.reader().StarDate("today", 4), 739060.0);
    ToolContext numbered(kModuleFolder, "@86400");
    EXPECT_EQ(numbered.reader().StarDate("now", 0), 719166.0);
}

TEST_F(TimetoolReading, EveryRefusedDateClassSaysWhy) {
    const struct {
        const char* text;
        int kind;
        const char* message;
    } cases[] = {
        {"5784-02-30", 4, "Iyar 5784 has 29 days"},
        {"5783-13-01", 4, "5783 has no Adar II (a 12-month year)"},
        {"5784-Adar-01", 4, "Adar is ambiguous in 5784, a leap year: name Adar I or Adar II"},
        {"1582-10-10", 2,
         "5 to 14 October 1582 do not exist in the Western calendar (4 October was followed by 15 October)"},
        {"2023-02-29", 0, "February 2023 has 28 days"},
        {"2024-00-10", 0, "there is no month 0 (months count from 1)"},
        {"2024-06-00", 1, "there is no day 0 (days count from 1)"},
        {"2024-06-21T23:59:60", 0, "second out of range (below 60: no leap seconds are counted)"},
        {"0-07-01", 4, "before the Hebrew epoch (the Hebrew calendar starts with year 1)"},
        {"32767-12-31", 1, "outside the years timetool shows (Gregorian -32767 to 32767)"},
        {"sd:12000000", 0, "outside the years timetool shows (Gregorian -32767 to 32767)"},
        {"2024-Sivan-01", 0, "month names are read in the Hebrew calendars only: give the month as a number"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Refusal(c.text, c.kind), "timetool: bad WHEN '" + std::string(c.text) + "': " + c.message);
    }
}

TEST_F(TimetoolReading, LinesSayWhereTheModulesGetDateDiffers) {
    const CalendarLine line = Line(0, 693962);  // 31 December 1900
    ASSERT_TRUE(line.date);
    EXPECT_EQ(*line.date, (CivilDate{1900, 12, 31}));
    EXPECT_TRUE(line.getDateDiffers);
    EXPECT_FALSE(line.setDateDiffers);
    EXPECT_EQ(line.module.month, 13);
    EXPECT_EQ(line.module.day, 1);
    EXPECT_EQ(CalendarLineText(line), "31 December 1900 (module's GetDate: 1 month 13 1900)");
    const Json json = CalendarJson(line);
    EXPECT_EQ(json.at("source"), "true");
    EXPECT_EQ(json.at("year"), 1900);
    EXPECT_EQ(json.at("month"), 12);
    EXPECT_EQ(json.at("day"), 31);
    EXPECT_EQ(json.at("module"),
              Json::parse(R"({"year":1900,"month":13,"day":1,"star_date":693962.0,"agrees":false})"));
}

TEST_F(TimetoolReading, LinesSayWhereTheModulesSetDateDiffers) {
    const CalendarLine hebrew = Line(4, GregorianDay(2024, 6, 21));
    ASSERT_TRUE(hebrew.date);
    EXPECT_EQ(*hebrew.date, (CivilDate{5784, 3, 15}));
    EXPECT_FALSE(hebrew.getDateDiffers);
    EXPECT_TRUE(hebrew.setDateDiffers);
    ASSERT_TRUE(hebrew.moduleStarDate);
    EXPECT_EQ(std::floor(*hebrew.moduleStarDate), GregorianDay(2023, 9, 28));
    EXPECT_EQ(CalendarLineText(hebrew), "15 Sivan 5784 (module's SetDate of it lands on 13 Tishri 5784)");

    const CalendarLine western = Line(2, 577737);  // 4 October 1582, read back with Gregorian rules
    EXPECT_EQ(CalendarLineText(western), "4 October 1582 (module's SetDate of it lands on 24 September 1582)");

    // Before AD 1 the module's two directions part: 15 March 44 BC turns
    // into its true day number and back into the 14th; 31 December 1 BC
    // turns into the day number of the 30th.
    const CalendarLine bc = Line(0, GregorianDay(-43, 3, 15));
    EXPECT_EQ(CalendarLineText(bc), "15 March 44 BC (module's GetDate: 14 March 44 BC)");
    EXPECT_EQ(CalendarJson(bc).at("year"), -43);
    EXPECT_EQ(CalendarJson(bc).at("module"),
              Json::parse(R"({"year":-44,"month":3,"day":14,"star_date":-15995.0,"agrees":false})"));
    EXPECT_EQ(CalendarLineText(Line(0, 2)), "31 December 1 BC (module's SetDate of it lands on 30 December 1 BC)");

    const CalendarLine agreeing = Line(1, GregorianDay(2024, 6, 21));
    EXPECT_EQ(CalendarLineText(agreeing), "8 June 2024");
    EXPECT_EQ(CalendarJson(agreeing).at("module").at("agrees"), true);
}

TEST_F(TimetoolReading, LinesOutsideTheirRangeSaySoAndNeverWrap) {
    const CalendarLine late = Line(4, LastShownDay());
    EXPECT_FALSE(late.date);
    EXPECT_EQ(CalendarLineText(late), "out of range: year outside -32767 to 32767");
    const Json json = CalendarJson(late);
    EXPECT_TRUE(json.at("year").is_null());
    EXPECT_TRUE(json.at("text").is_null());
    EXPECT_EQ(json.at("reason"), "year outside -32767 to 32767");

    const CalendarLine early = Line(4, FirstShownDay());
    EXPECT_EQ(CalendarLineText(early), "out of range: before the Hebrew epoch (1 Tishri 1 = 7 October 3761 BC)");
    EXPECT_EQ(CalendarLineText(Line(3, LastShownDay())), "out of range: year outside -32767 to 32767");
    EXPECT_EQ(CalendarLineText(Line(5, LastShownDay())), "out of range: year outside -32767 to 32767");
    EXPECT_EQ(Line(4, HebrewNewYearDay(32768) - 1).date, (CivilDate{32767, 6, 29}));  // 29 Elul 32767
    EXPECT_FALSE(Line(4, HebrewNewYearDay(32768)).date);
}

TEST_F(TimetoolReading, ShowJsonCarriesItsSchemaAndZuluTimes) {
    const InstantReport report = DescribeInstant(context_.dates(), 739060.0 + 64440.0 / 86400.0, {0, 4}, Location{});
    const CalendarDetail detail = DescribeCalendarDetail(context_.session(), report.calendars[0], report.instant.day);
    const Json json = InstantJson(report, detail, TimeZone{});
    EXPECT_EQ(json.begin().key(), "schema");
    EXPECT_EQ(json.at("schema"), 3);
    EXPECT_EQ(json.at("utc"), "2024-06-21T17:54:00Z");
    EXPECT_EQ(json.at("calendar").at("days_in_month"), 30);
    EXPECT_EQ(json.at("calendar").at("days_in_year"), 366);
    EXPECT_EQ(json.at("calendar").at("module").at("days_in_year"), 366);
}

}  // namespace
}  // namespace timetool
