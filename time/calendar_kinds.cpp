#include "time/calendar_kinds.h"

#include "calendar/day_numbers.h"
#include "calendar/generic_calendar.h"
#include "calendar/hebrew.h"

namespace {

constexpr short kHebrewFlagOne = 1;
constexpr short kHebrewFlagZero = 0;

}  // namespace

constexpr CalendarKindConversions kCalendarConversions[kCalendarKindCount] = {
    {GregorianToJDN, JDNtoGregorian},
    {JulianToJDN, JDNtoJulian},
    {GregorianToJDN, JDNtoWestern},
    {[](const tagDATETIME* d) { return HebrewToJDN(d, kHebrewFlagOne); },
     [](double x, tagDATETIME* d) { return JDNtoHebrew(x, d, kHebrewFlagOne); }},
    {[](const tagDATETIME* d) { return HebrewToJDN(d, kHebrewFlagZero); },
     [](double x, tagDATETIME* d) { return JDNtoHebrew(x, d, kHebrewFlagZero); }},
    {AdamToJDN, JDNtoAdam},
    {GenericToJDN, JDNtoGeneric},
};
