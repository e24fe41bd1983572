#include "time/elapsed_time.h"

#include <gtest/gtest.h>

namespace {

tagDATETIME At(std::int16_t day, std::int16_t month, std::int16_t year, std::int16_t hour = 0, std::int16_t minute = 0,
               float second = 0.0f) {
    tagDATETIME d;
    d.Day = day;
    d.Month = month;
    d.Year = year;
    d.Hour = hour;
    d.Minute = minute;
    d.Second = second;
    return d;
}

struct ElapsedCase {
    const char* what;
    tagDATETIME from;
    tagDATETIME now;
    double seconds;
};

}  // namespace

TEST(ElapsedSeconds, TableOfIntervals) {
    const ElapsedCase cases[] = {
        {"same instant", At(5, 3, 2024, 10, 7, 30.5f), At(5, 3, 2024, 10, 7, 30.5f), 0.0},
        {"one day one second", At(1, 1, 2023), At(2, 1, 2023, 0, 0, 1.0f), 86401.0},
        {"across new year with borrows", At(31, 12, 2022, 23, 59, 59.5f), At(1, 1, 2023), 0.5},
        {"across a leap February", At(28, 2, 2024), At(1, 3, 2024), 2 * 86400.0},
        {"whole leap year", At(1, 1, 2024), At(1, 1, 2025), 366 * 86400.0},
        {"three years", At(1, 1, 2021), At(1, 1, 2024), 1095 * 86400.0},
        {"later year counts within-year difference", At(1, 3, 2030), At(1, 2, 2025), -28 * 86400.0},
        {"later year, same day", At(1, 2, 2030), At(1, 2, 2025, 1), 3600.0},
        {"seconds above sixty", At(1, 1, 2024, 0, 0, -5.5f), At(1, 1, 2024, 0, 0, 56.0f), 61.5},
        {"month thirteen counts a whole year", At(1, 13, 2023), At(1, 1, 2024), 0.0},
        {"out-of-range hours", At(1, 1, 2024, 30), At(1, 1, 2024, 0), -30 * 3600.0},
    };
    for (const ElapsedCase& c : cases) {
        EXPECT_EQ(ElapsedSeconds(c.from, c.now), c.seconds) << c.what;
    }
}

// Hour differences are 16-bit: 23 - (-32768) wraps to -32745, then one day is
// borrowed for 24 hours.
TEST(ElapsedSeconds, HourDifferenceWrapsAtSixteenBits) {
    EXPECT_EQ(ElapsedSeconds(At(1, 1, 2024, -32768), At(1, 1, 2024, 23)), -1 * 86400.0 + -32721 * 3600.0);
}
