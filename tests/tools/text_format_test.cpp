#include "text_format.h"

#include <gtest/gtest.h>

namespace timetool {
namespace {

TEST(ClockOfStarDate, TruncatesToWholeSecondsFromTheMidnightBefore) {
    const struct {
        double starDate;
        const char* clock;
    } cases[] = {
        {739060.0, "00:00:00"},
        {730122.75, "18:00:00"},
        {0.1, "02:24:00"},
        // The worked sunrise and sunset of 21 June 2024 at 43.3 N, 83.045 W:
        // 738888.5 + 171.59733151711325 and 738888.5 + 171.82995345218822.
        {739060.09733151711325, "02:20:09"},
        {739060.32995345218822, "07:55:07"},
        {-0.25, "18:00:00"},
        {2.5, "12:00:00"},
        {730122.99999999, "23:59:59"},
    };
    for (const auto& c : cases) EXPECT_EQ(FormatClock(ClockOfStarDate(c.starDate)), c.clock) << c.starDate;
}

TEST(FormatIsoDate, PadsYearsAndMarksBcWithAMinus) {
    EXPECT_EQ(FormatIsoDate(2024, 6, 21), "2024-06-21");
    EXPECT_EQ(FormatIsoDate(1, 1, 1), "0001-01-01");
    EXPECT_EQ(FormatIsoDate(-44, 3, 15), "-0044-03-15");
    EXPECT_EQ(FormatIsoDate(1900, 13, 1), "1900-13-01");
}

TEST(FormatDateText, UsesEachCalendarsMonthNames) {
    EXPECT_EQ(FormatDateText(0, 2024, 6, 21), "21 June 2024");
    EXPECT_EQ(FormatDateText(1, 1582, 10, 4), "4 October 1582");
    EXPECT_EQ(FormatDateText(0, -44, 3, 15), "15 March 44 BC");
    EXPECT_EQ(FormatDateText(4, 5784, 3, 15), "15 Sivan 5784");
    EXPECT_EQ(FormatDateText(3, 5784, 7, 1), "1 Tishri 5784");
    EXPECT_EQ(FormatDateText(4, 5784, 13, 1), "1 Adar II 5784");
    EXPECT_EQ(FormatDateText(0, 1900, 13, 1), "1 month 13 1900");
    EXPECT_EQ(FormatDateText(6, 2024, 0, 5), "5 month 0 2024");
}

TEST(WeekdayName, CountsFromSunday) {
    EXPECT_EQ(WeekdayName(0), "Sunday");
    EXPECT_EQ(WeekdayName(5), "Friday");
    EXPECT_EQ(WeekdayName(6), "Saturday");
    EXPECT_EQ(WeekdayName(7), "?");
    EXPECT_EQ(WeekdayName(-1), "?");
    EXPECT_EQ(WeekdayShortName(3), "We");
}

TEST(FormatCoordinates, ShowHemisphereLetters) {
    EXPECT_EQ(FormatLatitude(43.3), "43.3 N");
    EXPECT_EQ(FormatLatitude(-33.9), "33.9 S");
    EXPECT_EQ(FormatLongitude(-83.045), "83.045 W");
    EXPECT_EQ(FormatLongitude(2.35), "2.35 E");
    EXPECT_EQ(FormatLongitude(0.0), "0 E");
}

TEST(FormatFixed, RoundsLikePrintf) {
    EXPECT_EQ(FormatFixed(739060.0, 6), "739060.000000");
    EXPECT_EQ(FormatFixed(172.67579, 2), "172.68");
}

}  // namespace
}  // namespace timetool
