#include "time_object.h"

namespace timetool {

TimeObject::TimeObject(const ModuleSession& session) : time_(session.Create<ITime>(L"Time", InterfaceId("ITime"))) {}

void TimeObject::ResetToNow() { CheckModule(time_->Reset(1), "ITime::Reset"); }

void TimeObject::SetKind(int kind) { CheckModule(time_->put_Calendar(kind), "ITime::put_Calendar"); }

int TimeObject::Kind() const { return time_->get_Calendar(); }

void TimeObject::SetStarDate(double starDate) { CheckModule(time_->put_StarDate(0, starDate), "ITime::put_StarDate"); }

void TimeObject::SetJulianDate(double julianDate) {
    CheckModule(time_->put_StarDate(1, julianDate), "ITime::put_StarDate");
}

void TimeObject::SetLinuxTime(double seconds) { CheckModule(time_->put_LinuxTime(seconds), "ITime::put_LinuxTime"); }

void TimeObject::SetDate(int day, int month, int year) {
    CheckModule(time_->SetDate(static_cast<short>(day), static_cast<short>(month), static_cast<short>(year)),
                "ITime::SetDate");
}

void TimeObject::SetTime(int hour, int minute, double second) {
    CheckModule(time_->SetTime(static_cast<short>(hour), static_cast<short>(minute), second), "ITime::SetTime");
}

double TimeObject::StarDate() const {
    double value = 0.0;
    CheckModule(time_->get_StarDate(0, &value), "ITime::get_StarDate");
    return value;
}

double TimeObject::JulianDate() const {
    double value = 0.0;
    CheckModule(time_->get_StarDate(1, &value), "ITime::get_StarDate");
    return value;
}

std::optional<double> TimeObject::LinuxTime() const {
    double value = 0.0;
    const HRESULT hr = time_->get_LinuxTime(&value);
    if (hr == E_NOTIMPL) CheckModule(hr, "ITime::get_LinuxTime");
    if (FAILED(hr)) return std::nullopt;
    return value;
}

DateFields TimeObject::Date() const {
    short day = 0;
    short month = 0;
    short year = 0;
    CheckModule(time_->GetDate(&day, &month, &year), "ITime::GetDate");
    return DateFields{year, month, day};
}

void TimeObject::Time(int* hour, int* minute, double* second) const {
    short h = 0;
    short m = 0;
    CheckModule(time_->GetTime(&h, &m, second), "ITime::GetTime");
    *hour = h;
    *minute = m;
}

int TimeObject::DayOfWeek() const { return time_->GetDayOfWeek(); }

CalendarInfo TimeObject::Info() const {
    short daysInMonth = 0;
    short monthsInYear = 0;
    short daysInYear = 0;
    CheckModule(time_->GetInfo(&daysInMonth, &monthsInYear, &daysInYear, nullptr), "ITime::GetInfo");
    return CalendarInfo{daysInMonth, monthsInYear, daysInYear};
}

double TimeObject::CalendarDays() const { return time_->GetCalendarDays(); }

void TimeObject::SetLocation(double latitudeNorth, double longitudeWest) {
    CheckModule(time_->put_location(latitudeNorth, longitudeWest), "ITime::put_location");
}

void TimeObject::SunTimes(double* sunrise, double* sunset) const {
    CheckModule(time_->get_SunTimes(sunrise, sunset), "ITime::get_SunTimes");
}

float TimeObject::MoonPhase() const {
    float phase = 0.0f;
    CheckModule(time_->get_MoonPhase(&phase), "ITime::get_MoonPhase");
    return phase;
}

}  // namespace timetool
