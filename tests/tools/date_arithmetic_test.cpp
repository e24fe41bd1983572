// Steps of days, weeks, months and years and the whole steps between two
// instants. Expected values come from the date library (Gregorian and
// Julian days, the direct end-of-month clamp), from libhdate (Hebrew days
// and month lengths) and from published dates (Purim 5784 fell on
// 24 March 2024, 14 Adar II).
#include "date_arithmetic.h"

#include <date/date.h>
#include <date/julian.h>
#include <gtest/gtest.h>
#include <hdate.h>

#include <array>
#include <random>

#include "when.h"

namespace timetool {
namespace {

constexpr StarDay kUnixEpoch = 719165;
// A Julian Day Number (noon) less this is the star day.
constexpr StarDay kJulianDayNumberOffset = 1721423;

StarDay StarDayOf(date::sys_days days) { return days.time_since_epoch().count() + kUnixEpoch; }
StarDay Gregorian(int year, unsigned month, unsigned day) {
    return StarDayOf(date::sys_days{date::year{year} / date::month{month} / date::day{day}});
}
StarDay Julian(int year, unsigned month, unsigned day) {
    return StarDayOf(date::sys_days{julian::year{year} / julian::month{month} / julian::day{day}});
}

// libhdate numbers months from Tishri (1) to Elul (12), Adar I and II being
// 13 and 14 in a leap year.
StarDay HebrewByLibhdate(int year, int libhdateMonth, int day) {
    hdate_struct hebrew{};
    hdate_set_hdate(&hebrew, day, libhdateMonth, year);
    return hebrew.hd_jd - kJulianDayNumberOffset;
}

constexpr DateStep Days(std::int64_t n) { return DateStep{n, StepUnit::Day}; }
constexpr DateStep Weeks(std::int64_t n) { return DateStep{n, StepUnit::Week}; }
constexpr DateStep Months(std::int64_t n) { return DateStep{n, StepUnit::Month}; }
constexpr DateStep Years(std::int64_t n) { return DateStep{n, StepUnit::Year}; }

TEST(SplitDateSteps, TakesStepsOffTheEndInTheOrderWritten) {
    const StepSplit split = SplitDateSteps("2024-06-21+40d-1w+2m-3y");
    EXPECT_EQ(split.error, "");
    EXPECT_EQ(split.base, "2024-06-21");
    EXPECT_EQ(split.steps, (std::vector<DateStep>{Days(40), Weeks(-1), Months(2), Years(-3)}));
}

TEST(SplitDateSteps, LeavesTextsWithoutStepsWhole) {
    for (const char* text : {"today", "now", "2024-06-21", "-43-03-15", "sd:739060", "@-86400", "5784-Adar II-14",
                             "2024-06-21T17:54Z", "40d", "2024-06-21+d", "2024-06-21+40x"}) {
        const StepSplit split = SplitDateSteps(text);
        EXPECT_EQ(split.base, text);
        EXPECT_TRUE(split.steps.empty()) << text;
        EXPECT_EQ(split.error, "") << text;
    }
}

TEST(SplitDateSteps, StepsAfterEveryFormOfInstant) {
    EXPECT_EQ(SplitDateSteps("today-3w").base, "today");
    EXPECT_EQ(SplitDateSteps("@-86400+1d").base, "@-86400");
    EXPECT_EQ(SplitDateSteps("-43-03-15-1d").base, "-43-03-15");
    EXPECT_EQ(SplitDateSteps("2024-06-21T17:54:30.5Z+1m").base, "2024-06-21T17:54:30.5Z");
    EXPECT_EQ(SplitDateSteps("2024-06-21+99999999d").steps, (std::vector<DateStep>{Days(99999999)}));
}

TEST(SplitDateSteps, RefusesLongCountsAndStepsWithoutAnInstant) {
    EXPECT_EQ(SplitDateSteps("2024-06-21+123456789d").error, "step count too large (at most 8 digits)");
    EXPECT_EQ(SplitDateSteps("+3d").error, "a step needs an instant before it (as in today+3d)");
    EXPECT_EQ(SplitDateSteps("-3d+1w").error, "a step needs an instant before it (as in today+3d)");
}

TEST(ParseWhen, CarriesTheStepsOfACivilDate) {
    const WhenParse parsed = ParseWhen("2024-01-31T08:00+1m");
    ASSERT_TRUE(parsed.when);
    EXPECT_EQ(parsed.when->civil.day, 31);
    EXPECT_EQ(parsed.when->civil.hour, 8);
    EXPECT_EQ(parsed.when->steps, (std::vector<DateStep>{Months(1)}));
    EXPECT_FALSE(ParseWhen("2024-01-31+1q").when);
}

TEST(StepDay, DaysAndWeeksCountOnTheDayCount) {
    EXPECT_EQ(StepDay(0, Gregorian(2024, 6, 21), Days(40)), Gregorian(2024, 7, 31));
    EXPECT_EQ(StepDay(0, Gregorian(2024, 6, 21), Weeks(-3)), Gregorian(2024, 5, 31));
    // The day after the last Julian day of the Western calendar is its first Gregorian one.
    EXPECT_EQ(StepDay(2, Julian(1582, 10, 4), Days(1)), Gregorian(1582, 10, 15));
    EXPECT_EQ(StepDay(4, Gregorian(2024, 6, 21), Days(-1)), Gregorian(2024, 6, 20));
}

TEST(StepDay, MonthEndsClampUnlikeRunningOver) {
    EXPECT_EQ(StepDay(0, Gregorian(2024, 1, 31), Months(1)), Gregorian(2024, 2, 29));
    EXPECT_EQ(StepDay(0, Gregorian(2023, 1, 31), Months(1)), Gregorian(2023, 2, 28));
    EXPECT_EQ(StepDay(0, Gregorian(2024, 3, 31), Months(-1)), Gregorian(2024, 2, 29));
    EXPECT_EQ(StepDay(0, Gregorian(2024, 2, 29), Years(1)), Gregorian(2025, 2, 28));
    EXPECT_EQ(StepDay(0, Gregorian(2024, 2, 29), Years(4)), Gregorian(2028, 2, 29));
    EXPECT_EQ(StepDay(0, Gregorian(2024, 12, 31), Months(2)), Gregorian(2025, 2, 28));
    EXPECT_EQ(StepDay(0, Gregorian(1, 1, 1), Months(-1)), Gregorian(0, 12, 1));
    EXPECT_EQ(StepDay(1, Julian(1900, 1, 31), Months(1)), Julian(1900, 2, 29));  // a Julian leap year
    EXPECT_EQ(StepDay(1, Julian(-4, 2, 29), Years(-4)), Julian(-8, 2, 29));      // 5 BC and 9 BC
}

TEST(StepDay, EveryDayOf2000To2030PlusOneMonthIsTheDirectClamp) {
    const date::sys_days first{date::year{2000} / 1 / 1};
    const date::sys_days last{date::year{2030} / 12 / 31};
    long checked = 0;
    for (date::sys_days days = first; days <= last; days += date::days{1}) {
        const date::year_month_day ymd{days};
        date::year_month_day next = ymd + date::months{1};
        if (!next.ok()) next = date::year_month_day{date::year_month_day_last{next.year(), next.month() / date::last}};
        const date::year_month_day before = ymd - date::months{1};
        date::year_month_day previous = before;
        if (!previous.ok()) previous = date::year_month_day_last{before.year(), before.month() / date::last};
        ASSERT_EQ(StepDay(0, StarDayOf(days), Months(1)), StarDayOf(date::sys_days{next})) << ymd;
        ASSERT_EQ(StepDay(0, StarDayOf(days), Months(-1)), StarDayOf(date::sys_days{previous})) << ymd;
        ++checked;
    }
    EXPECT_EQ(checked, 11323);
}

TEST(StepDay, WesternStepsAcrossThe1582Reform) {
    struct Case {
        StarDay from;
        DateStep step;
        StarDay expected;
    };
    const std::array<Case, 9> cases{{
        {Julian(1582, 9, 4), Months(1), Julian(1582, 10, 4)},
        {Julian(1582, 9, 5), Months(1), Gregorian(1582, 10, 15)},  // 5 October does not exist
        {Julian(1582, 9, 14), Months(1), Gregorian(1582, 10, 15)},
        {Julian(1582, 9, 30), Months(1), Gregorian(1582, 10, 30)},
        {Gregorian(1582, 10, 15), Months(-1), Julian(1582, 9, 15)},
        {Gregorian(1582, 11, 10), Months(-1), Gregorian(1582, 10, 15)},
        {Julian(1581, 10, 10), Years(1), Gregorian(1582, 10, 15)},
        {Julian(1500, 2, 29), Years(100), Gregorian(1600, 2, 29)},
        {Gregorian(1600, 2, 29), Years(100), Gregorian(1700, 2, 28)},
    }};
    for (const Case& c : cases) EXPECT_EQ(StepDay(2, c.from, c.step), c.expected) << c.from;
    // In the Julian calendar 1700 is a leap year.
    EXPECT_EQ(StepDay(1, Julian(1600, 2, 29), Years(100)), Julian(1700, 2, 29));
}

TEST(StepDay, HebrewMonthsCountThroughAdarIAndAdarII) {
    // 5784 is a leap year, 5783 and 5785 are not. libhdate: 5 Shevat, 6 Adar, 13 Adar I, 14 Adar II, 7 Nisan.
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 5, 10), Months(1)), HebrewByLibhdate(5784, 13, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 13, 10), Months(1)), HebrewByLibhdate(5784, 14, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 14, 10), Months(1)), HebrewByLibhdate(5784, 7, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 14, 10), Months(12)), HebrewByLibhdate(5785, 6, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 14, 10), Months(13)), HebrewByLibhdate(5785, 7, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5783, 5, 10), Months(1)), HebrewByLibhdate(5783, 6, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5783, 6, 10), Months(1)), HebrewByLibhdate(5783, 7, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5785, 7, 10), Months(-1)), HebrewByLibhdate(5785, 6, 10));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 7, 1), Months(-1)), HebrewByLibhdate(5784, 14, 1));
    // 30 Adar I has no day 30 in Adar II: the last day, 29 Adar II.
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 13, 30), Months(1)), HebrewByLibhdate(5784, 14, 29));
    // Elul to Tishri crosses into the next year.
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 12, 29), Months(1)), HebrewByLibhdate(5785, 1, 29));
}

