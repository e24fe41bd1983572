// The steps of a WHEN ("+40d", "-1m") taken in the calendar the WHEN was
// read in, the module's own calendars included.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "date_arithmetic.h"
#include "module_dates.h"

namespace timetool {

// `starDate` moved by `steps` left to right, its time of day kept; throws
// ToolError (status 2, one line naming WHEN and why) when a result leaves
// the years timetool shows or the calendar counts no months.
double ApplyDateSteps(ModuleDates& dates, const std::string& text, double starDate, int kind,
                      const std::vector<DateStep>& steps);

// The days from a day to the Gregorian day with the same date: the module's
// Adam (5) and Generic (6) calendars are the Gregorian one moved by their
// registry epoch; 0 for every other kind. Nothing when the epoch is unusable.
std::optional<StarDay> GregorianShift(ModuleDates& dates, int kind);

}  // namespace timetool
