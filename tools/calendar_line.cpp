#include "calendar_line.h"

#include <cmath>

#include "text_format.h"

namespace timetool {

namespace {

constexpr const char* kBeforeHebrewEpoch = "before the Hebrew epoch (1 Tishri 1 = 7 October 3761 BC)";
constexpr const char* kBeyondYears = "year outside -32767 to 32767";

bool SameFields(const DateFields& a, const DateFields& b) {
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

// The date of a day as this line's calendar gives it: true or the module's.
std::optional<CivilDate> DateOfDay(ModuleDates& dates, int kind, StarDay day) {
    if (!IsShownDay(day)) return std::nullopt;
    if (HasTrueCalendar(kind)) return TrueDateOfDay(kind, day);
    return AstronomicalDate(dates.DateOf(kind, day));
}

// Why the module's own calendar cannot show the day: the mean Hebrew
// calendar follows the Hebrew years, Adam and Generic the Gregorian ones
// from their registry epoch.
std::string ModuleCalendarRange(ModuleDates& dates, int kind, StarDay day) {
    if (kind == 3) {
        const std::optional<CivilDate> hebrew = HebrewOfDay(day);
        if (!hebrew) return kBeforeHebrewEpoch;
        return hebrew->year >= kMaxYear ? kBeyondYears : "";
    }
    const double shift = dates.EpochOf(kind) - 3.0;  // 1 January AD 1 Gregorian is day 3
    if (!std::isfinite(shift) || std::fabs(shift) > 1.0e7) return kBeyondYears;
    const StarDay gregorianDay = day - static_cast<StarDay>(std::floor(shift));
    return IsShownDay(gregorianDay) ? "" : kBeyondYears;
}

}  // namespace

CalendarLine DescribeCalendarDay(ModuleDates& dates, int kind, StarDay day) {
    CalendarLine line;
    line.kind = kind;
    line.moduleCalendar = !HasTrueCalendar(kind);
    line.module = dates.DateOf(kind, day);
    if (line.moduleCalendar) {
        line.reason = ModuleCalendarRange(dates, kind, day);
        if (line.reason.empty()) line.date = AstronomicalDate(line.module);
    } else {
        line.date = TrueDateOfDay(kind, day);
        if (!line.date) line.reason = kind == 4 && day < kHebrewEpochStarDay ? kBeforeHebrewEpoch : kBeyondYears;
    }
    if (!line.date) return line;
    line.getDateDiffers = !SameFields(line.module, ModuleFields(*line.date));
    line.moduleStarDate = dates.StarDateOf(kind, ModuleFields(*line.date));
    const double landing = std::floor(*line.moduleStarDate);
    line.setDateDiffers = landing != static_cast<double>(day);
    if (line.setDateDiffers && std::fabs(landing) <= 1.0e8) {
        line.setDateLanding = DateOfDay(dates, kind, static_cast<StarDay>(landing));
    }
    return line;
}

std::string CalendarLineText(const CalendarLine& line) {
    if (!line.date) return "out of range: " + line.reason;
    std::string text = FormatDateText(line.kind, line.date->year, line.date->month, line.date->day);
    std::string notes;
    const auto note = [&notes](const std::string& more) { notes += (notes.empty() ? "" : "; ") + more; };
    if (line.moduleCalendar) note("the module's own calendar");
    if (line.getDateDiffers) {
        const CivilDate module = AstronomicalDate(line.module);
        note("module's GetDate: " + FormatDateText(line.kind, module.year, module.month, module.day));
    }
    if (line.setDateDiffers) {
        note("module's SetDate of it lands on " +
             (line.setDateLanding ? FormatDateText(line.kind, line.setDateLanding->year, line.setDateLanding->month,
                                                   line.setDateLanding->day)
                                  : "star date " + FormatFixed(*line.moduleStarDate, 0)));
    }
    return notes.empty() ? text : text + " (" + notes + ")";
}

}  // namespace timetool