TEST(StepDay, HebrewYearsKeepTheMonthAndPurimStaysInTheLastAdar) {
    // 14 Adar 5783 + 1 year is Purim 5784: 14 Adar II, 24 March 2024.
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5783, 6, 14), Years(1)), Gregorian(2024, 3, 24));
    EXPECT_EQ(HebrewByLibhdate(5784, 14, 14), Gregorian(2024, 3, 24));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 13, 14), Years(1)), HebrewByLibhdate(5785, 6, 14));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 14, 14), Years(1)), HebrewByLibhdate(5785, 6, 14));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 13, 30), Years(1)), HebrewByLibhdate(5785, 6, 29));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 13, 14), Years(3)), HebrewByLibhdate(5787, 13, 14));
    EXPECT_EQ(StepDay(4, HebrewByLibhdate(5784, 3, 15), Years(-1)), HebrewByLibhdate(5783, 3, 15));
}

// The next month in libhdate's numbering, in the order of the year.
std::pair<int, int> NextLibhdateMonth(int year, int month, bool leap) {
    if (month == 5) return {year, leap ? 13 : 6};
    if (month == 13) return {year, 14};
    if (month == 14) return {year, 7};
    if (month == 12) return {year + 1, 1};
    return {year, month + 1};
}

// The day `day` of a libhdate month, or its last day when the month is shorter.
StarDay ClampedByLibhdate(int year, int month, int day) {
    for (; day > 1; --day) {
        hdate_struct hebrew{};
        hdate_set_hdate(&hebrew, day, month, year);
        hdate_struct back{};
        hdate_set_jd(&back, hebrew.hd_jd);
        if (back.hd_day == day && back.hd_mon == month && back.hd_year == year)
            return hebrew.hd_jd - kJulianDayNumberOffset;
    }
    return HebrewByLibhdate(year, month, 1);
}

