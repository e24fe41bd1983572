#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"

namespace timetool {

namespace {

struct SunOptions {
    std::string when;
    std::string latitude;
    std::string longitude;
    long long days = 1;
    bool json = false;
};

std::string EventCell(const SunEventReport& event) {
    return FormatIsoDate(event.date.year, event.date.month, event.date.day) + " " + FormatClock(event.clock);
}

void RunSun(const SunOptions& options) {
    const When when = RequireWhen(options.when);
    RequireWhenFitsKind(options.when, when, 0);
    const Location location = RequireLocation(options.latitude, options.longitude);
    const int days = RequireCount("--days", options.days, 1, 3660);

    const ModuleSession session;
    const double start = StarDateOfWhen(session, when, 0);
    Json rows = Json::array();
    std::string text = "Sunrise and sunset (UTC) at " + FormatLatitude(location.latitude) + ", " +
                       FormatLongitude(location.longitude) + "\n";
    text += "Date         Sunrise              Sunset\n";
    for (int i = 0; i < days; ++i) {
        const double starDate = start + i;
        const DateFields date = GregorianDateOf(session, starDate);
        const SunReport sun = DescribeSun(session, starDate, location);
        Json row{{"date", FormatIsoDate(date.year, date.month, date.day)}};
        const Json fields = SunJson(sun);
        for (auto field = fields.begin(); field != fields.end(); ++field) row[field.key()] = field.value();
        rows.push_back(row);
        std::string line = FormatIsoDate(date.year, date.month, date.day);
        line.resize(13, ' ');
        if (sun.absence) {
            line += *sun.absence == SunAbsence::PolarDay ? "polar day            polar day"
                                                         : "polar night          polar night";
        } else {
            line += EventCell(sun.sunrise) + "  " + EventCell(sun.sunset);
        }
        text += line + "\n";
    }
    if (options.json) {
        const Json json{{"latitude", location.latitude}, {"longitude", location.longitude}, {"days", rows}};
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
    command->add_option("--lat", options->latitude, kLatitudeHelp);
    command->add_option("--lon", options->longitude, kLongitudeHelp);
    command->add_option("--days", options->days, "number of days, 1 to 3660 (default 1)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunSun(*options); });
}

}  // namespace timetool
