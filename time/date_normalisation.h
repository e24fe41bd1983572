// The overflow carrying of ITime::SetDate.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"

// Stores day, month and year into date and carries overflow only: a negative
// month borrows one year, days beyond the year carry whole years, days beyond
// the month carry months, months beyond the year carry years. Zero and
// negative days are kept, and month 0 stays 0; stored dates depend on it. The
// time fields are left alone. A date that cannot carry (month 1 to 12, day
// within the kind's shortest month) is stored without looking up any length.
void NormaliseDate(std::int32_t kind, std::int16_t day, std::int16_t month, std::int16_t year,
                   tagDATETIME& date) noexcept;

// The carrying itself, for every date: the lengths of the date's year and
// month are looked up before each step.
void CarryDate(std::int32_t kind, std::int16_t day, std::int16_t month, std::int16_t year, tagDATETIME& date) noexcept;
