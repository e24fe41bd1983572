// Conversions between a date record and the day number shared by every
// calendar: day 1 is 1 January AD 1 (Julian), 1 January AD 1 (Gregorian) is
// day 3, and the fraction is the time of day.
#pragma once

#include "calendar/datetime.h"
#include "com_types.h"

// (Hour / 24 + Minute / 1440) + Second / 86400: the time of day as a
// fraction of a day, not reduced to [0, 1).
double DayFraction(const tagDATETIME* date);

// Gregorian date and time of day to day number. BC years and year 0 follow
// the complement rule, so no date yields 2.0 and year 0 overlaps AD 1.
double GregorianToJDN(const tagDATETIME* date);
// Writes Day, Month, Year, Hour, Minute, Second; always 0. 31 December of a
// century year not divisible by 400 comes back as day 1 of month 13.
HRESULT JDNtoGregorian(double jdn, tagDATETIME* out);

// Julian date to whole days; the time fields are ignored.
double JulianToJDN(const tagDATETIME* date);
// Writes Day, Month, Year only; always 0.
HRESULT JDNtoJulian(double jdn, tagDATETIME* out);

// Julian before the switch-over day SDPopeGregory, Gregorian from it on;
// whole days only.
double WesternToJDN(const tagDATETIME* date);
// Writes Day, Month, Year only; always 0.
HRESULT JDNtoWestern(double jdn, tagDATETIME* out);

// Time of day, shifted by a zone offset in whole hours, as a fraction of a
// day; not reduced to [0, 1).
double TimeToJDN(const tagDATETIME* date, int offsetHours);
// Writes Hour, Minute, Second from the fraction of jdn (sign kept); always 0.
HRESULT JDNtoTime(double jdn, tagDATETIME* out);

// Day number of 4 October 1582 (Julian), 577737.0; 0.0 until the first
// Western conversion fills it.
extern double SDPopeGregory;
