#include "month_grid.h"

#include <gtest/gtest.h>

namespace timetool {
namespace {

TEST(RenderMonthGrid, LaysOutJune2024FromSaturday) {
    std::vector<MonthGridDay> days;
    for (int day = 1; day <= 30; ++day) days.push_back(MonthGridDay{day, (day + 5) % 7, "()"});
    const std::string expected =
        "            June 2024\n"
        "Su   Mo   Tu   We   Th   Fr   Sa\n"
        "                               1()\n"
        " 2()  3()  4()  5()  6()  7()  8()\n"
        " 9() 10() 11() 12() 13() 14() 15()\n"
        "16() 17() 18() 19() 20() 21() 22()\n"
        "23() 24() 25() 26() 27() 28() 29()\n"
        "30()\n";
    EXPECT_EQ(RenderMonthGrid("June 2024", days), expected);
}

TEST(RenderMonthGrid, PadsOneColumnGlyphs) {
    const std::vector<MonthGridDay> days{{1, 0, "?"}, {2, 1, "?"}};
    EXPECT_EQ(RenderMonthGrid("X", days),
              "                X\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              " 1?   2?\n");
}

TEST(RenderMonthGrid, StartsANewLineWhenWeekdaysRepeat) {
    // Hebrew months of one year may share day numbers: a repeat of Sunday opens a new week.
    const std::vector<MonthGridDay> days{{1, 0, "()"}, {2, 0, "()"}};
    EXPECT_EQ(RenderMonthGrid("", days),
              "\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              " 1()\n"
              " 2()\n");
}

TEST(RenderMonthGrid, SkippedDaysKeepTheirWeekdays) {
    // October 1582 in the Western calendar: Thursday 4 is followed by Friday 15.
    const std::vector<MonthGridDay> days{{1, 1, "()"},  {2, 2, "()"},  {3, 3, "()"}, {4, 4, "()"},
                                         {15, 5, "()"}, {16, 6, "()"}, {17, 0, "()"}};
    EXPECT_EQ(RenderMonthGrid("October 1582", days),
              "           October 1582\n"
              "Su   Mo   Tu   We   Th   Fr   Sa\n"
              "      1()  2()  3()  4() 15() 16()\n"
              "17()\n");
}

TEST(RenderMonthGrid, EmptyMonthHasOnlyTheHeader) {
    EXPECT_EQ(RenderMonthGrid("T", {}), "                T\nSu   Mo   Tu   We   Th   Fr   Sa\n");
}

}  // namespace
}  // namespace timetool
