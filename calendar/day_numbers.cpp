#include "calendar/day_numbers.h"

#include <cmath>

#include "calendar/day_counts.h"
#include "calendar/whole_days.h"

double SDPopeGregory = 0.0;

namespace {

void FillPopeGregory() {
    if (SDPopeGregory != 0.0) return;
    tagDATETIME reform;
    reform.Day = 4;
    reform.Month = 10;
    reform.Year = 1582;
    SDPopeGregory = JulianToJDN(&reform);
}

// Hours, minutes and seconds of a fraction of a day, sign kept.
void WriteTimeOfDay(double jdn, tagDATETIME* out) {
    double fraction = cal::FractionOf(jdn);
    if (std::isnan(fraction)) fraction = 0.0;
    if (fraction == 0.0) {
        // What the steps below give for a zero, its sign kept in the second.
        out->Hour = 0;
        out->Minute = 0;
        out->Second = std::copysign(0.0f, static_cast<float>(fraction));
        return;
    }
    double s = fraction * 86400.0;  // (-86400, 86400)
    out->Hour = static_cast<std::int16_t>(s / 3600.0);
    s = s - out->Hour * 3600;
    out->Minute = static_cast<std::int16_t>(s / 60.0);
    s = s - out->Minute * 60;
    // No rounding: a value a hair below a whole minute stays below it.
    out->Second = static_cast<float>(s);
}

}  // namespace

HRESULT JDNtoGregorian(double jdn, tagDATETIME* out) {
    cal::GregorianDateFromCount(jdn - cal::kGregorianShift, out);
    WriteTimeOfDay(jdn, out);
    return S_OK;
}

double JulianToJDN(const tagDATETIME* date) { return cal::JulianElapsedDays(date->Day, date->Month, date->Year); }

HRESULT JDNtoJulian(double jdn, tagDATETIME* out) {
    cal::JulianDateFromCount(jdn, out);
    return S_OK;
}

double WesternToJDN(const tagDATETIME* date) {
    FillPopeGregory();
    const double julian = JulianToJDN(date);
    // Strictly less: the switch-over day itself is read as a Gregorian date.
    if (julian < SDPopeGregory) return julian;
    return cal::GregorianElapsedDays(date->Day, date->Month, date->Year) + cal::kGregorianShift;
}

HRESULT JDNtoWestern(double jdn, tagDATETIME* out) {
    FillPopeGregory();
    if (jdn <= SDPopeGregory) {
        cal::JulianDateFromCount(jdn, out);
    } else {
        cal::GregorianDateFromCount(jdn - cal::kGregorianShift, out);
    }
    return S_OK;
}

double TimeToJDN(const tagDATETIME* date, int offsetHours) {
    // The difference is exact in double for every pair of 32-bit values.
    const double hours = static_cast<double>(date->Hour) - static_cast<double>(offsetHours);
    return (hours / 24.0 + date->Minute / 1440.0) + static_cast<double>(date->Second) / 86400.0;
}

HRESULT JDNtoTime(double jdn, tagDATETIME* out) {
    WriteTimeOfDay(jdn, out);
    return S_OK;
}
