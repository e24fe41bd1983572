#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"

namespace timetool {

void RunShow(const ShowOptions& options) {
    const When when = RequireWhen(options.when);
    const int kind = options.calendar.empty() ? 0 : RequireKind("--calendar", options.calendar);
    RequireWhenFitsKind(options.when, when, 0);
    const Location location = RequireLocation(options.latitude, options.longitude);

    const ModuleSession session;
    // WHEN is a Gregorian date here; --calendar only chooses what is shown.
    const double starDate = StarDateOfWhen(session, when, 0);
    std::vector<int> kinds;
    if (options.calendar.empty()) {
        for (const CalendarKind& each : CalendarKinds()) kinds.push_back(each.number);
    } else {
        kinds.push_back(kind);
    }
    const InstantReport report = DescribeInstant(session, starDate, kinds, location);

    TimeObject selected(session);
    selected.SetKind(kind);
    selected.SetStarDate(std::floor(starDate));
    const CalendarDetail detail{kind, selected.Info(), selected.CalendarDays()};

    if (options.json) {
        std::cout << InstantJson(report, detail).dump(2) << "\n";
    } else {
        std::cout << InstantText(report, options.calendar.empty() ? std::nullopt : std::optional(detail));
    }
}

void AddShowCommand(CLI::App& app) {
    auto options = std::make_shared<ShowOptions>();
    CLI::App* command = app.add_subcommand("show",
                                           "One instant in detail: its date in each calendar, star date, "
                                           "Julian Date, Linux time, weekday, sunrise, sunset, moon");
    command->add_option("WHEN", options->when, kWhenHelp);
    command->add_option("--calendar", options->calendar, std::string(kKindHelp) + "; only this one is shown");
    command->add_option("--lat", options->latitude, kLatitudeHelp);
    command->add_option("--lon", options->longitude, kLongitudeHelp);
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunShow(*options); });
}

}  // namespace timetool
