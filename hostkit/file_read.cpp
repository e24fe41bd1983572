#include "hostkit/file_read.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace kit {

namespace {

FileOutcome Failed(FileStep step, int error) { return {step, FailureFromErrno(error), error}; }

// Closes a descriptor of the given file system when the scope ends.
class OpenFile {
public:
    OpenFile(const FileSystem& system, int fd) : system_(system), fd_(fd) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (fd_ >= 0) system_.Close(fd_);
    }
    int get() const { return fd_; }

private:
    const FileSystem& system_;
    int fd_;
};

}  // namespace

FileOutcome ReadRegularFile(const std::string& path, std::size_t limit, std::string* bytes, const FileSystem& system) {
    // Non-blocking, so that opening a FIFO does not wait for a writer; the
    // flag changes nothing for a regular file.
    OpenFile file(system, system.Open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0));
    if (file.get() < 0) return Failed(FileStep::kOpen, errno);
    struct stat info {};
    if (system.Status(file.get(), &info) != 0) return Failed(FileStep::kInspect, errno);
    if (S_ISDIR(info.st_mode)) return {FileStep::kInspect, FileFailure::kFolder, 0};
    if (!S_ISREG(info.st_mode)) return {FileStep::kInspect, FileFailure::kNotRegular, 0};
    if (info.st_size < 0 || static_cast<std::uint64_t>(info.st_size) > limit) {
        return {FileStep::kInspect, FileFailure::kTooLarge, 0};
    }
    std::string content;
    content.reserve(static_cast<std::size_t>(info.st_size));
    char chunk[65536];
    for (;;) {
        const ssize_t got = system.Read(file.get(), chunk, sizeof chunk);
        if (got < 0) {
            if (errno == EINTR) continue;
            return Failed(FileStep::kRead, errno);
        }
        if (got == 0) break;
        // The file may grow while it is read; the limit holds regardless.
        if (static_cast<std::size_t>(got) > limit - content.size()) return {FileStep::kRead, FileFailure::kTooLarge, 0};
        content.append(chunk, static_cast<std::size_t>(got));
    }
    *bytes = std::move(content);
    return {};
}

}  // namespace kit
