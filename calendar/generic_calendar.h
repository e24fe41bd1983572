// Conversions of the registry-defined calendars "SDAdam" and "SDGeneric".
// Each call builds the calendar anew, so a registry change takes effect on
// the next call.
#pragma once

#include "calendar/datetime.h"
#include "com_types.h"

// Whole days; the time fields are ignored.
double AdamToJDN(const tagDATETIME* date);
// Writes Day, Month, Year only; always 0.
HRESULT JDNtoAdam(double jdn, tagDATETIME* out);
double GenericToJDN(const tagDATETIME* date);
HRESULT JDNtoGeneric(double jdn, tagDATETIME* out);
