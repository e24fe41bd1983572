#include "true_calendar.h"

#include <date/date.h>
#include <date/julian.h>

namespace timetool {

namespace {

constexpr StarDay FloorDiv(StarDay a, StarDay b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0); }

constexpr StarDay FloorMod(StarDay a, StarDay b) { return a - b * FloorDiv(a, b); }

date::sys_days SysDays(StarDay day) { return date::sys_days{date::days{day - kUnixEpochStarDay}}; }

StarDay StarDayOf(date::sys_days days) { return days.time_since_epoch().count() + kUnixEpochStarDay; }

// Days from the Hebrew epoch's reckoning to the mean start of year y, with
// the postponement that keeps 1 Tishri off Sunday, Wednesday and Friday.
StarDay HebrewElapsedDays(int year) {
    const StarDay months = FloorDiv(235 * static_cast<StarDay>(year) - 234, 19);
    const StarDay parts = 12084 + 13753 * months;
    const StarDay days = 29 * months + FloorDiv(parts, 25920);
    return FloorMod(3 * (days + 1), 7) < 3 ? days + 1 : days;
}

// Delays that keep every year's length among 353-355 and 383-385 days.
int HebrewYearLengthCorrection(int year) {
    const StarDay before = HebrewElapsedDays(year - 1);
    const StarDay start = HebrewElapsedDays(year);
    const StarDay after = HebrewElapsedDays(year + 1);
    if (after - start == 356) return 2;
    if (start - before == 382) return 1;
    return 0;
}

}  // namespace

