#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "calendar_line.h"
#include "commands.h"
#include "date_steps.h"
#include "instant_output.h"
#include "tool_context.h"
#include "tool_error.h"

namespace timetool {

namespace {

struct BetweenOptions {
    std::string first;
    std::string second;
    std::string calendar;
    std::string from;
    bool json = false;
};

// Whole months or years between the instants, or why the calendar cannot
// count them.
struct CalendarCount {
    std::optional<WholeSteps> months;
    std::optional<WholeSteps> years;
    std::string reason;
};

CalendarCount CountInCalendar(ModuleDates& dates, int kind, ExactInstant first, ExactInstant second) {
    CalendarCount count;
    if (!CountsMonths(kind)) {
        count.reason = "the module's mean Hebrew calendar (hebrew1) counts no months or years here";
        return count;
    }
    const std::optional<StarDay> shift = GregorianShift(dates, kind);
    if (!shift) {
        count.reason = "the calendar's registry epoch is outside the years timetool shows";
        return count;
    }
    first.day -= *shift;
    second.day -= *shift;
    const int rules = kind == 5 || kind == 6 ? 0 : kind;
    count.months = CountWholeSteps(rules, StepUnit::Month, first, second);
    count.years = CountWholeSteps(rules, StepUnit::Year, first, second);
    if (!count.months || !count.years) {
        count.months.reset();
        count.years.reset();
        count.reason = kind == 4 ? "the earlier instant is before the Hebrew epoch (1 Tishri 1 = 7 October 3761 BC)"
                                 : "the earlier instant has no date in this calendar";
    }
    return count;
}

std::string Counted(std::int64_t count, const char* unit) {
    return std::to_string(count) + " " + unit + (count == 1 || count == -1 ? "" : "s");
}

// "-12:00:00" for a negative remainder.
std::string SignedClock(std::int64_t seconds) {
    return (seconds < 0 ? "-" : "") + FormatClock(static_cast<int>(seconds < 0 ? -seconds : seconds));
}

std::string EndText(ModuleDates& dates, int kind, const ExactInstant& instant) {
    const CalendarLine line = DescribeCalendarDay(dates, kind, instant.day);
    const std::string date =
        line.date ? FormatDateText(kind, line.date->year, line.date->month, line.date->day) : "out of range";
    return FormatUtcText(instant) + " UTC (" + date + ")";
}

std::string StepsText(const WholeSteps& steps, const char* unit) {
    return Counted(steps.steps, unit) + " and " + Counted(steps.days, "day");
}

Json EndJson(ModuleDates& dates, int kind, const ExactInstant& instant, double starDate) {
    return Json{{"utc", FormatUtcIso(instant)},
                {"star_date", starDate},
                {"date", CalendarJson(DescribeCalendarDay(dates, kind, instant.day))}};
}

void RunBetween(const BetweenOptions& options) {
    const int from = options.from.empty() ? 0 : RequireKind("--from", options.from);
    const int kind = options.calendar.empty() ? from : RequireKind("--calendar", options.calendar);
    ToolContext context;
    ModuleDates& dates = context.dates();
    const double firstStarDate = context.reader().StarDate(options.first, from);
    const double secondStarDate = context.reader().StarDate(options.second, from);
    const ExactInstant first = SplitStarDate(firstStarDate);
    const ExactInstant second = SplitStarDate(secondStarDate);
    const WholeSteps days = *CountWholeSteps(0, StepUnit::Day, first, second);
    const WholeSteps weeks = *CountWholeSteps(0, StepUnit::Week, first, second);
    const CalendarCount calendar = CountInCalendar(dates, kind, first, second);

    if (options.json) {
        Json json = JsonDocument();
        json["from"] = CalendarKindInfo(from).key;
        json["calendar"] = CalendarKindInfo(kind).key;
        json["first"] = EndJson(dates, kind, first, firstStarDate);
        json["second"] = EndJson(dates, kind, second, secondStarDate);
        json["days"] = days.steps;
        json["seconds"] = days.seconds;
        json["weeks"] = weeks.steps;
        json["weeks_days"] = weeks.days;
        json["months"] = calendar.months ? Json(calendar.months->steps) : Json(nullptr);
        json["months_days"] = calendar.months ? Json(calendar.months->days) : Json(nullptr);
        json["years"] = calendar.years ? Json(calendar.years->steps) : Json(nullptr);
        json["years_days"] = calendar.years ? Json(calendar.years->days) : Json(nullptr);
        json["reason"] = calendar.reason.empty() ? Json(nullptr) : Json(calendar.reason);
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::string text = LabelledLine("From", EndText(dates, kind, first));
    text += LabelledLine("To", EndText(dates, kind, second));
    text += LabelledLine("Days", days.seconds == 0 ? std::to_string(days.steps)
                                                   : std::to_string(days.steps) + " and " + SignedClock(days.seconds));
    text += LabelledLine("Weeks", StepsText(weeks, "week"));
    const std::string title(CalendarKindInfo(kind).title);
    if (calendar.months) {
        text += LabelledLine("Months", StepsText(*calendar.months, "month") + " (" + title + ")");
        text += LabelledLine("Years", StepsText(*calendar.years, "year") + " (" + title + ")");
    } else {
        text += LabelledLine("Months", "not counted: " + calendar.reason);
        text += LabelledLine("Years", "not counted: " + calendar.reason);
    }
    std::cout << text;
}

}  // namespace

void AddBetweenCommand(CLI::App& app) {
    auto options = std::make_shared<BetweenOptions>();
    CLI::App* command =
        app.add_subcommand("between",
                           "Days, weeks, and whole months and years from one instant to another (negative when the "
                           "second is earlier)");
    command->add_option("WHEN", options->first, kWhenHelp)->required();
    command->add_option("WHEN2", options->second, "the second instant, read as the first")->required();
    command->add_option("--from", options->from, kFromHelp);
    command->add_option("--calendar", options->calendar,
                        std::string(kKindHelp) +
                            ": months and years are counted by its rules, and the dates shown "
                            "in it (default: the --from calendar)");
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunBetween(*options); });
}

}  // namespace timetool
