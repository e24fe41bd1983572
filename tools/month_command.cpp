#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"
#include "month_grid.h"
#include "output_charset.h"
#include "quoted_text.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct MonthOptions {
    std::string month;
    std::string calendar;
    std::string from;
    bool json = false;
};

struct MonthDay {
    int day = 0;
    StarDay starDay = 0;
    int weekday = 0;
    MoonReport moon;                    // at noon UTC
    std::optional<DayQuarter> quarter;  // a new, first-quarter, full or last-quarter moon within the UTC day
};

// A calendar marks the days of the four quarters; the days between carry the
// crescent or gibbous glyph of their stretch, so each quarter's glyph stands
// on exactly one day. Outside the known years a day carries no mark.
std::string_view DayMark(const MonthDay& day) {
    if (day.quarter) return TextGlyph(QuarterName(day.quarter->quarter).glyph);
    if (!std::isfinite(day.moon.phase)) return "";
    return TextGlyph(BetweenQuartersName(day.moon.phase).glyph);
}

// How far from the module's own day number of day 1 the month is looked for
// in the module's own calendars: the mean Hebrew conversion of a date
// ignores its month, so day 1 of a month can lie up to a year away.
constexpr int kSearchDays = 400;

[[noreturn]] void RefuseMonth(const std::string& text, const std::string& why) {
    throw ToolError{kExitBadInput, "timetool: bad YEAR-MONTH " + QuoteArgument(text) + ": " + why};
}

// The date of a day in the month's calendar: true, or the module's own.
std::optional<CivilDate> DateOfDay(ModuleDates& dates, int kind, StarDay day) {
    if (!IsShownDay(day)) return std::nullopt;
    if (HasTrueCalendar(kind)) return TrueDateOfDay(kind, day);
    return AstronomicalDate(dates.DateOf(kind, day));
}

std::vector<MonthDay> DaysOfMonth(ModuleDates& dates, int kind, const CivilDate& first, const std::string& text) {
    StarDay day = 0;
    if (HasTrueCalendar(kind)) {
        day = DayOfTrueDate(kind, first);
    } else {
        const double estimate = dates.StarDateOf(kind, ModuleFields(first));
        if (!std::isfinite(estimate) || std::fabs(estimate) > kMaxStarDate) {
            RefuseMonth(text, "outside the years timetool shows (-32767 to 32767)");
        }
        std::optional<StarDay> found;
        for (int dayOfMonth = 1; dayOfMonth <= 30 && !found; ++dayOfMonth) {
            const CivilDate date{first.year, first.month, dayOfMonth};
            found = dates.FindDay(kind, ModuleFields(date), static_cast<StarDay>(std::floor(estimate)), kSearchDays);
            if (found) *found -= dayOfMonth - 1;
        }
        if (!found)
            RefuseMonth(text,
                        "the module's " + std::string(CalendarKindInfo(kind).title) + " calendar has no such month");
        day = *found;
    }
    if (!IsShownDay(day)) RefuseMonth(text, "outside the years timetool shows (-32767 to 32767)");
    std::vector<MonthDay> days;
    for (;; ++day) {
        const std::optional<CivilDate> date = DateOfDay(dates, kind, day);
        if (!date || date->year != first.year || date->month != first.month) break;
        MonthDay entry;
        entry.day = date->day;
        entry.starDay = day;
        entry.weekday = WeekdayOfDay(day);
        entry.moon = DescribeMoon(dates.session(), static_cast<double>(day) + 0.5);
        days.push_back(entry);
    }
    if (!days.empty()) {
        const std::vector<std::optional<DayQuarter>> quarters = QuartersOfDays(days.front().starDay, days.size());
        for (std::size_t i = 0; i < days.size(); ++i) days[i].quarter = quarters[i];
    }
    return days;
}

Json QuarterJson(const std::optional<DayQuarter>& quarter) {
    if (!quarter) return nullptr;
    return Json{{"name", QuarterName(quarter->quarter).name}, {"utc", FormatUtcIso(quarter->instant)}};
}

void RunMonth(const MonthOptions& options) {
    const auto yearMonth = ParseYearMonth(options.month);
    if (!yearMonth) RefuseMonth(options.month, "expected YYYY-MM");
    if (!options.calendar.empty() && !options.from.empty()) {
        RequireKind("--calendar", options.calendar);
        RequireKind("--from", options.from);
        if (*ParseCalendarKind(options.calendar) != *ParseCalendarKind(options.from)) {
            throw ToolError{kExitBadInput, "timetool: --calendar and --from name different calendars"};
        }
    }
    const std::string& kindText = options.calendar.empty() ? options.from : options.calendar;
    const int kind = kindText.empty() ? 0 : RequireKind(options.calendar.empty() ? "--from" : "--calendar", kindText);
    CivilTime first;
    first.year = yearMonth->year;
    first.month = yearMonth->month;
    first.monthName = yearMonth->monthName;
    first.day = 1;
    const CivilCheck check = CheckCivilDate(kind, first);
    if (!check.date) RefuseMonth(options.month, check.error);

    ToolContext context;
    const std::vector<MonthDay> days = DaysOfMonth(context.dates(), kind, *check.date, options.month);
    const std::string title = FormatMonthTitle(kind, check.date->year, check.date->month);
    if (options.json) {
        Json rows = Json::array();
        for (const MonthDay& day : days) {
            rows.push_back(Json{{"day", day.day},
                                {"weekday", day.weekday},
                                {"star_date", static_cast<double>(day.starDay)},
                                {"moon", MoonJson(day.moon)},
                                {"quarter", QuarterJson(day.quarter)}});
        }
        Json json = JsonDocument();
        json["calendar"] = CalendarKindInfo(kind).key;
        json["year"] = check.date->year;
        json["month"] = check.date->month;
        json["title"] = title;
        json["days"] = rows;
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::vector<MonthGridDay> grid;
    grid.reserve(days.size());
    for (const MonthDay& day : days) grid.push_back(MonthGridDay{day.day, day.weekday, DayMark(day)});
    std::cout << RenderMonthGrid(title, grid);
}

}  // namespace

void AddMonthCommand(CLI::App& app) {
    auto options = std::make_shared<MonthOptions>();
    CLI::App* command = app.add_subcommand(
        "month",
        "A month as a grid, weekdays as columns; the days of new, first-quarter, full and last-quarter moon (UTC) "
        "carry their glyph, the days between a crescent or gibbous one");
    command
        ->add_option("YEAR-MONTH", options->month,
                     "the month, Y-MM (astronomical year, -43 = 44 BC) or Y-Name for a Hebrew month")
        ->required();
    command->add_option("--calendar", options->calendar, std::string(kKindHelp) + " (default gregorian)");
    command->add_option("--from", options->from, "the same as --calendar");
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunMonth(*options); });
}

}  // namespace timetool
