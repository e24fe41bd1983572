#include "instant.h"

#include <cmath>

namespace timetool {

namespace {

// Kinds whose date-to-day-number conversion includes the time of day.
bool ConversionKeepsTime(int kind) { return kind == 0 || kind == 2; }

SunEventReport DescribeSunEvent(const ModuleSession& session, double j0, double days) {
    SunEventReport event;
    event.starDate = j0 + days;
    event.date = GregorianDateOf(session, event.starDate);
    event.clock = ClockOfStarDate(event.starDate);
    return event;
}

}  // namespace

double StarDateOfWhen(const ModuleSession& session, const When& when, int kind) {
    TimeObject time(session);
    time.SetKind(kind);
    switch (when.form) {
        case WhenForm::Now:
            time.ResetToNow();
            return time.StarDate();
        case WhenForm::Today:
            time.ResetToNow();
            return std::floor(time.StarDate());
        case WhenForm::StarDate:
            time.SetStarDate(when.value);
            return time.StarDate();
        case WhenForm::JulianDate:
            time.SetJulianDate(when.value);
            return time.StarDate();
        case WhenForm::LinuxTime:
            time.SetLinuxTime(when.value);
            return time.StarDate();
        case WhenForm::Civil:
            break;
    }
    const CivilTime& civil = when.civil;
    time.SetDate(civil.day, civil.month, civil.year);
    if (ConversionKeepsTime(kind)) {
        time.SetTime(civil.hour, civil.minute, civil.second);
        return time.StarDate();
    }
    time.SetTime(0, 0, 0.0);
    return time.StarDate() + ((civil.hour / 24.0 + civil.minute / 1440.0) + civil.second / 86400.0);
}

DateFields GregorianDateOf(const ModuleSession& session, double starDate) {
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(std::floor(starDate));
    return time.Date();
}

SunReport DescribeSun(const ModuleSession& session, double starDate, const Location& location) {
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(starDate);
    time.SetLocation(location.latitude, -location.longitude);
    SunReport sun;
    time.SunTimes(&sun.sunriseDays, &sun.sunsetDays);

    // The module counts both times from noon of 1 January of the year field.
    TimeObject noon(session);
    noon.SetKind(0);
    noon.SetDate(1, 1, time.Date().year);
    noon.SetTime(12, 0, 0.0);
    sun.j0 = noon.StarDate();

    if (!std::isfinite(sun.sunriseDays) || !std::isfinite(sun.sunsetDays)) {
        sun.absence = ClassifySunAbsence(location.latitude, starDate);
        return sun;
    }
    sun.sunrise = DescribeSunEvent(session, sun.j0, sun.sunriseDays);
    sun.sunset = DescribeSunEvent(session, sun.j0, sun.sunsetDays);
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

InstantReport DescribeInstant(const ModuleSession& session, double starDate, const std::vector<int>& kinds,
                              const Location& location) {
    InstantReport report;
    TimeObject time(session);
    time.SetKind(0);
    time.SetStarDate(starDate);
    report.starDate = time.StarDate();
    report.julianDate = time.JulianDate();
    report.linuxTime = time.LinuxTime();
    report.weekday = time.DayOfWeek();
    report.clock = ClockOfStarDate(starDate);
    // Dates are those of the day holding the instant; the module would count
    // a negative fractional star date towards zero, a day later.
    time.SetStarDate(std::floor(starDate));
    report.gregorian = time.Date();
    for (int kind : kinds) {
        time.SetKind(kind);
        report.calendars.push_back(KindDate{kind, time.Date()});
    }
    report.location = location;
    report.sun = DescribeSun(session, starDate, location);
    report.moon = DescribeMoon(session, starDate);
    return report;
}

}  // namespace timetool
