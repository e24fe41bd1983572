// The Time component and the system clock: Reset, GetElapsedTime and the
// Linux time stamp.
#include <cmath>
#include <ctime>

#include "time_host.h"

namespace {

struct ClockFields {
    ShortDate date;
    ShortTime time;
    bool operator==(const ClockFields&) const = default;
};

std::ostream& operator<<(std::ostream& out, const ClockFields& f) { return out << f.date << ' ' << f.time; }

ClockFields Broken(std::time_t t, bool utc) {
    const std::tm tm = utc ? *std::gmtime(&t) : *std::localtime(&t);
    return {{static_cast<short>(tm.tm_mday), static_cast<short>(tm.tm_mon + 1), static_cast<short>(tm.tm_year + 1900)},
            {static_cast<short>(tm.tm_hour), static_cast<short>(tm.tm_min), static_cast<double>(tm.tm_sec)}};
}

bool IsGregorianLeap(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

}  // namespace

using TimeClock = TimeHostTest;

TEST_F(TimeClock, ResetInUtcMatchesGmtime) {
    const std::time_t before = std::time(nullptr);
    ASSERT_EQ(time()->Reset(1), S_OK);
    const std::time_t after = std::time(nullptr);
    const ClockFields got{Date(), Time()};
    // A second boundary may pass between the readings.
    EXPECT_TRUE(got == Broken(before, true) || got == Broken(after, true)) << got;
}

TEST_F(TimeClock, ResetInLocalTimeMatchesLocaltime) {
    const std::time_t before = std::time(nullptr);
    ASSERT_EQ(time()->Reset(0), S_OK);
    const std::time_t after = std::time(nullptr);
    const ClockFields got{Date(), Time()};
    EXPECT_TRUE(got == Broken(before, false) || got == Broken(after, false)) << got;
}

TEST_F(TimeClock, ResetStoresGregorianFieldsWhateverTheKind) {
    SetKind(1);
    const std::time_t before = std::time(nullptr);
    ASSERT_EQ(time()->Reset(1), S_OK);
    const std::time_t after = std::time(nullptr);
    const ClockFields got{Date(), Time()};
    EXPECT_TRUE(got == Broken(before, true) || got == Broken(after, true)) << got;
    EXPECT_EQ(time()->get_Calendar(), 1);
    // The star date is the Gregorian one: as a Linux time it is the clock.
    double seconds = 0.0;
    ASSERT_EQ(time()->get_LinuxTime(&seconds), S_OK);
    EXPECT_GE(seconds, static_cast<double>(before) - 0.001);
    EXPECT_LE(seconds, static_cast<double>(after) + 0.001);
    EXPECT_NEAR(seconds, std::round(seconds), 0.001);
}

TEST_F(TimeClock, ElapsedTimeRightAfterResetIsAboutZero) {
    for (short utc : {1, 0}) {
        ASSERT_EQ(time()->Reset(utc), S_OK);
        double seconds = -1.0;
        EXPECT_EQ(time()->GetElapsedTime(&seconds, utc), S_OK);
        EXPECT_GE(seconds, 0.0) << utc;
        EXPECT_LE(seconds, 2.0) << utc;
    }
}

TEST_F(TimeClock, ElapsedTimeWithNullPointerReturnsZero) { EXPECT_EQ(time()->GetElapsedTime(nullptr, 1), S_OK); }

TEST_F(TimeClock, ElapsedTimeFromALaterYearCountsOnlyWithinTheYear) {
    ASSERT_EQ(time()->Reset(1), S_OK);
    const ShortDate now = Date();
    SetDate(now.day, now.month, static_cast<short>(now.year + 4));
    double seconds = -1.0;
    EXPECT_EQ(time()->GetElapsedTime(&seconds, 1), S_OK);
    EXPECT_GE(seconds, 0.0);
    EXPECT_LE(seconds, 2.0);
}

TEST_F(TimeClock, ElapsedTimeFromAnEarlierYearCountsWholeYears) {
    ASSERT_EQ(time()->Reset(1), S_OK);
    const ShortDate now = Date();
    SetDate(now.day, now.month, static_cast<short>(now.year - 4));
    double days = 0.0;
    for (int year = now.year - 4; year < now.year; ++year) days += IsGregorianLeap(year) ? 366 : 365;
    double seconds = -1.0;
    EXPECT_EQ(time()->GetElapsedTime(&seconds, 1), S_OK);
    EXPECT_GE(seconds, days * 86400.0);
    EXPECT_LE(seconds, days * 86400.0 + 2.0);
}

TEST_F(TimeClock, LinuxTimeOfTheEpochIsZero) {
    SetDate(1, 1, 1970);
    double seconds = -1.0;
    EXPECT_EQ(time()->get_LinuxTime(&seconds), S_OK);
    EXPECT_EQ(seconds, 0.0);
}

TEST_F(TimeClock, PutLinuxTimeOfOneDay) {
    EXPECT_EQ(time()->put_LinuxTime(86400.0), S_OK);
    EXPECT_EQ(Date(), (ShortDate{2, 1, 1970}));
    EXPECT_EQ(Time(), (ShortTime{0, 0, 0.0}));
    EXPECT_EQ(StarDate(), 719166.0);
}

TEST_F(TimeClock, PutLinuxTimeReexpressesInSelectedKind) {
    SetKind(1);
    EXPECT_EQ(time()->put_LinuxTime(0.0), S_OK);
    EXPECT_EQ(Date(), (ShortDate{19, 12, 1969}));
    EXPECT_EQ(time()->put_LinuxTime(1e9), S_OK);
    EXPECT_EQ(StarDate(), 1e9 / 86400.0 + 719165.0);
}

TEST_F(TimeClock, LinuxTimeRoundTripOfASecondCount) {
    EXPECT_EQ(time()->put_LinuxTime(1718928000.0), S_OK);  // 2024-06-21 00:00 UTC
    EXPECT_EQ(Date(), (ShortDate{21, 6, 2024}));
    EXPECT_EQ(StarDate(), 739060.0);
    double seconds = 0.0;
    EXPECT_EQ(time()->get_LinuxTime(&seconds), S_OK);
    EXPECT_EQ(seconds, 1718928000.0);
}

TEST_F(TimeClock, GetLinuxTimeFailsBeyondStarDateRange) {
    for (double star : {4294967296.0, -4294967296.0, 1e300}) {
        SetStarDate(star);
        double seconds = 7.0;
        EXPECT_EQ(time()->get_LinuxTime(&seconds), E_FAIL) << star;
        EXPECT_EQ(seconds, 7.0);
        EXPECT_EQ(StarDate(), star);
    }
    SetStarDate(4294967295.0);
    double seconds = 7.0;
    EXPECT_EQ(time()->get_LinuxTime(&seconds), S_OK);
    EXPECT_EQ(seconds, (4294967295.0 - 719165.0) * 86400.0);
}

TEST_F(TimeClock, GetLinuxTimeRejectsNullPointer) { EXPECT_EQ(time()->get_LinuxTime(nullptr), E_POINTER); }
