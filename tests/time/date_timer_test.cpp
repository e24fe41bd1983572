#include "time/date_timer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace {

struct ExpectedDate {
    std::int16_t day, month, year, hour, minute;
    float second;
};

void ExpectDate(const CDateTimer& t, const ExpectedDate& e) {
    EXPECT_EQ(t.Day, e.day);
    EXPECT_EQ(t.Month, e.month);
    EXPECT_EQ(t.Year, e.year);
    EXPECT_EQ(t.Hour, e.hour);
    EXPECT_EQ(t.Minute, e.minute);
    EXPECT_EQ(t.Second, e.second);
}

CDateTimer FromStatx(std::int64_t seconds, std::uint32_t nanoseconds = 0) {
    struct statx_timestamp ts {};
    ts.tv_sec = seconds;
    ts.tv_nsec = nanoseconds;
    CDateTimer t;
    t.SetLinuxTime(&ts);
    return t;
}

}  // namespace

TEST(CDateTimer, StartsZeroed) {
    const CDateTimer t;
    ExpectDate(t, {0, 0, 0, 0, 0, 0.0f});
    EXPECT_EQ(t.WeekDay, 0);
    EXPECT_EQ(t.LinuxTime, 0);
}

TEST(CDateTimerStatx, FirstOf1972IsDayZeroOfJanuary) { ExpectDate(FromStatx(63072000), {0, 1, 1972, 0, 0, 0.0f}); }

struct StatxCase {
    std::int64_t seconds;
    ExpectedDate expected;
};

TEST(CDateTimerStatx, LeapYearDatesComeOutOneDayEarly) {
    const StatxCase cases[] = {
        {0, {1, 1, 1970, 0, 0, 0.0f}},          {86400, {2, 1, 1970, 0, 0, 0.0f}},
        {31449600, {31, 12, 1970, 0, 0, 0.0f}},  // 364 days
        {31536000, {1, 1, 1971, 0, 0, 0.0f}},    // 365 days
        {63158400, {1, 1, 1972, 0, 0, 0.0f}},    // 2 January 1972
        {65750400, {31, 1, 1972, 0, 0, 0.0f}},   // 1 February 1972
        {68169600, {28, 2, 1972, 0, 0, 0.0f}},   // 29 February 1972
        {94608000, {30, 12, 1972, 0, 0, 0.0f}},  // 31 December 1972
        {94694400, {31, 12, 1972, 0, 0, 0.0f}},  // 1 January 1973
        {94780800, {2, 1, 1973, 0, 0, 0.0f}},    // 2 January 1973
        {946684800, {0, 1, 2000, 0, 0, 0.0f}},   // 1 January 2000
        {951782400, {28, 2, 2000, 0, 0, 0.0f}},  // 29 February 2000
        {-86400, {0, 1, 1970, 0, 0, 0.0f}},     {-1, {0, 1, 1970, 23, 59, 59.0f}},
    };
    for (const StatxCase& c : cases) {
        SCOPED_TRACE(c.seconds);
        ExpectDate(FromStatx(c.seconds), c.expected);
    }
}

TEST(CDateTimerStatx, TimeOfDayAndNanoseconds) {
    ExpectDate(FromStatx(63072000 + 3661, 500000000), {0, 1, 1972, 1, 1, 1.5f});
    ExpectDate(FromStatx(45296, 250000000), {1, 1, 1970, 12, 34, 56.25f});
}

TEST(CDateTimerStatx, LeavesWeekDayAndTimeStampAlone) {
    CDateTimer t;
    t.WeekDay = 4;
    t.LinuxTime = 12345;
    struct statx_timestamp ts {};
    ts.tv_sec = 86400;
    t.SetLinuxTime(&ts);
    EXPECT_EQ(t.WeekDay, 4);
    EXPECT_EQ(t.LinuxTime, 12345);
}

TEST(CDateTimerStatx, NullPointerChangesNothing) {
    CDateTimer t;
    t.Day = 9;
    t.SetLinuxTime(static_cast<struct statx_timestamp*>(nullptr));
    EXPECT_EQ(t.Day, 9);
    EXPECT_EQ(t.Year, 0);
}

class CDateTimerLocal : public ::testing::Test {
protected:
    void SetUp() override {
        const char* tz = std::getenv("TZ");
        had_ = tz != nullptr;
        if (had_) saved_ = tz;
        setenv("TZ", "UTC0", 1);
        tzset();
    }
    void TearDown() override {
        if (had_)
            setenv("TZ", saved_.c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

private:
    bool had_ = false;
    std::string saved_;
};

TEST_F(CDateTimerLocal, SetLinuxTimeBreaksDownLocalTime) {
    CDateTimer t;
    t.WeekDay = 3;
    t.LinuxTime = 77;
    t.SetLinuxTime(86400L + 3600L + 120L + 3L);
    ExpectDate(t, {2, 1, 1970, 1, 2, 3.0f});
    EXPECT_EQ(t.WeekDay, 3);
    EXPECT_EQ(t.LinuxTime, 77);
}

TEST_F(CDateTimerLocal, ResetStoresClockAndWeekDayFromOne) {
    CDateTimer t;
    const std::time_t before = std::time(nullptr);
    t.Reset();
    const std::time_t after = std::time(nullptr);
    EXPECT_GE(t.LinuxTime, before);
    EXPECT_LE(t.LinuxTime, after);
    const std::time_t stamp = t.LinuxTime;
    const std::tm tm = *std::localtime(&stamp);
    ExpectDate(t, {static_cast<std::int16_t>(tm.tm_mday), static_cast<std::int16_t>(tm.tm_mon + 1),
                   static_cast<std::int16_t>(tm.tm_year + 1900), static_cast<std::int16_t>(tm.tm_hour),
                   static_cast<std::int16_t>(tm.tm_min), static_cast<float>(tm.tm_sec)});
    EXPECT_EQ(t.WeekDay, tm.tm_wday + 1);
}
