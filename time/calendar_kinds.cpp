#include "time/calendar_kinds.h"

#include <iterator>

#include "calendar/day_numbers.h"
#include "calendar/generic_calendar.h"
#include "calendar/hebrew.h"

namespace {

constexpr short kHebrewFlagOne = 1;
constexpr short kHebrewFlagZero = 0;

// Indexed by kind.
constexpr CalendarKindConversions kConversions[] = {
    {[](const tagDATETIME* d) { return GregorianToJDN(d); }, [](double x, tagDATETIME* d) { JDNtoGregorian(x, d); }},
    {[](const tagDATETIME* d) { return JulianToJDN(d); }, [](double x, tagDATETIME* d) { JDNtoJulian(x, d); }},
    {[](const tagDATETIME* d) { return GregorianToJDN(d); }, [](double x, tagDATETIME* d) { JDNtoWestern(x, d); }},
    {[](const tagDATETIME* d) { return HebrewToJDN(d, kHebrewFlagOne); },
     [](double x, tagDATETIME* d) { JDNtoHebrew(x, d, kHebrewFlagOne); }},
    {[](const tagDATETIME* d) { return HebrewToJDN(d, kHebrewFlagZero); },
     [](double x, tagDATETIME* d) { JDNtoHebrew(x, d, kHebrewFlagZero); }},
    {[](const tagDATETIME* d) { return AdamToJDN(d); }, [](double x, tagDATETIME* d) { JDNtoAdam(x, d); }},
    {[](const tagDATETIME* d) { return GenericToJDN(d); }, [](double x, tagDATETIME* d) { JDNtoGeneric(x, d); }},
};

}  // namespace

const CalendarKindConversions& ConversionsForKind(std::int32_t kind) noexcept {
    if (kind < 0 || kind >= static_cast<std::int32_t>(std::size(kConversions))) {
        return kConversions[kCalendarGregorian];
    }
    return kConversions[kind];
}
