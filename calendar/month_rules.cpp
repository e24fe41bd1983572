#include "calendar/month_rules.h"

#include <limits>

namespace cal {
namespace {

// The highest month the closed form can store without 16-bit wrap-around.
constexpr int kLastStorableMonth = std::numeric_limits<std::int16_t>::max();

// The month walk one month at a time, for year-days so large that Month
// wraps around 16 bits (and meets months 1..12 again).
void WalkMonths(int n, bool leap, std::int16_t* day, std::int16_t* month) noexcept {
    std::int16_t m = 1;
    std::int64_t sum = 0;
    while (MonthLength(m, leap) + sum < n) {
        sum += MonthLength(m, leap);
        m = static_cast<std::int16_t>(m + 1);
    }
    *month = m;
    *day = static_cast<std::int16_t>(n - sum);
}

}  // namespace

namespace detail {

void SetFarYearDay(int n, bool leap, std::int16_t* day, std::int16_t* month) noexcept {
    if (n <= 0) {
        *month = 1;
        *day = static_cast<std::int16_t>(n);
        return;
    }
    // Beyond the year's end every month has 30 days.
    const int yearLength = DaysBefore(13, leap);
    const int extra = n - yearLength;  // > 0
    const long long months = 12LL + (extra + kOutOfRangeMonth - 1LL) / kOutOfRangeMonth;
    if (months > kLastStorableMonth) {
        WalkMonths(n, leap, day, month);
        return;
    }
    const auto m = static_cast<int>(months);
    *month = static_cast<std::int16_t>(m);
    *day = static_cast<std::int16_t>(n - (yearLength + kOutOfRangeMonth * (m - 13)));
}

}  // namespace detail
}  // namespace cal
