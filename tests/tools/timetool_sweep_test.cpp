// Day-by-day sweeps through timetool's own reading and showing code, in
// process: a date typed as WHEN in a calendar lands on its day and the day
// is shown as that date. References: the date library for the Gregorian,
// Julian and Western calendars and for Linux time, libhdate for the Hebrew
// calendar. TIMETOOL_SWEEP_STRIDE (default 1) visits every Nth day only, for
// the slower sanitizer builds.
#include <date/date.h>
#include <date/julian.h>
#include <gtest/gtest.h>
#include <hdate.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "calendar_line.h"
#include "text_format.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {
namespace {

constexpr StarDay kUnixEpoch = 719165;  // 1970-01-01

long Stride() {
    static const long stride = [] {
        const char* text = std::getenv("TIMETOOL_SWEEP_STRIDE");
        const long value = text ? std::strtol(text, nullptr, 10) : 1;
        return value > 0 ? value : 1;
    }();
    return stride;
}

std::string WhenText(int year, int month, int day) {
    char buffer[48];
    std::snprintf(buffer, sizeof buffer, "%s%04d-%02d-%02d", year < 0 ? "-" : "", std::abs(year), month, day);
    return buffer;
}

class TimetoolSweep : public ::testing::Test {
public:
    TimetoolSweep() : context_(CAL_BUILD_DIR "/_binlinux", "") {}

