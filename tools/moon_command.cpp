#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"

namespace timetool {

namespace {

struct MoonOptions {
    std::string when;
    long long days = 1;
    bool json = false;
};

void RunMoon(const MoonOptions& options) {
    const When when = RequireWhen(options.when);
    RequireWhenFitsKind(options.when, when, 0);
    const int days = RequireCount("--days", options.days, 1, 3660);

    const ModuleSession session;
    const double start = StarDateOfWhen(session, when, 0);
    Json rows = Json::array();
    std::string text = "Date and time (UTC)  Phase     Moon\n";
    for (int i = 0; i < days; ++i) {
        const double starDate = start + i;
        const DateFields date = GregorianDateOf(session, starDate);
        const MoonReport moon = DescribeMoon(session, starDate);
        const std::string utc = FormatUtc(date, ClockOfStarDate(starDate));
        Json row{{"utc", utc}};
        const Json fields = MoonJson(moon);
        for (auto field = fields.begin(); field != fields.end(); ++field) row[field.key()] = field.value();
        rows.push_back(row);
        const std::string number = FormatFixed(moon.phase, 2);
        const std::string phase = number + "\xC2\xB0" + std::string(number.size() < 9 ? 9 - number.size() : 1, ' ');
        text += FormatIsoDate(date.year, date.month, date.day) + " " + FormatClock(ClockOfStarDate(starDate)) + "  " +
                phase + std::string(moon.name.glyph) + " " + std::string(moon.name.name) + "\n";
    }
    if (options.json) {
        std::cout << Json{{"days", rows}}.dump(2) << "\n";
    } else {
        std::cout << text;
    }
}

}  // namespace

void AddMoonCommand(CLI::App& app) {
    auto options = std::make_shared<MoonOptions>();
    CLI::App* command = app.add_subcommand("moon", "Phase of the moon over one or more days");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--days", options->days, "number of days, 1 to 3660 (default 1)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunMoon(*options); });
}

}  // namespace timetool
