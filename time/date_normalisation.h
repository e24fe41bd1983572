// The overflow carrying of ITime::SetDate.
#pragma once

#include <cstdint>

#include "calendar/datetime.h"

// Stores day, month and year into date and carries overflow only: a negative
// month borrows one year, days beyond the year carry whole years, days beyond
// the month carry months, months beyond the year carry years. Zero and
// negative days are kept, and month 0 stays 0; stored dates depend on it. The
// time fields are left alone.
void NormaliseDate(std::int32_t kind, std::int16_t day, std::int16_t month, std::int16_t year,
                   tagDATETIME& date) noexcept;
