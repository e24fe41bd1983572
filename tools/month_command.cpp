#include <cmath>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "month_view.h"
#include "output_charset.h"
#include "quoted_text.h"
#include "sky_events.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct MonthOptions {
    std::string month;  // empty: the current month
    std::string calendar;
    std::string from;
    bool three = false;
    bool monday = false;
    std::string latitude;
    std::string longitude;
    bool json = false;
    bool ics = false;
};

// A calendar marks the days of the four quarters; the days between carry the
// crescent or gibbous glyph of their stretch, so each quarter's glyph stands
// on exactly one day. Outside the known years a day carries no mark.
std::string_view DayMark(const MonthDay& day) {
    if (day.quarter) return TextGlyph(QuarterName(day.quarter->quarter).glyph);
    if (!std::isfinite(day.moon.phase)) return "";
    return TextGlyph(BetweenQuartersName(day.moon.phase).glyph);
}

Json QuarterJson(const std::optional<DayQuarter>& quarter, const TimeZone& zone) {
    if (!quarter) return nullptr;
    Json json{{"name", QuarterName(quarter->quarter).name}};
    AddInstantJson(json, "utc", quarter->instant, zone);
    return json;
}

// How far from the module's own day number of day 1 the month is looked for
// in the module's own calendars: the mean Hebrew conversion of a date
// ignores its month, so day 1 of a month can lie up to a year away.
constexpr int kSearchDays = 400;

// No month has more days: a walk back to its first day stops here.
constexpr int kLongestMonth = 31;

[[noreturn]] void RefuseMonth(const std::string& text, const std::string& why,
                              std::string_view argument = "YEAR-MONTH") {
    throw ToolError{kExitBadInput, "timetool: bad " + std::string(argument) + " " + QuoteArgument(text) + ": " + why};
}

StarDay FirstDayOfMonth(ModuleDates& dates, int kind, const CivilDate& first, const std::string& text,
                        std::string_view argument) {
    StarDay day = 0;
    if (HasTrueCalendar(kind)) {
        day = DayOfTrueDate(kind, CivilDate{first.year, first.month, 1});
    } else {
        const double estimate = dates.StarDateOf(kind, ModuleFields(CivilDate{first.year, first.month, 1}));
        if (!std::isfinite(estimate) || std::fabs(estimate) > kMaxStarDate) {
            RefuseMonth(text, "outside the years timetool shows (-32767 to 32767)", argument);
        }
        std::optional<StarDay> found;
        for (int dayOfMonth = 1; dayOfMonth <= 30 && !found; ++dayOfMonth) {
            const CivilDate date{first.year, first.month, dayOfMonth};
            found = dates.FindDay(kind, ModuleFields(date), static_cast<StarDay>(std::floor(estimate)), kSearchDays);
            if (found) *found -= dayOfMonth - 1;
        }
        if (!found)
            RefuseMonth(text,
                        "the module's " + std::string(CalendarKindInfo(kind).title) + " calendar has no such month",
                        argument);
        day = *found;
    }
    if (!IsShownDay(day)) RefuseMonth(text, "outside the years timetool shows (-32767 to 32767)", argument);
    return day;
}

// The days from `day` on while they stay in its month.
MonthView CollectMonth(ModuleDates& dates, int kind, StarDay day) {
    MonthView view;
    view.kind = kind;
    const std::optional<CivilDate> start = DateOfMonthDay(dates, kind, day);
    if (!start) return view;
    view.year = start->year;
    view.month = start->month;
    for (;; ++day) {
        const std::optional<CivilDate> date = DateOfMonthDay(dates, kind, day);
        if (!date || date->year != view.year || date->month != view.month) break;
        MonthDay entry;
        entry.day = date->day;
        entry.starDay = day;
        entry.weekday = WeekdayOfDay(day);
        entry.moon = DescribeMoon(dates.session(), static_cast<double>(day) + 0.5);
        view.days.push_back(entry);
    }
    if (!view.days.empty()) {
        const std::vector<std::optional<DayQuarter>> quarters =
            QuartersOfDays(view.days.front().starDay, view.days.size());
        for (std::size_t i = 0; i < view.days.size(); ++i) view.days[i].quarter = quarters[i];
    }
    return view;
}

