// The calendars with an outside truth. Expected values: published Hebrew
// new-year dates (Rosh Hashanah 5780 to 5786) and year lengths, the star
// dates of the module's worked examples, and counts done by hand.
#include "true_calendar.h"

#include <gtest/gtest.h>

namespace timetool {
namespace {

TEST(TrueCalendar, GregorianAndJulianMeetTheStarDate) {
    EXPECT_EQ(DayOfGregorian({2000, 1, 1}), 730122);
    EXPECT_EQ(DayOfGregorian({1970, 1, 1}), 719165);
    EXPECT_EQ(DayOfGregorian({1, 1, 1}), 3);
    EXPECT_EQ(DayOfGregorian({0, 12, 31}), 2);  // 31 December 1 BC
    EXPECT_EQ(DayOfGregorian({1582, 10, 15}), 577738);
    EXPECT_EQ(DayOfJulian({1582, 10, 4}), 577737);
    EXPECT_EQ(DayOfJulian({1, 1, 1}), 1);
    EXPECT_EQ(DayOfJulian({0, 12, 31}), 0);
    EXPECT_EQ(DayOfJulian({2000, 1, 1}), 730135);
    EXPECT_EQ(GregorianOfDay(730122), (CivilDate{2000, 1, 1}));
    EXPECT_EQ(GregorianOfDay(693962), (CivilDate{1900, 12, 31}));
    EXPECT_EQ(GregorianOfDay(2), (CivilDate{0, 12, 31}));
    EXPECT_EQ(JulianOfDay(-366), (CivilDate{-1, 12, 31}));  // 1 BC has 366 days
    EXPECT_EQ(JulianOfDay(-365), (CivilDate{0, 1, 1}));
}

TEST(TrueCalendar, LeapRulesCarryIntoBc) {
    EXPECT_EQ(GregorianMonthLength(0, 2), 29);     // 1 BC
    EXPECT_EQ(GregorianMonthLength(-1, 2), 28);    // 2 BC
    EXPECT_EQ(GregorianMonthLength(-100, 2), 28);  // 101 BC, a century year
    EXPECT_EQ(GregorianMonthLength(-400, 2), 29);
    EXPECT_EQ(JulianMonthLength(-100, 2), 29);
    EXPECT_EQ(JulianMonthLength(1900, 2), 29);
    EXPECT_EQ(GregorianMonthLength(1900, 2), 28);
    EXPECT_EQ(GregorianMonthLength(2024, 6), 30);
}

TEST(TrueCalendar, WesternSwitchesAfter4October1582) {
    EXPECT_EQ(WesternOfDay(577737), (CivilDate{1582, 10, 4}));
    EXPECT_EQ(WesternOfDay(577738), (CivilDate{1582, 10, 15}));
    EXPECT_EQ(DayOfWestern({1582, 10, 4}), 577737);
    EXPECT_EQ(DayOfWestern({1582, 10, 15}), 577738);
    EXPECT_EQ(DayOfWestern({1500, 3, 1}), DayOfJulian({1500, 3, 1}));
    EXPECT_TRUE(InWesternReformGap({1582, 10, 5}));
    EXPECT_TRUE(InWesternReformGap({1582, 10, 14}));
    EXPECT_FALSE(InWesternReformGap({1582, 10, 4}));
    EXPECT_FALSE(InWesternReformGap({1582, 10, 15}));
    EXPECT_EQ(TrueLengths(2, {1582, 10, 20}).daysInMonth, 21);
    EXPECT_EQ(TrueLengths(2, {1582, 10, 20}).daysInYear, 355);
    EXPECT_EQ(TrueLengths(2, {1500, 2, 1}).daysInMonth, 29);  // Julian leap year
    EXPECT_EQ(TrueLengths(2, {1700, 2, 1}).daysInMonth, 28);
}

TEST(TrueCalendar, HebrewNewYearsMatchThePublishedDates) {
    const struct {
        int year;
        CivilDate gregorian;
    } cases[] = {
        {5780, {2019, 9, 30}}, {5781, {2020, 9, 19}}, {5782, {2021, 9, 7}},  {5783, {2022, 9, 26}},
        {5784, {2023, 9, 16}}, {5785, {2024, 10, 3}}, {5786, {2025, 9, 23}},
    };
    for (const auto& c : cases) EXPECT_EQ(HebrewNewYearDay(c.year), DayOfGregorian(c.gregorian)) << c.year;
    EXPECT_EQ(HebrewNewYearDay(1), kHebrewEpochStarDay);
    EXPECT_EQ(kHebrewEpochStarDay, DayOfJulian({-3760, 10, 7}));  // 7 October 3761 BC
}

TEST(TrueCalendar, HebrewYearAndMonthLengths) {
    EXPECT_EQ(HebrewYearLength(5784), 383);
    EXPECT_EQ(HebrewYearLength(5783), 355);
    EXPECT_TRUE(HebrewLeapYear(5784));
    EXPECT_FALSE(HebrewLeapYear(5783));
    EXPECT_EQ(HebrewMonthsInYear(5784), 13);
    EXPECT_EQ(HebrewMonthLength(5784, 8), 29);  // deficient year: short Heshvan and Kislev
    EXPECT_EQ(HebrewMonthLength(5784, 9), 29);
    EXPECT_EQ(HebrewMonthLength(5783, 8), 30);  // complete year: long Heshvan and Kislev
    EXPECT_EQ(HebrewMonthLength(5783, 9), 30);
    EXPECT_EQ(HebrewMonthLength(5784, 12), 30);  // Adar I
    EXPECT_EQ(HebrewMonthLength(5784, 13), 29);
    EXPECT_EQ(HebrewMonthLength(5783, 12), 29);
    EXPECT_EQ(HebrewMonthLength(5783, 13), 0);
    EXPECT_EQ(HebrewMonthLength(5784, 2), 29);
    EXPECT_EQ(HebrewMonthLength(5784, 3), 30);
}

TEST(TrueCalendar, HebrewDatesAndDays) {
    EXPECT_EQ(DayOfHebrew({5784, 3, 15}), DayOfGregorian({2024, 6, 21}));   // 15 Sivan 5784
    EXPECT_EQ(DayOfHebrew({5784, 7, 13}), DayOfGregorian({2023, 9, 28}));   // 13 Tishri 5784
    EXPECT_EQ(DayOfHebrew({5784, 1, 15}), DayOfGregorian({2024, 4, 23}));   // Passover 5784
    EXPECT_EQ(DayOfHebrew({5784, 13, 14}), DayOfGregorian({2024, 3, 24}));  // Purim, 14 Adar II
    EXPECT_EQ(HebrewOfDay(DayOfGregorian({2024, 6, 21})), (CivilDate{5784, 3, 15}));
    EXPECT_EQ(HebrewOfDay(DayOfGregorian({2024, 3, 24})), (CivilDate{5784, 13, 14}));
    EXPECT_EQ(HebrewOfDay(kHebrewEpochStarDay), (CivilDate{1, 7, 1}));
    EXPECT_FALSE(HebrewOfDay(kHebrewEpochStarDay - 1));
    EXPECT_EQ(TrueDateOfDay(4, DayOfGregorian({2024, 6, 21})), (CivilDate{5784, 3, 15}));
}

TEST(TrueCalendar, WeekdaysCountFromSunday) {
    EXPECT_EQ(WeekdayOfDay(730122), 6);  // 1 January 2000, a Saturday
    EXPECT_EQ(WeekdayOfDay(739060), 5);  // 21 June 2024, a Friday
    EXPECT_EQ(WeekdayOfDay(0), 5);       // 31 December 1 BC (Julian), a Friday
}

TEST(TrueCalendar, TheShownYearsAreThoseOfTheSixteenBitField) {
    // 32768 years of 365 days and 7946 leap days lie before 1 January AD 1 (day 3).
    EXPECT_EQ(FirstShownDay(), 3 - (32768 * 365 + 7946));
    EXPECT_EQ(LastShownDay(), 11967902);
    EXPECT_TRUE(IsShownDay(FirstShownDay()));
    EXPECT_FALSE(IsShownDay(FirstShownDay() - 1));
    EXPECT_FALSE(IsShownDay(LastShownDay() + 1));
    EXPECT_EQ(TrueDateOfDay(4, LastShownDay()), std::nullopt);  // Hebrew years past 32767
    EXPECT_FALSE(TrueDateOfDay(3, 739060));                     // the module's own calendar
}

}  // namespace
}  // namespace timetool
