#include "calendar/hebrew.h"

#include "calendar/day_numbers.h"
#include "calendar/hebrew_months.h"
#include "calendar/hebrew_year.h"
#include "calendar/hebrew_year_table.h"
#include "calendar/lazy_day_number.h"
#include "calendar/whole_days.h"

double SDHebrew = 0.0;

namespace {

constexpr double kMeanYear = 6939.689621913581 / 19.0;
constexpr int kMonthsPerCycle = 235;

double HebrewEpochDay() noexcept {
    return cal::DayNumberFilledOnFirstUse(SDHebrew, [] {
        tagDATETIME epoch;
        epoch.Day = 7;
        epoch.Month = 10;
        epoch.Year = -3761;
        return cal::JulianDayNumber(epoch);
    });
}

// Months in the years i = 1 .. r (r in [0, 18]) and i = r .. -1 (r in
// [-18, 0], indexed by -r) of the coarse count, the test value being i under
// flag 0 and i - 1 otherwise.
struct CoarseMonthTables {
    int ahead[2][19] = {};
    int behind[2][19] = {};
};

constexpr CoarseMonthTables MakeCoarseMonthTables() noexcept {
    CoarseMonthTables t;
    for (int flag = 0; flag < 2; ++flag) {
        for (int r = 1; r < 19; ++r) t.ahead[flag][r] = t.ahead[flag][r - 1] + (cal::HebrewLeapYear(r, flag) ? 13 : 12);
        for (int r = 1; r < 19; ++r)
            t.behind[flag][r] = t.behind[flag][r - 1] + (cal::HebrewLeapYear(-r, flag) ? 13 : 12);
    }
    return t;
}
constexpr CoarseMonthTables kCoarseMonths = MakeCoarseMonthTables();

// Floor of a day count, NaN read as 0. Counts beyond 2^40 days (far outside
// 16-bit years) are clamped so the molad arithmetic stays within 64 bits.
std::int64_t WholeDayCount(double days) noexcept {
    constexpr std::int64_t kLargestDayCount = std::int64_t{1} << 40;
    constexpr auto kLimit = static_cast<double>(kLargestDayCount);
    if (days >= kLimit) return kLargestDayCount;
    if (days >= -kLimit) return cal::FloorInRange(days);
    if (days < -kLimit) return -kLargestDayCount;
    return 0;  // NaN
}

// The rules only tell flag 0 from any other flag.
int FlagIndex(std::int16_t flag) noexcept { return flag != 0 ? 1 : 0; }

std::int64_t YearStartDay(std::int64_t year, int flag) noexcept {
    if (cal::InHebrewYearTable(year)) return cal::HebrewYearTableEntry(year, flag).start;
    return cal::StartOfHebrewYear(year, flag).Day();
}

// Years outside the table, from the rules on each call. Only Heshvan and
// Kislev depend on the year length.
int ComputedMonthShape(std::int16_t year, int flag, bool needsYearLength) noexcept {
    return cal::HebrewMonthShape(needsYearLength ? cal::HebrewYearLength(year, flag) : 0,
                                 cal::HebrewLeapYear(year, flag));
}

short ComputedDaysInYear(short year, int flag, short* postponement) noexcept {
    if (flag != 0) return static_cast<short>(cal::MonthCountYearLength(year));
    if (postponement) *postponement = static_cast<short>(cal::StartOfHebrewYear(year, flag).postponement);
    return static_cast<short>(cal::ElapsedDaysYearLength(year));
}

int MonthShape(std::int16_t year, int flag, bool needsYearLength) noexcept {
    if (cal::InHebrewYearTable(year)) return cal::HebrewYearTableEntry(year, flag).monthShape;
    return ComputedMonthShape(year, flag, needsYearLength);
}

// Day, Month and Year from a count of days in which day 1 is the epoch day.
void SetDateFromDayCount(double days, int flag, tagDATETIME& date) noexcept {
    const std::int64_t target = WholeDayCount(days);
    // The year sought is the latest whose start is not after the count. The
    // mean-year estimate is never below it (a start never precedes its molad
    // by more than a day) and the walk back ends within three years; a year
    // that starts on the day of its molad is found even when the molad falls
    // later that day.
    std::int64_t year = cal::FloorInRange(static_cast<double>(target) / kMeanYear) + 2;
    if (year - 2 >= cal::kHebrewTableFirstYear && year <= cal::kHebrewTableLastYear) {
        // Starts increase through the table, so the years of the walk whose
        // start is after the count are a run from the estimate down: count
        // the first three at once.
        const cal::HebrewYearEntry* entry = &cal::HebrewYearTableEntry(year, flag);
        year -=
            (entry[0].start > target ? 1 : 0) + (entry[-1].start > target ? 1 : 0) + (entry[-2].start > target ? 1 : 0);
    }
    std::int64_t start = YearStartDay(year, flag);
    while (start > target) {
        --year;
        start = YearStartDay(year, flag);
    }
    date.Year = static_cast<std::int16_t>(year);
    const std::int64_t dayOfYear = target - start + 1;  // >= 1
    // The month shape follows the 16-bit Year, as the year length does.
    const int shape = MonthShape(date.Year, flag, true);
    const int passed = cal::HebrewMonthsPassed(shape, dayOfYear);
    date.Month = cal::kHebrewMonthsFromTishri[passed];
    date.Day = static_cast<std::int16_t>(dayOfYear - cal::kHebrewMonthShapes.end[shape][passed]);
}

}  // namespace

int CHebrew::DaysInMonth(int month, short) noexcept {
    if (month < 1 || month > 13) return 0;
    const int shape = MonthShape(Year, FlagIndex(flag), month == 8 || month == 9);
    return cal::kHebrewMonthShapes.length[shape][month];
}

short CHebrew::DaysInYear(short year, short* postponement) noexcept {
    const int f = FlagIndex(flag);
    if (cal::InHebrewYearTable(year)) {
        const cal::HebrewYearEntry& entry = cal::HebrewYearTableEntry(year, f);
        if (f == 0 && postponement) *postponement = entry.postponement;
        return entry.length;
    }
    return ComputedDaysInYear(year, f, postponement);
}

void CHebrew::SetEllapsedDays(double days, int) noexcept { SetDateFromDayCount(days, FlagIndex(flag), *this); }

int CoarseHebrewMonths(std::int16_t year, short flag) noexcept {
    const int f = FlagIndex(flag);
    const int y = year;
    int months = (y / 19) * kMonthsPerCycle;
    // Whole cycles come from y / 19 but the rest from (y - 1) mod 19, so a
    // multiple of 19 counts its cycle twice; stored day numbers rely on it.
    const int r = (y - 1) % 19;
    if (r > 0) months += kCoarseMonths.ahead[f][r];
    if (r < 0) months -= kCoarseMonths.behind[f][-r];
    return months;
}

namespace cal {

double HebrewDayNumber(const tagDATETIME& date, short flag) noexcept {
    return CoarseHebrewMonths(date.Year, flag) * kMeanHebrewMonth + date.Day + (HebrewEpochDay() - 1.0);
}

void HebrewDateOfDayNumber(double dayNumber, tagDATETIME& date, short flag) noexcept {
    SetDateFromDayCount(dayNumber - (HebrewEpochDay() - 1.0), FlagIndex(flag), date);
}

}  // namespace cal
