// One calendar's line for a day: the true date where the calendar has an
// outside truth, the module's own date for its own calendars, and what the
// module's GetDate and SetDate make of it where they differ.
#pragma once

#include <optional>
#include <string>

#include "module_dates.h"

namespace timetool {

struct CalendarLine {
    int kind = 0;
    bool moduleCalendar = false;           // kinds 3, 5, 6: the module's own calendars
    std::optional<CivilDate> date;         // astronomical years; nothing when it cannot be shown
    std::string reason;                    // why there is no date
    DateFields module;                     // the module's GetDate of the day, in its own numbering
    std::optional<double> moduleStarDate;  // the module's SetDate of the date's fields
    bool getDateDiffers = false;
    bool setDateDiffers = false;
    std::optional<CivilDate> setDateLanding;  // the date, in this calendar, of the day SetDate lands on
};

CalendarLine DescribeCalendarDay(ModuleDates& dates, int kind, StarDay day);

// "15 Sivan 5784", with the module's differing figures in brackets.
std::string CalendarLineText(const CalendarLine& line);

}  // namespace timetool
