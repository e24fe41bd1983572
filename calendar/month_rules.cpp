#include "calendar/month_rules.h"

#include <cmath>
#include <limits>

namespace cal {
namespace {

// Days before month m in a common year, m in [1, 13]; index 0 unused.
constexpr int kDaysBeforeMonth[14] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr int kMonthLength[13] = {30, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr int kOutOfRangeMonth = 30;
// The highest month the closed form can store without 16-bit wrap-around.
constexpr int kLastStorableMonth = std::numeric_limits<std::int16_t>::max();

int DaysBefore(int month, bool leap) {  // month in [1, 13]
    return kDaysBeforeMonth[month] + (leap && month >= 3 ? 1 : 0);
}

// The month walk one month at a time, for year-days so large that Month
// wraps around 16 bits (and meets months 1..12 again).
void WalkMonths(int n, bool leap, std::int16_t* day, std::int16_t* month) {
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

int MonthLength(int month, bool leap) {
    if (month < 0 || month > 12) return kOutOfRangeMonth;
    return kMonthLength[month] + (leap && month == 2 ? 1 : 0);
}

int YearDay(int day, int month, bool leap) {
    if (month <= 1) return day;
    if (month <= 13) return DaysBefore(month, leap) + day;
    return DaysBefore(13, leap) + kOutOfRangeMonth * (month - 13) + day;
}

void SetYearDay(int n, bool leap, std::int16_t* day, std::int16_t* month) {
    const int yearLength = DaysBefore(13, leap);
    int m = 1;
    int before = 0;
    if (n > yearLength) {
        const int extra = n - yearLength;  // > 0
        const long long months = 12LL + (extra + kOutOfRangeMonth - 1LL) / kOutOfRangeMonth;
        if (months > kLastStorableMonth) {
            WalkMonths(n, leap, day, month);
            return;
        }
        m = static_cast<int>(months);
        before = yearLength + kOutOfRangeMonth * (m - 13);
    } else if (n > 31) {
        // Months have 28 to 31 days, so the guess is the month or the one before it.
        m = (n - 1) / 31 + 1;
        if (DaysBefore(m + 1, leap) < n) ++m;
        before = DaysBefore(m, leap);
    }
    *month = static_cast<std::int16_t>(m);
    *day = static_cast<std::int16_t>(n - before);
}

std::int64_t TruncateDays(double days) {
    if (std::isnan(days)) return 0;
    constexpr double kLimit = 9.0e18;
    if (days >= kLimit) return static_cast<std::int64_t>(kLimit);
    if (days <= -kLimit) return -static_cast<std::int64_t>(kLimit);
    return static_cast<std::int64_t>(days);
}

}  // namespace cal
