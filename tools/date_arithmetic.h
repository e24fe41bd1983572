// Date arithmetic in the calendars people use: steps of days and weeks on
// the day count, steps of months and years by a calendar's own rules, and
// the whole steps between two instants.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text_format.h"
#include "true_calendar.h"

namespace timetool {

enum class StepUnit { Day, Week, Month, Year };

struct DateStep {
    std::int64_t count = 0;  // [-kMaxStepCount, kMaxStepCount]
    StepUnit unit = StepUnit::Day;

    friend bool operator==(const DateStep&, const DateStep&) = default;
};

// Eight digits: more days than the shown years hold, so a longer count can
// only leave them.
inline constexpr std::int64_t kMaxStepCount = 99999999;

// A WHEN with its steps taken off the end: "2024-06-21+40d-1w" is the base
// "2024-06-21" and the steps +40 days, -1 week, in the order written. A text
// without steps is all base.
struct StepSplit {
    std::string_view base;
    std::vector<DateStep> steps;
    std::string error;  // one short phrase, empty on success
};
StepSplit SplitDateSteps(std::string_view text);

// The rules months and years are counted by: Gregorian (0, and the module's
// Adam 5 and Generic 6, which follow Gregorian rules), Julian (1), Western
// (2) and Hebrew (4). The module's mean Hebrew calendar (3) has none here.
bool CountsMonths(int kind);

// A date moved by whole months or years, its day clamped to the last day of
// the month reached (31 January + 1 month = 29 February 2024). Hebrew months
// count in year order from Tishri, the leap month included; a year step keeps
// the month, Adar of a 12-month year becoming Adar II in a leap year (the
// Adar that holds Purim) and either Adar of a leap year becoming Adar. A
// Western date inside 5 to 14 October 1582 moves to 15 October. Nothing when
// the year leaves kMinYear..kMaxYear (Hebrew: 1..kMaxYear) or the kind counts
// no months.
std::optional<CivilDate> AddMonths(int kind, const CivilDate& date, std::int64_t months);
std::optional<CivilDate> AddYears(int kind, const CivilDate& date, std::int64_t years);

// A day moved by one step in the calendar of `kind` (0, 1, 2 or 4): days and
// weeks on the day count, months and years as above. Nothing when the day
// has no date in that calendar or the result is not a shown day.
std::optional<StarDay> StepDay(int kind, StarDay day, const DateStep& step);

// The whole months or years (by `StepDay` of `kind`) from `from` to `to`,
// counted from the earlier instant to the later, negative when `to` is
// earlier; and the days and seconds left over. A time of day is carried by
// each step, so 31 January 12:00 to 29 February 11:00 is no whole month.
// Nothing when the earlier instant has no date in that calendar.
struct WholeSteps {
    std::int64_t steps = 0;
    std::int64_t days = 0;     // same sign as the interval
    std::int64_t seconds = 0;  // [-86399, 86399], same sign as the interval
};
std::optional<WholeSteps> CountWholeSteps(int kind, StepUnit unit, const ExactInstant& from, const ExactInstant& to);

}  // namespace timetool
