// Exact text and byte forms of parameter values, shared by the XML and the
// folder forms of a saved parameter collection.
#pragma once

#include <string>
#include <string_view>

#include "hostkit/streams/parameter_entry.h"

namespace kit::streams {

// The value as text: integers in decimal, doubles in the shortest form that
// reads back to the same bits ("30.5", "nan", "-inf"), text as it is.
std::wstring ValueText(const ParameterEntry& entry);

// Reads the value of an entry of the given kind from its text; false when the
// whole text is not a value of that kind (an empty entry needs empty text).
bool ValueFromText(ParameterKind kind, std::wstring_view text, ParameterEntry* entry);

// The value as bytes: one kind byte, then little-endian payload (int32,
// IEEE double, or the text's 32-bit code units).
std::string ValueBytes(const ParameterEntry& entry);

// Reads kind and value from bytes; false for an unknown kind or a payload of
// the wrong size.
bool ValueFromBytes(std::string_view bytes, ParameterEntry* entry);

}  // namespace kit::streams
