// The tabulated Hebrew year data and the day-to-date search that reads it,
// pinned to the year rules computed directly (hebrew_direct.h).
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "calendar/hebrew.h"
#include "calendar/hebrew_months.h"
#include "calendar/hebrew_year.h"
#include "calendar/hebrew_year_table.h"
#include "date_fields.h"
#include "hebrew_direct.h"

namespace {

constexpr std::int16_t kFlags[] = {0, 1, 2, -1};

CHebrew MakeHebrew(int year, std::int16_t flag) {
    CHebrew h;
    h.Year = static_cast<std::int16_t>(year);
    h.flag = flag;
    return h;
}

// Converts `days` both ways and compares every field of the record.
void ExpectSameDate(std::int16_t flag, double days) {
    CHebrew tabulated = MakeHebrew(0, flag);
    tabulated.Hour = 3;
    tabulated.WeekDay = 5;
    tagDATETIME direct = tabulated;
    tabulated.SetEllapsedDays(days, 0);
    hebrew_direct::SetEllapsedDays(flag, days, direct);
    ASSERT_EQ(DateOf(tabulated), DateOf(direct)) << "days " << days << " flag " << flag;
    ASSERT_EQ(tabulated.Hour, 3);
    ASSERT_EQ(tabulated.WeekDay, 5);
    ASSERT_EQ(tabulated.flag, flag);
}

TEST(HebrewYearTable, CoversTheYearsOfGregorianDatesFrom1To3000) {
    EXPECT_LE(cal::kHebrewTableFirstYear, 3700);
    EXPECT_GE(cal::kHebrewTableLastYear, 7000);
}

TEST(HebrewYearTable, KnownYearStartsLengthsAndPostponements) {
    struct Row {
        int year;
        std::int32_t start;
        std::int16_t length;
        int postponement;
    };
    // Molad days 2112207, 2112591 and 2114392 plus their postponements.
    const Row rows[] = {{5784, 2112208, 383, 1}, {5785, 2112591, 355, 0}, {5790, 2114394, 383, 2}};
    for (const auto& row : rows) {
        const cal::HebrewYearEntry& entry = cal::HebrewYearTableEntry(row.year, 0);
        EXPECT_EQ(entry.start, row.start) << row.year;
        EXPECT_EQ(entry.length, row.length) << row.year;
        EXPECT_EQ(entry.postponement, row.postponement) << row.year;
    }
    EXPECT_EQ(cal::HebrewYearTableEntry(5785, 1).length, 354);
    EXPECT_EQ(cal::HebrewYearTableEntry(5784, 1).length, 384);
}

TEST(HebrewYearTable, EveryEntryEqualsTheYearRulesUnderBothFlags) {
    for (int flag = 0; flag < 2; ++flag) {
        for (std::int64_t year = cal::kHebrewTableFirstYear; year <= cal::kHebrewTableLastYear; ++year) {
            const cal::HebrewYearEntry& entry = cal::HebrewYearTableEntry(year, flag);
            const cal::HebrewYearStart start = cal::StartOfHebrewYear(year, flag);
            const int length = flag == 0 ? cal::ElapsedDaysYearLength(year) : cal::MonthCountYearLength(year);
            ASSERT_EQ(entry.start, start.Day()) << year << " flag " << flag;
            ASSERT_EQ(entry.postponement, start.postponement) << year << " flag " << flag;
            ASSERT_EQ(entry.length, length) << year << " flag " << flag;
            ASSERT_EQ(entry.monthShape, cal::HebrewMonthShape(length, cal::HebrewLeapYear(year, flag)))
                << year << " flag " << flag;
        }
    }
}

TEST(HebrewMonthShapes, RunningTotalsOfA355DayCommonYear) {
    const auto& end = cal::kHebrewMonthShapes.end[cal::HebrewMonthShape(355, false)];
    const std::int16_t expected[13] = {0, 30, 60, 90, 119, 149, 178, 178, 208, 237, 267, 296, 326};
    for (int i = 0; i < 13; ++i) EXPECT_EQ(end[i], expected[i]) << i;
}

TEST(HebrewMonthShapes, EveryShapeHasTheMonthLengthsOfItsYears) {
    for (int yearLength = 340; yearLength <= 400; ++yearLength) {
        for (const bool leap : {false, true}) {
            int lengths[14];
            hebrew_direct::FillMonthLengths(yearLength, leap, lengths);
            const int shape = cal::HebrewMonthShape(yearLength, leap);
            for (int month = 1; month <= 13; ++month)
                ASSERT_EQ(cal::kHebrewMonthShapes.length[shape][month], lengths[month])
                    << yearLength << (leap ? " leap" : " common") << " month " << month;
        }
    }
}

TEST(HebrewMonthsPassed, EqualsTheMonthWalkForEveryShapeAndDay) {
    const std::int64_t days[] = {1000, 65535, 65536, std::int64_t{1} << 40};
    for (int yearLength = 350; yearLength <= 390; ++yearLength) {
        for (const bool leap : {false, true}) {
            int lengths[14];
            hebrew_direct::FillMonthLengths(yearLength, leap, lengths);
            const int shape = cal::HebrewMonthShape(yearLength, leap);
            const auto check = [&](std::int64_t dayOfYear) {
                std::int64_t remaining = dayOfYear;
                int i = 0;
                while (i < 12 && remaining > lengths[hebrew_direct::kMonthsFromTishri[i]]) {
                    remaining -= lengths[hebrew_direct::kMonthsFromTishri[i]];
                    ++i;
                }
                const int passed = cal::HebrewMonthsPassed(shape, dayOfYear);
                ASSERT_EQ(passed, i) << yearLength << " day " << dayOfYear;
                ASSERT_EQ(dayOfYear - cal::kHebrewMonthShapes.end[shape][passed], remaining);
            };
            for (std::int64_t day = 1; day <= 800; ++day) check(day);
            for (const std::int64_t day : days) check(day);
        }
    }
}

TEST(CHebrewDaysInYear, EqualsTheYearRulesForEvery16BitYearAndFlag) {
    for (const std::int16_t flag : kFlags) {
        CHebrew h = MakeHebrew(5785, flag);
        for (int y = -32768; y <= 32767; ++y) {
            const auto year = static_cast<short>(y);
            short tabulated = -7;
            short direct = -7;
            ASSERT_EQ(h.DaysInYear(year, &tabulated), hebrew_direct::DaysInYear(flag, year, &direct))
                << y << " flag " << flag;
            ASSERT_EQ(tabulated, direct) << y << " flag " << flag;
            ASSERT_EQ(h.DaysInYear(year, nullptr), hebrew_direct::DaysInYear(flag, year, nullptr));
        }
    }
}

TEST(CHebrewDaysInMonth, EqualsTheMonthRulesForEvery16BitYearAndFlag) {
    for (const std::int16_t flag : kFlags) {
        for (int y = -32768; y <= 32767; ++y) {
            CHebrew h = MakeHebrew(y, flag);
            for (int month = -1; month <= 14; ++month)
                ASSERT_EQ(h.DaysInMonth(month, 0), hebrew_direct::DaysInMonth(flag, h.Year, month))
                    << y << '/' << month << " flag " << flag;
        }
    }
}

TEST(CHebrewSetEllapsedDays, EqualsTheDirectSearchForEveryDayOfTheTableAndBeyondBothEnds) {
    for (const std::int16_t flag : {std::int16_t{0}, std::int16_t{1}}) {
        const std::int64_t first = cal::StartOfHebrewYear(cal::kHebrewTableFirstYear, flag).Day() - 1500;
        const std::int64_t last = cal::StartOfHebrewYear(cal::kHebrewTableLastYear + 1, flag).Day() + 1500;
        for (std::int64_t day = first; day <= last; ++day) ExpectSameDate(flag, static_cast<double>(day));
    }
}

// Years 65536 apart share a 16-bit Year, so far years read the table for their
// month lengths.
TEST(CHebrewSetEllapsedDays, EqualsTheDirectSearchWhereThe16BitYearWrapsIntoTheTable) {
    const std::int64_t years[] = {cal::kHebrewTableFirstYear + 65536,
                                  cal::kHebrewTableLastYear + 65536,
                                  cal::kHebrewTableFirstYear - 65536,
                                  cal::kHebrewTableLastYear - 65536,
                                  32767,
                                  -32768,
                                  0,
                                  1};
    for (const std::int16_t flag : kFlags) {
        for (const std::int64_t year : years) {
            const std::int64_t start = cal::StartOfHebrewYear(year, flag).Day();
            for (std::int64_t day = start - 800; day <= start + 800; ++day)
                ExpectSameDate(flag, static_cast<double>(day));
        }
        for (std::int64_t day = -40000000; day <= 40000000; day += 997) ExpectSameDate(flag, static_cast<double>(day));
    }
}

TEST(CHebrewSetEllapsedDays, EqualsTheDirectSearchForFractionsAndValuesOutsideTheDayRange) {
    constexpr double kInf = std::numeric_limits<double>::infinity();
    constexpr double kLimit = 1099511627776.0;  // 2^40
    const double values[] = {std::numeric_limits<double>::quiet_NaN(),
                             -std::numeric_limits<double>::quiet_NaN(),
                             kInf,
                             -kInf,
                             0.0,
                             -0.0,
                             0.5,
                             -0.5,
                             0.999999,
                             -1e-300,
                             std::numeric_limits<double>::denorm_min(),
                             1.0,
                             2.0,
                             2.75,
                             2112591.0,
                             2112590.999999,
                             2112591.5,
                             -2112591.25,
                             kLimit,
                             kLimit - 0.5,
                             kLimit + 1.0,
                             -kLimit,
                             -kLimit - 0.5,
                             -kLimit + 0.5,
                             -kLimit - 1.0,
                             9.0e18,
                             -9.0e18,
                             9.3e18,
                             -9.3e18,
                             1e300,
                             -1e300,
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::lowest()};
    for (const std::int16_t flag : kFlags)
        for (const double days : values) ExpectSameDate(flag, days);
    for (const std::int16_t flag : kFlags)
        for (double days = 1351000.0; days < 1352000.0; days += 0.375) ExpectSameDate(flag, days);
}

TEST(JDNtoHebrew, EqualsTheDirectSearchThroughTheEpochOffset) {
    tagDATETIME ignored;
    JDNtoHebrew(0.0, &ignored, 0);
    const double offset = SDHebrew - 1.0;
    for (const short flag : {short{0}, short{1}, short{5}, short{-3}}) {
        for (double jdn = -100000.0; jdn < 2000000.0; jdn += 3.7) {
            tagDATETIME tabulated = MakeDate(1, 2, 3, 4, 5, 6.0f);
            tagDATETIME direct = tabulated;
            ASSERT_EQ(JDNtoHebrew(jdn, &tabulated, flag), S_OK);
            hebrew_direct::SetEllapsedDays(flag, jdn - offset, direct);
            ASSERT_EQ(DateOf(tabulated), DateOf(direct)) << "jdn " << jdn << " flag " << flag;
            ASSERT_EQ(tabulated.Hour, 4);
            ASSERT_EQ(tabulated.Second, 6.0f);
        }
    }
}

}  // namespace
