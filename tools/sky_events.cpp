#include "sky_events.h"

#include <algorithm>
#include <array>
#include <string>

#include "sky/moon_quarters.h"
#include "tool_error.h"
#include "when.h"

namespace timetool {

namespace {

struct SkyEventRow {
    SkyEventKind kind;
    std::string_view name;
    std::string_view uidWord;
    bool atPlace;    // the sun's events belong to a place, the moon's quarters to the whole Earth
    int phaseAngle;  // degrees, for the quarters
};

constexpr std::array<SkyEventRow, 6> kSkyEventRows{{
    {SkyEventKind::Sunrise, "Sunrise", "sunrise", true, 0},
    {SkyEventKind::Sunset, "Sunset", "sunset", true, 0},
    {SkyEventKind::NewMoon, "New moon", "new-moon", false, 0},
    {SkyEventKind::FirstQuarter, "First quarter", "first-quarter", false, 90},
    {SkyEventKind::FullMoon, "Full moon", "full-moon", false, 180},
    {SkyEventKind::LastQuarter, "Last quarter", "last-quarter", false, 270},
}};

const SkyEventRow& RowOf(SkyEventKind kind) { return kSkyEventRows.at(static_cast<std::size_t>(kind)); }

ExactInstant InstantOfJulianDate(double julianDate) { return SplitStarDate(julianDate - kJulianDateOffset); }

double JulianDateOfDay(StarDay day) { return static_cast<double>(day) + kJulianDateOffset; }

SkyEventKind KindOfQuarter(sky::MoonQuarter quarter) {
    return static_cast<SkyEventKind>(static_cast<int>(SkyEventKind::NewMoon) + static_cast<int>(quarter));
}

bool Earlier(const SkyEvent& a, const SkyEvent& b) {
    return a.instant.day != b.instant.day ? a.instant.day < b.instant.day : a.instant.second < b.instant.second;
}

// "43.3N-83.045W": the place as the UID carries it.
std::string PlaceWord(sky::Place place) {
    std::string word = FormatLatitude(place.latitude) + "-" + FormatLongitude(place.longitude);
    std::erase(word, ' ');
    return word;
}

}  // namespace

std::string_view SkyEventName(SkyEventKind kind) { return RowOf(kind).name; }

std::vector<SkyEvent> SunEventsOfDays(StarDay first, int days, sky::Place place) {
    std::vector<SkyEvent> events;
    for (int i = 0; i < days; ++i) {
        const sky::SunDay sun = sky::SunDayAt(first + i - kUnixEpochStarDay, place);
        if (sun.horizon.rise.Happens()) {
            events.push_back({SkyEventKind::Sunrise, InstantOfJulianDate(sun.horizon.rise.julianDate)});
        }
        if (sun.horizon.set.Happens()) {
            events.push_back({SkyEventKind::Sunset, InstantOfJulianDate(sun.horizon.set.julianDate)});
        }
    }
    std::stable_sort(events.begin(), events.end(), Earlier);
    return events;
}

std::vector<SkyEvent> MoonQuartersOfDays(StarDay first, int days) {
    std::vector<SkyEvent> events;
    for (const sky::MoonQuarterEvent& quarter :
         sky::MoonQuartersBetween(JulianDateOfDay(first), JulianDateOfDay(first + days))) {
        events.push_back({KindOfQuarter(quarter.quarter), InstantOfJulianDate(quarter.julianDate)});
    }
    return events;
}

std::vector<SkyEvent> MergeSkyEvents(std::vector<SkyEvent> sun, const std::vector<SkyEvent>& moon) {
    sun.insert(sun.end(), moon.begin(), moon.end());
    std::stable_sort(sun.begin(), sun.end(), Earlier);
    return sun;
}

std::vector<CalendarEvent> CalendarEventsOf(const std::vector<SkyEvent>& events, sky::Place place) {
    const std::string placeWord = PlaceWord(place);
    const std::string placeText = FormatLatitude(place.latitude) + ", " + FormatLongitude(place.longitude);
    std::vector<CalendarEvent> entries;
    entries.reserve(events.size());
    for (const SkyEvent& event : events) {
        const SkyEventRow& row = RowOf(event.kind);
        CalendarEvent entry;
        entry.start = event.instant;
        entry.summary = std::string(row.name);
        entry.uid = std::string(row.uidWord) + "-" + FormatCalendarDateTime(event.instant);
        if (row.atPlace) {
            entry.uid += "-" + placeWord;
            entry.description = std::string(row.name) + " at " + placeText +
                                ": the sun's upper limb on the horizon, standard refraction";
            entry.geo = FormatFixed(place.latitude, 6) + ";" + FormatFixed(place.longitude, 6);
        } else {
            entry.description = std::string(row.name) + ": the true phase angle of the moon reaches " +
                                std::to_string(row.phaseAngle) + " degrees";
        }
        entry.uid += "@timetool";
        entries.push_back(std::move(entry));
    }
    return entries;
}

std::string SkyCalendar(StarDay first, int days, sky::Place place, SkyCalendarContent content) {
    const int firstYear = GregorianOfDay(first).year;
    const int lastYear = GregorianOfDay(first + days - 1).year;
    if (firstYear < kFirstSkyCalendarYear || lastYear > kLastSkyCalendarYear) {
        throw ToolError{kExitBadInput, "timetool: --ics covers the years " + std::to_string(kFirstSkyCalendarYear) +
                                           " to " + std::to_string(kLastSkyCalendarYear) +
                                           " (iCalendar dates start in AD 1; the sky is known up to 3000)"};
    }
    std::vector<SkyEvent> events;
    if (content != SkyCalendarContent::Moon) events = SunEventsOfDays(first, days, place);
    if (content != SkyCalendarContent::Sun) events = MergeSkyEvents(std::move(events), MoonQuartersOfDays(first, days));
    return WriteCalendar(CalendarEventsOf(events, place));
}

}  // namespace timetool
