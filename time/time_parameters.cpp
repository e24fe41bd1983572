// The Time component's parameter set and property page.
#include "time/calendar_component.h"

HRESULT CCalendar::GetPages(std::int32_t, INamedCollection**, IUnknown**) { return E_NOTIMPL; }
HRESULT CCalendar::GetParameters(INamedCollection**, std::int32_t) { return E_NOTIMPL; }
HRESULT CCalendar::SetParameters(INamedCollection*) { return E_NOTIMPL; }
