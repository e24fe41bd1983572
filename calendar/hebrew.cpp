#include "calendar/hebrew.h"

#include <cmath>

#include "calendar/day_numbers.h"
#include "calendar/hebrew_year.h"
#include "calendar/month_rules.h"

double SDHebrew = 0.0;

namespace {

constexpr double kMeanMonth = 29.53059413580247;
constexpr double kMeanYear = 6939.689621913581 / 19.0;
constexpr int kMonthsPerCycle = 235;
// Day counts beyond this magnitude (far outside 16-bit years) are clamped so
// the molad arithmetic stays within 64 bits.
constexpr std::int64_t kLargestDayCount = std::int64_t{1} << 40;

void FillHebrewEpoch() {
    if (SDHebrew != 0.0) return;
    tagDATETIME epoch;
    epoch.Day = 7;
    epoch.Month = 10;
    epoch.Year = -3761;
    SDHebrew = JulianToJDN(&epoch);
}

// Months in the years i = 1 .. r (r in [0, 18]) and i = r .. -1 (r in
// [-18, 0], indexed by -r) of the coarse count, the test value being i under
// flag 0 and i - 1 otherwise.
struct CoarseMonthTables {
    int ahead[2][19] = {};
    int behind[2][19] = {};
};

constexpr CoarseMonthTables MakeCoarseMonthTables() {
    CoarseMonthTables t;
    for (int flag = 0; flag < 2; ++flag) {
        for (int r = 1; r < 19; ++r) t.ahead[flag][r] = t.ahead[flag][r - 1] + (cal::HebrewLeapYear(r, flag) ? 13 : 12);
        for (int r = 1; r < 19; ++r)
            t.behind[flag][r] = t.behind[flag][r - 1] + (cal::HebrewLeapYear(-r, flag) ? 13 : 12);
    }
    return t;
}
constexpr CoarseMonthTables kCoarseMonths = MakeCoarseMonthTables();

// Months of a year in the order they are walked, from Tishri.
constexpr std::int16_t kMonthsFromTishri[13] = {7, 8, 9, 10, 11, 12, 13, 1, 2, 3, 4, 5, 6};

// Month lengths of one year, month 0 unused. Heshvan (8) also accepts a
// 386-day year, a length that never occurs; the test is kept as it stands.
void FillMonthLengths(int yearLength, bool leap, int (&lengths)[14]) {
    constexpr int kFixed[14] = {0, 30, 29, 30, 29, 30, 29, 30, 0, 0, 29, 30, 0, 0};
    for (int m = 0; m < 14; ++m) lengths[m] = kFixed[m];
    lengths[8] = (yearLength == 355 || yearLength == 385 || yearLength == 386) ? 30 : 29;
    lengths[9] = (yearLength == 353 || yearLength == 383) ? 29 : 30;
    lengths[12] = leap ? 30 : 29;
    lengths[13] = leap ? 29 : 0;
}

}  // namespace

int CHebrew::DaysInMonth(int month, short) {
    if (month < 1 || month > 13) return 0;
    int lengths[14];
    const bool needsYearLength = month == 8 || month == 9;
    FillMonthLengths(needsYearLength ? DaysInYear(Year, nullptr) : 0, cal::HebrewLeapYear(Year, flag), lengths);
    return lengths[month];
}

short CHebrew::DaysInYear(short year, short* postponement) {
    if (flag != 0) return static_cast<short>(cal::MonthCountYearLength(year));
    if (postponement) *postponement = static_cast<short>(cal::StartOfHebrewYear(year, flag).postponement);
    return static_cast<short>(cal::ElapsedDaysYearLength(year));
}

void CHebrew::SetEllapsedDays(double days, int) {
    std::int64_t target = cal::TruncateDays(std::floor(days));
    if (target > kLargestDayCount) target = kLargestDayCount;
    if (target < -kLargestDayCount) target = -kLargestDayCount;
    // The year sought is the latest whose start is not after the count. The
    // mean-year estimate is never below it (a start never precedes its molad
    // by more than a day) and the walk back ends within three years; a year
    // that starts on the day of its molad is found even when the molad falls
    // later that day.
    std::int64_t year = cal::TruncateDays(std::floor(static_cast<double>(target) / kMeanYear)) + 2;
    std::int64_t start = cal::StartOfHebrewYear(year, flag).Day();
    while (start > target) {
        --year;
        start = cal::StartOfHebrewYear(year, flag).Day();
    }
    Year = static_cast<std::int16_t>(year);
    std::int64_t remaining = target - start + 1;  // >= 1

    int lengths[14];
    FillMonthLengths(DaysInYear(Year, nullptr), cal::HebrewLeapYear(Year, flag), lengths);
    // The walk ends at the year's last month; whatever remains is its Day.
    int i = 0;
    while (i < 12 && remaining > lengths[kMonthsFromTishri[i]]) {
        remaining -= lengths[kMonthsFromTishri[i]];
        ++i;
    }
    Month = kMonthsFromTishri[i];
    Day = static_cast<std::int16_t>(remaining);
}

double HebrewToJDN(const tagDATETIME* date, short flag) {
    FillHebrewEpoch();
    const int f = flag != 0 ? 1 : 0;
    const int y = date->Year;
    int months = (y / 19) * kMonthsPerCycle;
    // Whole cycles come from y / 19 but the rest from (y - 1) mod 19, so a
    // multiple of 19 counts its cycle twice; stored day numbers rely on it.
    const int r = (y - 1) % 19;
    if (r > 0) months += kCoarseMonths.ahead[f][r];
    if (r < 0) months -= kCoarseMonths.behind[f][-r];
    return months * kMeanMonth + date->Day + (SDHebrew - 1.0);
}

HRESULT JDNtoHebrew(double jdn, tagDATETIME* date, short flag) {
    FillHebrewEpoch();
    CHebrew scratch;
    scratch.flag = flag;
    scratch.SetEllapsedDays(jdn - (SDHebrew - 1.0), 0);
    date->Day = scratch.Day;
    date->Month = scratch.Month;
    date->Year = scratch.Year;
    return S_OK;
}
