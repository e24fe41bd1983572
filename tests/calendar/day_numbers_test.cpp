#include "calendar/day_numbers.h"
#include "time/conversions.h"

#include <gtest/gtest.h>

#include <limits>

#include "date_fields.h"

namespace {

struct ToDayNumberRow {
    const char* name;
    double (*convert)(const tagDATETIME*);
    tagDATETIME date;
    double expected;
};

const ToDayNumberRow kToDayNumber[] = {
    {"Gregorian 1 Jan 2000 noon", GregorianToJDN, MakeDate(2000, 1, 1, 12), 730122.5},
    {"Gregorian 1 Jan 2000", GregorianToJDN, MakeDate(2000, 1, 1), 730122.0},
    {"Gregorian 1 Jan 1970", GregorianToJDN, MakeDate(1970, 1, 1), 719165.0},
    {"Gregorian 1 Jan 1", GregorianToJDN, MakeDate(1, 1, 1), 3.0},
    {"Gregorian 31 Dec 1 BC", GregorianToJDN, MakeDate(-1, 12, 31), 1.0},
    {"Gregorian 30 Dec 1 BC", GregorianToJDN, MakeDate(-1, 12, 30), 0.0},
    {"Gregorian 1 Jan 0", GregorianToJDN, MakeDate(0, 1, 1), 2.0},
    {"Gregorian 31 Dec 0", GregorianToJDN, MakeDate(0, 12, 31), 366.0},
    {"Gregorian 15 Oct 1582", GregorianToJDN, MakeDate(1582, 10, 15), 577738.0},
    {"Gregorian 4 Oct 1582", GregorianToJDN, MakeDate(1582, 10, 4), 577727.0},
    {"Julian 1 Jan 1", JulianToJDN, MakeDate(1, 1, 1), 1.0},
    {"Julian 31 Dec 4", JulianToJDN, MakeDate(4, 12, 31), 1461.0},
    {"Julian 31 Dec 1 BC", JulianToJDN, MakeDate(-1, 12, 31), -1.0},
    {"Julian 31 Dec 0", JulianToJDN, MakeDate(0, 12, 31), -1.0},
    {"Julian 1 Jan 1 BC", JulianToJDN, MakeDate(-1, 1, 1), -366.0},
    {"Julian 1 Jan 5 BC", JulianToJDN, MakeDate(-5, 1, 1), -1827.0},
    {"Julian 1 Jan 2000", JulianToJDN, MakeDate(2000, 1, 1), 730135.0},
    {"Julian 4 Oct 1582", JulianToJDN, MakeDate(1582, 10, 4), 577737.0},
    {"Western 3 Oct 1582", WesternToJDN, MakeDate(1582, 10, 3), 577736.0},
    {"Western 4 Oct 1582", WesternToJDN, MakeDate(1582, 10, 4), 577727.0},
    {"Western 15 Oct 1582", WesternToJDN, MakeDate(1582, 10, 15), 577738.0},
    {"Western 10 Oct 1582", WesternToJDN, MakeDate(1582, 10, 10), 577733.0},
};

TEST(DayNumbers, WorkedValuesToDayNumber) {
    for (const auto& row : kToDayNumber) {
        EXPECT_EQ(row.convert(&row.date), row.expected) << row.name;
    }
}

struct FromDayNumberRow {
    const char* name;
    HRESULT (*convert)(double, tagDATETIME*);
    double jdn;
    Ymd expected;
};

const FromDayNumberRow kFromDayNumber[] = {
    {"Gregorian 693962", JDNtoGregorian, 693962.0, {1900, 13, 1}},
    {"Gregorian 693961", JDNtoGregorian, 693961.0, {1900, 12, 30}},
    {"Gregorian 146099", JDNtoGregorian, 146099.0, {400, 12, 31}},
    {"Gregorian 3", JDNtoGregorian, 3.0, {1, 1, 1}},
    {"Gregorian 2", JDNtoGregorian, 2.0, {-1, 12, 31}},
    {"Gregorian 1", JDNtoGregorian, 1.0, {-1, 12, 30}},
    {"Gregorian 2.5", JDNtoGregorian, 2.5, {1, 1, 0}},
    {"Gregorian 730122.75", JDNtoGregorian, 730122.75, {2000, 1, 1}},
    {"Julian 1", JDNtoJulian, 1.0, {1, 1, 1}},
    {"Julian 1461", JDNtoJulian, 1461.0, {4, 12, 31}},
    {"Julian 577737", JDNtoJulian, 577737.0, {1582, 10, 4}},
    {"Julian 0.5", JDNtoJulian, 0.5, {-1, 12, 31}},
    {"Julian 0", JDNtoJulian, 0.0, {-1, 12, 31}},
    {"Julian -1", JDNtoJulian, -1.0, {-1, 12, 30}},
    {"Julian -365", JDNtoJulian, -365.0, {-1, 1, 1}},
    {"Julian -366", JDNtoJulian, -366.0, {-1, 12, 31}},
    {"Julian -367", JDNtoJulian, -367.0, {-2, 12, 30}},
    {"Julian -730", JDNtoJulian, -730.0, {-2, 1, 1}},
    {"Julian -731", JDNtoJulian, -731.0, {-2, 12, 31}},
    {"Western 577737", JDNtoWestern, 577737.0, {1582, 10, 4}},
    {"Western 577738", JDNtoWestern, 577738.0, {1582, 10, 15}},
    {"Western 577736", JDNtoWestern, 577736.0, {1582, 10, 3}},
};

TEST(DayNumbers, WorkedValuesFromDayNumber) {
    for (const auto& row : kFromDayNumber) {
        tagDATETIME out;
        EXPECT_EQ(row.convert(row.jdn, &out), S_OK) << row.name;
        EXPECT_EQ(DateOf(out), row.expected) << row.name;
    }
}

TEST(JDNtoGregorian, WritesTimeOfDayFromFraction) {
    tagDATETIME out;
    JDNtoGregorian(730122.75, &out);
    EXPECT_EQ(out.Hour, 18);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_EQ(out.Second, 0.0f);
    JDNtoGregorian(2.5, &out);
    EXPECT_EQ(out.Hour, 12);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_EQ(out.Second, 0.0f);
}

TEST(JDNtoGregorian, OverwritesTimeFieldsAndKeepsWeekDay) {
    tagDATETIME out = MakeDate(1, 1, 1, 7, 8, 9.0f);
    out.WeekDay = 5;
    JDNtoGregorian(730122.0, &out);
    EXPECT_EQ(out.Hour, 0);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_EQ(out.Second, 0.0f);
    EXPECT_EQ(out.WeekDay, 5);
}

TEST(JDNtoGregorian, NegativeFractionGivesNegativeTime) {
    tagDATETIME out;
    JDNtoGregorian(-0.25, &out);
    EXPECT_EQ(out.Hour, -6);
    EXPECT_EQ(out.Minute, 0);
    JDNtoGregorian(-10.75, &out);
    EXPECT_EQ(out.Hour, -18);
}

TEST(JDNtoGregorian, CenturyYearEndsInMonth13) {
    struct Row {
        int year;
        double jdn;
    };
    // GregorianToJDN of 31 December of each year.
    const Row rows[] = {{1700, 620914.0}, {1800, 657438.0}, {1900, 693962.0}, {2100, 767011.0}};
    for (const auto& row : rows) {
        const tagDATETIME date = MakeDate(row.year, 12, 31);
        EXPECT_EQ(GregorianToJDN(&date), row.jdn) << row.year;
        tagDATETIME out;
        JDNtoGregorian(row.jdn, &out);
        EXPECT_EQ(DateOf(out), (Ymd{row.year, 13, 1}));
    }
}

TEST(JDNtoGregorian, CenturyYearDivisibleBy400EndsNormally) {
    tagDATETIME out;
    JDNtoGregorian(730487.0, &out);
    EXPECT_EQ(DateOf(out), (Ymd{2000, 12, 31}));
}

TEST(JDNtoGregorian, ThirtiethDecemberOf400YearComesBackAs31st) {
    // The 100-year block count reaches 4 one day before the 400-year block
    // ends, so the year's day 365 is read as day 366.
    const tagDATETIME date = MakeDate(2000, 12, 30);
    EXPECT_EQ(GregorianToJDN(&date), 730486.0);
    tagDATETIME out;
    JDNtoGregorian(730486.0, &out);
    EXPECT_EQ(DateOf(out), (Ymd{2000, 12, 31}));
}

TEST(DayNumbers, BcDateComesBackOneDayEarly) {
    tagDATETIME out;
    const tagDATETIME gregorian = MakeDate(-1, 12, 31);
    JDNtoGregorian(GregorianToJDN(&gregorian), &out);
    EXPECT_EQ(DateOf(out), (Ymd{-1, 12, 30}));
    const tagDATETIME julian = MakeDate(-1, 12, 31);
    EXPECT_EQ(JulianToJDN(&julian), -1.0);
    JDNtoJulian(-1.0, &out);
    EXPECT_EQ(DateOf(out), (Ymd{-1, 12, 30}));
}

TEST(GregorianToJDN, YearZeroOverlapsFirstYear) {
    const tagDATETIME yearZero = MakeDate(0, 1, 2);
    const tagDATETIME firstYear = MakeDate(1, 1, 1);
    EXPECT_EQ(GregorianToJDN(&yearZero), 3.0);
    EXPECT_EQ(GregorianToJDN(&firstYear), 3.0);
}

TEST(GregorianToJDN, IncludesTimeOfDay) {
    const tagDATETIME date = MakeDate(2000, 1, 1, 6, 30, 36.0f);
    EXPECT_EQ(GregorianToJDN(&date), 730122.0 + ((6 / 24.0 + 30 / 1440.0) + 36.0 / 86400.0));
}

TEST(JulianToJDN, IgnoresTimeOfDay) {
    const tagDATETIME date = MakeDate(2000, 1, 1, 23, 59, 59.5f);
    EXPECT_EQ(JulianToJDN(&date), 730135.0);
}

TEST(WesternToJDN, IgnoresTimeOfDay) {
    const tagDATETIME before = MakeDate(1582, 10, 3, 12, 30, 1.0f);
    const tagDATETIME after = MakeDate(2000, 1, 1, 12, 30, 1.0f);
    EXPECT_EQ(WesternToJDN(&before), 577736.0);
    EXPECT_EQ(WesternToJDN(&after), 730122.0);
}

TEST(DayNumbers, DateOnlyConversionsLeaveTimeAndWeekDay) {
    using Convert = HRESULT (*)(double, tagDATETIME*);
    for (Convert convert : {Convert{JDNtoJulian}, Convert{JDNtoWestern}}) {
        tagDATETIME out = MakeDate(0, 0, 0, 7, 8, 9.5f);
        out.WeekDay = 3;
        EXPECT_EQ(convert(730122.75, &out), S_OK);
        EXPECT_EQ(out.Hour, 7);
        EXPECT_EQ(out.Minute, 8);
        EXPECT_EQ(out.Second, 9.5f);
        EXPECT_EQ(out.WeekDay, 3);
    }
}

TEST(SDPopeGregory, FilledByFirstWesternConversion) {
    // Other tests of this process may have filled it already; it is never reset.
    const tagDATETIME date = MakeDate(2000, 1, 1);
    WesternToJDN(&date);
    EXPECT_EQ(SDPopeGregory, 577737.0);
    tagDATETIME out;
    JDNtoWestern(100.0, &out);
    EXPECT_EQ(SDPopeGregory, 577737.0);
}

TEST(JDNtoTime, WorkedValues) {
    tagDATETIME out;
    EXPECT_EQ(JDNtoTime(0.1, &out), S_OK);
    EXPECT_EQ(out.Hour, 2);
    EXPECT_EQ(out.Minute, 24);
    EXPECT_EQ(out.Second, 0.0f);
    JDNtoTime(-0.25, &out);
    EXPECT_EQ(out.Hour, -6);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_EQ(out.Second, 0.0f);
}

TEST(JDNtoTime, NegativeFractionGivesNegativeMinuteAndSecond) {
    tagDATETIME out;
    JDNtoTime(-0.0001, &out);  // -8.64 s
    EXPECT_EQ(out.Hour, 0);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_LT(out.Second, -8.63f);
    EXPECT_GT(out.Second, -8.65f);
    JDNtoTime(-0.01, &out);  // -864 s
    EXPECT_EQ(out.Hour, 0);
    EXPECT_EQ(out.Minute, -14);
    EXPECT_LT(out.Second, -23.99f);
    EXPECT_GT(out.Second, -24.01f);
}

TEST(DayNumbers, NonFiniteDayNumbersGiveDefinedDates) {
    // Outside the defined domain: not-a-number reads as day count 0, and
    // magnitudes beyond 32 bits saturate; no conversion fails.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    tagDATETIME out;
    EXPECT_EQ(JDNtoGregorian(nan, &out), S_OK);
    EXPECT_EQ(DateOf(out), (Ymd{-1, 12, 31}));
    EXPECT_EQ(out.Hour, 0);
    EXPECT_EQ(out.Second, 0.0f);
    EXPECT_EQ(JDNtoJulian(nan, &out), S_OK);
    EXPECT_EQ(DateOf(out), (Ymd{-1, 12, 31}));
    EXPECT_EQ(JDNtoTime(nan, &out), S_OK);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_EQ(JDNtoGregorian(1e300, &out), S_OK);
    EXPECT_EQ(JDNtoJulian(-1e300, &out), S_OK);
    EXPECT_EQ(JDNtoWestern(std::numeric_limits<double>::infinity(), &out), S_OK);
    EXPECT_EQ(JDNtoTime(-std::numeric_limits<double>::infinity(), &out), S_OK);
    EXPECT_EQ(out.Hour, 0);
}

TEST(JDNtoTime, WritesOnlyTimeFields) {
    tagDATETIME out = MakeDate(1999, 5, 6);
    out.WeekDay = 2;
    JDNtoTime(730122.5, &out);
    EXPECT_EQ(DateOf(out), (Ymd{1999, 5, 6}));
    EXPECT_EQ(out.WeekDay, 2);
    EXPECT_EQ(out.Hour, 12);
}

TEST(JDNtoTime, NoRoundingBelowWholeMinute) {
    tagDATETIME out;
    // 59.999 s past 01:00 stays in minute 0.
    JDNtoTime((3600.0 + 59.999) / 86400.0, &out);
    EXPECT_EQ(out.Hour, 1);
    EXPECT_EQ(out.Minute, 0);
    EXPECT_GT(out.Second, 59.99f);
    EXPECT_LT(out.Second, 60.0f);
}

TEST(TimeToJDN, SubtractsOffsetBeforeDividing) {
    const tagDATETIME date = MakeDate(2000, 1, 1, 3, 30, 0.0f);
    EXPECT_EQ(TimeToJDN(&date, 0), 3 / 24.0 + 30 / 1440.0);
    EXPECT_EQ(TimeToJDN(&date, 5), -2 / 24.0 + 30 / 1440.0);
    const tagDATETIME noon = MakeDate(0, 0, 0, 12, 0, 0.0f);
    EXPECT_EQ(TimeToJDN(&noon, 0), 0.5);
    EXPECT_EQ(TimeToJDN(&noon, 18), -0.25);
}

}  // namespace
