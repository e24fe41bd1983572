#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"
#include "tool_context.h"

namespace timetool {

void RunShow(const ShowOptions& options) {
    const int from = RequireKind("--from", options.from);
    const int kind = options.calendar.empty() ? 0 : RequireKind("--calendar", options.calendar);
    const Location location = RequireLocation(options.latitude, options.longitude);

    ToolContext context;
    const double starDate = context.reader().StarDate(options.when, from);
    std::vector<int> kinds;
    if (options.calendar.empty()) {
        for (const CalendarKind& each : CalendarKinds()) kinds.push_back(each.number);
    } else {
        kinds.push_back(kind);
    }
    const InstantReport report = DescribeInstant(context.dates(), starDate, kinds, location);
    const CalendarLine selected =
        options.calendar.empty() ? DescribeCalendarDay(context.dates(), kind, report.instant.day) : report.calendars[0];
    const CalendarDetail detail = DescribeCalendarDetail(context.session(), selected, report.instant.day);

    if (options.json) {
        std::cout << InstantJson(report, detail, context.zone()).dump(2) << "\n";
    } else {
        std::cout << InstantText(report, options.calendar.empty() ? std::nullopt : std::optional(detail),
                                 context.zone());
    }
}

void AddShowCommand(CLI::App& app) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* command = app.add_subcommand("show",
                                           "One instant in detail: its date in each calendar, star date, "
                                           "Julian Date, Linux time, weekday, sunrise, sunset, moon");
    command->add_option("WHEN", options->when, kWhenHelp);
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--calendar", options->calendar, std::string(kKindHelp) + "; only this one is shown");
    command->add_option("--lat", options->latitude, kLatitudeHelp);
    command->add_option("--lon", options->longitude, kLongitudeHelp);
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunShow(*options); });
}

}  // namespace timetool
