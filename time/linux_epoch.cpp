#include "time/linux_epoch.h"

#include <cstdint>

#include "calendar/lazy_day_number.h"
#include "calendar/month_rules.h"

// 0.0 until first use.
double SDLinux = 0.0;

double LinuxEpochStarDate() noexcept {
    return cal::DayNumberFilledOnFirstUse(SDLinux, [] {
        // The Gregorian year-day of 1 January 1970 plus the days before 1970.
        const std::int32_t days = cal::YearDay(1, 1, cal::GregorianLeap(1970)) + 719162;
        return days + 2.0;
    });
}
