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
    int day = 0;
    double starDate = 0.0;
    int weekday = 0;
    MoonReport moon;
};

// How far from the module's own day number of day 1 the month is looked
// for: the Hebrew conversion of a date ignores its month, so day 1 of a
// Hebrew month can lie up to a year after that estimate.
constexpr int kSearchDays = 400;

// The days of the month, found by expressing consecutive day numbers in the
// calendar: the day-number-to-date direction of every calendar is exact,
// while the other direction is coarse for the Hebrew kinds.
std::vector<MonthDay> DaysOfMonth(const ModuleSession& session, int kind, const YearMonth& month) {
    TimeObject time(session);
    time.SetKind(kind);
    time.SetDate(1, month.month, month.year);
    const double estimate = std::floor(time.StarDate());
    const auto inMonth = [&](double starDate) {
        time.SetStarDate(starDate);
        const DateFields date = time.Date();
        return date.year == month.year && date.month == month.month;
    };
    double first = estimate - kSearchDays;
    while (first <= estimate + kSearchDays && !inMonth(first)) first += 1.0;
    std::vector<MonthDay> days;
    for (double starDate = first; starDate <= estimate + kSearchDays && inMonth(starDate); starDate += 1.0) {
        MonthDay entry;
        entry.day = time.Date().day;
        entry.starDate = starDate;
        entry.weekday = time.DayOfWeek();
        // The glyph shows the moon at noon UTC of the day.
        entry.moon = DescribeMoon(session, starDate + 0.5);
        days.push_back(entry);
    }
    return days;
}

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
    const std::vector<MonthDay> days = DaysOfMonth(session, kind, *yearMonth);
    if (days.empty()) {
        throw ToolError{kExitBadInput, "timetool: bad YEAR-MONTH '" + options.month + "': the " +
                                           std::string(CalendarKindInfo(kind).title) +
                                           " calendar has no such month in that year"};
    }

    std::string title = FormatDateText(kind, yearMonth->year, yearMonth->month, 1);
    title.erase(0, title.find(' ') + 1);
    if (options.json) {
        Json rows = Json::array();
        for (const MonthDay& day : days) {
            rows.push_back(Json{
                {"day", day.day}, {"weekday", day.weekday}, {"star_date", day.starDate}, {"moon", MoonJson(day.moon)}});
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
    grid.reserve(days.size());
    for (const MonthDay& day : days) grid.push_back(MonthGridDay{day.day, day.weekday, day.moon.name.glyph});
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
