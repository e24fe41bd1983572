// Seconds from one broken-down date-time to another, counted with Gregorian
// month and year lengths whatever calendar the fields belong to.
#pragma once

#include "calendar/datetime.h"

// When `from` lies in a later year than `now`, only the difference within the
// year is counted (possibly negative); callers rely on this. Hour and minute
// differences are 16-bit and wrap.
double ElapsedSeconds(const tagDATETIME& from, const tagDATETIME& now) noexcept;
