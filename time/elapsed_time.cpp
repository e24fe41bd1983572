#include "time/elapsed_time.h"

#include <cstdint>

#include "calendar/month_rules.h"

namespace {

std::int32_t day_of_year(const tagDATETIME& date) noexcept {
    return cal::YearDay(date.Day, date.Month, cal::GregorianLeap(date.Year));
}

}  // namespace

double ElapsedSeconds(const tagDATETIME& from, const tagDATETIME& now) noexcept {
    std::int32_t days = day_of_year(now) - day_of_year(from);
    for (std::int32_t year = from.Year; year < now.Year; ++year) {
        days += cal::YearLength(cal::GregorianLeap(static_cast<std::int16_t>(year)));
    }
    auto hours = static_cast<std::int16_t>(now.Hour - from.Hour);
    auto minutes = static_cast<std::int16_t>(now.Minute - from.Minute);
    float seconds = now.Second - from.Second;

    if (seconds > 60.0) {
        seconds -= 60.0f;
        minutes = static_cast<std::int16_t>(minutes + 1);
    }
    if (seconds < 0.0) {
        seconds += 60.0f;
        minutes = static_cast<std::int16_t>(minutes - 1);
    }
    // Exactly 60 minutes or 24 hours stay as they are; the total is the same.
    if (minutes > 60) {
        minutes = static_cast<std::int16_t>(minutes - 60);
        hours = static_cast<std::int16_t>(hours + 1);
    } else if (minutes < 0) {
        minutes = static_cast<std::int16_t>(minutes + 60);
        hours = static_cast<std::int16_t>(hours - 1);
    }
    if (hours > 24) {
        hours = static_cast<std::int16_t>(hours - 24);
        days += 1;
    } else if (hours < 0) {
        hours = static_cast<std::int16_t>(hours + 24);
        days -= 1;
    }
    return days * 24.0 * 60.0 * 60.0 + hours * 3600.0 + minutes * 60 + seconds;
}
