#include <iostream>
#include <memory>

#include "arguments.h"
#include "commands.h"
#include "instant_output.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct MoonOptions {
    std::string when;
    std::string from = "gregorian";
    long long days = 1;
    bool json = false;
};

void RunMoon(const MoonOptions& options) {
    const int from = RequireKind("--from", options.from);
    const int days = RequireCount("--days", options.days, 1, 3660);

    ToolContext context;
    const double start = context.reader().StarDate(options.when, from);
    if (!IsShownDay(SplitStarDate(start + (days - 1)).day)) {
        throw ToolError{kExitBadInput, "timetool: bad --days '" + std::to_string(days) +
                                           "': the days run past the years timetool shows (-32767 to 32767)"};
    }
    Json rows = Json::array();
    std::string text = "Date and time (UTC)  Phase     Moon\n";
    for (int i = 0; i < days; ++i) {
        const double starDate = start + i;
        const ExactInstant instant = SplitStarDate(starDate);
        const MoonReport moon = DescribeMoon(context.session(), starDate);
        Json row{{"utc", FormatUtcIso(instant)}};
        const Json fields = MoonJson(moon);
        for (auto field = fields.begin(); field != fields.end(); ++field) row[field.key()] = field.value();
        rows.push_back(row);
        const std::string number = FormatFixed(moon.phase, 2);
        const std::string phase = number + "\xC2\xB0" + std::string(number.size() < 9 ? 9 - number.size() : 1, ' ');
        text += FormatUtcText(instant) + "  " + phase + std::string(moon.name.glyph) + " " +
                std::string(moon.name.name) + "\n";
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
    CLI::App* command = app.add_subcommand("moon", "Phase of the moon over one or more days");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--days", options->days, "number of days, 1 to 3660 (default 1)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunMoon(*options); });
}

}  // namespace timetool
