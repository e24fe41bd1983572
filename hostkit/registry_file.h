// Reading the registry file and replacing it atomically.
#pragma once

#include <string>
#include <string_view>

namespace kit {

enum class FileRead { kRead, kMissing, kTooLarge, kFailed };

// Reads the whole file, at most `limit` bytes. kMissing when the file or a
// folder on its path does not exist (or a file stands where that folder
// should be); kTooLarge beyond the limit; kFailed for anything else that
// prevents reading (not a regular file, no permission).
FileRead ReadWholeFile(const std::string& path, std::size_t limit, std::string* text);

// Replaces the file's content so that readers see either the old or the new
// content, never a mix: a temporary file in the same folder is written,
// flushed to disk and renamed over the file. Missing folders are created.
// An existing file keeps its permissions; a new one gets 0644, new folders
// 0755 less the umask. A symbolic link is followed, so the
// file it names is replaced and the link stays. False on any failure, with no
// temporary file left behind.
bool ReplaceFileAtomically(const std::string& path, std::string_view text);

}  // namespace kit
