// The XML form of a parameter collection:
//   <Parameters><Parameter><Name>n</Name><Type>t</Type><Value>v</Value></Parameter>...</Parameters>
// written through any stream's IXMLStream and read back from the stream's
// whole text (IString).
#pragma once

#include "framework_interfaces.h"
#include "hostkit/streams/parameter_entry.h"

namespace kit::streams {

// Checks every name and text first (E_INVALIDARG, nothing written, when one
// holds a character XML cannot carry), then writes the elements.
HRESULT SaveParametersXml(const ParameterEntries& entries, IXMLStream* stream);

// Reads the first "Parameters" element of text, wherever it stands.
// kE_StreamCorrupt or kE_StreamTruncated when the text is not well-formed
// or an entry is invalid, kE_NameNotFound when no such element exists;
// *entries is written only on success.
HRESULT LoadParametersXml(std::wstring_view text, ParameterEntries* entries);

}  // namespace kit::streams
