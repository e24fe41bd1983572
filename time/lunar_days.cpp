#include "time/lunar_days.h"

namespace {

constexpr double kMeanLunarMonth = 29.53059413580247;
constexpr std::int32_t kMonthsPerCycle = 235;

// Negative remainders are never in the set of 13-month positions.
constexpr std::int32_t months_at_position(std::int32_t position) noexcept {
    switch (position % 19) {
        case 0:
        case 3:
        case 6:
        case 8:
        case 11:
        case 14:
        case 17:
            return 13;
        default:
            return 12;
    }
}

}  // namespace

double LunarCalendarDays(std::int16_t day, std::int16_t year, bool shiftedPositions) noexcept {
    std::int32_t months = (year / 19) * kMonthsPerCycle;
    const std::int32_t r = (year - 1) % 19;  // (-19, 19)
    const std::int32_t shift = shiftedPositions ? 1 : 0;
    if (r > 0) {
        for (std::int32_t p = 1 - shift; p <= r - shift; ++p) months += months_at_position(p);
    } else if (r < 0) {
        for (std::int32_t p = r - shift; p <= -1 - shift; ++p) months -= months_at_position(p);
    }
    return months * kMeanLunarMonth + day;
}
