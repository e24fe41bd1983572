#include "calendar/day_numbers.h"

#include <cmath>

#include "calendar/lazy_day_number.h"
#include "calendar/whole_days.h"

double SDPopeGregory = 0.0;

namespace cal {
namespace {

double PopeGregoryDay() noexcept {
    return DayNumberFilledOnFirstUse(SDPopeGregory, [] {
        tagDATETIME reform;
        reform.Day = 4;
        reform.Month = 10;
        reform.Year = 1582;
        return JulianDayNumber(reform);
    });
}

}  // namespace

void TimeOfDayNumber(double dayNumber, tagDATETIME& out) noexcept {
    double fraction = FractionOf(dayNumber);
    if (std::isnan(fraction)) fraction = 0.0;
    if (fraction == 0.0) {
        // What the steps below give for a zero, its sign kept in the second.
        out.Hour = 0;
        out.Minute = 0;
        out.Second = std::copysign(0.0f, static_cast<float>(fraction));
        return;
    }
    double s = fraction * 86400.0;  // (-86400, 86400)
    out.Hour = static_cast<std::int16_t>(s / 3600.0);
    s = s - out.Hour * 3600;
    out.Minute = static_cast<std::int16_t>(s / 60.0);
    s = s - out.Minute * 60;
    // No rounding: a value a hair below a whole minute stays below it.
    out.Second = static_cast<float>(s);
}

void GregorianDateOfDayNumber(double dayNumber, tagDATETIME& out) noexcept {
    GregorianDateFromCount(dayNumber - kGregorianShift, &out);
    TimeOfDayNumber(dayNumber, out);
}

double WesternDayNumber(const tagDATETIME& date) noexcept {
    const double reform = PopeGregoryDay();
    const double julian = JulianDayNumber(date);
    // Strictly less: the switch-over day itself is read as a Gregorian date.
    if (julian < reform) return julian;
    return GregorianElapsedDays(date.Day, date.Month, date.Year) + kGregorianShift;
}

void WesternDateOfDayNumber(double dayNumber, tagDATETIME& out) noexcept {
    if (dayNumber <= PopeGregoryDay()) {
        JulianDateFromCount(dayNumber, &out);
    } else {
        GregorianDateFromCount(dayNumber - kGregorianShift, &out);
    }
}

}  // namespace cal
