// WHEN read the way every command reads it: a civil date lands on the day
// whose date in the chosen calendar is the one given; "now" is the system
// clock unless a fixed instant stands in for it.
#pragma once

#include <string>

#include "module_dates.h"
#include "time_zone.h"
#include "when.h"

namespace timetool {

class WhenReader {
public:
    // `fixedNow`: a WHEN (read as Gregorian) that "now" and "today" stand
    // for; empty for the system clock. A time of day without "Z" or an
    // offset is read on the clock of `zone`; "today" is its civil day there.
    WhenReader(ModuleDates& dates, std::string fixedNow, TimeZone zone = TimeZone{});

    const TimeZone& zone() const { return zone_; }
    // Whether the clock time a civil WHEN gives is its UTC time of day.
    bool ReadsAsUtc(const When& when) const;

    // The star date `text` names, a civil date being read in calendar
    // `kind`; throws ToolError (status 2, one line naming WHEN and why) for
    // a date that does not exist or lies outside the years timetool shows.
    double StarDate(const std::string& text, int kind);
    double StarDate(const std::string& text, const When& when, int kind);
    // The day a valid civil date of `kind` names; throws ToolError as above.
    StarDay DayOfCivil(const std::string& text, int kind, const CivilDate& date);

private:
    double Now();
    // The star date of a time of day on `day`, read on the clock the WHEN names.
    double OnClock(const std::string& text, const CivilTime& civil, StarDay day) const;

    ModuleDates& dates_;
    std::string fixedNow_;
    TimeZone zone_;
};

// "bad WHEN 'text': why", thrown as ToolError with status 2.
[[noreturn]] void RefuseWhen(const std::string& text, const std::string& why);

}  // namespace timetool
