// Known Hebrew year starts and month totals, from published year data.
#include <gtest/gtest.h>

#include <cstdint>

#include "calendar/hebrew_months.h"
#include "calendar/hebrew_year_table.h"

namespace {

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

TEST(HebrewMonthShapes, RunningTotalsOfA355DayCommonYear) {
    const auto& end = cal::kHebrewMonthShapes.end[cal::HebrewMonthShape(355, false)];
    const std::int16_t expected[13] = {0, 30, 60, 90, 119, 149, 178, 178, 208, 237, 267, 296, 326};
    for (int i = 0; i < 13; ++i) EXPECT_EQ(end[i], expected[i]) << i;
}

TEST(HebrewMonthShapes, LeapYearOf383DaysHasShortHeshvanAndKislevAndAdarII) {
    const auto& length = cal::kHebrewMonthShapes.length[cal::HebrewMonthShape(383, true)];
    EXPECT_EQ(length[8], 29);
    EXPECT_EQ(length[9], 29);
    EXPECT_EQ(length[12], 30);
    EXPECT_EQ(length[13], 29);
}

}  // namespace
