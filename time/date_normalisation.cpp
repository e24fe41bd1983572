#include "time/date_normalisation.h"

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