MonthView NamedMonth(ModuleDates& dates, int kind, const std::string& text) {
    const auto yearMonth = ParseYearMonth(text);
    if (!yearMonth) RefuseMonth(text, "expected YYYY-MM");
    CivilTime first;
    first.year = yearMonth->year;
    first.month = yearMonth->month;
    first.monthName = yearMonth->monthName;
    first.day = 1;
    const CivilCheck check = CheckCivilDate(kind, first);
    if (!check.date) RefuseMonth(text, check.error);
    return ViewOfMonth(dates, kind, *check.date, text);
}

// The month of the day before the first or after the last of `view`.
MonthView NeighbourMonth(ModuleDates& dates, const MonthView& view, bool after) {
    const StarDay day = after ? view.days.back().starDay + 1 : view.days.front().starDay - 1;
    if (!DateOfMonthDay(dates, view.kind, day)) {
        throw ToolError{kExitBadInput, std::string("timetool: the month ") + (after ? "after " : "before ") +
                                           MonthTitle(view, true) + " is outside the years timetool shows"};
    }
    return ViewOfMonthAt(dates, view.kind, day);
}

void RunMonth(const MonthOptions& options) {
    const int kind = RequireSameKind(options.calendar, options.from);
    ToolContext context;
    ModuleDates& dates = context.dates();
    const MonthView current =
        options.month.empty() ? CurrentMonth(context, kind) : NamedMonth(dates, kind, options.month);
    std::vector<MonthView> views;
    if (options.three) views.push_back(NeighbourMonth(dates, current, false));
    views.push_back(current);
    if (options.three) views.push_back(NeighbourMonth(dates, current, true));
    if (options.ics) {
        const Location location = RequireLocation(options.latitude, options.longitude);
        const StarDay first = views.front().days.front().starDay;
        const StarDay last = views.back().days.back().starDay;
        std::cout << SkyCalendar(first, static_cast<int>(last - first + 1), {location.latitude, location.longitude},
                                 SkyCalendarContent::SunAndMoon);
        return;
    }

    if (options.json) {
        Json json = JsonDocument();
        if (options.three) {
            json["calendar"] = CalendarKindInfo(kind).key;
            json["months"] = Json::array();
            for (const MonthView& view : views) json["months"].push_back(MonthJson(view, context.zone()));
        } else {
            json.update(MonthJson(current, context.zone()));
        }
        std::cout << json.dump(2) << "\n";
        return;
    }
    MonthGridLayout layout;
    layout.firstWeekday = options.monday ? 1 : 0;
    if (!options.three) {
        std::cout << RenderMonthGrid(MonthTitle(current, true), GridDays(current), layout);
        return;
    }
    // Three grids with moon glyphs would need 106 columns: side by side they
    // show day numbers only, and fit in 80.
    layout.glyphs = false;
    std::vector<std::string> grids;
    grids.reserve(views.size());
    for (const MonthView& view : views)
        grids.push_back(RenderMonthGrid(MonthTitle(view, true), GridDays(view), layout));
    std::cout << SideBySide(grids, MonthGridWidth(layout), kGridGap);
}

}  // namespace

std::optional<CivilDate> DateOfMonthDay(ModuleDates& dates, int kind, StarDay day) {
    if (!IsShownDay(day)) return std::nullopt;
    if (HasTrueCalendar(kind)) return TrueDateOfDay(kind, day);
    return AstronomicalDate(dates.DateOf(kind, day));
}

MonthView ViewOfMonth(ModuleDates& dates, int kind, const CivilDate& date, const std::string& text,
                      std::string_view argument) {
    return CollectMonth(dates, kind, FirstDayOfMonth(dates, kind, date, text, argument));
}

MonthView ViewOfMonthAt(ModuleDates& dates, int kind, StarDay day) {
    const std::optional<CivilDate> date = DateOfMonthDay(dates, kind, day);
    StarDay first = day;
    for (int walked = 0; date && walked < kLongestMonth; ++walked) {
        const std::optional<CivilDate> before = DateOfMonthDay(dates, kind, first - 1);
        if (!before || before->year != date->year || before->month != date->month) break;
        --first;
    }
    return CollectMonth(dates, kind, first);
}

