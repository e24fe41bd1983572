#include <charconv>
#include <iostream>
#include <memory>

#include "calendar_kind.h"
#include "commands.h"
#include "month_view.h"
#include "quoted_text.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct YearOptions {
    std::string year;  // empty: the current year
    std::string calendar;
    std::string from;
    bool monday = false;
    bool json = false;
};

// Grids in a row of the year view: three of 20 columns and their gaps fit
// in 80.
constexpr std::size_t kGridsPerRow = 3;
constexpr std::size_t kMostMonths = 13;

[[noreturn]] void RefuseYear(const std::string& text, const std::string& why) {
    throw ToolError{kExitBadInput, "timetool: bad YEAR " + QuoteArgument(text) + ": " + why};
}

int ParseYearNumber(const std::string& text) {
    const char* first = text.data();
    const char* last = text.data() + text.size();
    if (first != last && *first == '+') ++first;
    int year = 0;
    const auto [end, ec] = std::from_chars(first, last, year);
    if (first == last || ec != std::errc() || end != last) RefuseYear(text, "expected a year number");
    if (year < kMinYear || year > kMaxYear) RefuseYear(text, "out of range (-32767 to 32767)");
    return year;
}

// "2024", "Julian 44 BC", "Hebrew 5784", "Adam 2024 (the module's own calendar)".
std::string YearTitle(int kind, int year) {
    const bool hebrew = kind == 3 || kind == 4;
    std::string title = hebrew ? std::to_string(year) : FormatYearText(year);
    if (kind != 0) title = std::string(CalendarKindInfo(kind).title) + " " + title;
    if (!HasTrueCalendar(kind)) title += " (the module's own calendar)";
    return title;
}

std::vector<MonthView> MonthsOfYear(ModuleDates& dates, int kind, int year, const std::string& text) {
    // Hebrew years run from Tishri (7) to Elul (6).
    CivilTime first;
    first.year = year;
    first.month = kind == 3 || kind == 4 ? 7 : 1;
    first.day = 1;
    const CivilCheck check = CheckCivilDate(kind, first);
    if (!check.date) RefuseYear(text, check.error);
    std::vector<MonthView> months{ViewOfMonth(dates, kind, *check.date, text, "YEAR")};
    while (months.size() < kMostMonths && !months.back().days.empty()) {
        const StarDay next = months.back().days.back().starDay + 1;
        const std::optional<CivilDate> date = DateOfMonthDay(dates, kind, next);
        if (!date || date->year != year) break;
        months.push_back(ViewOfMonthAt(dates, kind, next));
    }
    return months;
}

void RunYear(const YearOptions& options) {
    const int kind = RequireSameKind(options.calendar, options.from);
    ToolContext context;
    const int year = options.year.empty() ? CurrentMonth(context, kind).year : ParseYearNumber(options.year);
    const std::vector<MonthView> months = MonthsOfYear(context.dates(), kind, year, options.year);

    if (options.json) {
        Json json = JsonDocument();
        json["calendar"] = CalendarKindInfo(kind).key;
        json["year"] = year;
        json["months"] = Json::array();
        for (const MonthView& month : months) json["months"].push_back(MonthJson(month, context.zone()));
        std::cout << json.dump(2) << "\n";
        return;
    }
    MonthGridLayout layout;
    layout.firstWeekday = options.monday ? 1 : 0;
    layout.glyphs = false;
    const std::size_t width = MonthGridWidth(layout);
    const std::size_t rowWidth = kGridsPerRow * width + (kGridsPerRow - 1) * kGridGap;
    const std::string title = YearTitle(kind, year);
    const std::size_t titleWidth = DisplayWidth(title);
    std::string out(titleWidth < rowWidth ? (rowWidth - titleWidth) / 2 : 0, ' ');
    out += title + "\n";
    for (std::size_t start = 0; start < months.size(); start += kGridsPerRow) {
        std::vector<std::string> grids;
        for (std::size_t i = start; i < months.size() && i < start + kGridsPerRow; ++i) {
            grids.push_back(RenderMonthGrid(MonthTitle(months[i], false), GridDays(months[i]), layout));
        }
        out += "\n" + SideBySide(grids, width, kGridGap);
    }
    std::cout << out;
}

}  // namespace

void AddYearCommand(CLI::App& app) {
    auto options = std::make_shared<YearOptions>();
    CLI::App* command =
        app.add_subcommand("year", "The months of a year as grids, three across (a Hebrew year from Tishri to Elul)");
    command->add_option("YEAR", options->year,
                        "the year (astronomical, -43 = 44 BC; Hebrew years from 1; default: the current year)");
    command->add_option("--calendar", options->calendar, std::string(kKindHelp) + " (default gregorian)");
    command->add_option("--from", options->from, "the same as --calendar");
    command->add_flag("--monday", options->monday, "weeks start on Monday");
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunYear(*options); });
}

}  // namespace timetool
