#include "instant_output.h"

#include <cmath>
#include <cstdio>

#include "calendar_kind.h"

namespace timetool {

namespace {

constexpr int kLabelWidth = 15;

void Line(std::string* out, std::string_view label, const std::string& value) {
    std::string line(label);
    line.append(static_cast<std::size_t>(kLabelWidth) - std::min<std::size_t>(label.size(), kLabelWidth - 1), ' ');
    *out += line + value + "\n";
}

std::string SunEventText(const SunEventReport& event) {
    return FormatIsoDate(event.date.year, event.date.month, event.date.day) + " " + FormatClock(event.clock) + " UTC";
}

std::string AbsenceText(SunAbsence absence) {
    return absence == SunAbsence::PolarDay ? "polar day (the sun does not set)" : "polar night (the sun does not rise)";
}

}  // namespace

std::string FormatUtc(const DateFields& date, const ClockTime& clock) {
    return FormatIsoDate(date.year, date.month, date.day) + "T" + FormatClock(clock);
}

std::string FormatLinuxTime(double seconds) {
    // Milliseconds at most: the star date carries about that much of a second
    // at present-day magnitudes.
    std::string text = FormatFixed(seconds, 3);
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    if (text == "-0") text = "0";
    return text;
}

std::string InstantText(const InstantReport& report, const std::optional<CalendarDetail>& detail) {
    std::string out;
    Line(&out, "Instant",
         FormatIsoDate(report.gregorian.year, report.gregorian.month, report.gregorian.day) + " " +
             FormatClock(report.clock) + " UTC");
    for (const KindDate& date : report.calendars) {
        Line(&out, CalendarKindInfo(date.kind).title,
             FormatDateText(date.kind, date.date.year, date.date.month, date.date.day));
    }
    if (detail) {
        Line(&out, "Month length", std::to_string(detail->info.daysInMonth) + " days");
        Line(&out, "Year length",
             std::to_string(detail->info.monthsInYear) + " months, " + std::to_string(detail->info.daysInYear) +
                 " days");
        Line(&out, "Calendar days", FormatFixed(detail->calendarDays, 0));
    }
    Line(&out, "Star date", FormatFixed(report.starDate, 6));
    Line(&out, "Julian Date", FormatFixed(report.julianDate, 6));
    Line(&out, "Linux time", report.linuxTime ? FormatLinuxTime(*report.linuxTime) : std::string("out of range"));
    Line(&out, "Weekday", std::string(WeekdayName(report.weekday)));
    const std::string place =
        " at " + FormatLatitude(report.location.latitude) + ", " + FormatLongitude(report.location.longitude);
    if (report.sun.absence) {
        Line(&out, "Sun", AbsenceText(*report.sun.absence) + place);
    } else {
        Line(&out, "Sunrise", SunEventText(report.sun.sunrise) + place);
        Line(&out, "Sunset", SunEventText(report.sun.sunset));
    }
    Line(&out, "Moon phase",
         FormatFixed(report.moon.phase, 2) + "\xC2\xB0 " + std::string(report.moon.name.name) + " " +
             std::string(report.moon.name.glyph));
    return out;
}

Json CalendarJson(const KindDate& date) {
    const CalendarKind& info = CalendarKindInfo(date.kind);
    return Json{{"kind", date.kind},
                {"name", info.key},
                {"title", info.title},
                {"year", date.date.year},
                {"month", date.date.month},
                {"day", date.date.day},
                {"text", FormatDateText(date.kind, date.date.year, date.date.month, date.date.day)}};
}

Json SunJson(const SunReport& sun) {
    Json json{{"j0", sun.j0},
              {"polar", nullptr},
              {"sunrise", nullptr},
              {"sunset", nullptr},
              {"sunrise_days", nullptr},
              {"sunset_days", nullptr},
              {"sunrise_star_date", nullptr},
              {"sunset_star_date", nullptr}};
    if (sun.absence) {
        json["polar"] = *sun.absence == SunAbsence::PolarDay ? "polar day" : "polar night";
        return json;
    }
    json["sunrise"] = FormatUtc(sun.sunrise.date, sun.sunrise.clock);
    json["sunset"] = FormatUtc(sun.sunset.date, sun.sunset.clock);
    json["sunrise_days"] = sun.sunriseDays;
    json["sunset_days"] = sun.sunsetDays;
    json["sunrise_star_date"] = sun.sunrise.starDate;
    json["sunset_star_date"] = sun.sunset.starDate;
    return json;
}

Json MoonJson(const MoonReport& moon) {
    return Json{{"phase", static_cast<double>(moon.phase)}, {"name", moon.name.name}, {"glyph", moon.name.glyph}};
}

Json InstantJson(const InstantReport& report, const CalendarDetail& detail) {
    Json calendars = Json::array();
    for (const KindDate& date : report.calendars) calendars.push_back(CalendarJson(date));
    Json json;
    json["utc"] = FormatUtc(report.gregorian, report.clock);
    json["star_date"] = report.starDate;
    json["julian_date"] = report.julianDate;
    json["linux_time"] = report.linuxTime ? Json(*report.linuxTime) : Json(nullptr);
    json["weekday"] = report.weekday;
    json["weekday_name"] = WeekdayName(report.weekday);
    json["calendars"] = calendars;
    json["calendar"] = Json{{"kind", detail.kind},
                            {"name", CalendarKindInfo(detail.kind).key},
                            {"days_in_month", detail.info.daysInMonth},
                            {"months_in_year", detail.info.monthsInYear},
                            {"days_in_year", detail.info.daysInYear},
                            {"calendar_days", detail.calendarDays}};
    json["location"] = Json{{"latitude", report.location.latitude}, {"longitude", report.location.longitude}};
    json["sun"] = SunJson(report.sun);
    json["moon"] = MoonJson(report.moon);
    return json;
}

}  // namespace timetool
