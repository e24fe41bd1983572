// iCalendar text read back by libical, which also checks what a plain
// parser lets through.
#include "ics_writer.h"

#include <gtest/gtest.h>
#include <libical/ical.h>

#include <memory>
#include <string>
#include <vector>

namespace timetool {
namespace {

using Component = std::unique_ptr<icalcomponent, void (*)(icalcomponent*)>;

Component Parse(const std::string& text) {
    return Component(icalparser_parse_string(text.c_str()), icalcomponent_free);
}

// Every X-LIC-ERROR libical attached anywhere in the tree.
std::vector<std::string> Errors(icalcomponent* component) {
    std::vector<std::string> errors;
    for (icalproperty* p = icalcomponent_get_first_property(component, ICAL_XLICERROR_PROPERTY); p != nullptr;
         p = icalcomponent_get_next_property(component, ICAL_XLICERROR_PROPERTY)) {
        errors.emplace_back(icalproperty_get_xlicerror(p));
    }
    for (icalcomponent* c = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT); c != nullptr;
         c = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        for (std::string& error : Errors(c)) errors.push_back(std::move(error));
    }
    return errors;
}

std::vector<icalcomponent*> Events(icalcomponent* calendar) {
    std::vector<icalcomponent*> events;
    for (icalcomponent* c = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT); c != nullptr;
         c = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
        events.push_back(c);
    }
    return events;
}

int CountProperties(icalcomponent* component, icalproperty_kind kind) {
    return icalcomponent_count_properties(component, kind);
}

ExactInstant At(int year, int month, int day, int secondOfDay) {
    return ExactInstant{DayOfGregorian(CivilDate{year, month, day}), secondOfDay};
}

// 2024-06-21 09:52:12 UTC and two more instants.
const std::vector<CalendarEvent> kEvents{
    {"sunrise-20240621T095212Z-43.3N-83.045W@timetool", At(2024, 6, 21, 35532), "Sunrise",
     "Sunrise at 43.3 N, 83.045 W", "43.300000;-83.045000"},
    {"full-moon-20240622T010804Z@timetool", At(2024, 6, 22, 4084), "Full moon", "", ""},
    {"odd, uid; \\ here", At(1, 1, 1, 0), "Text, with; every\\special\ncharacter", "", ""},
};

TEST(WriteCalendar, ParsesBackWithEveryEventAndNoErrors) {
    const std::string text = WriteCalendar(kEvents);
    const Component calendar = Parse(text);
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(icalcomponent_isa(calendar.get()), ICAL_VCALENDAR_COMPONENT);
    EXPECT_TRUE(Errors(calendar.get()).empty()) << Errors(calendar.get()).front();
    EXPECT_STREQ(icalproperty_get_version(icalcomponent_get_first_property(calendar.get(), ICAL_VERSION_PROPERTY)),
                 "2.0");
    EXPECT_EQ(CountProperties(calendar.get(), ICAL_PRODID_PROPERTY), 1);
    const std::vector<icalcomponent*> events = Events(calendar.get());
    ASSERT_EQ(events.size(), 3u);
    EXPECT_STREQ(icalcomponent_get_uid(events[0]), "sunrise-20240621T095212Z-43.3N-83.045W@timetool");
    EXPECT_STREQ(icalcomponent_get_summary(events[0]), "Sunrise");
    EXPECT_STREQ(icalcomponent_get_description(events[0]), "Sunrise at 43.3 N, 83.045 W");
    const icaltimetype start = icalcomponent_get_dtstart(events[0]);
    EXPECT_TRUE(icaltime_is_utc(start));
    EXPECT_EQ(icaltime_as_timet(start), 1718963532);  // 2024-06-21 09:52:12 UTC
    EXPECT_EQ(icaltime_as_timet(icalcomponent_get_dtstamp(events[0])), 1718963532);
    const icalgeotype geo = icalproperty_get_geo(icalcomponent_get_first_property(events[0], ICAL_GEO_PROPERTY));
    EXPECT_DOUBLE_EQ(geo.lat, 43.3);
    EXPECT_DOUBLE_EQ(geo.lon, -83.045);
    EXPECT_EQ(icaltime_as_timet(icalcomponent_get_dtstart(events[1])), 1719018484);  // 2024-06-22 01:08:04 UTC
    EXPECT_STREQ(icalcomponent_get_uid(events[2]), "odd, uid; \\ here");
    EXPECT_STREQ(icalcomponent_get_summary(events[2]), "Text, with; every\\special\ncharacter");
    for (icalcomponent* event : events) {
        EXPECT_EQ(CountProperties(event, ICAL_UID_PROPERTY), 1);
        EXPECT_EQ(CountProperties(event, ICAL_DTSTAMP_PROPERTY), 1);
        EXPECT_EQ(CountProperties(event, ICAL_DTSTART_PROPERTY), 1);
    }
}

