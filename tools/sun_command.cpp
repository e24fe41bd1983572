#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"
#include "quoted_text.h"
#include "sky_events.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct SunOptions {
    std::string when;
    std::string from = "gregorian";
    std::string latitude;
    std::string longitude;
    std::string days = "1";
    bool json = false;
    bool ics = false;
};

constexpr std::size_t kEventCellWidth = 13;  // "polar night" and two blanks

// "09:52:12", "01:16:40+1" for an event on the next day of the zone's
// clock, or the reason it has none.
std::string EventCell(const SunEventReport& event, StarDay rowDay, const TimeZone& zone) {
    std::string cell;
    if (event.instant) {
        const ExactInstant local = zone.Localise(*event.instant).local;
        cell = FormatClock(local.second);
        const StarDay offset = local.day - rowDay;
        if (offset != 0) cell += (offset > 0 ? "+" : "") + std::to_string(offset);
    } else {
        cell = std::string(sky::DescribeAbsence(event.absence));
    }
    if (cell.size() < kEventCellWidth) cell.resize(kEventCellWidth, ' ');
    return cell;
}

std::string ModuleCell(const ModuleSunReport& module) {
    if (!std::isfinite(module.sunriseDays) || !std::isfinite(module.sunsetDays)) return "none";
    return FormatFixed(module.sunriseDays, 6) + "  " + FormatFixed(module.sunsetDays, 6);
}

// "EDT -04:00": the zone's reading at the row's sunrise, else at its noon UTC.
std::string ZoneCell(const SunReport& sun, const TimeZone& zone) {
    const ExactInstant at = sun.sunrise.instant.value_or(ExactInstant{sun.day, 43200});
    const ZoneOffset offset = zone.Localise(at).offset;
    std::string cell = offset.abbreviation + " " + FormatUtcOffset(offset.seconds);
    if (cell.size() < kEventCellWidth) cell.resize(kEventCellWidth, ' ');
    return cell;
}

std::string SunRowText(const SunReport& sun, const std::string& dateText, const TimeZone& zone) {
    std::string line = dateText;
    line.resize(13, ' ');
    if (!sun.sunrise.instant && (sun.sunrise.absence == sky::SunAbsence::UnknownYears ||
                                 sun.sunrise.absence == sky::SunAbsence::InvalidPlace)) {
        line += std::string(sky::DescribeAbsence(sun.sunrise.absence)) + "  module " + ModuleCell(sun.module);
        return line + "\n";
    }
    line += EventCell(sun.civilDawn, sun.day, zone) + EventCell(sun.sunrise, sun.day, zone) +
            EventCell(sun.sunset, sun.day, zone) + EventCell(sun.civilDusk, sun.day, zone);
    if (!zone.IsUtc()) line += ZoneCell(sun, zone);
    line += ModuleCell(sun.module);
    return line + "\n";
}

void RunSun(const SunOptions& options) {
    const int from = RequireKind("--from", options.from);
    const Location location = RequireLocation(options.latitude, options.longitude);
    const int days = RequireCount("--days", options.days, 1, 3660);

    ToolContext context;
    const double start = context.reader().StarDate(options.when, from);
    if (!IsShownDay(SplitStarDate(start + (days - 1)).day)) {
        throw ToolError{kExitBadInput, "timetool: bad --days " + QuoteArgument(options.days) +
                                           ": the days run past the years timetool shows (-32767 to 32767)"};
    }
    if (options.ics) {
        std::cout << SkyCalendar(SplitStarDate(start).day, days, {location.latitude, location.longitude},
                                 SkyCalendarContent::Sun);
        return;
    }
    const TimeZone& zone = context.zone();
    Json rows = Json::array();
    std::string text = "Sun at " + FormatLatitude(location.latitude) + ", " + FormatLongitude(location.longitude) +
                       ", " + (zone.IsUtc() ? std::string("UTC") : zone.name() + " clock") +
                       " (+1: on the next day, -1: on the day before)\n";
    text += std::string("Date         Civil dawn   Sunrise      Sunset       Civil dusk   ") +
            (zone.IsUtc() ? "" : "Zone         ") + "Module sunrise, sunset (days from J0)\n";
    for (int i = 0; i < days; ++i) {
        const SunReport sun = DescribeSun(context.session(), start + i, location);
        if (options.json) {
            rows.push_back(SunJson(sun, zone));
        } else {
            const CivilDate date = GregorianOfDay(sun.day);
            text += SunRowText(sun, FormatIsoDate(date.year, date.month, date.day), zone);
        }
    }
    if (options.json) {
        Json json = JsonDocument();
        json["latitude"] = location.latitude;
        json["longitude"] = location.longitude;
        json["days"] = rows;
        std::cout << json.dump(2) << "\n";
    } else {
        std::cout << text;
    }
}

}  // namespace

void AddSunCommand(CLI::App& app) {
    auto options = std::make_shared<SunOptions>();
    CLI::App* command = app.add_subcommand(
        "sun", "Sunrise, sunset, civil dawn and dusk over one or more days, in UTC, with the module's figures");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--lat", options->latitude, kLatitudeHelp);
    command->add_option("--lon", options->longitude, kLongitudeHelp);
    command->add_option("--days", options->days, "number of days, 1 to 3660 (default 1)");
    CLI::Option* json = command->add_flag("--json", options->json, "print one JSON document");
    command->add_flag("--ics", options->ics, "print the sunrises and sunsets as an iCalendar stream (UTC)")
        ->excludes(json);
    command->footer(kWhenGrammar);
    command->callback([options] { RunSun(*options); });
}

}  // namespace timetool
