// The calendar kinds of the Time component: one row per kind holding
// everything a kind means (its conversions both ways, its month and year
// lengths, its elapsed calendar days and its shortest month). Adding a kind
// means adding a row.
#pragma once

#include <array>
#include <cstdint>

#include "calendar/datetime.h"
#include "com_types.h"
#include "time/conversions.h"

// Month and year lengths of a date under a kind, as GetInfo reports them.
struct CalendarInfo {
    std::int16_t daysInMonth = 0;
    std::int16_t monthsInYear = 0;
    std::int16_t daysInYear = 0;
    std::int16_t yearAdjust = 0;  // postponement of the year's start; the Hebrew kind with flag 0 only
};

struct CalendarKindRow {
    // The date record to the star date (UpdateStarDate) and back
    // (put_Calendar); the back conversion writes the fields its calendar
    // writes and keeps the others.
    double (*toStarDate)(const tagDATETIME* date);
    HRESULT (*fromStarDate)(double starDate, tagDATETIME* date);
    // Lengths of the date's month and year (GetInfo, SetDate's carrying).
    CalendarInfo (*info)(const tagDATETIME& date) noexcept;
    // Elapsed days of the date without the time of day (GetCalendarDays).
    double (*calendarDays)(const tagDATETIME& date) noexcept;
    // The kind's elapsed-day setter, run on a scratch copy of the date that
    // is then discarded (SetCalendarDays, which is kept for compatibility and
    // changes nothing).
    void (*setCalendarDaysOnCopy)(tagDATETIME date, double days) noexcept;
    // The shortest of months 1 to 12; a date within it never carries.
    std::int16_t shortestMonth;
};

inline constexpr std::int32_t kCalendarKindCount = 7;

// Indexed by kind: 0 Gregorian, 1 Julian, 2 Western, 3 Hebrew (flag 1),
// 4 Hebrew (flag 0), 5 Adam, 6 Generic.
extern const std::array<CalendarKindRow, kCalendarKindCount> kCalendarKinds;

// Any kind outside 0..6, negative ones included, behaves as Gregorian. Kind 2
// converts into a date with the Western rules but back with the Gregorian
// ones, and kinds 5 and 6 report Gregorian lengths; stored star dates depend
// on both.
inline const CalendarKindRow& CalendarKindOf(std::int32_t kind) noexcept {
    if (kind < 0 || kind >= kCalendarKindCount) return kCalendarKinds[0];
    return kCalendarKinds[static_cast<std::size_t>(kind)];
}

// The star date of a date under a kind. The Gregorian conversion, the
// default kind's, is called in place rather than through the row.
inline double StarDateOf(std::int32_t kind, const tagDATETIME* date) {
    if (kind == 0) return GregorianToJDN(date);
    return CalendarKindOf(kind).toStarDate(date);
}

// The date of a star date under a kind, as StarDateOf does it.
inline void DateOfStarDate(std::int32_t kind, double starDate, tagDATETIME* date) {
    if (kind == 0) {
        JDNtoGregorian(starDate, date);
        return;
    }
    CalendarKindOf(kind).fromStarDate(starDate, date);
}

inline CalendarInfo ComputeCalendarInfo(std::int32_t kind, const tagDATETIME& date) noexcept {
    return CalendarKindOf(kind).info(date);
}
