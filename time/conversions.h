// The date conversions of the Time component: each calendar's date record to
// the star date and back, with the signatures and result codes hosts know.
// The arithmetic is calendar/'s; these add only the calling convention.
#pragma once

#include "calendar/datetime.h"
#include "calendar/day_numbers.h"
#include "calendar/hebrew.h"
#include "com_types.h"

// Gregorian date and time of day to day number.
inline double GregorianToJDN(const tagDATETIME* date) { return cal::GregorianDayNumber(*date); }
// Writes Day, Month, Year, Hour, Minute, Second; always 0.
inline HRESULT JDNtoGregorian(double jdn, tagDATETIME* out) {
    cal::GregorianDateOfDayNumber(jdn, *out);
    return S_OK;
}

// Julian date to whole days; the time fields are ignored.
inline double JulianToJDN(const tagDATETIME* date) { return cal::JulianDayNumber(*date); }
// Writes Day, Month, Year only; always 0.
inline HRESULT JDNtoJulian(double jdn, tagDATETIME* out) {
    cal::JulianDateOfDayNumber(jdn, *out);
    return S_OK;
}

// Julian before the switch-over day SDPopeGregory, Gregorian from it on;
// whole days only.
inline double WesternToJDN(const tagDATETIME* date) { return cal::WesternDayNumber(*date); }
// Writes Day, Month, Year only; always 0.
inline HRESULT JDNtoWestern(double jdn, tagDATETIME* out) {
    cal::WesternDateOfDayNumber(jdn, *out);
    return S_OK;
}

// Time of day, shifted by a zone offset in whole hours, as a fraction of a
// day; not reduced to [0, 1).
inline double TimeToJDN(const tagDATETIME* date, int offsetHours) { return cal::TimeFraction(*date, offsetHours); }
// Writes Hour, Minute, Second from the fraction of jdn (sign kept); always 0.
inline HRESULT JDNtoTime(double jdn, tagDATETIME* out) {
    cal::TimeOfDayNumber(jdn, *out);
    return S_OK;
}

// A deliberately coarse mean-month count that reads Day and Year only.
inline double HebrewToJDN(const tagDATETIME* date, short flag) { return cal::HebrewDayNumber(*date, flag); }
// Writes Day, Month, Year only; always 0.
inline HRESULT JDNtoHebrew(double jdn, tagDATETIME* date, short flag) {
    cal::HebrewDateOfDayNumber(jdn, *date, flag);
    return S_OK;
}

// The registry-defined calendars "SDAdam" and "SDGeneric" (generic_calendar.cpp):
// whole days; the back conversions write Day, Month, Year only and return 0.
double AdamToJDN(const tagDATETIME* date);
HRESULT JDNtoAdam(double jdn, tagDATETIME* out);
double GenericToJDN(const tagDATETIME* date);
HRESULT JDNtoGeneric(double jdn, tagDATETIME* out);
