// The Gregorian and Julian day counts, their inverses and the time-of-day
// split as they were first written: month loops, libm rounding and every
// length looked up on each call. The module's shorter paths must give
// exactly these values.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

#include "calendar/datetime.h"
#include "calendar/month_rules.h"

namespace day_counts_direct {

using cal::GregorianLeap;
using cal::JulianLeap;

// Days before month m in a common year, m in [1, 13]; index 0 unused.
constexpr int kDaysBeforeMonth[14] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr int kMonthLength[13] = {30, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr int kOutOfRangeMonth = 30;
// The highest month the closed form can store without 16-bit wrap-around.
constexpr int kLastStorableMonth = std::numeric_limits<std::int16_t>::max();

inline int DaysBefore(int month, bool leap) {  // month in [1, 13]
    return kDaysBeforeMonth[month] + (leap && month >= 3 ? 1 : 0);
}

inline int MonthLength(int month, bool leap) {
    if (month < 0 || month > 12) return kOutOfRangeMonth;
    return kMonthLength[month] + (leap && month == 2 ? 1 : 0);
}

// The month walk one month at a time, for year-days so large that Month
// wraps around 16 bits (and meets months 1..12 again).
inline void WalkMonths(int n, bool leap, std::int16_t* day, std::int16_t* month) {
    std::int16_t m = 1;
    std::int64_t sum = 0;
    while (MonthLength(m, leap) + sum < n) {
        sum += MonthLength(m, leap);
        m = static_cast<std::int16_t>(m + 1);
    }
    *month = m;
    *day = static_cast<std::int16_t>(n - sum);
}

inline int YearDay(int day, int month, bool leap) {
    if (month <= 1) return day;
    if (month <= 13) return DaysBefore(month, leap) + day;
    return DaysBefore(13, leap) + kOutOfRangeMonth * (month - 13) + day;
}

inline void SetYearDay(int n, bool leap, std::int16_t* day, std::int16_t* month) {
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

inline std::int64_t TruncateDays(double days) {
    if (std::isnan(days)) return 0;
    constexpr double kLimit = 9.0e18;
    if (days >= kLimit) return static_cast<std::int64_t>(kLimit);
    if (days <= -kLimit) return -static_cast<std::int64_t>(kLimit);
    return static_cast<std::int64_t>(days);
}

constexpr std::int16_t Complement(std::int16_t year) { return static_cast<std::int16_t>(~year); }

// |trunc(value)| as a 32-bit count; magnitudes beyond 32 bits are outside the
// defined domain and saturate.
inline int MagnitudeDays(double value) {
    const std::int64_t n = std::llabs(TruncateDays(value));
    constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
    return static_cast<int>(n > kMax ? kMax : n);
}

inline int GregorianDaysBeforeYear(int a) { return 365 * a + a / 4 - a / 100 + a / 400; }  // a in [0, 32767]
inline int JulianDaysBeforeYear(int a) { return 365 * a + a / 4; }

inline int GregorianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year) {
    if (year > 0) {
        const int a = year - 1;
        return GregorianDaysBeforeYear(a) + YearDay(day, month, GregorianLeap(year));
    }
    const std::int16_t a = Complement(year);  // [0, 32767]
    const bool leap = GregorianLeap(a);
    const int length = leap ? 366 : 365;
    return -GregorianDaysBeforeYear(a) - (length - YearDay(day, month, leap) + 1);
}

inline int JulianElapsedDays(std::int16_t day, std::int16_t month, std::int16_t year) {
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

inline void GregorianDateFromCount(double count, tagDATETIME* out) {
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

inline void JulianDateFromCount(double count, tagDATETIME* out) {
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

// Hours, minutes and seconds of a fraction of a day, sign kept.
inline void WriteTimeOfDay(double jdn, tagDATETIME* out) {
    double whole = 0.0;
    double fraction = std::modf(jdn, &whole);
    if (std::isnan(fraction)) fraction = 0.0;
    double s = fraction * 86400.0;  // (-86400, 86400)
    out->Hour = static_cast<std::int16_t>(s / 3600.0);
    s = s - out->Hour * 3600;
    out->Minute = static_cast<std::int16_t>(s / 60.0);
    s = s - out->Minute * 60;
    // No rounding: a value a hair below a whole minute stays below it.
    out->Second = static_cast<float>(s);
}

}  // namespace day_counts_direct
