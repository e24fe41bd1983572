#include "instant_output.h"

#include <cmath>
#include <cstdio>

#include "calendar_kind.h"
#include "output_charset.h"

namespace timetool {

namespace {

constexpr std::size_t kLabelWidth = 15;

bool IsUnknownOrInvalid(sky::SunAbsence absence) {
    return absence == sky::SunAbsence::UnknownYears || absence == sky::SunAbsence::InvalidPlace;
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

std::string InstantText(const InstantReport& report, const std::optional<CalendarDetail>& detail,
                        const TimeZone& zone) {
    std::string out = LabelledLine("Instant", FormatShownInstant(report.instant, zone));
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
    out += SunText(report.sun, report.location, zone);
    out += MoonText(report.moon);
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

std::string FormatDegrees(double degrees) { return FormatFixed(degrees, 2) + std::string(DegreeSign()); }

std::string SunEventText(const SunEventReport& event, const TimeZone& zone) {
    if (event.instant) return FormatShownInstant(*event.instant, zone);
    return std::string(sky::DescribeAbsence(event.absence));
}

std::string ModuleSunText(const ModuleSunReport& module) {
    if (!std::isfinite(module.sunriseDays) || !std::isfinite(module.sunsetDays)) {
        return "none (not a number at this latitude)";
    }
    return FormatFixed(module.sunriseDays, 6) + ", " + FormatFixed(module.sunsetDays, 6) + " days from J0 " +
           FormatFixed(module.j0, 1);
}

std::string SunText(const SunReport& sun, const Location& location, const TimeZone& zone) {
    const std::string place = " at " + FormatLatitude(location.latitude) + ", " + FormatLongitude(location.longitude);
    std::string out;
    if (!sun.sunrise.instant && IsUnknownOrInvalid(sun.sunrise.absence)) {
        out += LabelledLine("Sun", std::string(sky::DescribeAbsence(sun.sunrise.absence)) + place);
    } else {
        out += LabelledLine("Sunrise", SunEventText(sun.sunrise, zone) + place);
        out += LabelledLine("Sunset", SunEventText(sun.sunset, zone));
        out += LabelledLine("Civil dawn", SunEventText(sun.civilDawn, zone));
        out += LabelledLine("Civil dusk", SunEventText(sun.civilDusk, zone));
    }
    out += LabelledLine("Module sun", ModuleSunText(sun.module) + " (noon, 1 January)");
    return out;
}

std::string MoonText(const MoonReport& moon) {
    std::string out;
    if (std::isfinite(moon.phase)) {
        out += LabelledLine("Moon", FormatDegrees(moon.phase) + " " + std::string(moon.name.name) + " " +
                                        std::string(TextGlyph(moon.name.glyph)) + ", " +
                                        FormatFixed(moon.illuminated * 100.0, 1) + "% lit");
    } else {
        out += LabelledLine("Moon", std::string(sky::kUnknownYearsReason));
    }
    out += LabelledLine("Module moon", FormatDegrees(moon.modulePhase) + " (its mean lunation)");
    return out;
}

namespace {

// The polar state of a pair of events: that of the first one missing for a
// polar reason.
Json PolarJson(const SunEventReport& first, const SunEventReport& second) {
    for (const SunEventReport* event : {&first, &second}) {
        if (event->absence == sky::SunAbsence::PolarDay || event->absence == sky::SunAbsence::PolarNight) {
            return std::string(sky::DescribeAbsence(event->absence));
        }
    }
    return nullptr;
}

// JSON has no not-a-number: the module's missing figures are null.
Json NumberJson(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }

}  // namespace

void AddInstantJson(Json& json, const std::string& key, const std::optional<ExactInstant>& instant,
                    const TimeZone& zone) {
    const std::string prefix = key == "utc" ? "" : key + "_";
    if (!instant) {
        json[key] = nullptr;
        json[prefix + "local"] = nullptr;
        json[prefix + "utc_offset"] = nullptr;
        return;
    }
    const ZonedClock clock = zone.Localise(*instant);
    json[key] = FormatUtcIso(*instant);
    json[prefix + "local"] = FormatZonedIso(clock);
    json[prefix + "utc_offset"] = FormatUtcOffset(clock.offset.seconds);
}

Json SunJson(const SunReport& sun, const TimeZone& zone) {
    const CivilDate date = GregorianOfDay(sun.day);
    Json json{{"date", FormatIsoDate(date.year, date.month, date.day)}};
    AddInstantJson(json, "sunrise", sun.sunrise.instant, zone);
    AddInstantJson(json, "sunset", sun.sunset.instant, zone);
    AddInstantJson(json, "civil_dawn", sun.civilDawn.instant, zone);
    AddInstantJson(json, "civil_dusk", sun.civilDusk.instant, zone);
    json.update(Json{{"polar", PolarJson(sun.sunrise, sun.sunset)},
                     {"civil_polar", PolarJson(sun.civilDawn, sun.civilDusk)},
                     {"reason", nullptr}});
    if (IsUnknownOrInvalid(sun.sunrise.absence)) json["reason"] = sky::DescribeAbsence(sun.sunrise.absence);
    const ModuleSunReport& module = sun.module;
    json["module"] = Json{{"j0", module.j0},
                          {"sunrise_days", NumberJson(module.sunriseDays)},
                          {"sunset_days", NumberJson(module.sunsetDays)},
                          {"sunrise_star_date", NumberJson(module.j0 + module.sunriseDays)},
                          {"sunset_star_date", NumberJson(module.j0 + module.sunsetDays)}};
    return json;
}

Json MoonJson(const MoonReport& moon, const TimeZone& zone) {
    const bool known = std::isfinite(moon.phase);
    Json json;
    AddInstantJson(json, "utc", moon.instant, zone);
    json.update(Json{{"phase", NumberJson(moon.phase)},
                     {"illuminated", NumberJson(moon.illuminated)},
                     {"name", known ? Json(moon.name.name) : Json(nullptr)},
                     {"glyph", known ? Json(moon.name.glyph) : Json(nullptr)},
                     {"reason", known ? Json(nullptr) : Json(sky::kUnknownYearsReason)},
                     {"module", Json{{"phase", static_cast<double>(moon.modulePhase)}}}});
    return json;
}

Json InstantJson(const InstantReport& report, const CalendarDetail& detail, const TimeZone& zone) {
    Json calendars = Json::array();
    for (const CalendarLine& line : report.calendars) calendars.push_back(CalendarJson(line));
    Json json = JsonDocument();
    AddInstantJson(json, "utc", report.instant, zone);
    json["time_zone"] = zone.name();
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
    json["sun"] = SunJson(report.sun, zone);
    json["moon"] = MoonJson(report.moon, zone);
    return json;
}

}  // namespace timetool
