// CDateTimer's date-time fields to and from a framework stream. Placeholder
// until the stream format is written.
#include "time/date_timer.h"

HRESULT CDateTimer::Save(IDataStream*, std::int32_t) { return E_NOTIMPL; }
HRESULT CDateTimer::Load(IDataStream*, std::int32_t) { return E_NOTIMPL; }
