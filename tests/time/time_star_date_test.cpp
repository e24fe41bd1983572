// The star date of the Time component: both external forms, re-expression in
// the selected calendar and the kind dispatch back to a day number.
#include <cmath>
#include <limits>

#include "time_host.h"

using TimeStarDate = TimeHostTest;

TEST_F(TimeStarDate, JulianDateOfNewYear2000) {
    EXPECT_EQ(time()->put_StarDate(1, 2451544.5), S_OK);
    EXPECT_EQ(StarDate(), 730122.0);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
    EXPECT_EQ(Time(), (ShortTime{0, 0, 0.0}));
}

TEST_F(TimeStarDate, JulianDateOfDayOne) {
    SetStarDate(1.0);
    double value = 0.0;
    EXPECT_EQ(time()->get_StarDate(1, &value), S_OK);
    EXPECT_EQ(value, 1721423.5);
}

TEST_F(TimeStarDate, EveryNonZeroModeSelectsJulianDate) {
    for (std::int32_t mode : {1, -1, 7}) {
        SCOPED_TRACE(mode);
        SetStarDate(0.0);
        EXPECT_EQ(time()->put_StarDate(mode, 2451544.5), S_OK);
        EXPECT_EQ(StarDate(), 730122.0);
        double value = 0.0;
        EXPECT_EQ(time()->get_StarDate(mode, &value), S_OK);
        EXPECT_EQ(value, 2451544.5);
    }
}

TEST_F(TimeStarDate, JulianDateFormsEvaluateInStatedOrder) {
    SetStarDate(0.1);
    double value = 0.0;
    EXPECT_EQ(time()->get_StarDate(1, &value), S_OK);
    EXPECT_EQ(value, (1721423.5 + 0.1) - 1.0);
    EXPECT_EQ(time()->put_StarDate(1, 2451544.6), S_OK);
    EXPECT_EQ(StarDate(), (2451544.6 - 1721423.5) + 1.0);
}

TEST_F(TimeStarDate, GetStarDateRejectsNullPointer) {
    EXPECT_EQ(time()->get_StarDate(0, nullptr), E_POINTER);
    EXPECT_EQ(time()->get_StarDate(1, nullptr), E_POINTER);
}

TEST_F(TimeStarDate, NonFiniteValuesAreStoredAsGiven) {
    SetStarDate(std::numeric_limits<double>::infinity());
    EXPECT_EQ(StarDate(), std::numeric_limits<double>::infinity());
    SetStarDate(std::nan(""));
    EXPECT_TRUE(std::isnan(StarDate()));
}

struct StarDateCase {
    double starDate;
    ShortDate date;
};

TEST_F(TimeStarDate, GregorianDatesOfStarDates) {
    const StarDateCase cases[] = {
        {730122.0, {1, 1, 2000}},   {693962.0, {1, 13, 1900}}, {693961.0, {30, 12, 1900}}, {146099.0, {31, 12, 400}},
        {3.0, {1, 1, 1}},           {2.0, {31, 12, -1}},       {1.0, {30, 12, -1}},        {2.5, {0, 1, 1}},
        {577738.0, {15, 10, 1582}}, {719165.0, {1, 1, 1970}},  {739060.0, {21, 6, 2024}},
    };
    for (const StarDateCase& c : cases) {
        SetStarDate(c.starDate);
        EXPECT_EQ(Date(), c.date) << c.starDate;
    }
}

TEST_F(TimeStarDate, GregorianTimeOfDayFromFraction) {
    SetStarDate(730122.75);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
    EXPECT_EQ(Time(), (ShortTime{18, 0, 0.0}));
    SetStarDate(2.5);
    EXPECT_EQ(Time(), (ShortTime{12, 0, 0.0}));
}

TEST_F(TimeStarDate, StarDatesOfGregorianDates) {
    const StarDateCase cases[] = {
        {730122.0, {1, 1, 2000}},   {3.0, {1, 1, 1}},          {1.0, {31, 12, -1}},
        {0.0, {30, 12, -1}},        {2.0, {1, 1, 0}},          {366.0, {31, 12, 0}},
        {577738.0, {15, 10, 1582}}, {577727.0, {4, 10, 1582}}, {738888.0, {1, 1, 2024}},
    };
    for (const StarDateCase& c : cases) {
        SetDate(c.date.day, c.date.month, c.date.year);
        EXPECT_EQ(StarDate(), c.starDate) << c.date;
    }
}

