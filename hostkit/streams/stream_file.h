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

// Reads a whole file. kE_FileNotFound, kE_AccessDenied or kE_ReadFault on
// failure; a file larger than a stream can hold is E_OUTOFMEMORY.
HRESULT ReadWholeFile(const std::string& path, std::string* out);

// Writes a temporary file in the same folder, flushes it to disk and renames
// it over path, so readers see the old file or the new one, never a mix. The
// temporary file is removed on failure.
HRESULT WriteFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace kit::streams
