// The star date operations of the Time component.
#include "time/calendar_component.h"
#include "time/calendar_kinds.h"

namespace {

// Julian Date of 00:00, 1 January of year 1 (Julian calendar), where the star
// date is 1.0.
constexpr double kJulianDateOfDayOne = 1721423.5;

}  // namespace

// Any non-zero mode means a Julian Date.
HRESULT CCalendar::put_StarDate(std::int32_t mode, double value) {
    if (mode != 0) value = (value - kJulianDateOfDayOne) + 1.0;
    m_starDate = value;
    return put_Calendar(m_kind);
}

HRESULT CCalendar::get_StarDate(std::int32_t mode, double* value) {
    if (!value) return E_POINTER;
    *value = mode != 0 ? (kJulianDateOfDayOne + m_starDate) - 1.0 : m_starDate;
    return S_OK;
}