CivilDate GregorianOfDay(StarDay day) {
    const date::year_month_day ymd{SysDays(day)};
    return CivilDate{static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
                     static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

StarDay DayOfGregorian(const CivilDate& date) {
    const date::year_month_day ymd{date::year{date.year}, date::month{static_cast<unsigned>(date.month)},
                                   date::day{static_cast<unsigned>(date.day)}};
    return StarDayOf(date::sys_days{ymd});
}

CivilDate JulianOfDay(StarDay day) {
    const julian::year_month_day ymd{SysDays(day)};
    return CivilDate{static_cast<int>(ymd.year()), static_cast<int>(static_cast<unsigned>(ymd.month())),
                     static_cast<int>(static_cast<unsigned>(ymd.day()))};
}

StarDay DayOfJulian(const CivilDate& date) {
    const julian::year_month_day ymd{julian::year{date.year}, julian::month{static_cast<unsigned>(date.month)},
                                     julian::day{static_cast<unsigned>(date.day)}};
    return StarDayOf(date::sys_days{ymd});
}

int GregorianMonthLength(int year, int month) {
    const date::year_month_day_last last{date::year{year},
                                         date::month_day_last{date::month{static_cast<unsigned>(month)}}};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

int JulianMonthLength(int year, int month) {
    const julian::year_month_day_last last{julian::year{year},
                                           julian::month_day_last{julian::month{static_cast<unsigned>(month)}}};
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

CivilDate WesternOfDay(StarDay day) { return day < kWesternReformStarDay ? JulianOfDay(day) : GregorianOfDay(day); }

StarDay DayOfWestern(const CivilDate& date) {
    const bool julianRules =
        date.year < 1582 || (date.year == 1582 && (date.month < 10 || (date.month == 10 && date.day < 15)));
    return julianRules ? DayOfJulian(date) : DayOfGregorian(date);
}

bool InWesternReformGap(const CivilDate& date) {
    return date.year == 1582 && date.month == 10 && date.day >= 5 && date.day <= 14;
}

bool HebrewLeapYear(int year) { return FloorMod(7 * static_cast<StarDay>(year) + 1, 19) < 7; }

int HebrewMonthsInYear(int year) { return HebrewLeapYear(year) ? 13 : 12; }

StarDay HebrewNewYearDay(int year) {
    return kHebrewEpochStarDay + HebrewElapsedDays(year) + HebrewYearLengthCorrection(year);
}

int HebrewYearLength(int year) { return static_cast<int>(HebrewNewYearDay(year + 1) - HebrewNewYearDay(year)); }

int HebrewMonthLength(int year, int month) {
    switch (month) {
        case 2:
        case 4:
        case 6:
        case 10:
            return 29;
        case 13:
            return HebrewLeapYear(year) ? 29 : 0;
        case 12:
            return HebrewLeapYear(year) ? 30 : 29;
        case 8:  // Heshvan is long in a complete year
            return HebrewYearLength(year) % 10 == 5 ? 30 : 29;
        case 9:  // Kislev is short in a deficient year
            return HebrewYearLength(year) % 10 == 3 ? 29 : 30;
        default:
            return month >= 1 && month <= 13 ? 30 : 0;
    }
}

StarDay DayOfHebrew(const CivilDate& date) {
    // The year starts with Tishri (7); Nisan (1) to Elul (6) close it.
    StarDay day = HebrewNewYearDay(date.year) + date.day - 1;
    if (date.month < 7) {
        for (int month = 7; month <= HebrewMonthsInYear(date.year); ++month) day += HebrewMonthLength(date.year, month);
        for (int month = 1; month < date.month; ++month) day += HebrewMonthLength(date.year, month);
    } else {
        for (int month = 7; month < date.month; ++month) day += HebrewMonthLength(date.year, month);
    }
    return day;
}

std::optional<CivilDate> HebrewOfDay(StarDay day) {
    if (day < kHebrewEpochStarDay) return std::nullopt;
    // The mean year is 365.2468 days; the estimate is at most one year late.
    int year = static_cast<int>(FloorDiv((day - kHebrewEpochStarDay) * 98496, 35975351)) + 1;
    if (HebrewNewYearDay(year) > day) --year;
    while (HebrewNewYearDay(year + 1) <= day) ++year;
    int month = 7;
    StarDay first = HebrewNewYearDay(year);
    for (;;) {
        const int length = HebrewMonthLength(year, month);
        if (day < first + length) break;
        first += length;
        month = month == HebrewMonthsInYear(year) ? 1 : month + 1;
    }
    return CivilDate{year, month, static_cast<int>(day - first) + 1};
}

int WeekdayOfDay(StarDay day) { return static_cast<int>(FloorMod(day - 2, 7)); }

StarDay FirstShownDay() {
    static const StarDay first = DayOfGregorian(CivilDate{kMinYear, 1, 1});
    return first;
}

StarDay LastShownDay() {
    static const StarDay last = DayOfGregorian(CivilDate{kMaxYear, 12, 31});
    return last;
}

bool IsShownDay(StarDay day) { return day >= FirstShownDay() && day <= LastShownDay(); }

bool HasTrueCalendar(int kind) { return kind == 0 || kind == 1 || kind == 2 || kind == 4; }

std::optional<CivilDate> TrueDateOfDay(int kind, StarDay day) {
    switch (kind) {
        case 0:
            return GregorianOfDay(day);
        case 1:
            return JulianOfDay(day);
        case 2:
            return WesternOfDay(day);
        case 4: {
            const std::optional<CivilDate> date = HebrewOfDay(day);
            if (date && date->year > kMaxYear) return std::nullopt;
            return date;
        }
        default:
            return std::nullopt;
    }
}

StarDay DayOfTrueDate(int kind, const CivilDate& date) {
    switch (kind) {
        case 1:
            return DayOfJulian(date);
        case 2:
            return DayOfWestern(date);
        case 4:
            return DayOfHebrew(date);
        default:
            return DayOfGregorian(date);
    }
}

CalendarLengths TrueLengths(int kind, const CivilDate& date) {
    if (kind == 4) {
        return CalendarLengths{HebrewMonthLength(date.year, date.month), HebrewMonthsInYear(date.year),
                               HebrewYearLength(date.year)};
    }
    const bool julianRules = kind == 1 || (kind == 2 && date.year < 1582);
    if (kind == 2 && date.year == 1582) {
        // The reform year: ten days of October dropped.
        const int month = date.month == 10 ? 21
                                           : (date.month < 10 ? JulianMonthLength(1582, date.month)
                                                              : GregorianMonthLength(1582, date.month));
        return CalendarLengths{month, 12, 355};
    }
    const int february = julianRules ? JulianMonthLength(date.year, 2) : GregorianMonthLength(date.year, 2);
    const int month =
        julianRules ? JulianMonthLength(date.year, date.month) : GregorianMonthLength(date.year, date.month);
    return CalendarLengths{month, 12, 337 + february};
}

}  // namespace timetool
