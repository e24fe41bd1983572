#include "date_arithmetic.h"

#include <algorithm>
#include <cmath>

namespace timetool {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

// Months in every run of 19 Hebrew years: seven of them are leap years.
constexpr std::int64_t kHebrewCycleYears = 19;
constexpr std::int64_t kHebrewCycleMonths = 235;

constexpr std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::optional<StepUnit> UnitOf(char letter) {
    switch (letter) {
        case 'd':
            return StepUnit::Day;
        case 'w':
            return StepUnit::Week;
        case 'm':
            return StepUnit::Month;
        case 'y':
            return StepUnit::Year;
        default:
            return std::nullopt;
    }
}

// The last day number of a month of a Gregorian-rule, Julian or Western year
// (the Western October 1582 ends on the 31st, though it has 21 days).
int LastDayOfMonth(int kind, int year, int month) {
    const bool julianRules = kind == 1 || (kind == 2 && (year < 1582 || (year == 1582 && month < 10)));
    return julianRules ? JulianMonthLength(year, month) : GregorianMonthLength(year, month);
}

// The rules a kind is counted by: the module's Adam and Generic follow the
// Gregorian ones.
int RulesOf(int kind) { return kind == 5 || kind == 6 ? 0 : kind; }

bool InYears(std::int64_t year, std::int64_t lowest) { return year >= lowest && year <= kMaxYear; }

CivilDate ClampedSolarDate(int kind, int year, int month, int day) {
    CivilDate date{year, month, std::min(day, LastDayOfMonth(kind, year, month))};
    if (kind == 2 && InWesternReformGap(date)) date.day = 15;
    return date;
}

// Hebrew months in year order: Tishri is 0, Elul is 11 or 12.
int HebrewOrdinal(int year, int month) {
    const int monthsBeforeNisan = HebrewMonthsInYear(year) - 6;  // Tishri to the last Adar
    return month >= 7 ? month - 7 : month - 1 + monthsBeforeNisan;
}

int HebrewMonthOfOrdinal(int year, int ordinal) {
    const int monthsBeforeNisan = HebrewMonthsInYear(year) - 6;
    return ordinal < monthsBeforeNisan ? ordinal + 7 : ordinal - monthsBeforeNisan + 1;
}

CivilDate ClampedHebrewDate(int year, int month, int day) {
    return CivilDate{year, month, std::min(day, HebrewMonthLength(year, month))};
}

std::optional<CivilDate> AddHebrewMonths(const CivilDate& date, std::int64_t months) {
    std::int64_t ordinal = HebrewOrdinal(date.year, date.month) + months;
    const std::int64_t cycles = FloorDiv(ordinal, kHebrewCycleMonths);
    std::int64_t year = date.year + cycles * kHebrewCycleYears;
    ordinal -= cycles * kHebrewCycleMonths;  // [0, 234]
    while (InYears(year, 1) && ordinal >= HebrewMonthsInYear(static_cast<int>(year))) {
        ordinal -= HebrewMonthsInYear(static_cast<int>(year));
        ++year;
    }
    if (!InYears(year, 1)) return std::nullopt;
    const auto shownYear = static_cast<int>(year);
    return ClampedHebrewDate(shownYear, HebrewMonthOfOrdinal(shownYear, static_cast<int>(ordinal)), date.day);
}

std::optional<CivilDate> AddHebrewYears(const CivilDate& date, std::int64_t years) {
    const std::int64_t year = date.year + years;
    if (!InYears(year, 1)) return std::nullopt;
    const auto shownYear = static_cast<int>(year);
    int month = date.month;
    if (month == 12 && !HebrewLeapYear(date.year) && HebrewLeapYear(shownYear)) month = 13;
    if (month == 13 && !HebrewLeapYear(shownYear)) month = 12;
    return ClampedHebrewDate(shownYear, month, date.day);
}

// The date of a day in the calendar whose rules a step follows.
std::optional<CivilDate> DateInRules(int rules, StarDay day) {
    if (!IsShownDay(day)) return std::nullopt;
    return TrueDateOfDay(rules, day);
}

}  // namespace

StepSplit SplitDateSteps(std::string_view text) {
    StepSplit split;
    split.base = text;
    std::vector<DateStep> reversed;
    for (;;) {
        const std::string_view rest = split.base;
        if (rest.empty()) break;
        const std::optional<StepUnit> unit = UnitOf(rest.back());
        if (!unit) break;
        const std::size_t end = rest.size() - 1;
        std::size_t start = end;
        while (start > 0 && IsDigit(rest[start - 1])) --start;
        if (start == end || start == 0 || (rest[start - 1] != '+' && rest[start - 1] != '-')) break;
        if (end - start > 8) {
            split.error = "step count too large (at most 8 digits)";
            return split;
        }
        std::int64_t count = 0;
        for (std::size_t i = start; i < end; ++i) count = count * 10 + (rest[i] - '0');
        reversed.push_back(DateStep{rest[start - 1] == '-' ? -count : count, *unit});
        split.base = rest.substr(0, start - 1);
    }
    if (!reversed.empty() && split.base.empty()) {
        split.error = "a step needs an instant before it (as in today+3d)";
        return split;
    }
    split.steps.assign(reversed.rbegin(), reversed.rend());
    return split;
}