// The publishing restrictions of iTIP want an ORGANIZER, which a calendar of
// sky events has no one for: every other restriction holds.
TEST(WriteCalendar, MeetsLibicalsPublishRestrictionsExceptOrganizer) {
    const Component calendar = Parse(WriteCalendar(kEvents));
    ASSERT_NE(calendar, nullptr);
    // libical stops at the first event that fails: each is checked alone.
    for (icalcomponent* event : Events(calendar.get())) {
        const Component single(icalcomponent_new_clone(calendar.get()), icalcomponent_free);
        for (icalcomponent* other : Events(single.get())) {
            if (std::string(icalcomponent_get_uid(other)) != icalcomponent_get_uid(event)) {
                icalcomponent_remove_component(single.get(), other);
                icalcomponent_free(other);
            }
        }
        icalcomponent_add_property(single.get(), icalproperty_new_method(ICAL_METHOD_PUBLISH));
        icalrestriction_check(single.get());
        const std::vector<std::string> errors = Errors(single.get());
        ASSERT_EQ(errors.size(), 1u) << icalcomponent_get_uid(event);
        EXPECT_NE(errors[0].find("ORGANIZER"), std::string::npos) << errors[0];
    }
}

TEST(WriteCalendar, WithoutEventsIsAnEmptyCalendar) {
    EXPECT_EQ(WriteCalendar({}),
              "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//timetool//Sun and moon events//EN\r\n"
              "CALSCALE:GREGORIAN\r\nEND:VCALENDAR\r\n");
}

TEST(WriteCalendar, EveryLineEndsInCrlfWithin75Octets) {
    std::vector<CalendarEvent> events = kEvents;
    events[0].description.clear();
    for (int i = 0; i < 40; ++i) events[0].description += "Sunrise \xC2\xB0 ";
    events[0].description += "end";  // libical drops blanks at the end of a value
    const std::string text = WriteCalendar(events);
    std::size_t start = 0;
    int folded = 0;
    while (start < text.size()) {
        const std::size_t end = text.find("\r\n", start);
        ASSERT_NE(end, std::string::npos);
        EXPECT_LE(end - start, 75u);
        EXPECT_EQ(text.substr(start, end - start).find('\n'), std::string::npos);
        if (text[start] == ' ') {
            ++folded;
            // A fold never splits a UTF-8 sequence.
            EXPECT_NE(static_cast<unsigned char>(text[start + 1]) & 0xC0U, 0x80U);
        }
        start = end + 2;
    }
    EXPECT_GE(folded, 5);
    const Component calendar = Parse(text);
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(icalcomponent_get_description(Events(calendar.get())[0]), events[0].description);
}

TEST(FoldCalendarLine, CutsAt75OctetsThen74AfterTheBlank) {
    const std::string line(160, 'x');
    EXPECT_EQ(FoldCalendarLine(line),
              std::string(75, 'x') + "\r\n " + std::string(74, 'x') + "\r\n " + std::string(11, 'x') + "\r\n");
    EXPECT_EQ(FoldCalendarLine(std::string(75, 'x')), std::string(75, 'x') + "\r\n");
    // A two-octet letter that would straddle octet 75 moves whole to the next line.
    const std::string straddling = std::string(74, 'x') + "\xC2\xB0" + "y";
    EXPECT_EQ(FoldCalendarLine(straddling), std::string(74, 'x') + "\r\n \xC2\xB0y\r\n");
}

TEST(EscapeCalendarText, EscapesBackslashSemicolonCommaAndLineBreaks) {
    EXPECT_EQ(EscapeCalendarText("a,b;c\\d\ne\r\nf"), "a\\,b\\;c\\\\d\\ne\\nf");
    EXPECT_EQ(EscapeCalendarText("Full moon"), "Full moon");
}

TEST(FormatCalendarDateTime, IsUtcWithFourDigitYears) {
    EXPECT_EQ(FormatCalendarDateTime(At(2024, 6, 21, 35532)), "20240621T095212Z");
    EXPECT_EQ(FormatCalendarDateTime(At(1, 1, 1, 0)), "00010101T000000Z");
    EXPECT_EQ(FormatCalendarDateTime({DayOfGregorian({9999, 12, 31}), 86399}), "99991231T235959Z");
}

}  // namespace
}  // namespace timetool
