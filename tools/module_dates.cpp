#include "module_dates.h"

#include "registry_warning.h"

namespace timetool {

DateFields ModuleFields(const CivilDate& date) { return DateFields{ModuleYear(date.year), date.month, date.day}; }

CivilDate AstronomicalDate(const DateFields& fields) {
    return CivilDate{AstronomicalYear(fields.year), fields.month, fields.day};
}

ModuleDates::ModuleDates(const ModuleSession& session) : session_(session), time_(session) { time_.SetKind(0); }

void ModuleDates::Select(int kind) {
    if (kind_ == kind) return;
    // Adam and Generic take their epochs from the registry.
    if ((kind == 5 || kind == 6) && !registryChecked_) {
        registryChecked_ = true;
        WarnAboutRegistry();
    }
    time_.SetKind(kind);
    kind_ = kind;
}

DateFields ModuleDates::DateOf(int kind, StarDay day) {
    Select(kind);
    time_.SetStarDate(static_cast<double>(day));
    return time_.Date();
}

double ModuleDates::StarDateOf(int kind, const DateFields& fields) {
    Select(kind);
    // The time fields stay at midnight: this object never sets a time and a
    // whole star date writes none.
    time_.SetDate(fields.day, fields.month, fields.year);
    return time_.StarDate();
}

std::optional<StarDay> ModuleDates::FindDay(int kind, const DateFields& fields, StarDay estimate, int radius) {
    for (int distance = 0; distance <= radius; ++distance) {
        for (const StarDay day : {estimate - distance, estimate + distance}) {
            const DateFields found = DateOf(kind, day);
            if (found.year == fields.year && found.month == fields.month && found.day == fields.day) return day;
            if (distance == 0) break;
        }
    }
    return std::nullopt;
}

double ModuleDates::EpochOf(int kind) { return StarDateOf(kind, DateFields{1, 1, 1}); }

}  // namespace timetool
