#include "calendar/hebrew.h"

#include <gtest/gtest.h>

#include <limits>

#include "calendar/hebrew_year.h"
#include "date_fields.h"
#include "hebrew_year_start.h"
#include "time/conversions.h"

namespace {

CHebrew MakeHebrew(int year, int flag) {
    CHebrew h;
    h.Year = static_cast<std::int16_t>(year);
    h.flag = static_cast<std::int16_t>(flag);
    return h;
}

TEST(SDHebrew, IsJulianSeventhOctober3761BcComputedOnce) {
    const tagDATETIME date = MakeDate(5785, 7, 1);
    HebrewToJDN(&date, 0);
    EXPECT_EQ(SDHebrew, -1373426.0);
    tagDATETIME out;
    JDNtoHebrew(730122.0, &out, 1);
    EXPECT_EQ(SDHebrew, -1373426.0);
}

TEST(HebrewToJDN, CoarseMeanMonthValues) {
    struct Row {
        int year;
        int day;
        short flag;
        double expected;
    };
    const Row rows[] = {
        {20, 1, 0, -1366486.3103780865}, {19, 1, 0, -1359930.5184799384},
        {5785, 1, 0, 739163.1738811731}, {5785, 1, 1, 739163.1738811731},
        {1, 1, 0, -1373426.0},           {0, 1, 0, -1373780.3671296297},
        {-5, 1, 0, -1375552.2027777778}, {-17, 3, 0, -1379802.6083333334},
        {-17, 3, 1, -1379832.138927469}, {38, 1, 0, -1352990.8288580247},
    };
    for (const auto& row : rows) {
        const tagDATETIME date = MakeDate(row.year, 7, row.day);
        EXPECT_EQ(HebrewToJDN(&date, row.flag), row.expected) << row.year << " flag " << row.flag;
    }
}

TEST(HebrewToJDN, IgnoresMonth) {
    for (int month = -1; month <= 14; ++month) {
        const tagDATETIME date = MakeDate(5785, month, 10);
        EXPECT_EQ(HebrewToJDN(&date, 0), 739172.1738811731) << month;
    }
}

TEST(HebrewToJDN, MultipleOf19CountsItsCycleTwice) {
    const tagDATETIME year19 = MakeDate(19, 1, 1);
    const tagDATETIME year20 = MakeDate(20, 1, 1);
    EXPECT_GT(HebrewToJDN(&year19, 0), HebrewToJDN(&year20, 0));
    EXPECT_GT(HebrewToJDN(&year19, 1), HebrewToJDN(&year20, 1));
}

TEST(CHebrew, DaysInYearFlag0WithPostponement) {
    struct Row {
        int year;
        short days;
        short postponement;
    };
    // 5760, 5784..5787: the civil calendar's year lengths.
    const Row rows[] = {{1, 355, 0},    {2, 355, 1},    {5760, 385, 1}, {5784, 383, 1}, {5785, 355, 0},
                        {5786, 354, 1}, {5787, 385, 0}, {5790, 383, 2}, {5795, 385, 1}, {5801, 383, 2}};
    for (const auto& row : rows) {
        CHebrew h = MakeHebrew(1, 0);
        short postponement = -7;
        EXPECT_EQ(h.DaysInYear(static_cast<short>(row.year), &postponement), row.days) << row.year;
        EXPECT_EQ(postponement, row.postponement) << row.year;
        EXPECT_EQ(h.DaysInYear(static_cast<short>(row.year), nullptr), row.days) << row.year;
    }
}

TEST(CHebrew, DaysInYearOfYearZeroIs352) {
    // The elapsed-days formula truncates toward zero for the months before
    // year 0, which shortens that year.
    CHebrew h = MakeHebrew(0, 0);
    EXPECT_EQ(h.DaysInYear(0, nullptr), 352);
}

TEST(CHebrew, DaysInYearFlag1Is354Or384AndLeavesPostponement) {
    struct Row {
        int year;
        short days;
    };
    const Row rows[] = {{5784, 384}, {5785, 354}, {5786, 354}, {5787, 384}, {1, 354}, {3, 384}, {19, 384}};
    for (const auto& row : rows) {
        CHebrew h = MakeHebrew(1, 1);
        short postponement = -7;
        EXPECT_EQ(h.DaysInYear(static_cast<short>(row.year), &postponement), row.days) << row.year;
        EXPECT_EQ(postponement, -7);
    }
    CHebrew h = MakeHebrew(1, 1);
    for (int year = -3000; year <= 9000; ++year) {
        const short days = h.DaysInYear(static_cast<short>(year), nullptr);
        ASSERT_TRUE(days == 354 || days == 384) << year;
    }
}

TEST(CHebrew, DaysInMonthTable) {
    struct Row {
        int year;
        int flag;
        int month;
        int expected;
    };
    const Row rows[] = {
        // 5785: 355 days, 12 months.
        {5785, 0, 1, 30},
        {5785, 0, 2, 29},
        {5785, 0, 3, 30},
        {5785, 0, 4, 29},
        {5785, 0, 5, 30},
        {5785, 0, 6, 29},
        {5785, 0, 7, 30},
        {5785, 0, 8, 30},
        {5785, 0, 9, 30},
        {5785, 0, 10, 29},
        {5785, 0, 11, 30},
        {5785, 0, 12, 29},
        {5785, 0, 13, 0},
        {5785, 0, 14, 0},
        {5785, 0, 0, 0},
        {5785, 0, -1, 0},
        // 5784: 383 days, 13 months.
        {5784, 0, 8, 29},
        {5784, 0, 9, 29},
        {5784, 0, 12, 30},
        {5784, 0, 13, 29},
        // 5786: 354 days; 5787: 385 days.
        {5786, 0, 8, 29},
        {5786, 0, 9, 30},
        {5787, 0, 8, 30},
        {5787, 0, 9, 30},
        // Year 0: 352 days and a 13-month year.
        {0, 0, 8, 29},
        {0, 0, 9, 30},
        {0, 0, 12, 30},
        {0, 0, 13, 29},
        // Flag 1: 354/384 days and the leap test one year back.
        {5785, 1, 8, 29},
        {5785, 1, 9, 30},
        {5785, 1, 12, 30},
        {5785, 1, 13, 29},
        {5784, 1, 12, 29},
        {5784, 1, 13, 0},
    };
    for (const auto& row : rows) {
        CHebrew h = MakeHebrew(row.year, row.flag);
        EXPECT_EQ(h.DaysInMonth(row.month, 0), row.expected) << row.year << '/' << row.month << " flag " << row.flag;
    }
}

TEST(HebrewLeapYear, NegativeRemaindersAreCommonYears) {
    EXPECT_TRUE(cal::HebrewLeapYear(0, 0));
    EXPECT_TRUE(cal::HebrewLeapYear(-19, 0));
    EXPECT_FALSE(cal::HebrewLeapYear(-3, 0));
    EXPECT_TRUE(cal::HebrewLeapYear(1, 1));
    EXPECT_TRUE(cal::HebrewLeapYear(4, 1));
    EXPECT_FALSE(cal::HebrewLeapYear(3, 1));
    EXPECT_TRUE(cal::HebrewLeapYear(5784, 0));
    EXPECT_FALSE(cal::HebrewLeapYear(5785, 0));
}

TEST(StartOfHebrewYear, MoladAndPostponement) {
    struct Row {
        int year;
        std::int64_t day;
        int hour;
        int part;
        int postponement;
    };
    const Row rows[] = {{1, 2, 5, 204, 0},           {2, 356, 14, 0, 1},         {5760, 2103436, 21, 801, 1},
                        {5784, 2112207, 11, 882, 1}, {5785, 2112591, 9, 391, 0}, {5790, 2114392, 18, 164, 2}};
    for (const auto& row : rows) {
        const cal::HebrewYearStart start = cal::StartOfHebrewYear(row.year, 0);
        EXPECT_EQ(start.moladDay, row.day) << row.year;
        EXPECT_EQ(start.moladHour, row.hour) << row.year;
        EXPECT_EQ(start.moladPart, row.part) << row.year;
        EXPECT_EQ(start.postponement, row.postponement) << row.year;
        EXPECT_EQ(start.Day(), test_hebrew::YearStart(row.year, 0)) << row.year;
    }
}

TEST(JDNtoHebrew, KnownDates) {
    struct Row {
        double jdn;
        Ymd expected;
    };
    const Row rows[] = {
        {730122.0, {5760, 10, 23}},  // 1 January 2000
        {739164.0, {5785, 7, 1}},    // 3 October 2024, new year
        {739163.0, {5784, 6, 29}},   // the day before
        {738958.0, {5784, 13, 1}},   // 11 March 2024, 1 Adar II
        {738928.0, {5784, 12, 1}},   // 10 February 2024, 1 Adar I
        {739163.5, {5784, 6, 29}},
    };
    for (const auto& row : rows) {
        tagDATETIME out = MakeDate(0, 0, 0, 4, 5, 6.0f);
        out.WeekDay = 6;
        EXPECT_EQ(JDNtoHebrew(row.jdn, &out, 0), S_OK);
        EXPECT_EQ(DateOf(out), row.expected) << row.jdn;
        EXPECT_EQ(out.Hour, 4);
        EXPECT_EQ(out.Minute, 5);
        EXPECT_EQ(out.Second, 6.0f);
        EXPECT_EQ(out.WeekDay, 6);
    }
}

TEST(JDNtoHebrew, NonFiniteAndHugeDayNumbersGiveAResult) {
    tagDATETIME out;
    EXPECT_EQ(JDNtoHebrew(std::numeric_limits<double>::quiet_NaN(), &out, 0), S_OK);
    EXPECT_EQ(JDNtoHebrew(1e300, &out, 1), S_OK);
    EXPECT_EQ(JDNtoHebrew(-std::numeric_limits<double>::infinity(), &out, 0), S_OK);
}

TEST(CHebrew, SetEllapsedDaysCountsFromEpochDay) {
    CHebrew h = MakeHebrew(0, 0);
    h.SetEllapsedDays(2.0, 0);  // day 2 begins year 1
    EXPECT_EQ(DateOf(h), (Ymd{1, 7, 1}));
    h.SetEllapsedDays(2.75, 0);
    EXPECT_EQ(DateOf(h), (Ymd{1, 7, 1}));
    h.SetEllapsedDays(1.0, 0);
    EXPECT_EQ(h.Year, 0);
}

// For flag 0, the day count built from a Hebrew date by the year-start rule
// (year start + the months before it from Tishri + Day - 1) gives the date back.
TEST(CHebrew, YearStartCountGivesDateBackForEveryDayOfYears1To6000) {
    for (int year = 1; year <= 6000; ++year) {
        CHebrew lengths = MakeHebrew(year, 0);
        std::int64_t count = test_hebrew::YearStart(year, 0);
        for (const std::int16_t month : test_hebrew::kMonthOrder) {
            const int length = lengths.DaysInMonth(month, 0);
            for (int day = 1; day <= length; ++day, ++count) {
                CHebrew h = MakeHebrew(0, 0);
                h.SetEllapsedDays(static_cast<double>(count), 0);
                ASSERT_EQ(DateOf(h), (Ymd{year, month, day})) << count;
            }
        }
    }
}

}  // namespace
