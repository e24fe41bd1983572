// The date-time record shared by every calendar.
#pragma once

#include <cstdint>

// Fields are persisted under their own names ("Day", "Month", ...). Every
// field is zero in a freshly built record.
struct tagDATETIME {
    std::int16_t Day = 0;     // day of the month, 1-based
    std::int16_t Month = 0;   // 1 = January; 13 and above are possible results
    std::int16_t Year = 0;    // negative = BC, -1 = 1 BC
    std::int16_t Hour = 0;    // 0..23
    std::int16_t Minute = 0;  // 0..59
    float Second = 0.0f;      // with the fraction of a second
    std::int16_t WeekDay = 0;
};
