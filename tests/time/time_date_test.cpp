// Date and time fields of the Time component: setters, getters, carrying of
// overflow, month and year lengths, weekday and the no-effect operations.
#include <cmath>

#include "time_host.h"

using TimeDate = TimeHostTest;

TEST_F(TimeDate, FreshObjectHoldsZeroDateAndDefaults) {
    EXPECT_EQ(Date(), (ShortDate{0, 0, 0}));
    EXPECT_EQ(Time(), (ShortTime{0, 0, 0.0}));
    EXPECT_EQ(StarDate(), 0.0);
    EXPECT_EQ(time()->get_Calendar(), 0);
    double latitude = 0.0, longitude = 0.0;
    EXPECT_EQ(time()->get_location(&latitude, &longitude), S_OK);
    EXPECT_EQ(latitude, 43.3);
    EXPECT_EQ(longitude, 83.045);
}

TEST_F(TimeDate, ReferenceCountsOfOneObject) {
    ITime* raw = time_.detach();
    EXPECT_EQ(raw->AddRef(), 2);
    EXPECT_EQ(raw->Release(), 1);
    EXPECT_EQ(raw->Release(), 0);
}

TEST_F(TimeDate, GettersSkipNullPointers) {
    SetDate(5, 3, 2024);
    ASSERT_EQ(time()->SetTime(10, 7, 30.5), S_OK);
    short year = 0;
    EXPECT_EQ(time()->GetDate(nullptr, nullptr, &year), S_OK);
    EXPECT_EQ(year, 2024);
    EXPECT_EQ(time()->GetDate(nullptr, nullptr, nullptr), S_OK);
    short minute = 0;
    EXPECT_EQ(time()->GetTime(nullptr, &minute, nullptr), S_OK);
    EXPECT_EQ(minute, 7);
    EXPECT_EQ(time()->GetTime(nullptr, nullptr, nullptr), S_OK);
}

TEST_F(TimeDate, SecondIsStoredAsFloatAndWidened) {
    ASSERT_EQ(time()->SetTime(10, 7, 30.1), S_OK);
    EXPECT_EQ(Time(), (ShortTime{10, 7, static_cast<double>(30.1f)}));
}

TEST_F(TimeDate, SetTimeStoresOutOfRangeFieldsAndStarDateFollows) {
    SetDate(1, 1, 2000);
    ASSERT_EQ(time()->SetTime(25, 99, 75.0), S_OK);
    EXPECT_EQ(Time(), (ShortTime{25, 99, 75.0}));
    EXPECT_EQ(StarDate(), 730122.0 + ((25 / 24.0 + 99 / 1440.0) + 75 / 86400.0));
}

TEST_F(TimeDate, SetDateKeepsTimeOfDayInStarDate) {
    ASSERT_EQ(time()->SetTime(12, 0, 0.0), S_OK);
    SetDate(1, 1, 2000);
    EXPECT_EQ(StarDate(), 730122.5);
}

struct SetDateCase {
    const char* what;
    std::int32_t kind;
    ShortDate input;
    ShortDate stored;
};

TEST_F(TimeDate, SetDateCarriesOverflowOnly) {
    const SetDateCase cases[] = {
        {"day past January", 0, {32, 1, 2023}, {1, 2, 2023}},
        {"month 13", 0, {1, 13, 2023}, {1, 1, 2024}},
        {"whole years first, then months", 0, {400, 1, 2023}, {4, 2, 2024}},
        {"negative month borrows a year", 0, {10, -1, 2024}, {10, 11, 2023}},
        {"month 0 stays", 0, {10, 0, 2024}, {10, 0, 2024}},
        {"day 0 stays", 0, {0, 3, 2024}, {0, 3, 2024}},
        {"negative day stays", 0, {-5, 3, 2024}, {-5, 3, 2024}},
        {"29 February of a common year", 0, {29, 2, 2023}, {1, 3, 2023}},
        {"29 February of a leap year", 0, {29, 2, 2024}, {29, 2, 2024}},
        {"29 February 1900, Gregorian", 0, {29, 2, 1900}, {1, 3, 1900}},
        {"29 February 1900, Julian", 1, {29, 2, 1900}, {29, 2, 1900}},
        {"month -13 borrows only one year", 0, {1, -13, 2024}, {1, -1, 2023}},
        {"month 25", 0, {1, 25, 2023}, {1, 1, 2025}},
        {"day not re-checked after month carry", 0, {30, 14, 2023}, {30, 2, 2024}},
        {"day past month 14 carries into month 15", 0, {31, 14, 2023}, {1, 3, 2024}},
        {"unknown kind uses the Gregorian lengths", 9, {29, 2, 1900}, {1, 3, 1900}},
        {"Hebrew day past Tishri", 4, {31, 7, 5785}, {1, 8, 5785}},
        {"Hebrew month 14 walks the 16-bit month round to 1", 4, {1, 14, 5783}, {1, 1, 5783}},
        {"year wraps at 16 bits", 0, {1, 13, 32767}, {1, 1, -32768}},
    };
    for (const SetDateCase& c : cases) {
        SCOPED_TRACE(c.what);
        SetKind(c.kind);
        SetDate(c.input.day, c.input.month, c.input.year);
        EXPECT_EQ(Date(), c.stored);
    }
}