bool CountsMonths(int kind) { return kind >= 0 && kind <= 6 && kind != 3; }

std::optional<CivilDate> AddMonths(int kind, const CivilDate& date, std::int64_t months) {
    if (!CountsMonths(kind)) return std::nullopt;
    const int rules = RulesOf(kind);
    if (rules == 4) return AddHebrewMonths(date, months);
    const std::int64_t total = static_cast<std::int64_t>(date.year) * 12 + (date.month - 1) + months;
    const std::int64_t year = FloorDiv(total, 12);
    if (!InYears(year, kMinYear)) return std::nullopt;
    const auto month = static_cast<int>(total - year * 12) + 1;  // [1, 12]
    return ClampedSolarDate(rules, static_cast<int>(year), month, date.day);
}

std::optional<CivilDate> AddYears(int kind, const CivilDate& date, std::int64_t years) {
    if (!CountsMonths(kind)) return std::nullopt;
    const int rules = RulesOf(kind);
    if (rules == 4) return AddHebrewYears(date, years);
    const std::int64_t year = date.year + years;
    if (!InYears(year, kMinYear)) return std::nullopt;
    return ClampedSolarDate(rules, static_cast<int>(year), date.month, date.day);
}

std::optional<StarDay> StepDay(int kind, StarDay day, const DateStep& step) {
    std::optional<StarDay> result;
    if (step.unit == StepUnit::Day || step.unit == StepUnit::Week) {
        result = day + step.count * (step.unit == StepUnit::Week ? 7 : 1);
    } else {
        const int rules = RulesOf(kind);
        if (!CountsMonths(kind) || !HasTrueCalendar(rules)) return std::nullopt;
        const std::optional<CivilDate> date = DateInRules(rules, day);
        if (!date) return std::nullopt;
        const std::optional<CivilDate> moved =
            step.unit == StepUnit::Month ? AddMonths(rules, *date, step.count) : AddYears(rules, *date, step.count);
        if (!moved) return std::nullopt;
        result = DayOfTrueDate(rules, *moved);
    }
    if (!IsShownDay(*result)) return std::nullopt;
    return result;
}

std::optional<WholeSteps> CountWholeSteps(int kind, StepUnit unit, const ExactInstant& from, const ExactInstant& to) {
    const bool backwards = to.day < from.day || (to.day == from.day && to.second < from.second);
    const ExactInstant& earlier = backwards ? to : from;
    const ExactInstant& later = backwards ? from : to;
    const auto landing = [&](std::int64_t count) { return StepDay(kind, earlier.day, DateStep{count, unit}); };
    // A step lands no later than `later` when its day, at the earlier
    // instant's time of day, does.
    const auto fits = [&](std::int64_t count) {
        const std::optional<StarDay> day = landing(count);
        return day && (*day < later.day || (*day == later.day && earlier.second <= later.second));
    };
    if (!landing(0)) return std::nullopt;

    std::int64_t count = 0;
    if (unit == StepUnit::Day || unit == StepUnit::Week) {
        const std::int64_t seconds = (later.day - earlier.day) * kSecondsPerDay + (later.second - earlier.second);
        count = seconds / (kSecondsPerDay * (unit == StepUnit::Week ? 7 : 1));
    } else {
        // A first guess from the mean month or year, then exact steps.
        const bool hebrew = RulesOf(kind) == 4;
        const double mean = unit == StepUnit::Month ? (hebrew ? 29.530594 : 30.436875) : (hebrew ? 365.2468 : 365.2425);
        count =
            std::max<std::int64_t>(0, static_cast<std::int64_t>(static_cast<double>(later.day - earlier.day) / mean));
        while (count > 0 && !fits(count)) --count;
        while (fits(count + 1)) ++count;
    }
    const StarDay reached = *landing(count);
    const std::int64_t left = (later.day - reached) * kSecondsPerDay + (later.second - earlier.second);
    WholeSteps result{count, left / kSecondsPerDay, left % kSecondsPerDay};
    if (backwards) result = WholeSteps{-result.steps, -result.days, -result.seconds};
    return result;
}

}  // namespace timetool