TEST(StepDay, EveryHebrewDayOf5700To5800PlusOneMonthAgreesWithLibhdate) {
    long checked = 0;
    for (StarDay day = HebrewByLibhdate(5700, 1, 1); day < HebrewByLibhdate(5801, 1, 1); ++day) {
        hdate_struct hebrew{};
        hdate_set_jd(&hebrew, static_cast<int>(day + kJulianDayNumberOffset));
        const auto [year, month] = NextLibhdateMonth(hebrew.hd_year, hebrew.hd_mon, hebrew.hd_size_of_year > 380);
        ASSERT_EQ(StepDay(4, day, Months(1)), ClampedByLibhdate(year, month, hebrew.hd_day))
            << hebrew.hd_day << "/" << hebrew.hd_mon << "/" << hebrew.hd_year;
        ++checked;
    }
    EXPECT_GT(checked, 36500);
}

TEST(StepDay, ResultsOutsideTheShownYearsAreNothing) {
    EXPECT_EQ(StepDay(0, Gregorian(32767, 12, 1), Months(1)), std::nullopt);
    EXPECT_EQ(StepDay(0, Gregorian(32767, 12, 31), Days(1)), std::nullopt);
    EXPECT_EQ(StepDay(0, Gregorian(-32767, 1, 1), Years(-1)), std::nullopt);
    EXPECT_EQ(StepDay(0, Gregorian(2024, 1, 1), Days(kMaxStepCount)), std::nullopt);
    // 1 Tishri AM 1 is 7 October 3761 BC (Julian).
    EXPECT_EQ(StepDay(4, Julian(-3760, 10, 7), Months(-1)), std::nullopt);
    EXPECT_EQ(StepDay(4, Julian(-3760, 10, 7), Months(1)), Julian(-3760, 11, 6));
    EXPECT_EQ(StepDay(3, Gregorian(2024, 1, 1), Months(1)), std::nullopt);
    EXPECT_EQ(StepDay(3, Gregorian(2024, 1, 1), Days(1)), Gregorian(2024, 1, 2));
}

