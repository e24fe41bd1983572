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

TEST(RenderMonthGrid, MondayFirstPutsSundayLast) {
    // June 2024 starts on a Saturday.
    std::vector<MonthGridDay> days;
    for (int day = 1; day <= 9; ++day) days.push_back(MonthGridDay{day, (day + 5) % 7, "()"});
    MonthGridLayout layout;
    layout.firstWeekday = 1;
    EXPECT_EQ(RenderMonthGrid("June 2024", days, layout),
              "            June 2024\n"
              "Mo   Tu   We   Th   Fr   Sa   Su\n"
              "                          1()  2()\n"
              " 3()  4()  5()  6()  7()  8()  9()\n");
}

TEST(RenderMonthGrid, WithoutGlyphsCellsAreTwoColumns) {
    std::vector<MonthGridDay> days;
    for (int day = 1; day <= 10; ++day) days.push_back(MonthGridDay{day, (day + 5) % 7, "()"});
    MonthGridLayout layout;
    layout.glyphs = false;
    EXPECT_EQ(MonthGridWidth(layout), 20U);
    EXPECT_EQ(RenderMonthGrid("June", days, layout),
              "        June\n"
              "Su Mo Tu We Th Fr Sa\n"
              "                   1\n"
              " 2  3  4  5  6  7  8\n"
              " 9 10\n");
    layout.firstWeekday = 1;
    EXPECT_EQ(RenderMonthGrid("June", days, layout),
              "        June\n"
              "Mo Tu We Th Fr Sa Su\n"
              "                1  2\n"
              " 3  4  5  6  7  8  9\n"
              "10\n");
}

TEST(DisplayWidth, CountsCharactersAndEmojiAsTwo) {
    EXPECT_EQ(DisplayWidth(""), 0U);
    EXPECT_EQ(DisplayWidth("June 2024"), 9U);
    EXPECT_EQ(DisplayWidth(" 1\xF0\x9F\x8C\x95"), 4U);  // a full-moon glyph
    EXPECT_EQ(DisplayWidth("12\xC2\xB0"), 3U);          // a degree sign
}

TEST(SideBySide, PadsEachBlockToItsWidthAndTrimsTheLine) {
    EXPECT_EQ(SideBySide({"a\nbb\n", "c\n", "d\ne\nf\n"}, 3, 2),
              "a    c    d\n"
              "bb        e\n"
              "          f\n");
    EXPECT_EQ(SideBySide({"\xF0\x9F\x8C\x95\n", "x\n"}, 3, 1), "\xF0\x9F\x8C\x95  x\n");
    EXPECT_EQ(SideBySide({}, 3, 1), "");
}

}  // namespace
}  // namespace timetool
