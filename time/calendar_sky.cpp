// Sunrise, sunset and moon phase of the Time component.
#include "time/calendar_component.h"
#include "time/conversions.h"
#include "time/moon_phase.h"
#include "time/sun_times.h"

namespace {

// Star date of 1 January 2000 00:00, the origin of the mean new moons.
constexpr double kMoonReference = cal::GregorianDayNumber(tagDATETIME{1, 1, 2000, 0, 0, 0.0f, 0});

}  // namespace

HRESULT CCalendar::put_location(double latitude, double longitude) {
    m_latitude = latitude;
    m_longitude = longitude;
    m_sunrise = -1.0;
    m_sunset = -1.0;
    return S_OK;
}

HRESULT CCalendar::get_location(double* latitude, double* longitude) {
    if (latitude) *latitude = m_latitude;
    if (longitude) *longitude = m_longitude;
    return S_OK;
}

// Days from noon of 1 January of the current year field, counted with
// Gregorian rules whatever the kind. The caches are read but never filled,
// so every call follows the current star date, year and location.
HRESULT CCalendar::get_SunTimes(double* sunrise, double* sunset) {
    double rise = m_sunrise;
    double set = m_sunset;
    if (m_sunrise == -1.0) {
        tagDATETIME newYearNoon;
        newYearNoon.Day = 1;
        newYearNoon.Month = 1;
        newYearNoon.Year = m_dateTime.Year;
        newYearNoon.Hour = 12;
        const SolarEvents events =
            ComputeSolarEvents(m_starDate, GregorianToJDN(&newYearNoon), m_longitude, m_latitude);
        rise = events.sunrise;
        set = events.sunset;
    }
    if (sunrise) *sunrise = rise;
    if (sunset) *sunset = set;
    return S_OK;
}

HRESULT CCalendar::get_MoonPhase(float* phase) {
    if (!phase) return E_POINTER;
    const double degrees = m_moonPhase != -1.0 ? m_moonPhase : MoonPhaseDegrees(m_starDate - kMoonReference);
    *phase = static_cast<float>(degrees);
    return S_OK;
}
