#include "instant_output.h"

#include <cmath>
#include <cstdio>

#include "calendar_kind.h"

namespace timetool {

namespace {

constexpr std::size_t kLabelWidth = 15;

std::string SunEventText(const SunEventReport& event) {
    return event.shown ? FormatUtcText(event.instant) + " UTC" : std::string("out of range");
}

std::string AbsenceText(SunAbsence absence) {
    return absence == SunAbsence::PolarDay ? "polar day (the sun does not set)" : "polar night (the sun does not rise)";
}

Json DateFieldsJson(const DateFields& fields) {
    return Json{{"year", fields.year}, {"month", fields.month}, {"day", fields.day}};
}

std::string LengthNote(int trueValue, int moduleValue) {
    return trueValue == moduleValue ? "" : " (module's GetInfo: " + std::to_string(moduleValue) + ")";
}

}  // namespace

Json JsonDocument() { return Json{{"schema", kJsonSchema}}; }

std::string LabelledLine(std::string_view label, const std::string& value) {
    std::string line(label);
    line.append(kLabelWidth - std::min(label.size(), kLabelWidth - 1), ' ');
    return line + value + "\n";
}

CalendarDetail DescribeCalendarDetail(const ModuleSession& session, const CalendarLine& line, StarDay day) {
    TimeObject time(session);
    time.SetKind(line.kind);
    time.SetStarDate(static_cast<double>(day));
    CalendarDetail detail;
    detail.kind = line.kind;
    detail.module = time.Info();
    detail.calendarDays = time.CalendarDays();
    if (line.date && !line.moduleCalendar) {
        detail.lengths = TrueLengths(line.kind, *line.date);
    } else if (line.date) {
        detail.lengths =
            CalendarLengths{detail.module.daysInMonth, detail.module.monthsInYear, detail.module.daysInYear};
    }
    return detail;
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
    std::string out = LabelledLine("Instant", FormatUtcText(report.instant) + " UTC");
    for (const CalendarLine& line : report.calendars) {
        out += LabelledLine(CalendarKindInfo(line.kind).title, CalendarLineText(line));
    }
    if (detail && detail->lengths) {
        const CalendarLengths& lengths = *detail->lengths;
        out += LabelledLine("Month length", std::to_string(lengths.daysInMonth) + " days" +
                                                LengthNote(lengths.daysInMonth, detail->module.daysInMonth));
        out += LabelledLine("Year length", std::to_string(lengths.monthsInYear) + " months, " +
                                               std::to_string(lengths.daysInYear) + " days" +
                                               LengthNote(lengths.daysInYear, detail->module.daysInYear));
    }
    if (detail) {
        out +=
            LabelledLine("Calendar days", FormatFixed(detail->calendarDays, 0) + " (the module's elapsed-day count)");
    }
    out += LabelledLine("Star date", FormatFixed(report.starDate, 6));
    out += LabelledLine("Julian Date", FormatFixed(report.julianDate, 6));
    out += LabelledLine("Linux time", report.linuxTime ? FormatLinuxTime(*report.linuxTime) : "out of range");
    out += LabelledLine("Weekday", std::string(WeekdayName(report.weekday)));
    const std::string place =
        " at " + FormatLatitude(report.location.latitude) + ", " + FormatLongitude(report.location.longitude);
    if (report.sun.absence) {
        out += LabelledLine("Sun", AbsenceText(*report.sun.absence) + place);
    } else {
        out += LabelledLine("Sunrise", SunEventText(report.sun.sunrise) + place);
        out += LabelledLine("Sunset", SunEventText(report.sun.sunset));
    }
    out +=
        LabelledLine("Moon phase", FormatFixed(report.moon.phase, 2) + "\xC2\xB0 " +
                                       std::string(report.moon.name.name) + " " + std::string(report.moon.name.glyph));
    return out;
}

Json CalendarJson(const CalendarLine& line) {
    const CalendarKind& info = CalendarKindInfo(line.kind);
    Json json{{"kind", line.kind},   {"name", info.key},
              {"title", info.title}, {"source", line.moduleCalendar ? "module" : "true"},
              {"year", nullptr},     {"month", nullptr},
              {"day", nullptr},      {"text", nullptr},
              {"reason", nullptr}};
    if (line.date) {
        json["year"] = line.date->year;
        json["month"] = line.date->month;
        json["day"] = line.date->day;
        json["text"] = FormatDateText(line.kind, line.date->year, line.date->month, line.date->day);
    } else {
        json["reason"] = line.reason;
    }
    Json module = DateFieldsJson(line.module);
    module["star_date"] = line.moduleStarDate ? Json(*line.moduleStarDate) : Json(nullptr);
    module["agrees"] = line.date && !line.getDateDiffers && !line.setDateDiffers;
    json["module"] = module;
    return json;
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
    if (sun.sunrise.shown) json["sunrise"] = FormatUtcIso(sun.sunrise.instant);
    if (sun.sunset.shown) json["sunset"] = FormatUtcIso(sun.sunset.instant);
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
    for (const CalendarLine& line : report.calendars) calendars.push_back(CalendarJson(line));
    Json json = JsonDocument();
    json["utc"] = FormatUtcIso(report.instant);
    json["star_date"] = report.starDate;
    json["julian_date"] = report.julianDate;
    json["linux_time"] = report.linuxTime ? Json(*report.linuxTime) : Json(nullptr);
    json["weekday"] = report.weekday;
    json["weekday_name"] = WeekdayName(report.weekday);
    json["calendars"] = calendars;
    Json calendar{{"kind", detail.kind},
                  {"name", CalendarKindInfo(detail.kind).key},
                  {"days_in_month", nullptr},
                  {"months_in_year", nullptr},
                  {"days_in_year", nullptr},
                  {"calendar_days", detail.calendarDays},
                  {"module", Json{{"days_in_month", detail.module.daysInMonth},
                                  {"months_in_year", detail.module.monthsInYear},
                                  {"days_in_year", detail.module.daysInYear}}}};
    if (detail.lengths) {
        calendar["days_in_month"] = detail.lengths->daysInMonth;
        calendar["months_in_year"] = detail.lengths->monthsInYear;
        calendar["days_in_year"] = detail.lengths->daysInYear;
    }
    json["calendar"] = calendar;
    json["location"] = Json{{"latitude", report.location.latitude}, {"longitude", report.location.longitude}};
    json["sun"] = SunJson(report.sun);
    json["moon"] = MoonJson(report.moon);
    return json;
}

}  // namespace timetool
