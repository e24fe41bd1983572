#include "calendar/day_counts.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include "calendar/month_rules.h"

namespace cal {
namespace {

constexpr std::int16_t Complement(std::int16_t year) { return static_cast<std::int16_t>(~year); }

// |trunc(value)| as a 32-bit count; magnitudes beyond 32 bits are outside the
// defined domain and saturate.
int MagnitudeDays(double value) {
    const std::int64_t n = std::llabs(TruncateDays(value));
    constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
    return static_cast<int>(n > kMax ? kMax : n);
}

int GregorianDaysBeforeYear(int a) { return 365 * a + a / 4 - a / 100 + a / 400; }  // a in [0, 32767]
int JulianDaysBeforeYear(int a) { return 365 * a + a / 4; }

}  // namespace

int GregorianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year) {
    if (year > 0) {
        const int a = year - 1;
        return GregorianDaysBeforeYear(a) + YearDay(day, month, GregorianLeap(year));
    }
    const std::int16_t a = Complement(year);  // [0, 32767]
    const bool leap = GregorianLeap(a);
    const int length = leap ? 366 : 365;
    return -GregorianDaysBeforeYear(a) - (length - YearDay(day, month, leap) + 1);
}

int JulianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year) {
    if (year > 0) {
        const int a = year - 1;
        return JulianDaysBeforeYear(a) + YearDay(day, month, JulianLeap(year));
    }
    if (year == 0) return YearDay(day, month, true) - 367;
    const std::int16_t a = Complement(year);  // [0, 32766]
    const bool leap = JulianLeap(a);
    const int length = leap ? 366 : 365;
    return -365 * a - a / 4 - (length - YearDay(day, month, leap) + 1);
}

void GregorianDateFromCount(double count, tagDATETIME* out) {
    const int n = MagnitudeDays(count);
    int q400 = n / 146097;
    int r = n % 146097;
    int q100 = r / 36524;  // [0, 4]
    r %= 36524;
    int q4 = r / 1461;  // [0, 24]
    r %= 1461;
    int q1 = r / 365;  // [0, 4]
    int d = r % 365;
    if (d == 0) {
        // The third case yields day 366 of a 365-day century year on purpose:
        // such year ends read back as day 1 of month 13.
        if (q1 != 0) {
            q1 -= 1;
            d = 365;
        } else if (q4 != 0) {
            q4 -= 1;
            q1 = 3;
            d = 366;
        } else if (q100 != 0) {
            q100 -= 1;
            q1 = 99;
            d = 366;
        } else if (q400 != 0) {
            q400 -= 1;
            q4 = 0;
            q1 = 399;
            d = 366;
        }
    }
    const int years = 400 * q400 + 100 * q100 + 4 * q4 + q1;
    if (count > 0) {
        out->Year = static_cast<std::int16_t>(years + 1);
        SetYearDay(d, GregorianLeap(out->Year), &out->Day, &out->Month);
        return;
    }
    const auto y = static_cast<std::int16_t>(years);
    const bool leap = GregorianLeap(y);
    SetYearDay((leap ? 366 : 365) - d, leap, &out->Day, &out->Month);
    out->Year = Complement(y);
}

void JulianDateFromCount(double count, tagDATETIME* out) {
    const double f = std::floor(count);
    if (count >= 1.0 || count < -365.0) {
        const int n = count >= 1.0 ? MagnitudeDays(f) : MagnitudeDays(f) - 366;
        int q4 = n / 1461;
        const int r = n % 1461;
        int q1 = r / 365;  // [0, 4]
        int d = r % 365;
        if (d == 0) {
            if (q1 != 0) {
                q1 -= 1;
                d = 365;
            } else {
                q4 -= 1;
                q1 = 3;
                d = 366;
            }
        }
        const int years = 4 * q4 + q1 + 1;
        if (count >= 1.0) {
            out->Year = static_cast<std::int16_t>(years);
            SetYearDay(d, JulianLeap(out->Year), &out->Day, &out->Month);
            return;
        }
        const auto y = static_cast<std::int16_t>(years);
        const bool leap = JulianLeap(y);
        SetYearDay((leap ? 366 : 365) - d, leap, &out->Day, &out->Month);
        if (out->Day == 0) {
            out->Month = 12;
            out->Day = 31;
        }
        out->Year = Complement(y);
        return;
    }
    // 1 BC, read as the leap year 0.
    SetYearDay(366 - MagnitudeDays(f), true, &out->Day, &out->Month);
    out->Year = -1;
}

}  // namespace cal
