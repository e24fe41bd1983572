// Whole-file reads and atomic whole-file writes for the streams' SaveToFile
// and LoadFromFile.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "com_types.h"

namespace kit::streams {

// The UTF-8 file name of a counted wide path. Length 0 or less, an embedded
// NUL or a unit that is not a scalar value is E_INVALIDARG; null characters
// with a positive length are E_POINTER.
HRESULT PathFromWide(std::int32_t length, const wchar_t* path, std::string* out);

// Reads a whole regular file (ReadRegularFile). kE_FileNotFound,
// kE_AccessDenied (also for a folder), kE_LinkLoop or kE_ReadFault (also for
// a device, FIFO or socket) on failure; a file larger than a stream can hold
// is E_OUTOFMEMORY.
HRESULT ReadWholeFile(const std::string& path, std::string* out);

// Replaces the file through its symbolic links without ever leaving it
// half-written (ReplaceFile). A folder at the path is kE_AccessDenied, a
// device, FIFO or socket kE_NotRegularFile, a full disk kE_DiskFull.
HRESULT WriteFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace kit::streams
