#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"
#include "output_charset.h"
#include "quoted_text.h"
#include "sky_events.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct MoonOptions {
    std::string when;
    std::string from = "gregorian";
    std::string days = "1";
    bool json = false;
    bool ics = false;
};

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

std::string MoonRowText(const MoonReport& moon, const TimeZone& zone, std::size_t clockWidth) {
    std::string line = Padded(FormatClockColumn(moon.instant, zone), clockWidth) + "  ";
    if (std::isfinite(moon.phase)) {
        // The phase takes ten columns whatever the bytes of its degree sign;
        // the glyph takes two.
        const std::string degrees = FormatDegrees(moon.phase);
        line += Padded(degrees, degrees.size() + 10 - std::min<std::size_t>(NarrowTextColumns(degrees), 9)) +
                Padded(FormatFixed(moon.illuminated * 100.0, 1) + "%", 8) + std::string(TextGlyph(moon.name.glyph)) +
                " " + Padded(std::string(moon.name.name), 18);
    } else {
        line += std::string(sky::kUnknownYearsReason) + "  ";
    }
    return line + FormatDegrees(moon.modulePhase) + "\n";
}

void RunMoon(const MoonOptions& options) {
    const int from = RequireKind("--from", options.from);
    const int days = RequireCount("--days", options.days, 1, 3660);

    ToolContext context;
    const double start = context.reader().StarDate(options.when, from);
    if (!IsShownDay(SplitStarDate(start + (days - 1)).day)) {
        throw ToolError{kExitBadInput, "timetool: bad --days " + QuoteArgument(options.days) +
                                           ": the days run past the years timetool shows (-32767 to 32767)"};
    }
    if (options.ics) {
        const Location unused;  // the quarters belong to no place
        std::cout << SkyCalendar(SplitStarDate(start).day, days, {unused.latitude, unused.longitude},
                                 SkyCalendarContent::Moon);
        return;
    }
    Json rows = Json::array();
    const TimeZone& zone = context.zone();
    // The first column is as wide as its heading and its times: 19 characters
    // in UTC, more with a zone's name, abbreviation and offset.
    const std::string clockHeading = "Date and time (" + zone.name() + ")";
    const std::size_t clockWidth = std::max(clockHeading.size(), FormatClockColumn(SplitStarDate(start), zone).size());
    std::string text = Padded(clockHeading, clockWidth) + "  Phase     Lit     Moon                 Module\n";
    for (int i = 0; i < days; ++i) {
        const MoonReport moon = DescribeMoon(context.session(), start + i);
        if (options.json) {
            rows.push_back(MoonJson(moon, zone));
        } else {
            text += MoonRowText(moon, zone, clockWidth);
        }
    }
    if (options.json) {
        Json json = JsonDocument();
        json["days"] = rows;
        std::cout << json.dump(2) << "\n";
    } else {
        std::cout << text;
    }
}

}  // namespace

void AddMoonCommand(CLI::App& app) {
    auto options = std::make_shared<MoonOptions>();
    CLI::App* command = app.add_subcommand(
        "moon", "Phase of the moon over one or more days, with the module's mean-lunation phase beside it");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--days", options->days, "number of days, 1 to 3660 (default 1)");
    CLI::Option* json = command->add_flag("--json", options->json, "print one JSON document");
    command
        ->add_flag("--ics", options->ics,
                   "print the new, first-quarter, full and last-quarter moons of the days (from 00:00 UTC) as an "
                   "iCalendar stream")
        ->excludes(json);
    command->footer(kWhenGrammar);
    command->callback([options] { RunMoon(*options); });
}

}  // namespace timetool
