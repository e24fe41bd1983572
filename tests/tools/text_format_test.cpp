#include "text_format.h"

#include <gtest/gtest.h>

namespace timetool {
namespace {

TEST(SplitStarDate, RoundsToTheNearestSecondOfTheDay) {
    const struct {
        double starDate;
        StarDay day;
        const char* clock;
    } cases[] = {
        {739060.0, 739060, "00:00:00"},
        {730122.75, 730122, "18:00:00"},
        {0.1, 0, "02:24:00"},
        // The module's worked sunrise and sunset of 21 June 2024 at 43.3 N,
        // 83.045 W: 738888.5 + 171.59733151711325 (8409.44 s into the day)
        // and 738888.5 + 171.82995345218822 (28507.98 s).
        {738888.5 + 171.59733151711325, 739060, "02:20:09"},
        {738888.5 + 171.82995345218822, 739060, "07:55:08"},
        {-0.25, -1, "18:00:00"},
        {2.5, 2, "12:00:00"},
        {730122.99999999, 730123, "00:00:00"},  // 0.9 ms before midnight
        {730122.0 + 59.5 / 86400.0, 730122, "00:01:00"},
        {-1.0 / 86400.0 + 719165.0, 719164, "23:59:59"},  // Linux time -1
    };
    for (const auto& c : cases) {
        const ExactInstant instant = SplitStarDate(c.starDate);
        EXPECT_EQ(instant.day, c.day) << c.starDate;
        EXPECT_EQ(FormatClock(instant.second), c.clock) << c.starDate;
    }
}

TEST(FormatIsoDate, UsesAstronomicalYearsWithTheirSign) {
    EXPECT_EQ(FormatIsoDate(2024, 6, 21), "2024-06-21");
    EXPECT_EQ(FormatIsoDate(1, 1, 1), "0001-01-01");
    EXPECT_EQ(FormatIsoDate(0, 12, 31), "0000-12-31");
    EXPECT_EQ(FormatIsoDate(-43, 3, 15), "-0043-03-15");
    EXPECT_EQ(FormatIsoDate(32767, 12, 31), "+32767-12-31");
    EXPECT_EQ(FormatUtcIso(ExactInstant{739060, 64440}), "2024-06-21T17:54:00Z");
    EXPECT_EQ(FormatUtcText(ExactInstant{2, 86399}), "0000-12-31 23:59:59");
}

TEST(FormatDateText, UsesEachCalendarsMonthNamesAndSaysBc) {
    EXPECT_EQ(FormatDateText(0, 2024, 6, 21), "21 June 2024");
    EXPECT_EQ(FormatDateText(1, 1582, 10, 4), "4 October 1582");
    EXPECT_EQ(FormatDateText(0, -43, 3, 15), "15 March 44 BC");
    EXPECT_EQ(FormatDateText(0, 0, 12, 31), "31 December 1 BC");
    EXPECT_EQ(FormatDateText(4, 5784, 3, 15), "15 Sivan 5784");
    EXPECT_EQ(FormatDateText(4, 5784, 12, 1), "1 Adar I 5784");
    EXPECT_EQ(FormatDateText(4, 5783, 12, 1), "1 Adar 5783");
    EXPECT_EQ(FormatDateText(4, 5784, 13, 1), "1 Adar II 5784");
    EXPECT_EQ(FormatDateText(3, 5785, 12, 1), "1 Adar I 5785");  // the mean variant's leap year
    EXPECT_EQ(FormatDateText(3, 5784, 7, 1), "1 Tishri 5784");
    EXPECT_EQ(FormatDateText(0, 1900, 13, 1), "1 month 13 1900");
    EXPECT_EQ(FormatDateText(6, 2024, 0, 5), "5 month 0 2024");
    EXPECT_EQ(FormatMonthTitle(4, 5784, 2), "Iyar 5784");
    EXPECT_EQ(FormatYearText(-43), "44 BC");
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
