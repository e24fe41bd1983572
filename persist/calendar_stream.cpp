// Save and Load of a calendar's date record.
#include "calendar/calendar_classes.h"

HRESULT CBaseCalendar::Save(IDataStream* /*stream*/, int /*flags*/) { return E_NOTIMPL; }
HRESULT CBaseCalendar::Load(IDataStream* /*stream*/, int /*flags*/) { return E_NOTIMPL; }
