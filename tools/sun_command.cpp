#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct SunOptions {
    std::string when;
    std::string from = "gregorian";
    std::string latitude;
    std::string longitude;
    long long days = 1;
    bool json = false;
};

std::string EventCell(const SunEventReport& event) {
    std::string cell = event.shown ? FormatUtcText(event.instant) : std::string("out of range");
    cell.resize(19, ' ');
    return cell;
}

void RunSun(const SunOptions& options) {
    const int from = RequireKind("--from", options.from);
    const Location location = RequireLocation(options.latitude, options.longitude);
    const int days = RequireCount("--days", options.days, 1, 3660);

    ToolContext context;
    const double start = context.reader().StarDate(options.when, from);
    if (!IsShownDay(SplitStarDate(start + (days - 1)).day)) {
        throw ToolError{kExitBadInput, "timetool: bad --days '" + std::to_string(days) +
                                           "': the days run past the years timetool shows (-32767 to 32767)"};
    }
    Json rows = Json::array();
    std::string text = "Sunrise and sunset (UTC) at " + FormatLatitude(location.latitude) + ", " +
                       FormatLongitude(location.longitude) + "\n";
    text += "Date         Sunrise              Sunset\n";
    for (int i = 0; i < days; ++i) {
        const double starDate = start + i;
        const CivilDate date = GregorianOfDay(SplitStarDate(starDate).day);
        const std::string dateText = FormatIsoDate(date.year, date.month, date.day);
        const SunReport sun = DescribeSun(context.session(), starDate, location);
        Json row{{"date", dateText}};
        const Json fields = SunJson(sun);
        for (auto field = fields.begin(); field != fields.end(); ++field) row[field.key()] = field.value();
        rows.push_back(row);
        std::string line = dateText;
        line.resize(13, ' ');
        if (sun.absence) {
            line += *sun.absence == SunAbsence::PolarDay ? "polar day            polar day"
                                                         : "polar night          polar night";
        } else {
            line += EventCell(sun.sunrise) + "  " + EventCell(sun.sunset);
            while (line.back() == ' ') line.pop_back();
        }
        text += line + "\n";
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
    CLI::App* command = app.add_subcommand("sun", "Sunrise and sunset over one or more days, in UTC");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--lat", options->latitude, kLatitudeHelp);
    command->add_option("--lon", options->longitude, kLongitudeHelp);
    command->add_option("--days", options->days, "number of days, 1 to 3660 (default 1)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunSun(*options); });
}

}  // namespace timetool
