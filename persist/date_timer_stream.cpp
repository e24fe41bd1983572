// Save and Load of a date timer's date record, in the calendars' format.
#include "persist/datetime_stream.h"
#include "time/date_timer.h"

// The integer argument is accepted for the stream interface's shape and ignored.
HRESULT CDateTimer::Save(IDataStream* stream, std::int32_t /*flags*/) { return SaveDateTime(*this, stream); }
HRESULT CDateTimer::Load(IDataStream* stream, std::int32_t /*flags*/) { return LoadDateTime(*this, stream); }
