// The seven fields of a date-time record as XML elements inside "DATETIME" or
// as named binary values of a folder stream. Shared by the calendar classes
// and CDateTimer, which store their dates the same way.
#pragma once

#include "calendar/datetime.h"
#include "com_types.h"
#include "framework_interfaces.h"

// An XML stream gets the elements WeekDay, Day, Month, Year, Hour, Minute,
// Second inside "DATETIME"; otherwise a folder stream gets Day .. Minute
// (2 bytes each) and Second (4 bytes); any other or a null stream gets
// nothing. Always S_OK; exceptions of framework objects pass on after every
// reference is released.
HRESULT SaveDateTime(const tagDATETIME& record, IDataStream* stream);

// Reads the elements found anywhere in an XML stream's text, then the binary
// values of a folder stream, so a stream offering both ends with the binary
// values. Fields not found keep their values; nothing derived is recomputed.
// Always S_OK.
HRESULT LoadDateTime(tagDATETIME& record, IDataStream* stream);
