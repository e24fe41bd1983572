// Conversions between text, numbers and framework variants.
#pragma once

#include "com_types.h"
#include "framework/ref_string.h"
#include "framework_interfaces.h"

// A new text object holding a copy of `text` (empty for null); null when no
// string service is available.
IString* ISCreate(const wchar_t* text);
// The value's text in the given format (decimals when 0 or more, -1 automatic,
// -16 colour, other negative values a byte in binary); null for a null variant.
IString* ISCreate(IVariant* value, short format);
// The value's text: a text variant's own text, numbers as with format -1, an
// object's component name; null for a null variant.
IString* ISCreate(IVariant* value);
// A new variant holding the integer; null when no variant service is available.
IVariant* IVCreate(int value);

// Parsers never fail: unreadable text gives 0 or the value read so far.
int _IS2Integer(CREFString text, int base);
double _IS2Double(CREFString text);

// Bounded wide formatting; always terminates the buffer (when capacity > 0)
// and returns the number of characters written.
int _swprintf(wchar_t* buffer, unsigned long capacity, const wchar_t* format, ...);
