#include "time/clock.h"

#include <ctime>

bool ReadClock(bool utc, tagDATETIME& out) noexcept {
    const std::time_t now = std::time(nullptr);
    // gmtime and localtime share static storage: copy out at once.
    const std::tm* tm = utc ? std::gmtime(&now) : std::localtime(&now);
    if (!tm) return false;
    out.Year = static_cast<std::int16_t>(tm->tm_year + 1900);
    out.Month = static_cast<std::int16_t>(tm->tm_mon + 1);
    out.Day = static_cast<std::int16_t>(tm->tm_mday);
    out.Hour = static_cast<std::int16_t>(tm->tm_hour);
    out.Minute = static_cast<std::int16_t>(tm->tm_min);
    out.Second = static_cast<float>(tm->tm_sec);
    return true;
}
