// Replacing a whole file so that nothing is ever half-written and nothing the
// kit does not own is harmed: the streams' SaveToFile and the registry's
// SetValue both write through here.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "hostkit/file_outcome.h"
#include "hostkit/file_system.h"

namespace kit {

// Symbolic links followed before giving up with kLinkLoop (the system's own
// bound).
inline constexpr int kMaxLinkHops = 40;

struct ReplaceOptions {
    mode_t new_file_mode = 0666;  // for a file that does not exist yet, less the umask
    bool make_folders = false;    // create missing folders of the final target (0755 less the umask)
};

// The file a path finally names: its symbolic links followed one by one (a
// relative link is taken from the folder of the link), at most kMaxLinkHops.
// The final target need not exist (a dangling link names the file it would
// create). Fails with kLinkLoop, or with the error of a step that cannot look.
FileOutcome ResolveLinks(const std::string& path, std::string* target, const FileSystem& system = SystemFileSystem());

// Writes bytes as the new content of path:
//   - the path is resolved through its symbolic links and the final target
//     is replaced; the links stay;
//   - a target that exists and is not a regular file is refused (kFolder or
//     kNotRegular) and left as it is;
//   - a temporary file is created exclusively beside the target, given the
//     old file's owner and group (where the system permits) and mode, written,
//     flushed to disk and renamed over the target; then the folder is flushed;
//   - on a failure before the rename the temporary file is removed and the
//     old file is untouched; a failure to flush the folder after the rename is
//     reported although the new content is already in place;
//   - a temporary file left by a crash never blocks: names are never reused.
FileOutcome ReplaceFile(const std::string& path, std::string_view bytes, const ReplaceOptions& options = {},
                        const FileSystem& system = SystemFileSystem());

// The folder part of a path ("." for a bare name, "/" for the root).
std::string FolderOf(const std::string& path);

}  // namespace kit
