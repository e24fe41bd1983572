#include "time/calendar_classes.h"
#include "time/generic_calendar.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "date_fields.h"

namespace {

template <class Calendar>
Calendar MakeCalendar(int year, int month, int day) {
    Calendar c;
    static_cast<tagDATETIME&>(c) = MakeDate(year, month, day);
    return c;
}

TEST(CalendarClasses, FreshRecordIsZero) {
    CGregorian g;
    EXPECT_EQ(DateOf(g), (Ymd{0, 0, 0}));
    EXPECT_EQ(g.Hour, 0);
    EXPECT_EQ(g.Minute, 0);
    EXPECT_EQ(g.Second, 0.0f);
    EXPECT_EQ(g.WeekDay, 0);
}

TEST(CalendarClasses, MonthLengthsIncludingOutOfRangeMonths) {
    struct Row {
        int year;
        int month;
        int gregorian;
        int julian;
    };
    const Row rows[] = {
        {2001, 1, 31, 31},  {2001, 2, 28, 28},  {2001, 3, 31, 31}, {2001, 4, 30, 30},  {2001, 5, 31, 31},
        {2001, 6, 30, 30},  {2001, 7, 31, 31},  {2001, 8, 31, 31}, {2001, 9, 30, 30},  {2001, 10, 31, 31},
        {2001, 11, 30, 30}, {2001, 12, 31, 31}, {2001, 0, 30, 30}, {2001, 13, 30, 30}, {2001, 14, 30, 30},
        {2001, -1, 30, 30}, {2000, 2, 29, 29},  {1900, 2, 28, 29}, {2004, 2, 29, 29},  {0, 2, 29, 29},
        {-4, 2, 29, 29},    {-1, 2, 28, 28},    {-5, 2, 28, 28},   {-100, 2, 28, 29},
    };
    for (const auto& row : rows) {
        auto g = MakeCalendar<CGregorian>(row.year, 1, 1);
        auto j = MakeCalendar<CJulian>(row.year, 1, 1);
        EXPECT_EQ(g.DaysInMonth(row.month), row.gregorian) << row.year << '/' << row.month;
        EXPECT_EQ(j.DaysInMonth(row.month), row.julian) << row.year << '/' << row.month;
    }
}

TEST(CalendarClasses, YearLengths) {
    struct Row {
        int year;
        short gregorian;
        short julian;
    };
    const Row rows[] = {{2000, 366, 366}, {1900, 365, 366}, {2001, 365, 365}, {0, 366, 366},
                        {-1, 365, 365},   {-4, 366, 366},   {-5, 365, 365},   {1700, 365, 366}};
    for (const auto& row : rows) {
        auto g = MakeCalendar<CGregorian>(row.year, 1, 1);
        auto j = MakeCalendar<CJulian>(row.year, 1, 1);
        EXPECT_EQ(g.DaysInYear(), row.gregorian) << row.year;
        EXPECT_EQ(j.DaysInYear(), row.julian) << row.year;
    }
}

TEST(CalendarClasses, GetYearDay) {
    struct Row {
        int year;
        int month;
        int day;
        int expected;
    };
    const Row rows[] = {
        {2001, 1, 1, 1},     {2001, 3, 1, 60},   {2000, 3, 1, 61},   {2001, 12, 31, 365},
        {2000, 12, 31, 366}, {2001, 13, 1, 366}, {2000, 13, 1, 367}, {2001, 14, 5, 400},
        {2001, 0, 7, 7},     {2001, -3, 7, 7},   {2001, 1, 0, 0},    {2001, 1, -4, -4},
    };
    for (const auto& row : rows) {
        auto g = MakeCalendar<CGregorian>(row.year, row.month, row.day);
        EXPECT_EQ(g.GetYearDay(), row.expected) << row.year << '/' << row.month << '/' << row.day;
    }
}

TEST(CalendarClasses, SetYearDayHasNoUpperBoundOnMonth) {
    struct Row {
        int year;
        int n;
        Ymd expected;
    };
    const Row rows[] = {
        {2001, 1, {2001, 1, 1}},     {2001, 31, {2001, 1, 31}},
        {2001, 32, {2001, 2, 1}},    {2001, 59, {2001, 2, 28}},
        {2001, 60, {2001, 3, 1}},    {2000, 60, {2000, 2, 29}},
        {2001, 365, {2001, 12, 31}}, {2001, 366, {2001, 13, 1}},
        {2000, 366, {2000, 12, 31}}, {2001, 395, {2001, 13, 30}},
        {2001, 396, {2001, 14, 1}},  {2001, 0, {2001, 1, 0}},
        {2001, -5, {2001, 1, -5}},   {2001, 30 * 1000 + 365, {2001, 1012, 30}},
    };
    for (const auto& row : rows) {
        auto g = MakeCalendar<CGregorian>(row.year, 7, 7);
        g.SetYearDay(row.n);
        EXPECT_EQ(DateOf(g), row.expected) << row.n;
    }
}

TEST(CalendarClasses, SetYearDayBeyondSixteenBitMonthsWraps) {
    // Month 32767 is followed by -32768 (a 30-day month), so the walk keeps
    // stepping by 30 days per month.
    auto g = MakeCalendar<CGregorian>(2001, 1, 1);
    g.SetYearDay(365 + 30 * (32767 - 12) + 1);
    EXPECT_EQ(DateOf(g), (Ymd{2001, -32768, 1}));
}

TEST(CGregorian, EllapsedDaysAreDayNumberMinusTwo) {
    struct Row {
        int year;
        int month;
        int day;
        double expected;
    };
    const Row rows[] = {{1, 1, 1, 1.0},     {2000, 1, 1, 730120.0}, {-1, 12, 31, -1.0},
                        {-1, 12, 30, -2.0}, {0, 1, 1, 0.0},         {0, 12, 31, 364.0}};
    for (const auto& row : rows) {
        auto g = MakeCalendar<CGregorian>(row.year, row.month, row.day);
        EXPECT_EQ(g.GetEllapsedDays(), row.expected) << row.year;
        EXPECT_EQ(g.Year, row.year) << "year restored";
    }
}

TEST(CGregorian, SetEllapsedDaysUsesCountWithoutOffset) {
    struct Row {
        double days;
        Ymd expected;
    };
    const Row rows[] = {{1.0, {1, 1, 1}},    {730120.0, {2000, 1, 1}}, {693960.0, {1900, 13, 1}},
                        {0.0, {-1, 12, 31}}, {-1.0, {-1, 12, 30}},     {0.5, {1, 1, 0}}};
    for (const auto& row : rows) {
        CGregorian g;
        g.Hour = 9;
        g.SetEllapsedDays(row.days);
        EXPECT_EQ(DateOf(g), row.expected) << row.days;
        EXPECT_EQ(g.Hour, 9);
    }
}

TEST(CJulian, YearZeroReadsAsOneBcAndStaysThere) {
    auto zero = MakeCalendar<CJulian>(0, 3, 1);
    auto oneBc = MakeCalendar<CJulian>(-1, 3, 1);
    const double expected = -306.0;  // 1 March 1 BC: 1 BC is a leap year, 306 days to its end
    EXPECT_EQ(oneBc.GetEllapsedDays(), expected);
    EXPECT_EQ(zero.GetEllapsedDays(), expected);
    EXPECT_EQ(zero.Year, -1);
    EXPECT_EQ(oneBc.Year, -1);
    auto older = MakeCalendar<CJulian>(-5, 1, 1);
    EXPECT_EQ(older.GetEllapsedDays(), -1827.0);
    EXPECT_EQ(older.Year, -5);
}

TEST(CJulian, SetEllapsedDaysFollowsDayNumberSteps) {
    struct Row {
        double days;
        Ymd expected;
    };
    const Row rows[] = {{1.0, {1, 1, 1}},     {1461.0, {4, 12, 31}},  {-366.0, {-1, 12, 31}},
                        {-1.0, {-1, 12, 30}}, {-731.0, {-2, 12, 31}}, {730135.0, {2000, 1, 1}}};
    for (const auto& row : rows) {
        CJulian j;
        j.Minute = 4;
        j.SetEllapsedDays(row.days);
        EXPECT_EQ(DateOf(j), row.expected) << row.days;
        EXPECT_EQ(j.Minute, 4);
    }
}

// The slot of a virtual operation in its class's table: a pointer to a
// virtual member holds 1 + the slot's byte offset on this platform.
template <class Member>
std::size_t SlotOf(Member member) {
    struct Raw {
        std::uintptr_t pointer;
        std::ptrdiff_t adjustment;
    } raw{};
    static_assert(sizeof(Member) == sizeof(Raw));
    std::memcpy(&raw, &member, sizeof raw);
    return (raw.pointer - 1) / sizeof(void*);
}

TEST(CalendarClasses, SlotOrderOfVirtualOperations) {
    EXPECT_EQ(SlotOf(&CBaseCalendar::GetYearDay), 0u);
    EXPECT_EQ(SlotOf(&CBaseCalendar::SetYearDay), 1u);
    EXPECT_EQ(SlotOf(&CBaseCalendar::DaysInMonth), 2u);
    EXPECT_EQ(SlotOf(&CBaseCalendar::GetEllapsedDays), 3u);
    EXPECT_EQ(SlotOf(&CBaseCalendar::SetEllapsedDays), 4u);
    EXPECT_EQ(SlotOf(&CBaseCalendar::DaysInYear), 5u);
    // Slots 6 and 7 are the two destructor entries.
    EXPECT_EQ(SlotOf(&CBaseCalendar::Save), 8u);
    EXPECT_EQ(SlotOf(&CBaseCalendar::Load), 9u);
}

TEST(CalendarClasses, DeletingThroughTheBaseRunsEachClass) {
    CBaseCalendar* calendars[] = {new CGregorian, new CJulian};
    for (CBaseCalendar* c : calendars) {
        static_cast<tagDATETIME&>(*c) = MakeDate(2001, 3, 1);
        EXPECT_EQ(c->GetYearDay(), 60);
        EXPECT_EQ(c->DaysInYear(), 365);
        delete c;
    }
}

}  // namespace
