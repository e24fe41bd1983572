// Save and Load of a calendar's date record.
#include "calendar/calendar_classes.h"
#include "persist/datetime_stream.h"

// The integer argument is accepted for the stream interface's shape and ignored.
HRESULT CBaseCalendar::Save(IDataStream* stream, int /*flags*/) { return SaveDateTime(*this, stream); }
HRESULT CBaseCalendar::Load(IDataStream* stream, int /*flags*/) { return LoadDateTime(*this, stream); }