    // Reads `text` in `kind` and checks both directions: the day it lands on
    // and the date the calendar line shows for that day.
    void ExpectRoundTrip(int kind, const std::string& text, StarDay day, const CivilDate& date) {
        double starDate = 0.0;
        try {
            starDate = context_.reader().StarDate(text, kind);
        } catch (const ToolError& e) {
            FAIL() << e.message;
        }
        ASSERT_EQ(starDate, static_cast<double>(day)) << text;
        const CalendarLine line = DescribeCalendarDay(context_.dates(), kind, day);
        ASSERT_TRUE(line.date) << text;
        ASSERT_EQ(*line.date, date) << text;
    }

protected:
    ToolContext context_;
};

// Module month numbers (1 = Nisan) of libhdate's (1 = Tishri, 13 and 14 =
// Adar I and II).
int ModuleHebrewMonth(int libhdateMonth) {
    if (libhdateMonth == 13) return 12;
    if (libhdateMonth == 14) return 13;
    return libhdateMonth <= 6 ? libhdateMonth + 6 : libhdateMonth - 6;
}

constexpr const char* kHebrewMonthNames[] = {"",       "Nisan",   "Iyar",   "Sivan", "Tammuz", "Av",   "Elul",
                                             "Tishri", "Heshvan", "Kislev", "Tevet", "Shevat", "Adar", "Adar II"};

TEST_F(TimetoolSweep, EveryHebrewDayFrom1800To2200LandsOnItsDay) {
    const long stride = Stride();
    const StarDay first = date::sys_days{date::year{1800} / 1 / 1}.time_since_epoch().count() + kUnixEpoch;
    const StarDay last = date::sys_days{date::year{2200} / 12 / 31}.time_since_epoch().count() + kUnixEpoch;
    long checked = 0;
    for (StarDay day = first; day <= last; day += stride) {
        const date::year_month_day gregorian{date::sys_days{date::days{day - kUnixEpoch}}};
        hdate_struct hebrew{};
        hdate_set_gdate(&hebrew, static_cast<int>(static_cast<unsigned>(gregorian.day())),
                        static_cast<int>(static_cast<unsigned>(gregorian.month())), static_cast<int>(gregorian.year()));
        const int month = ModuleHebrewMonth(hebrew.hd_mon);
        const bool leap = hebrew.hd_size_of_year > 380;
        std::string text;
        if (checked % 2 == 0) {
            text = WhenText(hebrew.hd_year, month, hebrew.hd_day);
        } else {
            // Every other day by name; Adar of a leap year is Adar I.
            const std::string name = month == 12 && leap ? "Adar I" : kHebrewMonthNames[month];
            text = std::to_string(hebrew.hd_year) + "-" + name + "-" + (hebrew.hd_day < 10 ? "0" : "") +
                   std::to_string(hebrew.hd_day);
        }
        ExpectRoundTrip(4, text, day, CivilDate{hebrew.hd_year, month, hebrew.hd_day});
        if (HasFatalFailure()) return;
        ++checked;
    }
    EXPECT_GE(checked, (last - first) / stride);
}

// The date of a day in the date library's Gregorian or Julian calendar.
template <class YearMonthDay>
CivilDate DateOf(date::sys_days days) {
    const YearMonthDay ymd{days};
    return CivilDate{static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
                     static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

// Every Stride()th day from `first` to `last`, typed as WHEN in `kind` and
// expected back as the date `dateOf` gives.
template <class DateOfDay>
void SweepDays(TimetoolSweep& sweep, int kind, date::sys_days first, date::sys_days last, DateOfDay dateOf) {
    const date::days stride{Stride()};
    for (date::sys_days days = first; days <= last; days += stride) {
        const CivilDate date = dateOf(days);
        sweep.ExpectRoundTrip(kind, WhenText(date.year, date.month, date.day),
                              days.time_since_epoch().count() + kUnixEpoch, date);
        if (::testing::Test::HasFatalFailure()) return;
    }
}

TEST_F(TimetoolSweep, EveryGregorianDayOfYearsMinus9999To9999ComesBackAsGiven) {
    SweepDays(*this, 0, date::sys_days{date::year{-9999} / 1 / 1}, date::sys_days{date::year{9999} / 12 / 31},
              DateOf<date::year_month_day>);
}

TEST_F(TimetoolSweep, EveryJulianDayOfYearsMinus9999To9999ComesBackAsGiven) {
    SweepDays(*this, 1, date::sys_days{julian::year_month_day{julian::year{-9999}, julian::month{1}, julian::day{1}}},
              date::sys_days{julian::year_month_day{julian::year{9999}, julian::month{12}, julian::day{31}}},
              DateOf<julian::year_month_day>);
}

TEST_F(TimetoolSweep, EveryWesternDayFrom1500To1700ComesBackAsGiven) {
    const date::sys_days reform{date::year{1582} / 10 / 15};
    SweepDays(*this, 2, date::sys_days{julian::year_month_day{julian::year{1500}, julian::month{1}, julian::day{1}}},
              date::sys_days{date::year{1700} / 12 / 31}, [reform](date::sys_days days) {
                  return days < reform ? DateOf<julian::year_month_day>(days) : DateOf<date::year_month_day>(days);
              });
}

// "YYYY-MM-DD HH:MM:SS" of a Linux time, by the date library.
std::string ReferenceUtc(long long seconds) {
    const date::sys_seconds instant{std::chrono::seconds{seconds}};
    const date::sys_days days = date::floor<date::days>(instant);
    const date::year_month_day ymd{days};
    const date::hh_mm_ss<std::chrono::seconds> clock{instant - days};
    char buffer[64];
    const int year = static_cast<int>(ymd.year());
    std::snprintf(buffer, sizeof buffer, "%s%04d-%02u-%02u %02d:%02d:%02d", year < 0 ? "-" : (year > 9999 ? "+" : ""),
                  std::abs(year), static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    return buffer;
}

TEST_F(TimetoolSweep, LinuxTimesOverTheWholeRangeShowTheirOwnSecond) {
    const long long first = (date::sys_days{date::year{-32767} / 1 / 1}.time_since_epoch().count()) * 86400LL;
    const long long last = (date::sys_days{date::year{32767} / 12 / 31}.time_since_epoch().count()) * 86400LL + 86399;
    std::mt19937_64 random(20240621);
    std::uniform_int_distribution<long long> pick(first, last);
    const long count = 400000 / Stride();
    for (long i = 0; i < count; ++i) {
        const long long seconds = i < 4 ? (i < 2 ? first + i : last - (i - 2)) : pick(random);
        const double starDate = context_.reader().StarDate("@" + std::to_string(seconds), 0);
        ASSERT_EQ(FormatUtcText(SplitStarDate(starDate)), ReferenceUtc(seconds)) << seconds;
    }
}

TEST_F(TimetoolSweep, CivilTimesOverTheWholeRangeShowTheSecondGiven) {
    const long long first = (date::sys_days{date::year{-32767} / 1 / 1}.time_since_epoch().count()) * 86400LL;
    const long long last = (date::sys_days{date::year{32767} / 12 / 31}.time_since_epoch().count()) * 86400LL + 86399;
    std::mt19937_64 random(5784);
    std::uniform_int_distribution<long long> pick(first, last);
    const long count = 200000 / Stride();
    for (long i = 0; i < count; ++i) {
        const long long seconds = pick(random);
        std::string text = ReferenceUtc(seconds);
        text[text.find(' ')] = 'T';
        const double starDate = context_.reader().StarDate(text, 0);
        std::string shown = FormatUtcText(SplitStarDate(starDate));
        shown[shown.find(' ')] = 'T';
        ASSERT_EQ(shown, text);
    }
}

}  // namespace
}  // namespace timetool