TEST_F(TimeDate, SetDateOfOutOfRangeDayGivesArithmeticStarDate) {
    SetDate(0, 1, 2024);
    EXPECT_EQ(StarDate(), 738887.0);
}

TEST_F(TimeDate, UpdateStarDateLeavesOutOfRangeFieldsAlone) {
    SetStarDate(693962.0);  // 31 December 1900 comes out as day 1 of month 13
    EXPECT_EQ(Date(), (ShortDate{1, 13, 1900}));
    EXPECT_EQ(time()->UpdateStarDate(), S_OK);
    EXPECT_EQ(Date(), (ShortDate{1, 13, 1900}));
    EXPECT_EQ(StarDate(), 693963.0);
}

struct InfoCase {
    const char* what;
    std::int32_t kind;
    ShortDate date;
    short daysInMonth, monthsInYear, daysInYear, yearAdjust;
};

TEST_F(TimeDate, GetInfoByKind) {
    const InfoCase cases[] = {
        {"Gregorian leap February", 0, {1, 2, 2024}, 29, 12, 366, 0},
        {"Gregorian century February", 0, {1, 2, 1900}, 28, 12, 365, 0},
        {"Gregorian 400-year February", 0, {1, 2, 2000}, 29, 12, 366, 0},
        {"April", 0, {1, 4, 2023}, 30, 12, 365, 0},
        {"December", 0, {1, 12, 2023}, 31, 12, 365, 0},
        {"month 0", 0, {1, 0, 2023}, 30, 12, 365, 0},
        {"Julian century February", 1, {1, 2, 1900}, 29, 12, 366, 0},
        {"Julian 1 BC", 1, {1, 2, -1}, 28, 12, 365, 0},
        {"Julian 4 BC", 1, {1, 2, -4}, 29, 12, 366, 0},
        {"Western uses Gregorian lengths", 2, {1, 2, 1500}, 28, 12, 365, 0},
        {"unknown kind", 9, {1, 2, 1900}, 28, 12, 365, 0},
        {"negative kind", -1, {1, 2, 2024}, 29, 12, 366, 0},
        {"Hebrew flag 0, 13-month year", 4, {1, 8, 5784}, 29, 13, 383, 1},
        {"Hebrew flag 0, 12-month year", 4, {1, 8, 5783}, 30, 12, 355, 0},
        {"Hebrew flag 0, 5760", 4, {1, 10, 5760}, 29, 13, 385, 1},
        {"Hebrew flag 1, shifted leap test", 3, {1, 8, 5784}, 29, 12, 384, 0},
        {"Hebrew flag 1, month 12 of a 13-month year", 3, {1, 12, 5785}, 30, 13, 354, 0},
    };
    for (const InfoCase& c : cases) {
        SCOPED_TRACE(c.what);
        SetKind(c.kind);
        SetDate(c.date.day, c.date.month, c.date.year);
        ASSERT_EQ(Date(), c.date);
        short dim = -9, miy = -9, diy = -9, adjust = -9;
        EXPECT_EQ(time()->GetInfo(&dim, &miy, &diy, &adjust), S_OK);
        EXPECT_EQ(dim, c.daysInMonth);
        EXPECT_EQ(miy, c.monthsInYear);
        EXPECT_EQ(diy, c.daysInYear);
        EXPECT_EQ(adjust, c.yearAdjust);
    }
}

