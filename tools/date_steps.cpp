#include "date_steps.h"

#include <cmath>

#include "text_format.h"
#include "when_reader.h"

namespace timetool {

namespace {

constexpr const char* kOutOfRange = "the result is outside the years timetool shows (Gregorian -32767 to 32767)";

// 1 January AD 1 of the Gregorian calendar is star day 3.
constexpr double kGregorianEpochStarDay = 3.0;

}  // namespace

std::optional<StarDay> GregorianShift(ModuleDates& dates, int kind) {
    if (kind != 5 && kind != 6) return StarDay{0};
    const double shift = dates.EpochOf(kind) - kGregorianEpochStarDay;
    if (!std::isfinite(shift) || std::fabs(shift) > kMaxStarDate) return std::nullopt;
    return static_cast<StarDay>(std::floor(shift));
}

double ApplyDateSteps(ModuleDates& dates, const std::string& text, double starDate, int kind,
                      const std::vector<DateStep>& steps) {
    const ExactInstant start = SplitStarDate(starDate);
    const double timeOfDay = starDate - static_cast<double>(start.day);
    StarDay day = start.day;
    for (const DateStep& step : steps) {
        const bool calendarStep = step.unit == StepUnit::Month || step.unit == StepUnit::Year;
        if (calendarStep && !CountsMonths(kind)) {
            RefuseWhen(text,
                       "the module's mean Hebrew calendar (hebrew1) counts no months or years here: step by "
                       "days or weeks, or read the date with --from hebrew");
        }
        const std::optional<StarDay> shift = calendarStep ? GregorianShift(dates, kind) : StarDay{0};
        if (!shift) RefuseWhen(text, kOutOfRange);
        const std::optional<StarDay> moved = StepDay(kind, day - *shift, step);
        if (!moved || !IsShownDay(*moved + *shift)) RefuseWhen(text, kOutOfRange);
        day = *moved + *shift;
    }
    return static_cast<double>(day) + timeOfDay;
}

}  // namespace timetool
