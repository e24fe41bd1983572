#include "calendar_kind.h"

#include <gtest/gtest.h>

namespace timetool {
namespace {

TEST(ParseCalendarKind, AcceptsNamesAliasesAndNumbers) {
    const struct {
        const char* text;
        int kind;
    } cases[] = {
        {"gregorian", 0},   {"Gregorian", 0}, {"JULIAN", 1},  {"western", 2}, {"hebrew1", 3},
        {"hebrew-mean", 3}, {"hebrew", 4},    {"hebrew0", 4}, {"adam", 5},    {"generic", 6},
        {"0", 0},           {"3", 3},         {"6", 6},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(ParseCalendarKind(c.text)) << c.text;
        EXPECT_EQ(*ParseCalendarKind(c.text), c.kind) << c.text;
    }
}

TEST(ParseCalendarKind, RefusesEverythingElse) {
    for (const char* text : {"", "7", "-1", "10", "greg", "mayan", "hebrew2", " julian", "06"}) {
        EXPECT_FALSE(ParseCalendarKind(text)) << text;
    }
}

TEST(CalendarKinds, ListsTheSevenKindsInNumberOrder) {
    const auto kinds = CalendarKinds();
    ASSERT_EQ(kinds.size(), 7u);
    const char* keys[] = {"gregorian", "julian", "western", "hebrew1", "hebrew", "adam", "generic"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(kinds[static_cast<std::size_t>(i)].number, i);
        EXPECT_EQ(kinds[static_cast<std::size_t>(i)].key, keys[i]);
        EXPECT_EQ(CalendarKindInfo(i).key, keys[i]);
    }
    EXPECT_EQ(CalendarKindInfo(3).title, "Hebrew (mean)");
}

}  // namespace
}  // namespace timetool
