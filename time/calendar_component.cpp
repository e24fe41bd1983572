#include "time/calendar_component.h"

#include <cmath>

#include "base/counted_text.h"
#include "time/calendar_kinds.h"
#include "time/clock.h"
#include "time/date_normalisation.h"
#include "time/elapsed_time.h"
#include "time/linux_epoch.h"
#include "time/truncation.h"

template <>
const tagREFString IObjectInfoImpl<CCalendar>::m_ObjectName = CountedText(L"Time");

namespace {

const InterfaceMapEntry<CCalendar> kCalendarInterfaces[] = {
    {&IID_IUnknown, [](CCalendar* c) -> IUnknown* { return static_cast<CObject<CCalendar>*>(c); }},
    {&IID_IObjectInfo, [](CCalendar* c) -> IUnknown* { return static_cast<IObjectInfo*>(c); }},
    {&IID_IDataPersist, [](CCalendar* c) -> IUnknown* { return static_cast<IDataPersist*>(c); }},
    {&IID_IParametricObject, [](CCalendar* c) -> IUnknown* { return static_cast<IParametricObject*>(c); }},
    {&IID_ITime, [](CCalendar* c) -> IUnknown* { return static_cast<ITime*>(c); }},
    {&IID_IUIPropertyPageSpecify, [](CCalendar* c) -> IUnknown* { return static_cast<IUIPropertyPageSpecify*>(c); }},
};

}  // namespace

HRESULT CCalendar::QueryInterface(const IID& iid, void** out) {
    return QueryInterfaceFromMap(this, kCalendarInterfaces, iid, out);
}

HRESULT CCalendar::GetDate(short* day, short* month, short* year) {
    if (day) *day = m_dateTime.Day;
    if (month) *month = m_dateTime.Month;
    if (year) *year = m_dateTime.Year;
    return S_OK;
}

HRESULT CCalendar::GetTime(short* hour, short* minute, double* second) {
    if (hour) *hour = m_dateTime.Hour;
    if (minute) *minute = m_dateTime.Minute;
    if (second) *second = m_dateTime.Second;
    return S_OK;
}

// The date fields are not touched: an out-of-range date stays as set while
// the star date follows arithmetically.
HRESULT CCalendar::UpdateStarDate() {
    m_sunrise = -1.0;
    m_sunset = -1.0;
    m_moonPhase = -1.0;
    m_starDate = StarDateOf(m_kind, &m_dateTime);
    return S_OK;
}

HRESULT CCalendar::SetDate(short day, short month, short year) {
    if (DateCannotCarry(m_kind, day, month)) {
        m_dateTime.Day = day;
        m_dateTime.Month = month;
        m_dateTime.Year = year;
    } else {
        CarryDate(m_kind, day, month, year, m_dateTime);
    }
    return UpdateStarDate();
}

HRESULT CCalendar::SetTime(short hour, short minute, double second) {
    m_dateTime.Hour = hour;
    m_dateTime.Minute = minute;
    m_dateTime.Second = static_cast<float>(second);
    return UpdateStarDate();
}

// The fields hold a Gregorian date afterwards whatever the kind, until the
// next put_Calendar, and the caches are left as they were; callers rely on both.
HRESULT CCalendar::Reset(short utc) {
    if (!ReadClock(utc != 0, m_dateTime)) return E_FAIL;
    m_starDate = GregorianToJDN(&m_dateTime);
    return S_OK;
}

HRESULT CCalendar::GetElapsedTime(double* seconds, short utc) {
    tagDATETIME now;
    if (!ReadClock(utc != 0, now)) return E_FAIL;
    if (!seconds) return S_OK;
    *seconds = ElapsedSeconds(m_dateTime, now);
    return S_OK;
}

// 0 Sunday .. 6 Saturday; the weekday field is not consulted.
std::int32_t CCalendar::GetDayOfWeek() {
    const std::int32_t day = TruncateToInt32(std::floor(m_starDate));
    const auto shifted = static_cast<std::int32_t>(static_cast<std::uint32_t>(day) - 2u);
    const std::int32_t weekday = shifted % 7;
    return weekday < 0 ? weekday + 7 : weekday;
}

HRESULT CCalendar::GetInfo(short* daysInMonth, short* monthsInYear, short* daysInYear, short* yearAdjust) {
    const CalendarInfo info = ComputeCalendarInfo(m_kind, m_dateTime);
    if (yearAdjust) *yearAdjust = info.yearAdjust;
    if (daysInMonth) *daysInMonth = info.daysInMonth;
    if (monthsInYear) *monthsInYear = info.monthsInYear;
    if (daysInYear) *daysInYear = info.daysInYear;
    return S_OK;
}

double CCalendar::GetCalendarDays() { return CalendarKindOf(m_kind).calendarDays(m_dateTime); }

// Kept for compatibility: the elapsed-day setter runs on a scratch copy that
// is discarded, so nothing changes.
HRESULT CCalendar::SetCalendarDays(double days) {
    CalendarKindOf(m_kind).setCalendarDaysOnCopy(m_dateTime, days);
    return S_OK;
}

// The instant is kept across a switch: only its expression changes.
HRESULT CCalendar::put_Calendar(std::int32_t kind) {
    m_kind = kind;
    m_sunrise = -1.0;
    m_sunset = -1.0;
    m_moonPhase = -1.0;
    DateOfStarDate(m_kind, m_starDate, &m_dateTime);
    return S_OK;
}

std::int32_t CCalendar::get_Calendar() { return m_kind; }

// The star date is taken as UTC in both directions.
HRESULT CCalendar::get_LinuxTime(double* seconds) {
    if (!seconds) return E_POINTER;
    if (std::fabs(m_starDate) > 4294967295.0) return E_FAIL;
    *seconds = (m_starDate - LinuxEpochStarDate()) * 86400.0;
    return S_OK;
}

HRESULT CCalendar::put_LinuxTime(double seconds) {
    m_starDate = seconds / 86400.0 + LinuxEpochStarDate();
    return put_Calendar(m_kind);
}

// No time-zone offset is kept or applied anywhere; both operations are kept
// for compatibility with existing clients.
HRESULT CCalendar::put_GMTOffset(double) { return S_OK; }
HRESULT CCalendar::get_GMTOffset(double*) { return S_OK; }
