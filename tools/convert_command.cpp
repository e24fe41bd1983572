#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"
#include "tool_context.h"

namespace timetool {

namespace {

struct ConvertOptions {
    std::string when;
    std::string from = "gregorian";
    std::string to = "all";
    bool json = false;
};

void RunConvert(const ConvertOptions& options) {
    const int from = RequireKind("--from", options.from);
    std::vector<int> kinds;
    if (options.to == "all") {
        for (const CalendarKind& each : CalendarKinds()) kinds.push_back(each.number);
    } else {
        kinds.push_back(RequireKind("--to", options.to));
    }

    ToolContext context;
    const double starDate = context.reader().StarDate(options.when, from);
    const ExactInstant instant = SplitStarDate(starDate);
    std::vector<CalendarLine> lines;
    lines.reserve(kinds.size());
    for (int kind : kinds) lines.push_back(DescribeCalendarDay(context.dates(), kind, instant.day));

    if (options.json) {
        Json calendars = Json::array();
        for (const CalendarLine& line : lines) calendars.push_back(CalendarJson(line));
        Json json = JsonDocument();
        json["from"] = CalendarKindInfo(from).key;
        json["star_date"] = starDate;
        AddInstantJson(json, "utc", instant, context.zone());
        json["calendars"] = calendars;
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::string text = LabelledLine("Star date", FormatFixed(starDate, 6));
    for (const CalendarLine& line : lines)
        text += LabelledLine(CalendarKindInfo(line.kind).title, CalendarLineText(line));
    std::cout << text;
}

}  // namespace

void AddConvertCommand(CLI::App& app) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command = app.add_subcommand("convert", "Express a date of one calendar in another or in all");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--to", options->to, "target calendar, or all (default all)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunConvert(*options); });
}

}  // namespace timetool
