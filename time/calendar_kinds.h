// The calendar kinds of the Time component and the conversion pair of each.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"
#include "calendar/day_numbers.h"
#include "com_types.h"

enum CalendarKind : std::int32_t {
    kCalendarGregorian = 0,
    kCalendarJulian = 1,
    kCalendarWestern = 2,
    kCalendarHebrewFlagOne = 3,
    kCalendarHebrewFlagZero = 4,
    kCalendarAdam = 5,
    kCalendarGeneric = 6,
    kCalendarKindCount = 7,
};

struct CalendarKindConversions {
    double (*toStarDate)(const tagDATETIME* date);
    // Writes the fields the calendar's conversion writes; the others are kept.
    HRESULT (*fromStarDate)(double starDate, tagDATETIME* date);
};

// Indexed by kind.
extern const CalendarKindConversions kCalendarConversions[kCalendarKindCount];

// Any kind outside 0..6, negative ones included, converts as Gregorian. Kind 2
// converts into a date with the Western rules but back with the Gregorian
// ones; stored star dates depend on it.
inline const CalendarKindConversions& ConversionsForKind(std::int32_t kind) noexcept {
    if (kind < 0 || kind >= kCalendarKindCount) return kCalendarConversions[kCalendarGregorian];
    return kCalendarConversions[kind];
}

// The star date of a date under a kind. The default kind's conversion is
// inline; the others are called through the table.
inline double StarDateOf(std::int32_t kind, const tagDATETIME* date) {
    if (kind == kCalendarGregorian) return GregorianToJDN(date);
    return ConversionsForKind(kind).toStarDate(date);
}

// The date of a star date under a kind, as StarDateOf does it.
inline void DateOfStarDate(std::int32_t kind, double starDate, tagDATETIME* date) {
    if (kind == kCalendarGregorian) {
        JDNtoGregorian(starDate, date);
        return;
    }
    ConversionsForKind(kind).fromStarDate(starDate, date);
}
