#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"
#include "month_grid.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct MonthOptions {
    std::string month;
    std::string calendar = "gregorian";
    bool json = false;
};

struct MonthDay {
    double starDate = 0.0;
    int weekday = 0;
    MoonReport moon;
};

void RunMonth(const MonthOptions& options) {
    const auto yearMonth = ParseYearMonth(options.month);
    if (!yearMonth) {
        throw ToolError{kExitBadInput, "timetool: bad YEAR-MONTH '" + options.month + "': expected YYYY-MM"};
    }
    const int kind = RequireKind("--calendar", options.calendar);
    CivilTime first;
    first.year = yearMonth->year;
    first.month = yearMonth->month;
    first.day = 1;
    const std::string error = CivilDateError(kind, first);
    if (!error.empty()) {
        throw ToolError{kExitBadInput, "timetool: bad YEAR-MONTH '" + options.month + "': " + error + " of the " +
                                           std::string(CalendarKindInfo(kind).title) + " calendar"};
    }

    const ModuleSession session;
    TimeObject time(session);
    time.SetKind(kind);
    time.SetDate(1, yearMonth->month, yearMonth->year);
    const int length = time.Info().daysInMonth;
    std::vector<MonthDay> days;
    for (int day = 1; day <= length; ++day) {
        time.SetDate(day, yearMonth->month, yearMonth->year);
        MonthDay entry;
        entry.starDate = time.StarDate();
        entry.weekday = time.DayOfWeek();
        // The glyph shows the moon at noon UTC of the day.
        entry.moon = DescribeMoon(session, std::floor(entry.starDate) + 0.5);
        days.push_back(entry);
    }

    std::string title = FormatDateText(kind, yearMonth->year, yearMonth->month, 1);
    title.erase(0, title.find(' ') + 1);
    if (options.json) {
        Json rows = Json::array();
        for (std::size_t i = 0; i < days.size(); ++i) {
            rows.push_back(Json{{"day", static_cast<int>(i + 1)},
                                {"weekday", days[i].weekday},
                                {"star_date", days[i].starDate},
                                {"moon", MoonJson(days[i].moon)}});
        }
        const Json json{{"calendar", CalendarKindInfo(kind).key},
                        {"year", yearMonth->year},
                        {"month", yearMonth->month},
                        {"title", title},
                        {"days", rows}};
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::vector<MonthGridDay> grid;
    for (const MonthDay& day : days) grid.push_back(MonthGridDay{day.weekday, day.moon.name.glyph});
    std::cout << RenderMonthGrid(title, grid);
}

}  // namespace

void AddMonthCommand(CLI::App& app) {
    auto options = std::make_shared<MonthOptions>();
    CLI::App* command =
        app.add_subcommand("month", "A month as a grid, weekdays as columns, the moon at noon UTC on each day");
    command->add_option("YEAR-MONTH", options->month, "the month, YYYY-MM (-YYYY-MM for BC)")->required();
    command->add_option("--calendar", options->calendar, std::string(kKindHelp) + " (default gregorian)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunMonth(*options); });
}

}  // namespace timetool
