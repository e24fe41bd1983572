#include "time/linux_epoch.h"

#include <atomic>
#include <cstdint>

#include "calendar/calendar_classes.h"

namespace {

// 0.0 until first use. Filled without a lock: racing threads store the same
// value.
std::atomic<double> SDLinux{0.0};

}  // namespace

double LinuxEpochStarDate() noexcept {
    double value = SDLinux.load(std::memory_order_relaxed);
    if (value == 0.0) {
        CGregorian newYear;
        newYear.Day = 1;
        newYear.Month = 1;
        newYear.Year = 1970;
        const std::int32_t days = newYear.GetYearDay() + 719162;
        value = days + 2.0;
        SDLinux.store(value, std::memory_order_relaxed);
    }
    return value;
}
