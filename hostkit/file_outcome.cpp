#include "hostkit/file_outcome.h"

#include <cerrno>
#include <cstring>

namespace kit {

namespace {

// Indexed by FileStep.
constexpr const char* kStepNames[] = {
    "",
    "following symbolic links",
    "inspecting the target",
    "creating its folder",
    "opening the file",
    "giving the temporary file the old owner and group",
    "giving the temporary file the old mode",
    "reading the file",
    "writing the temporary file",
    "flushing the temporary file to disk",
    "closing the temporary file",
    "renaming the temporary file over the target",
    "flushing the folder to disk",
};

// Indexed by FileFailure; empty where the system's own text is clearer.
constexpr const char* kFailureTexts[] = {
    "",
    "",
    "",
    "a folder stands at that path",
    "not a regular file (a device, FIFO or socket); it was left untouched",
    "too many levels of symbolic links",
    "no space left on the device",
    "the file is too large",
    "",
};

}  // namespace

FileFailure FailureFromErrno(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return FileFailure::kMissing;
        case EACCES:
        case EPERM:
        case EROFS:
            return FileFailure::kDenied;
        case EISDIR:
            return FileFailure::kFolder;
        case ELOOP:
            return FileFailure::kLinkLoop;
        case ENOSPC:
        case EDQUOT:
            return FileFailure::kNoSpace;
        case EFBIG:
            return FileFailure::kTooLarge;
        default:
            return FileFailure::kIo;
    }
}

std::string DescribeFileOutcome(const FileOutcome& outcome, const std::string& action, const std::string& path) {
    if (outcome.ok()) return {};
    std::string text = "cannot " + action + " " + path + ": ";
    const char* reason = kFailureTexts[static_cast<std::size_t>(outcome.failure)];
    if (*reason != '\0') {
        text += reason;
    } else if (outcome.error != 0) {
        text += ::strerrordesc_np(outcome.error);
    } else {
        text += "failed";
    }
    const char* step = kStepNames[static_cast<std::size_t>(outcome.step)];
    if (*step != '\0' && outcome.failure != FileFailure::kNotRegular && outcome.failure != FileFailure::kFolder) {
        text += std::string(" (") + step + ")";
    }
    return text;
}

}  // namespace kit
