// The module's own date conversions, asked day by day through one Time
// object: what its GetDate gives for a day and what its SetDate makes of a
// date, in the module's year numbering (-1 = 1 BC, no year 0).
#pragma once

#include <optional>

#include "time_object.h"
#include "true_calendar.h"

namespace timetool {

// Years of the module's fields and astronomical years (0 = 1 BC).
constexpr int ModuleYear(int astronomicalYear) {
    return astronomicalYear <= 0 ? astronomicalYear - 1 : astronomicalYear;
}
constexpr int AstronomicalYear(int moduleYear) { return moduleYear < 0 ? moduleYear + 1 : moduleYear; }

// A date in the module's numbering, and back.
DateFields ModuleFields(const CivilDate& date);
CivilDate AstronomicalDate(const DateFields& fields);

class ModuleDates {
public:
    explicit ModuleDates(const ModuleSession& session);

    const ModuleSession& session() const { return session_; }

    // The module's GetDate of the whole day in `kind`.
    DateFields DateOf(int kind, StarDay day);
    // The star date the module's SetDate gives these fields in `kind`, at
    // midnight.
    double StarDateOf(int kind, const DateFields& fields);
    // The day within `radius` days of `estimate` whose module date in `kind`
    // is `fields`, nearest first; nothing when there is none.
    std::optional<StarDay> FindDay(int kind, const DateFields& fields, StarDay estimate, int radius);
    // The day number of 1 January AD 1 of the Adam (5) or Generic (6)
    // calendar, from the registry.
    double EpochOf(int kind);

private:
    void Select(int kind);

    const ModuleSession& session_;
    TimeObject time_;
    int kind_ = 0;
    bool registryChecked_ = false;  // the registry warning is given once
};

}  // namespace timetool
