// What a read or a replacement of a file came to: the step that failed, the
// system's error number and the kind of failure that callers turn into their
// result codes and people read as one line.
#pragma once

#include <cstdint>
#include <string>

namespace kit {

enum class FileStep : std::uint8_t {
    kDone,         // nothing failed
    kResolve,      // following the path's symbolic links
    kInspect,      // looking at what the final target is
    kMakeFolder,   // creating a missing folder (the registry only)
    kOpen,         // opening the file, or creating the temporary file
    kOwner,        // giving the temporary file the old file's owner and group
    kMode,         // giving the temporary file the old file's mode
    kRead,         // reading the file
    kWrite,        // writing the temporary file
    kFlush,        // flushing the temporary file to disk
    kClose,        // closing the temporary file
    kRename,       // renaming the temporary file over the target
    kFlushFolder,  // flushing the folder, which makes the rename durable
};

enum class FileFailure : std::uint8_t {
    kNone,
    kMissing,     // the file or a folder of its path does not exist
    kDenied,      // the file system refuses access
    kFolder,      // a folder stands at the path
    kNotRegular,  // a device node, FIFO or socket stands at the path
    kLinkLoop,    // the symbolic links go round in a circle or are too many
    kNoSpace,     // the disk or the quota is full
    kTooLarge,    // the file is larger than its reader accepts
    kIo,          // any other failure of the system
};

struct FileOutcome {
    FileStep step = FileStep::kDone;
    FileFailure failure = FileFailure::kNone;
    int error = 0;  // errno of the failed call; 0 for a refusal of the kit's own

    bool ok() const { return failure == FileFailure::kNone; }
};

// The failure a system error number stands for.
FileFailure FailureFromErrno(int error);

// One line for a person: what failed, on which file, and why, for example
// "cannot save a.xml: no space left on the device (writing the temporary file)".
// `action` is the verb ("save", "read").
std::string DescribeFileOutcome(const FileOutcome& outcome, const std::string& action, const std::string& path);

}  // namespace kit
