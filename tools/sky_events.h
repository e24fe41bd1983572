// The true sun and moon events of a run of civil days, and the same events
// as iCalendar entries.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "ics_writer.h"
#include "sky/sun_events.h"
#include "text_format.h"

namespace timetool {

enum class SkyEventKind : std::uint8_t { Sunrise, Sunset, NewMoon, FirstQuarter, FullMoon, LastQuarter };

struct SkyEvent {
    SkyEventKind kind = SkyEventKind::Sunrise;
    ExactInstant instant;  // UTC, to the nearest second
};

// "Sunrise", "Full moon".
std::string_view SkyEventName(SkyEventKind kind);

// Sunrise and sunset of the solar days of the civil days [first, first +
// days), in time order. A day without one (polar day or night, years the sky
// is not known for) gives none.
std::vector<SkyEvent> SunEventsOfDays(StarDay first, int days, sky::Place place);
// New, first-quarter, full and last-quarter moons from 00:00 UTC of `first`
// up to 00:00 UTC of the day after the last, in time order.
std::vector<SkyEvent> MoonQuartersOfDays(StarDay first, int days);
// Both kinds together, in time order.
std::vector<SkyEvent> MergeSkyEvents(std::vector<SkyEvent> sun, const std::vector<SkyEvent>& moon);

// Calendar entries for the events. The UID names the kind, the instant and,
// for the sun, the place, so one event has one UID in every run.
std::vector<CalendarEvent> CalendarEventsOf(const std::vector<SkyEvent>& events, sky::Place place);

enum class SkyCalendarContent : std::uint8_t { Sun, Moon, SunAndMoon };

// Years a calendar of sky events covers: iCalendar dates start in AD 1, and
// the sky's clock times are known up to 3000.
inline constexpr int kFirstSkyCalendarYear = 1;
inline constexpr int kLastSkyCalendarYear = 3000;

// The iCalendar stream of the events of the civil days [first, first +
// days) at a place. Throws ToolError (status 2) when the days leave the
// years above. Days without a sunrise or sunset (polar day and night) add
// no event.
std::string SkyCalendar(StarDay first, int days, sky::Place place, SkyCalendarContent content);

}  // namespace timetool
