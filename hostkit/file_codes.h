// The result codes that hosts see for the outcomes of the kit's file layer.
#pragma once

#include "com_types.h"
#include "hostkit/file_outcome.h"

namespace kit {

enum class FileDirection { kRead, kWrite };

// For the streams' LoadFromFile and SaveToFile (codes in
// streams/stream_results.h). A folder at the path is kE_AccessDenied, as it
// always was for hosts; a device, FIFO or socket is kE_ReadFault when loading
// and kE_NotRegularFile when saving.
HRESULT StreamFileCode(const FileOutcome& outcome, FileDirection direction);

// For the registry's SetValue (codes in registry.h): a full disk, a device,
// FIFO, socket or folder in the file's place and a circle of links have codes
// of their own, every other failure is kRegistryWriteFailed.
HRESULT RegistryWriteCode(const FileOutcome& outcome);

}  // namespace kit
