// iCalendar (RFC 5545) text for a list of instantaneous events.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text_format.h"

namespace timetool {

// An event at one instant. The writer takes every field as given: the
// caller makes UIDs unique and stable.
struct CalendarEvent {
    std::string uid;
    ExactInstant start;  // UTC, a year in [1, 9999]
    std::string summary;
    std::string description;  // empty: none
    std::string geo;          // "43.3;-83.045", empty: none
};

// Years an iCalendar date can hold: four digits, and no year 0 in its
// Gregorian calendar.
inline constexpr int kFirstCalendarYear = 1;
inline constexpr int kLastCalendarYear = 9999;

// A VCALENDAR with PRODID and VERSION holding one VEVENT per event, in the
// order given. DTSTAMP is the event's own start so the same events give the
// same bytes. Lines end in CRLF and are folded at 75 octets, never inside a
// UTF-8 sequence; text values are escaped.
std::string WriteCalendar(const std::vector<CalendarEvent>& events);

// "20240621T095212Z".
std::string FormatCalendarDateTime(const ExactInstant& instant);
// A TEXT value with backslash, semicolon, comma and line breaks escaped.
std::string EscapeCalendarText(std::string_view text);
// One content line, folded, with its CRLF.
std::string FoldCalendarLine(std::string_view line);

}  // namespace timetool
