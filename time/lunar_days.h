// The coarse lunar day count that the Hebrew calendar kinds report as their
// elapsed days.
#pragma once

#include <cstdint>

// Only the day and the year enter; the month is ignored. Whole cycles are
// counted from year / 19 but the remaining years from (year - 1) mod 19, and
// stored values depend on that mismatch. shiftedPositions selects the
// position range of the variant with flag 1 (0 .. r-1, r-1 .. -2) instead of
// that of flag 0 (1 .. r, r .. -1).
double LunarCalendarDays(std::int16_t day, std::int16_t year, bool shiftedPositions) noexcept;
