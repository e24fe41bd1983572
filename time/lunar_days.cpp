#include "time/lunar_days.h"

#include "calendar/hebrew.h"

double LunarCalendarDays(std::int16_t day, std::int16_t year, bool shiftedPositions) noexcept {
    return CoarseHebrewMonths(year, shiftedPositions ? 1 : 0) * kMeanHebrewMonth + day;
}
