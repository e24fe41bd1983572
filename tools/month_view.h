// Months of a calendar as the month and year commands show them: the days
// of a month found in the true calendar or the module's own, laid out as a
// grid or given as JSON. Defined with the month command.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "instant.h"
#include "instant_output.h"
#include "month_grid.h"
#include "tool_context.h"

namespace timetool {

struct MonthDay {
    int day = 0;
    StarDay starDay = 0;
    int weekday = 0;
    MoonReport moon;                    // at noon UTC
    std::optional<DayQuarter> quarter;  // a new, first-quarter, full or last-quarter moon within the UTC day
};

struct MonthView {
    int kind = 0;
    int year = 0;   // astronomical
    int month = 0;  // the calendar's month number
    std::vector<MonthDay> days;
};

// The date of a day in the calendar of `kind`: true, or the module's own;
// nothing outside the shown days or before the Hebrew epoch.
std::optional<CivilDate> DateOfMonthDay(ModuleDates& dates, int kind, StarDay day);

// The month holding a valid date of `kind`; throws ToolError (status 2,
// naming `text` as `argument`) when it lies outside the shown years.
MonthView ViewOfMonth(ModuleDates& dates, int kind, const CivilDate& date, const std::string& text,
                      std::string_view argument = "YEAR-MONTH");
// The month holding `day`, which must have a date in `kind`.
MonthView ViewOfMonthAt(ModuleDates& dates, int kind, StarDay day);

// The month holding today (--now or TIMETOOL_NOW fixes it); throws
// ToolError (status 2) when today has no date in `kind`.
MonthView CurrentMonth(ToolContext& context, int kind);

// Blanks between grids set side by side.
inline constexpr std::size_t kGridGap = 2;

// "June 2024", "Adar I 5784"; with `withYear` false "June", "Adar I".
std::string MonthTitle(const MonthView& view, bool withYear);
std::vector<MonthGridDay> GridDays(const MonthView& view);
// The keys of the month command's document, without "schema".
Json MonthJson(const MonthView& view, const TimeZone& zone);

}  // namespace timetool
