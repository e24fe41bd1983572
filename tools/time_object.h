// One "Time" component of the module, with every ITime call checked: a
// failing call stops the command with the operation's name.
#pragma once

#include <optional>

#include "module_session.h"

namespace timetool {

struct DateFields {
    int year = 0;
    int month = 0;
    int day = 0;
};

struct CalendarInfo {
    int daysInMonth = 0;
    int monthsInYear = 0;
    int daysInYear = 0;
};

class TimeObject {
public:
    explicit TimeObject(const ModuleSession& session);

    ITime* get() const { return time_.get(); }
    IUnknown* unknown() const { return time_.get(); }

    void ResetToNow();  // the system clock in UTC
    void SetKind(int kind);
    int Kind() const;
    void SetStarDate(double starDate);
    void SetJulianDate(double julianDate);
    void SetLinuxTime(double seconds);
    void SetDate(int day, int month, int year);
    void SetTime(int hour, int minute, double second);

    double StarDate() const;
    double JulianDate() const;
    std::optional<double> LinuxTime() const;  // nothing when out of the module's range
    DateFields Date() const;
    // Hour, minute and second fields as the object holds them.
    void Time(int* hour, int* minute, double* second) const;
    int DayOfWeek() const;
    CalendarInfo Info() const;
    double CalendarDays() const;

    // Latitude north-positive, longitude in the module's west-positive form.
    void SetLocation(double latitudeNorth, double longitudeWest);
    // Days counted from noon of 1 January of the current year's field.
    void SunTimes(double* sunrise, double* sunset) const;
    float MoonPhase() const;

private:
    SmartPtr<ITime> time_;
};

}  // namespace timetool
