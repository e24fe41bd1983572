// The overflow carrying of ITime::SetDate.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"
#include "time/calendar_kinds.h"

// Stores day, month and year into date and carries overflow only: a negative
// month borrows one year, days beyond the year carry whole years, days beyond
// the month carry months, months beyond the year carry years. Zero and
// negative days are kept, and month 0 stays 0; stored dates depend on it. The
// time fields are left alone. The lengths of the date's year and month are
// looked up before each step.
void CarryDate(std::int32_t kind, std::int16_t day, std::int16_t month, std::int16_t year, tagDATETIME& date) noexcept;

// True when CarryDate would store the date as given: month 1 to 12 and a day
// no later than the kind's shortest month. Hebrew years are also longer than
// 29 days and have at least 12 months, so such a date carries nothing.
inline bool DateCannotCarry(std::int32_t kind, std::int16_t day, std::int16_t month) noexcept {
    return month >= 1 && month <= 12 && day <= CalendarKindOf(kind).shortestMonth;
}