TEST_F(TimeStarDate, JulianDatesOfStarDates) {
    SetKind(1);
    const StarDateCase cases[] = {
        {1.0, {1, 1, 1}},       {1461.0, {31, 12, 4}}, {577737.0, {4, 10, 1582}}, {0.5, {31, 12, -1}},
        {0.0, {31, 12, -1}},    {-1.0, {30, 12, -1}},  {-365.0, {1, 1, -1}},      {-366.0, {31, 12, -1}},
        {-367.0, {30, 12, -2}}, {-730.0, {1, 1, -2}},  {-731.0, {31, 12, -2}},    {730122.0, {19, 12, 1999}},
    };
    for (const StarDateCase& c : cases) {
        SetStarDate(c.starDate);
        EXPECT_EQ(Date(), c.date) << c.starDate;
    }
}

TEST_F(TimeStarDate, StarDatesOfJulianDates) {
    SetKind(1);
    const StarDateCase cases[] = {
        {1.0, {1, 1, 1}},     {1461.0, {31, 12, 4}}, {-1.0, {31, 12, -1}},     {-1.0, {31, 12, 0}},
        {-366.0, {1, 1, -1}}, {-1827.0, {1, 1, -5}}, {730135.0, {1, 1, 2000}},
    };
    for (const StarDateCase& c : cases) {
        SetDate(c.date.day, c.date.month, c.date.year);
        EXPECT_EQ(StarDate(), c.starDate) << c.date;
    }
}

TEST_F(TimeStarDate, JulianKindIgnoresAndKeepsTimeOfDay) {
    SetKind(1);
    SetDate(1, 1, 2000);
    ASSERT_EQ(time()->SetTime(18, 0, 0.0), S_OK);
    EXPECT_EQ(StarDate(), 730135.0);
    SetStarDate(730122.75);
    EXPECT_EQ(Date(), (ShortDate{19, 12, 1999}));
    EXPECT_EQ(Time(), (ShortTime{18, 0, 0.0}));
}

TEST_F(TimeStarDate, WesternKindConvertsIntoWesternDates) {
    SetKind(2);
    SetStarDate(577737.0);
    EXPECT_EQ(Date(), (ShortDate{4, 10, 1582}));
    SetStarDate(577738.0);
    EXPECT_EQ(Date(), (ShortDate{15, 10, 1582}));
    SetStarDate(730122.0);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
}

TEST_F(TimeStarDate, WesternKindConvertsBackWithGregorianRules) {
    SetKind(2);
    SetDate(3, 10, 1582);
    EXPECT_EQ(StarDate(), 577726.0);
    SetDate(1, 1, 1000);
    EXPECT_EQ(StarDate(), 364880.0);
    SetKind(2);
    EXPECT_EQ(Date(), (ShortDate{27, 12, 999}));
}

TEST_F(TimeStarDate, HebrewFlagZeroDatesOfStarDates) {
    SetKind(4);
    SetStarDate(730122.0);  // 1 January 2000
    EXPECT_EQ(Date(), (ShortDate{23, 10, 5760}));
    SetStarDate(739164.0);  // 3 October 2024
    EXPECT_EQ(Date(), (ShortDate{1, 7, 5785}));
    SetStarDate(739163.0);
    EXPECT_EQ(Date(), (ShortDate{29, 6, 5784}));
}

TEST_F(TimeStarDate, HebrewFlagOneGivesAYearNearTheFlagZeroYear) {
    SetKind(3);
    SetStarDate(730122.0);
    const ShortDate date = Date();
    EXPECT_GE(date.year, 5759);
    EXPECT_LE(date.year, 5761);
    EXPECT_GE(date.month, 1);
    EXPECT_LE(date.month, 13);
    EXPECT_GE(date.day, 1);
    EXPECT_LE(date.day, 30);
}

