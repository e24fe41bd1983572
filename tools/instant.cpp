#include "instant.h"

#include <cmath>

#include "sky/moon_phase.h"
#include "sky/moon_quarters.h"

namespace timetool {

namespace {

// Events come to the nearest second through the one conversion every clock
// time takes, from the star date.
SunEventReport DescribeSunEvent(const sky::SunEvent& event) {
    SunEventReport report;
    report.absence = event.absence;
    if (event.Happens()) report.instant = SplitStarDate(sky::StarDateFromJulianDate(event.julianDate));
    return report;
}

ModuleSunReport DescribeModuleSun(const ModuleSession& session, double starDate, const Location& location) {
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(starDate);
    time.SetLocation(location.latitude, -location.longitude);
    ModuleSunReport module;
    time.SunTimes(&module.sunriseDays, &module.sunsetDays);

    // The module counts both from noon of 1 January of its year field.
    TimeObject noon(session);
    noon.SetKind(0);
    noon.SetDate(1, 1, time.Date().year);
    noon.SetTime(12, 0, 0.0);
    module.j0 = noon.StarDate();
    return module;
}

}  // namespace

SunReport DescribeSun(const ModuleSession& session, double starDate, const Location& location) {
    SunReport sun;
    sun.day = SplitStarDate(starDate).day;
    const sky::SunDay events =
        sky::SunDayAt(sun.day - kUnixEpochStarDay, sky::Place{location.latitude, location.longitude});
    sun.sunrise = DescribeSunEvent(events.horizon.rise);
    sun.sunset = DescribeSunEvent(events.horizon.set);
    sun.civilDawn = DescribeSunEvent(events.civil.rise);
    sun.civilDusk = DescribeSunEvent(events.civil.set);
    sun.module = DescribeModuleSun(session, starDate, location);
    return sun;
}

MoonReport DescribeMoon(const ModuleSession& session, double starDate) {
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(starDate);
    MoonReport moon;
    moon.instant = SplitStarDate(starDate);
    moon.modulePhase = time.MoonPhase();

    const double julianDate = sky::JulianDateFromStarDate(starDate);
    const sky::MoonPhase phase = sky::MoonPhaseAt(julianDate);
    moon.phase = phase.angle;
    moon.illuminated = phase.illuminated;
    // A quarter within half a day either side names the instant.
    const sky::MoonQuarterEvent quarter = sky::NextMoonQuarter(julianDate - 0.5);
    std::optional<int> near;
    if (quarter.julianDate < julianDate + 0.5) near = static_cast<int>(quarter.quarter);
    moon.name = NameMoonPhase(moon.phase, near);
    return moon;
}

std::vector<std::optional<DayQuarter>> QuartersOfDays(StarDay first, std::size_t count) {
    std::vector<std::optional<DayQuarter>> days(count);
    const double from = sky::JulianDateFromStarDate(static_cast<double>(first));
    for (const sky::MoonQuarterEvent& event : sky::MoonQuartersBetween(from, from + static_cast<double>(count))) {
        const ExactInstant instant = SplitStarDate(sky::StarDateFromJulianDate(event.julianDate));
        const StarDay offset = instant.day - first;
        // An event in the last half second of the range rounds into the next day.
        if (offset < 0 || offset >= static_cast<StarDay>(count)) continue;
        days[static_cast<std::size_t>(offset)] = DayQuarter{static_cast<int>(event.quarter), instant};
    }
    return days;
}

InstantReport DescribeInstant(ModuleDates& dates, double starDate, const std::vector<int>& kinds,
                              const Location& location) {
    InstantReport report;
    TimeObject time(dates.session());
    time.SetKind(0);
    time.SetStarDate(starDate);
    report.starDate = time.StarDate();
    report.julianDate = time.JulianDate();
    report.linuxTime = time.LinuxTime();
    report.instant = SplitStarDate(starDate);
    report.weekday = WeekdayOfDay(report.instant.day);
    for (int kind : kinds) report.calendars.push_back(DescribeCalendarDay(dates, kind, report.instant.day));
    report.location = location;
    report.sun = DescribeSun(dates.session(), starDate, location);
    report.moon = DescribeMoon(dates.session(), starDate);
    return report;
}

}  // namespace timetool
