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
        {"-0044-03-15T12:00", -44, 3, 15, 12, 0, 0.0},
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
        {"0-01-01", "there is no year 0 (1 BC is -1)"},
        {"99999-01-01", "year out of range (-32767 to 32767)"},
        {"123456-01-01", "expected YYYY-MM-DD"},
        {"2024-00-10", "month out of range"},
        {"2024-14-10", "month out of range"},
        {"2024-06-00", "day out of range"},
        {"2024-06-32", "day out of range"},
        {"2024-06-21T24:00", "hour out of range"},
        {"2024-06-21T23:60", "minute out of range"},
        {"2024-06-21T23:59:60", "second out of range"},
        {"sd:", "not a number"},
        {"sd:abc", "not a number"},
        {"sd:12x", "not a number"},
        {"sd:+5", "not a number"},
        {"sd:inf", "not a number"},
        {"sd:nan", "not a number"},
        {"jd: 5", "not a number"},
        {"@", "not a number"},
        {"sd:11000001", "outside the supported range of years"},
        {"jd:1e12", "outside the supported range of years"},
        {"@1e15", "outside the supported range of years"},
        {"Now", "expected YYYY-MM-DD"},
    };
    for (const RefusedCase& c : cases) {
        const WhenParse parsed = ParseWhen(c.text);
        EXPECT_FALSE(parsed.when) << c.text;
        EXPECT_EQ(parsed.error, c.error) << c.text;
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

TEST(CivilDateError, ChecksDaysAgainstEachCalendarsMonths) {
    const auto civil = [](int year, int month, int day) {
        CivilTime c;
        c.year = year;
        c.month = month;
        c.day = day;
        return c;
    };
    EXPECT_EQ(CivilDateError(0, civil(2024, 2, 29)), "");
    EXPECT_EQ(CivilDateError(0, civil(2023, 2, 29)), "no such day in that month");
    EXPECT_EQ(CivilDateError(0, civil(1900, 2, 29)), "no such day in that month");
    EXPECT_EQ(CivilDateError(1, civil(1900, 2, 29)), "");
    EXPECT_EQ(CivilDateError(0, civil(2024, 6, 31)), "no such day in that month");
    EXPECT_EQ(CivilDateError(0, civil(2024, 13, 1)), "month out of range (1 to 12)");
    EXPECT_EQ(CivilDateError(6, civil(2024, 13, 1)), "month out of range (1 to 12)");
    EXPECT_EQ(CivilDateError(4, civil(5784, 13, 29)), "");
    EXPECT_EQ(CivilDateError(3, civil(5784, 13, 31)), "day out of range (1 to 30)");
    // 1 BC is counted like year 0, a leap year; 2 BC like year 1.
    EXPECT_EQ(CivilDateError(0, civil(-1, 2, 29)), "");
    EXPECT_EQ(CivilDateError(0, civil(-2, 2, 29)), "no such day in that month");
}

TEST(ParseYearMonth, AcceptsYearAndMonthOnly) {
    ASSERT_TRUE(ParseYearMonth("2024-06"));
    EXPECT_EQ(ParseYearMonth("2024-06")->year, 2024);
    EXPECT_EQ(ParseYearMonth("2024-06")->month, 6);
    EXPECT_EQ(ParseYearMonth("-44-03")->year, -44);
    EXPECT_EQ(ParseYearMonth("5784-13")->month, 13);
    EXPECT_FALSE(ParseYearMonth("2024-6"));
    EXPECT_FALSE(ParseYearMonth("2024-06-01"));
    EXPECT_FALSE(ParseYearMonth("0-06"));
    EXPECT_FALSE(ParseYearMonth("2024-14"));
    EXPECT_FALSE(ParseYearMonth(""));
}

}  // namespace
}  // namespace timetool