TEST_F(TimeDate, GetInfoSkipsNullPointers) {
    SetDate(1, 2, 2024);
    short diy = 0;
    EXPECT_EQ(time()->GetInfo(nullptr, nullptr, &diy, nullptr), S_OK);
    EXPECT_EQ(diy, 366);
    EXPECT_EQ(time()->GetInfo(nullptr, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(TimeDate, GetInfoSweepsGregorianAndJulianYears) {
    for (short year = -400; year <= 2400; ++year) {
        SetKind(0);
        SetDate(1, 2, year);
        const bool gregorianLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        short dim = 0, diy = 0;
        time()->GetInfo(&dim, nullptr, &diy, nullptr);
        ASSERT_EQ(dim, gregorianLeap ? 29 : 28) << year;
        ASSERT_EQ(diy, gregorianLeap ? 366 : 365) << year;
        SetKind(1);
        SetDate(1, 2, year);
        const bool julianLeap = (year & 3) == 0;
        time()->GetInfo(&dim, nullptr, &diy, nullptr);
        ASSERT_EQ(dim, julianLeap ? 29 : 28) << year;
        ASSERT_EQ(diy, julianLeap ? 366 : 365) << year;
    }
}

TEST_F(TimeDate, DayOfWeekFromStarDate) {
    SetStarDate(730122.0);  // 2000-01-01
    EXPECT_EQ(time()->GetDayOfWeek(), 6);
    SetStarDate(0.5);
    EXPECT_EQ(time()->GetDayOfWeek(), 5);
    SetStarDate(739060.0);  // 2024-06-21, a Friday
    EXPECT_EQ(time()->GetDayOfWeek(), 5);
    SetStarDate(-0.5);  // floor gives -1
    EXPECT_EQ(time()->GetDayOfWeek(), 4);
    SetStarDate(719165.0);  // 1970-01-01, a Thursday
    EXPECT_EQ(time()->GetDayOfWeek(), 4);
}

TEST_F(TimeDate, DayOfWeekIgnoresCalendarKind) {
    SetStarDate(730122.0);
    SetKind(1);
    EXPECT_EQ(time()->GetDayOfWeek(), 6);
    SetKind(4);
    EXPECT_EQ(time()->GetDayOfWeek(), 6);
}

TEST_F(TimeDate, DayOfWeekOfNonFiniteStarDateIsDefined) {
    // The day number is out of the 32-bit range and converts to INT32_MIN;
    // less 2 it wraps to 2147483646, a multiple of 7.
    SetStarDate(std::nan(""));
    EXPECT_EQ(time()->GetDayOfWeek(), 0);
    SetStarDate(1e300);
    EXPECT_EQ(time()->GetDayOfWeek(), 0);
}

struct CalendarDaysCase {
    const char* what;
    std::int32_t kind;
    ShortDate date;
    double days;
};

TEST_F(TimeDate, GetCalendarDaysByKind) {
    const CalendarDaysCase cases[] = {
        {"Gregorian 1 January 1", 0, {1, 1, 1}, 1.0},
        {"Gregorian 1 January 2000", 0, {1, 1, 2000}, 730120.0},
        {"Western counts Gregorian", 2, {1, 1, 2000}, 730120.0},
        {"unknown kind counts Gregorian", 9, {1, 1, 2000}, 730120.0},
        {"Julian 1 January 1", 1, {1, 1, 1}, 1.0},
        {"Julian 1 January 2000", 1, {1, 1, 2000}, 730135.0},
        {"Julian 31 December 4", 1, {31, 12, 4}, 1461.0},
        {"Hebrew flag 0", 4, {23, 10, 5760}, 2103457.6896990743},
        {"Hebrew flag 1", 3, {23, 10, 5760}, 2103487.22029321},
        {"Hebrew ignores the month", 4, {23, 7, 5760}, 2103457.6896990743},
    };
    for (const CalendarDaysCase& c : cases) {
        SCOPED_TRACE(c.what);
        SetKind(c.kind);
        SetDate(c.date.day, c.date.month, c.date.year);
        ASSERT_EQ(time()->SetTime(18, 0, 0.0), S_OK);  // never counted
        EXPECT_EQ(time()->GetCalendarDays(), c.days);
    }
}

TEST_F(TimeDate, SetCalendarDaysChangesNothing) {
    for (std::int32_t kind : {0, 1, 2, 3, 4, 9}) {
        SCOPED_TRACE(kind);
        SetKind(0);
        SetDate(21, 6, 2024);
        ASSERT_EQ(time()->SetTime(6, 30, 15.0), S_OK);
        SetKind(kind);
        const ShortDate date = Date();
        const ShortTime timeOfDay = Time();
        const double star = StarDate();
        double rise = 0, set = 0;
        float moon = 0;
        time()->get_SunTimes(&rise, &set);
        time()->get_MoonPhase(&moon);
        for (double days : {0.0, 1.0, 730120.0, -5000.5, 1e12, -1e12, std::nan("")}) {
            EXPECT_EQ(time()->SetCalendarDays(days), S_OK);
        }
        EXPECT_EQ(Date(), date);
        EXPECT_EQ(Time(), timeOfDay);
        EXPECT_EQ(StarDate(), star);
        double rise2 = 0, set2 = 0;
        float moon2 = 0;
        time()->get_SunTimes(&rise2, &set2);
        time()->get_MoonPhase(&moon2);
        EXPECT_EQ(rise2, rise);
        EXPECT_EQ(set2, set);
        EXPECT_EQ(moon2, moon);
    }
}

TEST_F(TimeDate, GMTOffsetHasNoEffect) {
    SetDate(1, 1, 2000);
    EXPECT_EQ(time()->put_GMTOffset(5.0), S_OK);
    double offset = 123.25;
    EXPECT_EQ(time()->get_GMTOffset(&offset), S_OK);
    EXPECT_EQ(offset, 123.25);
    EXPECT_EQ(time()->get_GMTOffset(nullptr), S_OK);
    EXPECT_EQ(StarDate(), 730122.0);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
}
