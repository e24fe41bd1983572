// Date -> day number -> date over wide random ranges. AD dates come back
// unchanged apart from the two Gregorian year-end classes; BC dates follow
// the complement-year counts, which put them one day earlier (the Julian
// calendar only in the years the complement makes leap years), with the
// classes at 1 January and 31 December listed below and counted exactly.
#include <gtest/gtest.h>

#include <random>

#include "calendar/day_numbers.h"
#include "calendar/hebrew.h"
#include "calendar/month_rules.h"
#include "date_fields.h"
#include "hebrew_year_start.h"
#include "time/conversions.h"

namespace {

constexpr int kSamples = 200000;

struct Calendar {
    double (*toDayNumber)(const tagDATETIME*);
    HRESULT (*fromDayNumber)(double, tagDATETIME*);
    bool (*leap)(std::int16_t);
};
const Calendar kGregorian{GregorianToJDN, JDNtoGregorian, cal::GregorianLeap};
const Calendar kJulian{JulianToJDN, JDNtoJulian, cal::JulianLeap};

// BC year Y is laid out like year ~Y (the complement) in the conversions.
std::int16_t LayoutYear(int year) { return static_cast<std::int16_t>(year > 0 ? year : ~year); }

Ymd RoundTrip(const Calendar& c, const Ymd& d) {
    const tagDATETIME in = MakeDate(d.year, d.month, d.day);
    tagDATETIME out;
    c.fromDayNumber(c.toDayNumber(&in), &out);
    return DateOf(out);
}

// The date one year-day earlier in the same year: 1 January becomes day 0.
Ymd OneDayEarlier(const Calendar& c, const Ymd& d) {
    const bool leap = c.leap(LayoutYear(d.year));
    std::int16_t day = 0;
    std::int16_t month = 0;
    cal::SetYearDay(cal::YearDay(d.day, d.month, leap) - 1, leap, &day, &month);
    return Ymd{d.year, month, day};
}

Ymd RandomDate(std::mt19937& random, const Calendar& c, int firstYear, int lastYear) {
    std::uniform_int_distribution<int> years(firstYear, lastYear);
    std::uniform_int_distribution<int> months(1, 12);
    const int year = years(random);
    const int month = months(random);
    std::uniform_int_distribution<int> days(1, cal::MonthLength(month, c.leap(LayoutYear(year))));
    return Ymd{year, month, days(random)};
}

TEST(RoundTripGregorian, AdDatesComeBackUnchangedExceptYearEnds) {
    std::mt19937 random(20240101);
    for (int i = 0; i < kSamples; ++i) {
        const Ymd d = RandomDate(random, kGregorian, 1, 32767);
        if (d.month == 12 && d.day >= 30 && d.year % 100 == 0) continue;  // year ends, below
        ASSERT_EQ(RoundTrip(kGregorian, d), d);
    }
    // Year ends: 31 December of a century year not divisible by 400 comes
    // back as day 1 of month 13, 30 December of a year divisible by 400 as
    // 31 December.
    for (int year = 100; year <= 32700; year += 100) {
        const Ymd last{year, 12, 31};
        const Ymd beforeLast{year, 12, 30};
        if (year % 400 != 0) {
            ASSERT_EQ(RoundTrip(kGregorian, last), (Ymd{year, 13, 1}));
            ASSERT_EQ(RoundTrip(kGregorian, beforeLast), beforeLast);
        } else {
            ASSERT_EQ(RoundTrip(kGregorian, last), last);
            ASSERT_EQ(RoundTrip(kGregorian, beforeLast), last);
        }
    }
}

TEST(RoundTripGregorian, BcDatesComeBackOneDayEarly) {
    std::mt19937 random(20240102);
    for (int i = 0; i < kSamples; ++i) {
        const Ymd d = RandomDate(random, kGregorian, -32767, -1);
        if (d.month == 1 && d.day == 1) continue;  // counted below
        ASSERT_EQ(RoundTrip(kGregorian, d), OneDayEarlier(kGregorian, d)) << d;
    }
}

TEST(RoundTripGregorian, BcDateWithTimeOfDayComesBackOnItsDay) {
    // The count is truncated toward zero, so a fraction of a day moves a
    // negative count up to the whole day the date was counted from.
    const tagDATETIME in = MakeDate(-1, 12, 31, 12);
    EXPECT_EQ(GregorianToJDN(&in), 1.5);
    tagDATETIME out;
    JDNtoGregorian(1.5, &out);
    EXPECT_EQ(DateOf(out), (Ymd{-1, 12, 31}));
    EXPECT_EQ(out.Hour, 12);
}

TEST(RoundTripGregorian, BcFirstOfJanuaryClasses) {
    int dayZero = 0;                // the documented one day earlier, as day 0 of January
    int thirtiethOfYearBefore = 0;  // complement year is a leap year: two days earlier
    int dayMinusOne = 0;            // years -100, -200 ...: day -1 of January
    for (int year = -32767; year <= -1; ++year) {
        const Ymd back = RoundTrip(kGregorian, Ymd{year, 1, 1});
        if (back == Ymd{year, 1, 0}) {
            ++dayZero;
        } else if (back == Ymd{year - 1, 12, 30} && cal::GregorianLeap(LayoutYear(year))) {
            ++thirtiethOfYearBefore;
        } else if (back == Ymd{year, 1, -1} && year % 100 == 0) {
            ++dayMinusOne;
        } else {
            ADD_FAILURE() << year << " -> " << back;
        }
    }
    EXPECT_EQ(dayZero, 24494);
    EXPECT_EQ(thirtiethOfYearBefore, 7946);
    EXPECT_EQ(dayMinusOne, 327);
}

TEST(RoundTripJulian, AdDatesComeBackUnchanged) {
    std::mt19937 random(20240103);
    for (int i = 0; i < kSamples; ++i) {
        const Ymd d = RandomDate(random, kJulian, 1, 32767);
        ASSERT_EQ(RoundTrip(kJulian, d), d);
    }
}

TEST(RoundTripJulian, BcDatesByComplementYear) {
    // Years -1, -5, -9 ... (complement divisible by 4) come back one day
    // early; the other BC years come back unchanged.
    std::mt19937 random(20240104);
    for (int i = 0; i < kSamples; ++i) {
        const Ymd d = RandomDate(random, kJulian, -32767, -1);
        if ((d.month == 1 && d.day == 1) || (d.month == 12 && d.day == 31)) continue;  // counted below
        const bool shifted = cal::JulianLeap(LayoutYear(d.year));
        ASSERT_EQ(RoundTrip(kJulian, d), shifted ? OneDayEarlier(kJulian, d) : d) << d;
    }
}

TEST(RoundTripJulian, BcYearEndClasses) {
    int firstToSameYearEnd = 0;  // 1 January of years -1, -5 ...: day 0 repaired to 31 December
    int firstUnchanged = 0;
    int lastToNextYear = 0;   // 31 December of the other years: 31 December of the year after
    int lastOneDayEarly = 0;  // 31 December of years -1, -5 ...
    for (int year = -32767; year <= -1; ++year) {
        const bool shifted = cal::JulianLeap(LayoutYear(year));
        const Ymd first = RoundTrip(kJulian, Ymd{year, 1, 1});
        const Ymd last = RoundTrip(kJulian, Ymd{year, 12, 31});
        if (shifted && first == Ymd{year, 12, 31}) {
            ++firstToSameYearEnd;
        } else if (!shifted && first == Ymd{year, 1, 1}) {
            ++firstUnchanged;
        } else {
            ADD_FAILURE() << year << "-1-1 -> " << first;
        }
        if (!shifted && last == Ymd{year + 1, 12, 31}) {
            ++lastToNextYear;
        } else if (shifted && last == Ymd{year, 12, 30}) {
            ++lastOneDayEarly;
        } else {
            ADD_FAILURE() << year << "-12-31 -> " << last;
        }
    }
    EXPECT_EQ(firstToSameYearEnd, 8192);
    EXPECT_EQ(firstUnchanged, 24575);
    EXPECT_EQ(lastToNextYear, 24575);
    EXPECT_EQ(lastOneDayEarly, 8192);
}

TEST(RoundTripWestern, JulianBeforeReformGregorianAfter) {
    const Calendar western{WesternToJDN, JDNtoWestern, cal::JulianLeap};
    std::mt19937 random(20240105);
    for (int i = 0; i < kSamples; ++i) {
        const Ymd d = RandomDate(random, kJulian, 1, 1581);
        ASSERT_EQ(RoundTrip(western, d), d);
    }
    const Calendar westernLate{WesternToJDN, JDNtoWestern, cal::GregorianLeap};
    for (int i = 0; i < kSamples; ++i) {
        const Ymd d = RandomDate(random, kGregorian, 1583, 32767);
        const Ymd back = RoundTrip(westernLate, d);
        if (d.month == 12 && d.day >= 30 && d.year % 100 == 0) continue;  // Gregorian year ends
        ASSERT_EQ(back, d);
    }
    // 4 to 14 October 1582 are read as Gregorian dates and come back as the
    // Julian dates of the same days, 24 September to 4 October.
    for (int day = 4; day <= 14; ++day) {
        const Ymd expected = day <= 10 ? Ymd{1582, 9, day + 20} : Ymd{1582, 10, day - 10};
        EXPECT_EQ(RoundTrip(westernLate, Ymd{1582, 10, day}), expected) << day;
    }
    EXPECT_EQ(RoundTrip(westernLate, Ymd{1582, 10, 15}), (Ymd{1582, 10, 15}));
    EXPECT_EQ(RoundTrip(western, Ymd{1582, 10, 3}), (Ymd{1582, 10, 3}));
}

// Hebrew flag 0: a date's day count by the year-start rule gives the date
// back, except in year 0, whose 13 months add up to more days than lie
// between its start and the start of year 1.
TEST(RoundTripHebrew, YearStartCountOverAllYears) {
    std::mt19937 random(20240106);
    std::uniform_int_distribution<int> years(-32767, 32766);
    for (int i = 0; i < kSamples; ++i) {
        const int year = years(random);
        CHebrew lengths;
        lengths.Year = static_cast<std::int16_t>(year);
        std::int64_t count = test_hebrew::YearStart(year, 0);
        std::uniform_int_distribution<int> slots(0, 12);
        const int slot = slots(random);
        for (int s = 0; s < slot; ++s) count += lengths.DaysInMonth(test_hebrew::kMonthOrder[s], 0);
        const std::int16_t month = test_hebrew::kMonthOrder[slot];
        const int length = lengths.DaysInMonth(month, 0);
        if (length == 0 || year == 0) continue;
        std::uniform_int_distribution<int> days(1, length);
        const int day = days(random);
        CHebrew h;
        h.SetEllapsedDays(static_cast<double>(count + day - 1), 0);
        ASSERT_EQ(DateOf(h), (Ymd{year, month, day})) << count;
    }
}

TEST(RoundTripHebrew, YearZeroOverrunsIntoYearOne) {
    // Year 0: 13 months of 384 days in all, 354 days to the start of year 1.
    CHebrew lengths;
    lengths.Year = 0;
    std::int64_t count = test_hebrew::YearStart(0, 0);
    int same = 0;
    int intoYearOne = 0;
    for (const std::int16_t month : test_hebrew::kMonthOrder) {
        for (int day = 1; day <= lengths.DaysInMonth(month, 0); ++day, ++count) {
            CHebrew h;
            h.SetEllapsedDays(static_cast<double>(count), 0);
            if (DateOf(h) == Ymd{0, month, day}) {
                ++same;
            } else if (h.Year == 1 && h.Month == 7) {
                ++intoYearOne;
            } else {
                ADD_FAILURE() << month << '/' << day << " -> " << DateOf(h);
            }
        }
    }
    EXPECT_EQ(same, 354);
    EXPECT_EQ(intoYearOne, 30);
}

// Either flag: day count -> date -> day count by the flag's own year start
// and month lengths gives the count back.
TEST(RoundTripHebrew, DayCountComesBackForBothFlags) {
    std::mt19937 random(20240107);
    std::uniform_int_distribution<std::int64_t> counts(-11900000, 11900000);
    for (int flag = 0; flag < 2; ++flag) {
        for (int i = 0; i < kSamples; ++i) {
            const std::int64_t count = counts(random);
            CHebrew h;
            h.flag = static_cast<std::int16_t>(flag);
            h.SetEllapsedDays(static_cast<double>(count), 0);
            std::int64_t back = test_hebrew::YearStart(h.Year, flag);
            for (const std::int16_t month : test_hebrew::kMonthOrder) {
                if (month == h.Month) break;
                back += h.DaysInMonth(month, 0);
            }
            back += h.Day - 1;
            ASSERT_EQ(back, count) << "flag " << flag << ' ' << DateOf(h);
        }
    }
}

}  // namespace