MonthView CurrentMonth(ToolContext& context, int kind) {
    const StarDay today = SplitStarDate(context.reader().StarDate("today", 0)).day;
    if (!DateOfMonthDay(context.dates(), kind, today)) {
        throw ToolError{kExitBadInput, "timetool: today has no date in the " +
                                           std::string(CalendarKindInfo(kind).title) + " calendar"};
    }
    return ViewOfMonthAt(context.dates(), kind, today);
}

std::string MonthTitle(const MonthView& view, bool withYear) {
    std::string title = FormatMonthTitle(view.kind, view.year, view.month);
    if (withYear) return title;
    // The title ends in the year, " 5784" or " 44 BC".
    for (const std::string& year : {" " + FormatYearText(view.year), " " + std::to_string(view.year)}) {
        if (title.size() > year.size() && title.ends_with(year)) return title.substr(0, title.size() - year.size());
    }
    return title;
}

std::vector<MonthGridDay> GridDays(const MonthView& view) {
    std::vector<MonthGridDay> grid;
    grid.reserve(view.days.size());
    for (const MonthDay& day : view.days) grid.push_back(MonthGridDay{day.day, day.weekday, DayMark(day)});
    return grid;
}

Json MonthJson(const MonthView& view, const TimeZone& zone) {
    Json rows = Json::array();
    for (const MonthDay& day : view.days) {
        rows.push_back(Json{{"day", day.day},
                            {"weekday", day.weekday},
                            {"star_date", static_cast<double>(day.starDay)},
                            {"moon", MoonJson(day.moon, zone)},
                            {"quarter", QuarterJson(day.quarter, zone)}});
    }
    return Json{{"calendar", CalendarKindInfo(view.kind).key},
                {"year", view.year},
                {"month", view.month},
                {"title", MonthTitle(view, true)},
                {"days", rows}};
}

int RequireSameKind(const std::string& calendar, const std::string& from) {
    if (!calendar.empty() && !from.empty()) {
        RequireKind("--calendar", calendar);
        RequireKind("--from", from);
        if (*ParseCalendarKind(calendar) != *ParseCalendarKind(from)) {
            throw ToolError{kExitBadInput, "timetool: --calendar and --from name different calendars"};
        }
    }
    const std::string& kindText = calendar.empty() ? from : calendar;
    return kindText.empty() ? 0 : RequireKind(calendar.empty() ? "--from" : "--calendar", kindText);
}

void AddMonthCommand(CLI::App& app) {
    auto options = std::make_shared<MonthOptions>();
    CLI::App* command = app.add_subcommand(
        "month",
        "A month as a grid, weekdays as columns; the days of new, first-quarter, full and last-quarter moon (UTC) "
        "carry their glyph, the days between a crescent or gibbous one");
    command->add_option("YEAR-MONTH", options->month,
                        "the month, Y-MM (astronomical year, -43 = 44 BC) or Y-Name for a Hebrew month (default: the "
                        "current month)");
    command->add_option("--calendar", options->calendar, std::string(kKindHelp) + " (default gregorian)");
    command->add_option("--from", options->from, "the same as --calendar");
    command->add_flag("--three", options->three,
                      "the previous, current and next month side by side (day numbers only, to fit 80 columns)");
    command->add_flag("--monday", options->monday, "weeks start on Monday");
    command->add_option("--lat", options->latitude, std::string(kLatitudeHelp) + "; for --ics");
    command->add_option("--lon", options->longitude, std::string(kLongitudeHelp) + "; for --ics");
    CLI::Option* json = command->add_flag("--json", options->json, "print one JSON document");
    command
        ->add_flag("--ics", options->ics,
                   "print the month's sunrises, sunsets and moon quarters as an iCalendar stream (UTC)")
        ->excludes(json);
    command->footer(kWhenGrammar);
    command->callback([options] { RunMonth(*options); });
}

}  // namespace timetool
