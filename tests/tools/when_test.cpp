#include "when.h"

#include <gtest/gtest.h>

#include <string>

namespace timetool {
namespace {

struct CivilCase {
    const char* text;
    int year, month, day, hour, minute;
    double second;
};

TEST(ParseWhen, AcceptsIsoDatesAndTimes) {
    const CivilCase cases[] = {
        {"2024-06-21", 2024, 6, 21, 0, 0, 0.0},
        {"2024-06-21T17:54", 2024, 6, 21, 17, 54, 0.0},
        {"2024-06-21T17:54:00", 2024, 6, 21, 17, 54, 0.0},
        {"2024-06-21 17:54:30.25", 2024, 6, 21, 17, 54, 30.25},
        {"2024-06-21T17:54:00Z", 2024, 6, 21, 17, 54, 0.0},
        {"1582-10-15", 1582, 10, 15, 0, 0, 0.0},
        {"-44-03-15", -44, 3, 15, 0, 0, 0.0},
        {"-0043-03-15T12:00", -43, 3, 15, 12, 0, 0.0},
        {"0-12-31", 0, 12, 31, 0, 0, 0.0},
        {"+10000-01-01", 10000, 1, 1, 0, 0, 0.0},
        {"-32767-01-01", -32767, 1, 1, 0, 0, 0.0},
        {"1-01-01", 1, 1, 1, 0, 0, 0.0},
        {"32767-12-31", 32767, 12, 31, 0, 0, 0.0},
        {"5784-13-29", 5784, 13, 29, 0, 0, 0.0},
    };
    for (const CivilCase& c : cases) {
        const WhenParse parsed = ParseWhen(c.text);
        ASSERT_TRUE(parsed.when) << c.text << ": " << parsed.error;
        EXPECT_EQ(parsed.when->form, WhenForm::Civil) << c.text;
        EXPECT_EQ(parsed.when->civil.year, c.year) << c.text;
        EXPECT_EQ(parsed.when->civil.month, c.month) << c.text;
        EXPECT_EQ(parsed.when->civil.day, c.day) << c.text;
        EXPECT_EQ(parsed.when->civil.hour, c.hour) << c.text;
        EXPECT_EQ(parsed.when->civil.minute, c.minute) << c.text;
        EXPECT_DOUBLE_EQ(parsed.when->civil.second, c.second) << c.text;
    }
}

TEST(ParseWhen, AcceptsNamedAndNumberedInstants) {
    EXPECT_EQ(ParseWhen("now").when->form, WhenForm::Now);
    EXPECT_EQ(ParseWhen("today").when->form, WhenForm::Today);

    const WhenParse star = ParseWhen("sd:739060.5");
    ASSERT_TRUE(star.when);
    EXPECT_EQ(star.when->form, WhenForm::StarDate);
    EXPECT_EQ(star.when->value, 739060.5);

    const WhenParse julian = ParseWhen("jd:2451544.5");
    ASSERT_TRUE(julian.when);
    EXPECT_EQ(julian.when->form, WhenForm::JulianDate);
    EXPECT_EQ(julian.when->value, 2451544.5);

    const WhenParse linux = ParseWhen("@1718928000");
    ASSERT_TRUE(linux.when);
    EXPECT_EQ(linux.when->form, WhenForm::LinuxTime);
    EXPECT_EQ(linux.when->value, 1718928000.0);

    EXPECT_EQ(ParseWhen("sd:-1000.25").when->value, -1000.25);
    EXPECT_EQ(ParseWhen("@-86400").when->value, -86400.0);
}

struct RefusedCase {
    const char* text;
    const char* error;
};

TEST(ParseWhen, RefusesMalformedTextWithAReason) {
    const RefusedCase cases[] = {
        {"", "empty"},
        {"yesterday", "expected YYYY-MM-DD"},
        {"2024-6-21", "expected YYYY-MM-DD"},
        {"2024-06", "expected YYYY-MM-DD"},
        {"2024-06-21T", "expected HH:MM after the date"},
        {"2024-06-21T17", "expected HH:MM after the date"},
        {"2024-06-21T17:54:5", "expected two digits of seconds"},
        {"2024-06-21T17:54:00.", "expected digits after the decimal point"},
        {"2024-06-21x", "unexpected characters after the date"},
        {"2024-06-21ZZ", "unexpected characters after the date"},
        {"99999-01-01", "year out of range (-32767 to 32767)"},
        {"32768-01-01", "year out of range (-32767 to 32767)"},
        {"123456-01-01", "expected YYYY-MM-DD"},
        {"2024-00-10", "there is no month 0 (months count from 1)"},
        {"2024-14-10", "month out of range (1 to 13)"},
        {"2024-06-00", "there is no day 0 (days count from 1)"},
        {"2024-06-32", "day out of range (1 to 31)"},
        {"2024-06-21T24:00", "hour out of range (0 to 23)"},
        {"2024-06-21T23:60", "minute out of range (0 to 59)"},
        {"2024-06-21T23:59:60", "second out of range (below 60: no leap seconds are counted)"},
        {"2024-06-21T23:59:60.5", "second out of range (below 60: no leap seconds are counted)"},
        {"5784--15", "expected YYYY-MM-DD"},
        {"5784-3-15", "expected YYYY-MM-DD"},
        {"5784-Sivan", "expected YYYY-MM-DD"},
        {"sd:", "not a number"},
        {"sd:abc", "not a number"},
        {"sd:12x", "not a number"},
        {"sd:+5", "not a number"},
        {"sd:inf", "not a number"},
        {"sd:nan", "not a number"},
        {"jd: 5", "not a number"},
        {"@", "not a number"},
        {"sd:12500001", "outside the range of years timetool shows (-32767 to 32767)"},
        {"jd:1e12", "outside the range of years timetool shows (-32767 to 32767)"},
        {"@1e15", "outside the range of years timetool shows (-32767 to 32767)"},
        {"Now", "expected YYYY-MM-DD"},
        {"2024-06-21+02:00", "unexpected characters after the date"},
        {"2024-06-21T12:00+2", "expected a UTC offset such as +02:00"},
        {"2024-06-21T12:00+02:0", "expected a UTC offset such as +02:00"},
        {"2024-06-21T12:00+24:00", "expected a UTC offset such as +02:00"},
        {"2024-06-21T12:00+05:60", "expected a UTC offset such as +02:00"},
        {"2024-06-21T12:00+02:00Z", "unexpected characters after the date"},
        {"2024-06-21T12:00Z+02:00", "unexpected characters after the date"},
        {"2024-06-21T12:00+020", "expected a UTC offset such as +02:00"},
    };
    for (const RefusedCase& c : cases) {
        const WhenParse parsed = ParseWhen(c.text);
        EXPECT_FALSE(parsed.when) << c.text;
        EXPECT_EQ(parsed.error, c.error) << c.text;
    }
}

struct ClockCase {
    const char* text;
    bool hasTime;
    ClockBasis basis;
    int offsetSeconds;
};

TEST(ParseWhen, ReadsWhoseClockATimeIsOn) {
    const ClockCase cases[] = {
        {"2024-06-21", false, ClockBasis::Zone, 0},
        {"2024-06-21Z", false, ClockBasis::Utc, 0},
        {"2024-06-21T11:52", true, ClockBasis::Zone, 0},
        {"2024-06-21T11:52Z", true, ClockBasis::Utc, 0},
        {"2024-06-21T11:52:07+02:00", true, ClockBasis::Offset, 7200},
        {"2024-06-21T11:52+0530", true, ClockBasis::Offset, 19800},
        {"2024-06-21 11:52:07.5-04:00", true, ClockBasis::Offset, -14400},
        {"2024-06-21T11:52-03", true, ClockBasis::Offset, -10800},
        {"2024-06-21T11:52+00:00", true, ClockBasis::Offset, 0},
        {"2024-06-21T11:52-23:59", true, ClockBasis::Offset, -86340},
    };
    for (const ClockCase& c : cases) {
        const WhenParse parsed = ParseWhen(c.text);
        ASSERT_TRUE(parsed.when) << c.text << ": " << parsed.error;
        EXPECT_EQ(parsed.when->civil.hasTime, c.hasTime) << c.text;
        EXPECT_EQ(parsed.when->civil.basis, c.basis) << c.text;
        EXPECT_EQ(parsed.when->civil.offsetSeconds, c.offsetSeconds) << c.text;
    }
}

TEST(ParseWhen, ReadsOnlyTheCountedCharacters) {
    // The view ends before the "1" that follows it in memory.
    const std::string text = "2024-06-21T17:51";
    const WhenParse parsed = ParseWhen(std::string_view(text.data(), text.size() - 1));
    EXPECT_FALSE(parsed.when);
    EXPECT_EQ(parsed.error, "expected HH:MM after the date");

    const std::string number = "sd:12345";
    EXPECT_EQ(ParseWhen(std::string_view(number.data(), 5)).when->value, 12.0);
}

TEST(ParseWhen, ReadsHebrewMonthNamesWithoutCaseOrBlanks) {
    const struct {
        const char* text;
        const char* name;
    } cases[] = {
        {"5784-Sivan-15", "sivan"},    {"5784-SIVAN-15", "sivan"},          {"5784-Adar I-01", "adari"},
        {"5784-adar ii-01", "adarii"}, {"5784-Adar_II-01T12:00", "adarii"}, {"5783-Adar-14", "adar"},
    };
    for (const auto& c : cases) {
        const WhenParse parsed = ParseWhen(c.text);
        ASSERT_TRUE(parsed.when) << c.text << ": " << parsed.error;
        EXPECT_EQ(parsed.when->civil.month, 0) << c.text;
        EXPECT_EQ(parsed.when->civil.monthName, c.name) << c.text;
    }
}

CivilTime Civil(int year, int month, int day, const char* name = "") {
    CivilTime civil;
    civil.year = year;
    civil.month = month;
    civil.monthName = name;
    civil.day = day;
    return civil;
}

struct CheckCase {
    int kind;
    CivilTime civil;
    const char* error;  // empty: accepted
};

TEST(CheckCivilDate, RefusesDatesThatDoNotExistInTheirCalendar) {
    const CheckCase cases[] = {
        {0, Civil(2024, 2, 29), ""},
        {0, Civil(2023, 2, 29), "February 2023 has 28 days"},
        {0, Civil(1900, 2, 29), "February 1900 has 28 days"},
        {1, Civil(1900, 2, 29), ""},
        {0, Civil(0, 2, 29), ""},  // 1 BC is a leap year
        {0, Civil(-1, 2, 29), "February 2 BC has 28 days"},
        {1, Civil(-100, 2, 29), ""},
        {0, Civil(-100, 2, 29), "February 101 BC has 28 days"},
        {0, Civil(2024, 6, 31), "June 2024 has 30 days"},
        {0, Civil(2024, 13, 1), "month out of range (1 to 12)"},
        {6, Civil(2024, 13, 1), "month out of range (1 to 12)"},
        {2, Civil(1582, 10, 4), ""},
        {2, Civil(1582, 10, 5),
         "5 to 14 October 1582 do not exist in the Western calendar (4 October was followed by 15 October)"},
        {2, Civil(1582, 10, 14),
         "5 to 14 October 1582 do not exist in the Western calendar (4 October was followed by 15 October)"},
        {2, Civil(1582, 10, 15), ""},
        {2, Civil(1500, 2, 29), ""},  // Julian rules before the reform
        {2, Civil(1700, 2, 29), "February 1700 has 28 days"},
        {0, Civil(2024, 0, 1, "sivan"),
         "month names are read in the Hebrew calendars only: give the month as a number"},
        {4, Civil(5784, 2, 30), "Iyar 5784 has 29 days"},
        {4, Civil(5784, 13, 29), ""},
        {4, Civil(5783, 13, 1), "5783 has no Adar II (a 12-month year)"},
        {4, Civil(5784, 0, 1, "adar"), "Adar is ambiguous in 5784, a leap year: name Adar I or Adar II"},
        {4, Civil(5783, 0, 1, "adarii"), "5783 is a 12-month year with one Adar: name it Adar"},
        {4, Civil(5783, 0, 1, "adari"), "5783 is a 12-month year with one Adar: name it Adar"},
        {4, Civil(5784, 0, 30, "adari"), ""},
        {4, Civil(5784, 0, 30, "adarii"), "Adar II 5784 has 29 days"},
        {4, Civil(5784, 0, 1, "marchesvan"), "unknown Hebrew month name"},
        {4, Civil(5784, 8, 30), "Heshvan 5784 has 29 days"},
        {4, Civil(0, 7, 1), "before the Hebrew epoch (the Hebrew calendar starts with year 1)"},
        {3, Civil(5785, 13, 31), "day out of range (1 to 30)"},
        {3, Civil(5785, 13, 1), ""},  // the mean variant counts its leap years a year later
        {3, Civil(5784, 13, 1), "5784 has no Adar II (a 12-month year)"},
    };
    for (const CheckCase& c : cases) {
        const CivilCheck check = CheckCivilDate(c.kind, c.civil);
        EXPECT_EQ(check.error, c.error) << c.kind << " " << c.civil.year << "-" << c.civil.month << "-" << c.civil.day;
        EXPECT_EQ(check.date.has_value(), std::string(c.error).empty());
    }
}

TEST(CheckCivilDate, ResolvesHebrewMonthNamesToTheirNumbers) {
    const struct {
        int year;
        const char* name;
        int month;
    } cases[] = {
        {5784, "nisan", 1},  {5784, "sivan", 3},   {5784, "tishrei", 7}, {5784, "cheshvan", 8}, {5784, "adari", 12},
        {5784, "adar1", 12}, {5784, "adarii", 13}, {5783, "adar", 12},   {5784, "shvat", 11},
    };
    for (const auto& c : cases) {
        const CivilCheck check = CheckCivilDate(4, Civil(c.year, 0, 1, c.name));
        ASSERT_TRUE(check.date) << c.name << ": " << check.error;
        EXPECT_EQ(check.date->month, c.month) << c.name;
    }
}

TEST(ParseYearMonth, AcceptsYearAndMonthOnly) {
    ASSERT_TRUE(ParseYearMonth("2024-06"));
    EXPECT_EQ(ParseYearMonth("2024-06")->year, 2024);
    EXPECT_EQ(ParseYearMonth("2024-06")->month, 6);
    EXPECT_EQ(ParseYearMonth("-44-03")->year, -44);
    EXPECT_EQ(ParseYearMonth("0-06")->year, 0);
    EXPECT_EQ(ParseYearMonth("5784-13")->month, 13);
    EXPECT_EQ(ParseYearMonth("5784-Adar II")->monthName, "adarii");
    EXPECT_FALSE(ParseYearMonth("2024-6"));
    EXPECT_FALSE(ParseYearMonth("2024-06-01"));
    EXPECT_FALSE(ParseYearMonth("2024-00"));
    EXPECT_FALSE(ParseYearMonth("2024-14"));
    EXPECT_FALSE(ParseYearMonth(""));
}

}  // namespace
}  // namespace timetool
