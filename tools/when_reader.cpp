#include "when_reader.h"

#include <cmath>

#include "calendar_kind.h"
#include "date_steps.h"
#include "quoted_text.h"
#include "text_format.h"
#include "tool_error.h"

namespace timetool {

namespace {

// How far the module's own calendars (3, 5, 6) are searched from the day
// their SetDate gives: the mean Hebrew conversion reads day and year only,
// so a month can lie up to a year away.
constexpr int kModuleSearchDays = 400;

constexpr const char* kOutOfRange = "outside the years timetool shows (Gregorian -32767 to 32767)";

double TimeOfDay(const CivilTime& civil) {
    return (civil.hour / 24.0 + civil.minute / 1440.0) + civil.second / 86400.0;
}

}  // namespace

void RefuseWhen(const std::string& text, const std::string& why) {
    throw ToolError{kExitBadInput, "timetool: bad WHEN " + QuoteArgument(text) + ": " + why};
}

WhenReader::WhenReader(ModuleDates& dates, std::string fixedNow, TimeZone zone)
    : dates_(dates), fixedNow_(std::move(fixedNow)), zone_(std::move(zone)) {}

bool WhenReader::ReadsAsUtc(const When& when) const {
    if (when.form != WhenForm::Civil || !when.civil.hasTime) return true;
    if (when.civil.basis == ClockBasis::Offset) return when.civil.offsetSeconds == 0;
    return when.civil.basis == ClockBasis::Utc || zone_.IsUtc();
}

double WhenReader::OnClock(const std::string& text, const CivilTime& civil, StarDay day) const {
    const double reading = static_cast<double>(day) + TimeOfDay(civil);
    if (!civil.hasTime || civil.basis == ClockBasis::Utc) return reading;
    if (civil.basis == ClockBasis::Offset) return reading - civil.offsetSeconds / 86400.0;
    if (zone_.IsUtc()) return reading;
    const int wholeSecond = static_cast<int>(civil.second);
    const LinuxSeconds clock = LinuxSecondsOf(ExactInstant{day, civil.hour * 3600 + civil.minute * 60 + wholeSecond});
    const LocalResolution resolved = zone_.Resolve(clock);
    if (!resolved.instant) {
        RefuseWhen(text, "this clock time does not occur in " + zone_.name() + ": the clocks went from UTC" +
                             FormatUtcOffset(resolved.offsetBefore) + " to UTC" +
                             FormatUtcOffset(resolved.offsetAfter));
    }
    return reading - static_cast<double>(clock - *resolved.instant) / 86400.0;
}

double WhenReader::Now() {
    if (!fixedNow_.empty() && fixedNow_ != "now" && fixedNow_ != "today") {
        const WhenParse parsed = ParseWhen(fixedNow_);
        if (!parsed.when) {
            throw ToolError{kExitBadInput, "timetool: bad --now " + QuoteArgument(fixedNow_) + ": " + parsed.error};
        }
        return StarDate(fixedNow_, *parsed.when, 0);
    }
    TimeObject time(dates_.session());
    time.ResetToNow();
    return time.StarDate();
}

double WhenReader::StarDate(const std::string& text, int kind) {
    const WhenParse parsed = ParseWhen(text);
    if (!parsed.when) RefuseWhen(text, parsed.error);
    return StarDate(text, *parsed.when, kind);
}

StarDay WhenReader::DayOfCivil(const std::string& text, int kind, const CivilDate& date) {
    const std::string title(CalendarKindInfo(kind).title);
    if (kind == 0 || kind == 1 || kind == 2) {
        // The module's conversions are exact for AD years; before AD 1 they
        // shift by a day, and the date library stands in.
        const bool julianRules = kind == 1 || (kind == 2 && DayOfWestern(date) < kWesternReformStarDay);
        if (date.year < 1) return DayOfTrueDate(kind, date);
        return static_cast<StarDay>(std::floor(dates_.StarDateOf(julianRules ? 1 : 0, ModuleFields(date))));
    }
    if (kind == 4) {
        // The module's day-to-date conversion is exact: it confirms the day.
        const StarDay day = DayOfHebrew(date);
        if (!IsShownDay(day)) RefuseWhen(text, kOutOfRange);
        const std::optional<StarDay> found = dates_.FindDay(4, ModuleFields(date), day, kModuleSearchDays);
        if (!found) RefuseWhen(text, "the module has no day for this Hebrew date");
        return *found;
    }
    // The module's own calendars: the day whose module date is the one given.
    const DateFields fields = ModuleFields(date);
    const double estimate = dates_.StarDateOf(kind, fields);
    if (!std::isfinite(estimate) || std::fabs(estimate) > kMaxStarDate) RefuseWhen(text, kOutOfRange);
    const std::optional<StarDay> found =
        dates_.FindDay(kind, fields, static_cast<StarDay>(std::floor(estimate)), kModuleSearchDays);
    if (!found) RefuseWhen(text, "the module's " + title + " calendar has no such date");
    return *found;
}

double WhenReader::StarDate(const std::string& text, const When& when, int kind) {
    double starDate = 0.0;
    switch (when.form) {
        case WhenForm::Now:
            starDate = Now();
            break;
        case WhenForm::Today:
            starDate = static_cast<double>(zone_.Localise(SplitStarDate(Now())).local.day);
            break;
        case WhenForm::StarDate:
        case WhenForm::JulianDate:
        case WhenForm::LinuxTime: {
            TimeObject time(dates_.session());
            if (when.form == WhenForm::StarDate) time.SetStarDate(when.value);
            if (when.form == WhenForm::JulianDate) time.SetJulianDate(when.value);
            if (when.form == WhenForm::LinuxTime) time.SetLinuxTime(when.value);
            starDate = time.StarDate();
            break;
        }
        case WhenForm::Civil: {
            const CivilCheck check = CheckCivilDate(kind, when.civil);
            if (!check.date) RefuseWhen(text, check.error);
            if (HasTrueCalendar(kind) && kind != 4) {
                // The date library's range ends before the Julian calendar's does.
                const StarDay day = DayOfTrueDate(kind, *check.date);
                if (!IsShownDay(day)) RefuseWhen(text, kOutOfRange);
            }
            starDate = OnClock(text, when.civil, DayOfCivil(text, kind, *check.date));
            break;
        }
    }
    if (!IsShownDay(SplitStarDate(starDate).day)) RefuseWhen(text, kOutOfRange);
    if (!when.steps.empty()) starDate = ApplyDateSteps(dates_, text, starDate, kind, when.steps);
    return starDate;
}

}  // namespace timetool
