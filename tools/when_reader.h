// WHEN read the way every command reads it: a civil date lands on the day
// whose date in the chosen calendar is the one given; "now" is the system
// clock unless a fixed instant stands in for it.
#pragma once

#include <string>

#include "module_dates.h"
#include "when.h"

namespace timetool {

class WhenReader {
public:
    // `fixedNow`: a WHEN (read as Gregorian) that "now" and "today" stand
    // for; empty for the system clock.
    WhenReader(ModuleDates& dates, std::string fixedNow);

    // The star date `text` names, a civil date being read in calendar
    // `kind`; throws ToolError (status 2, one line naming WHEN and why) for
    // a date that does not exist or lies outside the years timetool shows.
    double StarDate(const std::string& text, int kind);
    double StarDate(const std::string& text, const When& when, int kind);
    // The day a valid civil date of `kind` names; throws ToolError as above.
    StarDay DayOfCivil(const std::string& text, int kind, const CivilDate& date);

private:
    double Now();

    ModuleDates& dates_;
    std::string fixedNow_;
};

// "bad WHEN 'text': why", thrown as ToolError with status 2.
[[noreturn]] void RefuseWhen(const std::string& text, const std::string& why);

}  // namespace timetool