TEST_F(TimeStarDate, HebrewStarDatesUseMeanMonths) {
    SetKind(4);
    SetDate(23, 10, 5760);
    EXPECT_EQ(StarDate(), 730030.6896990743);
    SetDate(1, 7, 5785);
    EXPECT_EQ(StarDate(), 739163.1738811731);
    SetKind(3);
    SetDate(23, 10, 5760);
    EXPECT_EQ(StarDate(), 730060.2202932099);
}

TEST_F(TimeStarDate, HebrewStarDateIgnoresMonth) {
    SetKind(4);
    SetDate(23, 10, 5760);
    const double tevet = StarDate();
    SetDate(23, 7, 5760);
    EXPECT_EQ(StarDate(), tevet);
}

TEST_F(TimeStarDate, UnknownKindsConvertAsGregorian) {
    for (std::int32_t kind : {7, 9, -1, 1000000}) {
        SCOPED_TRACE(kind);
        SetKind(kind);
        EXPECT_EQ(time()->get_Calendar(), kind);
        SetStarDate(730122.75);
        EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
        EXPECT_EQ(Time(), (ShortTime{18, 0, 0.0}));
        SetDate(1, 1, 2000);
        EXPECT_EQ(StarDate(), 730122.75);
    }
}

TEST_F(TimeStarDate, PutCalendarKeepsTheInstant) {
    SetStarDate(730122.75);
    SetKind(9);
    EXPECT_EQ(time()->get_Calendar(), 9);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
    EXPECT_EQ(Time(), (ShortTime{18, 0, 0.0}));
    SetKind(1);
    EXPECT_EQ(Date(), (ShortDate{19, 12, 1999}));
    EXPECT_EQ(StarDate(), 730122.75);
    SetKind(0);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
}

// Each whole star date of the Christian era turns into a date that SetDate
// turns back into the same star date, except the last day of a century year
// not divisible by 400, which comes out as day 1 of month 13.
TEST_F(TimeStarDate, GregorianRoundTripAcrossTheEra) {
    for (std::int32_t kind : {0, 9}) {
        SetKind(kind);
        for (double x = 3.0; x < 800000.0; x += 97.0) {
            SetStarDate(x);
            const ShortDate d = Date();
            if (d.month == 13) {
                EXPECT_EQ(d.day, 1) << x;
                EXPECT_TRUE(d.year % 100 == 0 && d.year % 400 != 0) << x;
                continue;
            }
            SetDate(d.day, d.month, d.year);
            ASSERT_EQ(StarDate(), x) << d;
        }
    }
}

TEST_F(TimeStarDate, JulianRoundTripAcrossTheEra) {
    SetKind(1);
    for (double x = 1.0; x < 800000.0; x += 89.0) {
        SetStarDate(x);
        const ShortDate d = Date();
        SetDate(d.day, d.month, d.year);
        ASSERT_EQ(StarDate(), x) << d;
    }
}

TEST_F(TimeStarDate, WesternRoundTripAfterTheReform) {
    SetKind(2);
    for (double x = 577738.0; x < 800000.0; x += 61.0) {
        SetStarDate(x);
        const ShortDate d = Date();
        if (d.month == 13) continue;
        SetDate(d.day, d.month, d.year);
        ASSERT_EQ(StarDate(), x) << d;
    }
}

TEST_F(TimeStarDate, GregorianDatesBeforeTheEraComeBackOneDayEarlier) {
    for (double x = -50000.0; x <= 0.0; x += 37.0) {
        SetStarDate(x);
        const ShortDate d = Date();
        ASSERT_LT(d.year, 0) << x;
        SetDate(d.day, d.month, d.year);
        ASSERT_EQ(StarDate(), x - 1.0) << d;
    }
}

TEST_F(TimeStarDate, CalendarDaysFollowStarDate) {
    for (double x = 3.0; x < 800000.0; x += 1013.0) {
        SetKind(0);
        SetStarDate(x);
        if (Date().month == 13) continue;
        EXPECT_EQ(time()->GetCalendarDays(), x - 2.0) << x;
        SetKind(1);
        EXPECT_EQ(time()->GetCalendarDays(), x) << x;
    }
}