TEST(CountWholeSteps, WorkedIntervals) {
    const ExactInstant jan31{Gregorian(2024, 1, 31), 0};
    const ExactInstant mar1{Gregorian(2024, 3, 1), 0};
    EXPECT_EQ(CountWholeSteps(0, StepUnit::Day, jan31, mar1)->steps, 30);
    const auto weeks = *CountWholeSteps(0, StepUnit::Week, jan31, mar1);
    EXPECT_EQ(weeks.steps, 4);
    EXPECT_EQ(weeks.days, 2);
    const auto months = *CountWholeSteps(0, StepUnit::Month, jan31, mar1);
    EXPECT_EQ(months.steps, 1);
    EXPECT_EQ(months.days, 1);  // 29 February to 1 March
    const auto back = *CountWholeSteps(0, StepUnit::Month, mar1, jan31);
    EXPECT_EQ(back.steps, -1);
    EXPECT_EQ(back.days, -1);
    // Counted from the earlier instant: 31 January + 1 month is 29 February.
    EXPECT_EQ(CountWholeSteps(0, StepUnit::Month, ExactInstant{Gregorian(2024, 2, 29), 0}, jan31)->steps, -1);
    // The time of day travels with each step.
    const auto late = *CountWholeSteps(0, StepUnit::Month, ExactInstant{jan31.day, 43200},
                                       ExactInstant{Gregorian(2024, 2, 29), 39600});
    EXPECT_EQ(late.steps, 0);
    EXPECT_EQ(late.days, 28);
    EXPECT_EQ(late.seconds, 82800);
    const auto years = *CountWholeSteps(0, StepUnit::Year, ExactInstant{Gregorian(2024, 2, 29), 0},
                                        ExactInstant{Gregorian(2028, 2, 28), 0});
    EXPECT_EQ(years.steps, 3);
    EXPECT_EQ(years.days, 365);
}

