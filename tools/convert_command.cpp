#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"

namespace timetool {

namespace {

struct ConvertOptions {
    std::string when;
    std::string from = "gregorian";
    std::string to = "all";
    bool json = false;
};

void RunConvert(const ConvertOptions& options) {
    const When when = RequireWhen(options.when);
    const int from = RequireKind("--from", options.from);
    RequireWhenFitsKind(options.when, when, from);
    std::vector<int> kinds;
    if (options.to == "all") {
        for (const CalendarKind& each : CalendarKinds()) kinds.push_back(each.number);
    } else {
        kinds.push_back(RequireKind("--to", options.to));
    }

    const ModuleSession session;
    const double starDate = StarDateOfWhen(session, when, from);
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(std::floor(starDate));  // the day holding the instant
    std::vector<KindDate> dates;
    for (int kind : kinds) {
        time.SetKind(kind);
        dates.push_back(KindDate{kind, time.Date()});
    }

    if (options.json) {
        Json calendars = Json::array();
        for (const KindDate& date : dates) calendars.push_back(CalendarJson(date));
        const Json json{{"from", CalendarKindInfo(from).key},
                        {"star_date", starDate},
                        {"utc", FormatUtc(GregorianDateOf(session, starDate), ClockOfStarDate(starDate))},
                        {"calendars", calendars}};
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::cout << "Star date      " << FormatFixed(starDate, 6) << "\n";
    for (const KindDate& date : dates) {
        std::string label(CalendarKindInfo(date.kind).title);
        label.resize(15, ' ');
        std::cout << label << FormatDateText(date.kind, date.date.year, date.date.month, date.date.day) << "\n";
    }
}

}  // namespace

void AddConvertCommand(CLI::App& app) {
    auto options = std::make_shared<ConvertOptions>();
    CLI::App* command = app.add_subcommand("convert", "Express a date of one calendar in another or in all");
    command->add_option("WHEN", options->when, kWhenHelp)->required();
    command->add_option("--from", options->from, std::string(kKindHelp) + "; the calendar of WHEN (default gregorian)");
    command->add_option("--to", options->to, "target calendar, or all (default all)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunConvert(*options); });
}

}  // namespace timetool
