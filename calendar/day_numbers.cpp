#include "calendar/day_numbers.h"

#include <array>
#include <cmath>

#include "calendar/day_counts.h"
#include "calendar/whole_days.h"

double SDPopeGregory = 0.0;

namespace {

// Day numbers put 1 January AD 1 (Gregorian) at 3.0, two days after the
// Julian count's origin.
constexpr double kGregorianShift = 2.0;

// Hour / 24 and Minute / 1440 over a day's usual hours and minutes. The
// compiler divides exactly as the processor does (both round the quotient
// to nearest), so the values are the quotients themselves.
constexpr auto kHourFractions = [] {
    std::array<double, 24> a{};
    for (int h = 0; h < 24; ++h) a[static_cast<std::size_t>(h)] = h / 24.0;
    return a;
}();
constexpr auto kMinuteFractions = [] {
    std::array<double, 60> a{};
    for (int m = 0; m < 60; ++m) a[static_cast<std::size_t>(m)] = m / 1440.0;
    return a;
}();

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
    double s = fraction * 86400.0;  // (-86400, 86400)
    out->Hour = static_cast<std::int16_t>(s / 3600.0);
    s = s - out->Hour * 3600;
    out->Minute = static_cast<std::int16_t>(s / 60.0);
    s = s - out->Minute * 60;
    // No rounding: a value a hair below a whole minute stays below it.
    out->Second = static_cast<float>(s);
}

}  // namespace

double DayFraction(const tagDATETIME* date) {
    if ((date->Hour | date->Minute) == 0 && date->Second == 0.0f) return 0.0;  // midnight
    const int h = date->Hour;
    const int m = date->Minute;
    const double hours = h >= 0 && h < 24 ? kHourFractions[static_cast<std::size_t>(h)] : h / 24.0;
    const double minutes = m >= 0 && m < 60 ? kMinuteFractions[static_cast<std::size_t>(m)] : m / 1440.0;
    // hours + minutes is never -0.0, so adding a zero second (of either
    // sign) would leave it as it is.
    if (date->Second == 0.0f) return hours + minutes;
    return (hours + minutes) + static_cast<double>(date->Second) / 86400.0;
}

double GregorianToJDN(const tagDATETIME* date) {
    const double days = cal::GregorianElapsedDays(date->Day, date->Month, date->Year) + kGregorianShift;
    // A whole day count is never -0.0, so adding midnight's 0.0 changes nothing.
    if ((date->Hour | date->Minute) == 0 && date->Second == 0.0f) return days;
    return days + DayFraction(date);
}

HRESULT JDNtoGregorian(double jdn, tagDATETIME* out) {
    cal::GregorianDateFromCount(jdn - kGregorianShift, out);
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
    return cal::GregorianElapsedDays(date->Day, date->Month, date->Year) + kGregorianShift;
}

HRESULT JDNtoWestern(double jdn, tagDATETIME* out) {
    FillPopeGregory();
    if (jdn <= SDPopeGregory) {
        cal::JulianDateFromCount(jdn, out);
    } else {
        cal::GregorianDateFromCount(jdn - kGregorianShift, out);
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