TEST(CountWholeSteps, HebrewYearOfALeapYearIsThirteenMonths) {
    const ExactInstant tishri5784{HebrewByLibhdate(5784, 1, 1), 0};
    const ExactInstant tishri5785{HebrewByLibhdate(5785, 1, 1), 0};
    EXPECT_EQ(CountWholeSteps(4, StepUnit::Month, tishri5784, tishri5785)->steps, 13);
    EXPECT_EQ(CountWholeSteps(4, StepUnit::Year, tishri5784, tishri5785)->steps, 1);
    EXPECT_EQ(CountWholeSteps(4, StepUnit::Day, tishri5784, tishri5785)->steps, 383);
    EXPECT_EQ(CountWholeSteps(4, StepUnit::Month, ExactInstant{Gregorian(-5000, 1, 1), 0}, tishri5784), std::nullopt);
}

TEST(CountWholeSteps, RandomPairsAgreeWithTheDateLibrary) {
    std::mt19937_64 random(20261124);
    std::uniform_int_distribution<StarDay> days(Gregorian(-9999, 1, 1), Gregorian(9999, 12, 31));
    std::uniform_int_distribution<int> seconds(0, 86399);
    for (int i = 0; i < 3000; ++i) {
        const ExactInstant from{days(random), seconds(random)};
        const ExactInstant to{days(random), seconds(random)};
        const std::int64_t total = (to.day - from.day) * 86400 + (to.second - from.second);
        const auto whole = *CountWholeSteps(0, StepUnit::Day, from, to);
        ASSERT_EQ(whole.steps * 86400 + whole.seconds, total);
        ASSERT_EQ(whole.days, 0);
        const auto weeks = *CountWholeSteps(0, StepUnit::Week, from, to);
        ASSERT_EQ(weeks.steps * 7 + weeks.days, whole.steps);
        // Whole months from the earlier date: the direct clamp of m months lands
        // no later than the later instant, that of m + 1 months after it.
        const bool backwards = total < 0;
        const ExactInstant& earlier = backwards ? to : from;
        const ExactInstant& later = backwards ? from : to;
        const auto months = *CountWholeSteps(0, StepUnit::Month, from, to);
        const std::int64_t m = backwards ? -months.steps : months.steps;
        const auto clamp = [&](std::int64_t count) {
            const date::year_month_day start{date::sys_days{date::days{earlier.day - kUnixEpoch}}};
            date::year_month_day moved = start + date::months{count};
            if (!moved.ok()) moved = date::year_month_day_last{moved.year(), moved.month() / date::last};
            return ExactInstant{StarDayOf(date::sys_days{moved}), earlier.second};
        };
        const auto notAfter = [&](const ExactInstant& a) {
            return a.day < later.day || (a.day == later.day && a.second <= later.second);
        };
        ASSERT_GE(m, 0);
        ASSERT_TRUE(notAfter(clamp(m)));
        ASSERT_FALSE(notAfter(clamp(m + 1)));
        const std::int64_t left = (later.day - clamp(m).day) * 86400 + (later.second - earlier.second);
        ASSERT_EQ(backwards ? -months.days : months.days, left / 86400);
    }
}

}  // namespace
}  // namespace timetool
