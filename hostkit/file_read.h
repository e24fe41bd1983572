// Reading a whole regular file, for the streams' LoadFromFile and the
// registry.
#pragma once

#include <cstddef>
#include <string>

#include "hostkit/file_outcome.h"
#include "hostkit/file_system.h"

namespace kit {

// Reads the whole file at path (symbolic links followed), at most `limit`
// bytes, into *bytes. Only regular files are read: a folder fails with
// kFolder, a device, FIFO or socket with kNotRegular, without waiting for a
// writer or reading forever. A file beyond the limit fails with kTooLarge.
// *bytes is changed only on success.
FileOutcome ReadRegularFile(const std::string& path, std::size_t limit, std::string* bytes,
                            const FileSystem& system = SystemFileSystem());

}  // namespace kit
