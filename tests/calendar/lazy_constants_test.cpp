// The lazily filled day-number constants: filled when found at 0.0, reused
// (never recomputed) otherwise.
#include <gtest/gtest.h>

#include "calendar/day_numbers.h"
#include "calendar/hebrew.h"
#include "date_fields.h"
#include "time/conversions.h"
#include "time/linux_epoch.h"

namespace {

TEST(SDPopeGregory, ReusedWhenSetAndFilledWhenZero) {
    const tagDATETIME date = MakeDate(10, 1, 1);  // Julian day 3288, Gregorian day 3290
    SDPopeGregory = 1000.0;
    EXPECT_EQ(WesternToJDN(&date), 3290.0);
    EXPECT_EQ(SDPopeGregory, 1000.0);
    SDPopeGregory = 0.0;
    EXPECT_EQ(WesternToJDN(&date), 3288.0);
    EXPECT_EQ(SDPopeGregory, 577737.0);
    SDPopeGregory = 0.0;
    tagDATETIME out;
    JDNtoWestern(577738.0, &out);
    EXPECT_EQ(SDPopeGregory, 577737.0);
    EXPECT_EQ(DateOf(out), (Ymd{1582, 10, 15}));
}

TEST(SDHebrew, ReusedWhenSetAndFilledWhenZero) {
    const tagDATETIME date = MakeDate(1, 7, 1);  // no months before year 1
    SDHebrew = 100.0;
    EXPECT_EQ(HebrewToJDN(&date, 0), 100.0);
    EXPECT_EQ(SDHebrew, 100.0);
    SDHebrew = 0.0;
    EXPECT_EQ(HebrewToJDN(&date, 0), -1373426.0);
    EXPECT_EQ(SDHebrew, -1373426.0);
    SDHebrew = 0.0;
    tagDATETIME out;
    JDNtoHebrew(739164.0, &out, 0);
    EXPECT_EQ(SDHebrew, -1373426.0);
    EXPECT_EQ(DateOf(out), (Ymd{5785, 7, 1}));
}

}  // namespace

namespace {

TEST(SDLinux, ReusedWhenSetAndFilledWhenZero) {
    SDLinux = 500.0;
    EXPECT_EQ(LinuxEpochStarDate(), 500.0);
    SDLinux = 0.0;
    EXPECT_EQ(LinuxEpochStarDate(), 719165.0);
    EXPECT_EQ(SDLinux, 719165.0);
}

}  // namespace
