#include "time/date_normalisation.h"

#include "time/calendar_info.h"
#include "time/calendar_kinds.h"

namespace {

// The shortest of months 1 to 12 under the kind's rules. Hebrew years are
// also longer than 29 days and have at least 12 months, so a date within
// these bounds carries nothing.
constexpr std::int16_t ShortestMonth(std::int32_t kind) noexcept {
    return kind == kCalendarHebrewFlagOne || kind == kCalendarHebrewFlagZero ? 29 : 28;
}

}  // namespace

void NormaliseDate(std::int32_t kind, std::int16_t day, std::int16_t month, std::int16_t year,
                   tagDATETIME& date) noexcept {
    if (month >= 1 && month <= 12 && day <= ShortestMonth(kind)) {
        date.Day = day;
        date.Month = month;
        date.Year = year;
        return;
    }
    CarryDate(kind, day, month, year, date);
}

void CarryDate(std::int32_t kind, std::int16_t day, std::int16_t month, std::int16_t year, tagDATETIME& date) noexcept {
    date.Day = day;
    date.Month = month;
    if (month < 0) {
        date.Year = static_cast<std::int16_t>(year - 1);
        date.Month = static_cast<std::int16_t>(date.Month + ComputeCalendarInfo(kind, date).monthsInYear);
    } else {
        date.Year = year;
    }
    CalendarInfo info = ComputeCalendarInfo(kind, date);
    // Year lengths are at least 353 days; the guard only keeps a corrupt
    // length from looping forever.
    while (date.Day > info.daysInYear && info.daysInYear > 0) {
        date.Year = static_cast<std::int16_t>(date.Year + 1);
        date.Day = static_cast<std::int16_t>(date.Day - info.daysInYear);
        info = ComputeCalendarInfo(kind, date);
    }
    // Months of length 0 (Hebrew month numbers outside the year) are walked
    // through; the 16-bit month wraps until a month with days is reached.
    while (date.Day > info.daysInMonth) {
        date.Month = static_cast<std::int16_t>(date.Month + 1);
        date.Day = static_cast<std::int16_t>(date.Day - info.daysInMonth);
        info = ComputeCalendarInfo(kind, date);
    }
    // The day is not checked again against the month it ends in.
    while (date.Month > info.monthsInYear) {
        date.Year = static_cast<std::int16_t>(date.Year + 1);
        date.Month = static_cast<std::int16_t>(date.Month - info.monthsInYear);
        info = ComputeCalendarInfo(kind, date);
    }
}
