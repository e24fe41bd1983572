#include "instant.h"

#include <cmath>

namespace timetool {

namespace {

SunEventReport DescribeSunEvent(double j0, double days) {
    SunEventReport event;
    event.starDate = j0 + days;
    event.instant = SplitStarDate(event.starDate);
    event.shown = std::isfinite(event.starDate) && IsShownDay(event.instant.day);
    return event;
}

}  // namespace

SunReport DescribeSun(const ModuleSession& session, double starDate, const Location& location) {
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(starDate);
    time.SetLocation(location.latitude, -location.longitude);
    SunReport sun;
    time.SunTimes(&sun.sunriseDays, &sun.sunsetDays);

    // The module counts both times from noon of 1 January of its year field.
    TimeObject noon(session);
    noon.SetKind(0);
    noon.SetDate(1, 1, time.Date().year);
    noon.SetTime(12, 0, 0.0);
    sun.j0 = noon.StarDate();

    if (!std::isfinite(sun.sunriseDays) || !std::isfinite(sun.sunsetDays)) {
        sun.absence = ClassifySunAbsence(location.latitude, starDate);
        return sun;
    }
    sun.sunrise = DescribeSunEvent(sun.j0, sun.sunriseDays);
    sun.sunset = DescribeSunEvent(sun.j0, sun.sunsetDays);
    return sun;
}

MoonReport DescribeMoon(const ModuleSession& session, double starDate) {
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(starDate);
    MoonReport moon;
    moon.phase = time.MoonPhase();
    moon.name = NameMoonPhase(moon.phase);
    return moon;
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
