// The folder form of a parameter collection: one named binary value per
// entry, named "Parameter:" followed by the entry's name, holding the value's
// byte form (parameter_values.h), in the collection's order.
#pragma once

#include "framework_interfaces.h"
#include "hostkit/streams/parameter_entry.h"

namespace kit::streams {

// Removes the stream's earlier "Parameter:" values, then writes one value per
// entry. E_INVALIDARG (nothing written) when a name cannot name a value.
HRESULT SaveParametersFolder(const ParameterEntries& entries, IFolderStream* stream);

// Reads every "Parameter:" value in the stream's order. kE_StreamCorrupt
// when one is not a valid value; *entries is written only on success.
HRESULT LoadParametersFolder(IFolderStream* stream, ParameterEntries* entries);

}  // namespace kit::streams
