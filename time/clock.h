// The system clock as a broken-down date-time.
#pragma once

#include "calendar/datetime.h"

// Fills year, month, day, hour, minute and second (whole seconds) in UTC when
// utc is true, in local time otherwise; the weekday is left alone. False when
// the system cannot break the time down (out nothing written).
bool ReadClock(bool utc, tagDATETIME& out) noexcept;
