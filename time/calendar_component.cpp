#include "time/calendar_component.h"

template <>
const tagREFString IObjectInfoImpl<CCalendar>::m_ObjectName{4, L"Time"};

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

HRESULT CCalendar::GetDate(short*, short*, short*) { return E_NOTIMPL; }
HRESULT CCalendar::GetTime(short*, short*, double*) { return E_NOTIMPL; }
HRESULT CCalendar::SetDate(short, short, short) { return E_NOTIMPL; }
HRESULT CCalendar::SetTime(short, short, double) { return E_NOTIMPL; }
HRESULT CCalendar::Reset(short) { return E_NOTIMPL; }
HRESULT CCalendar::GetElapsedTime(double*, short) { return E_NOTIMPL; }
std::int32_t CCalendar::GetDayOfWeek() { return 0; }
HRESULT CCalendar::GetInfo(short*, short*, short*, short*) { return E_NOTIMPL; }
double CCalendar::GetCalendarDays() { return 0.0; }
HRESULT CCalendar::SetCalendarDays(double) { return E_NOTIMPL; }
HRESULT CCalendar::put_StarDate(std::int32_t, double) { return E_NOTIMPL; }
HRESULT CCalendar::get_StarDate(std::int32_t, double*) { return E_NOTIMPL; }
HRESULT CCalendar::UpdateStarDate() { return E_NOTIMPL; }
HRESULT CCalendar::put_Calendar(std::int32_t) { return E_NOTIMPL; }
std::int32_t CCalendar::get_Calendar() { return m_kind; }
HRESULT CCalendar::get_LinuxTime(double*) { return E_NOTIMPL; }
HRESULT CCalendar::put_LinuxTime(double) { return E_NOTIMPL; }
HRESULT CCalendar::get_SunTimes(double*, double*) { return E_NOTIMPL; }
HRESULT CCalendar::get_MoonPhase(float*) { return E_NOTIMPL; }
HRESULT CCalendar::put_location(double, double) { return E_NOTIMPL; }
HRESULT CCalendar::get_location(double*, double*) { return E_NOTIMPL; }
HRESULT CCalendar::put_GMTOffset(double) { return E_NOTIMPL; }
HRESULT CCalendar::get_GMTOffset(double*) { return E_NOTIMPL; }
