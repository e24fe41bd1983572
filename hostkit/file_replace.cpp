#include "hostkit/file_replace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <random>

namespace kit {

namespace {

FileOutcome Failed(FileStep step, int error) { return {step, FailureFromErrno(error), error}; }

// Creates every missing folder of `folder`, like mkdir -p.
FileOutcome MakeFolders(const std::string& folder, const FileSystem& system) {
    struct stat info {};
    if (system.LinkStatus(folder.c_str(), &info) == 0) return {};
    if (errno != ENOENT) return Failed(FileStep::kMakeFolder, errno);
    const std::string parent = FolderOf(folder);
    if (parent != folder) {
        const FileOutcome made = MakeFolders(parent, system);
        if (!made.ok()) return made;
    }
    if (system.MakeFolder(folder.c_str(), 0755) != 0 && errno != EEXIST) return Failed(FileStep::kMakeFolder, errno);
    return {};
}

// A name for the temporary file that no earlier save used: the process, a
// counter and a random part, so that neither a concurrent saver nor a file
// left by a crashed process with the same process number is ever reused.
// The target's own name is cut so that the whole stays within the file
// system's 255 bytes per name.
std::string TemporaryName(const std::string& target) {
    static std::atomic<unsigned> counter{0};
    thread_local std::mt19937 random{std::random_device{}()};
    static constexpr char kDigits[] = "0123456789abcdef";
    constexpr std::size_t kLongestBase = 200;
    const std::size_t slash = target.find_last_of('/');
    const std::size_t base = slash == std::string::npos ? 0 : slash + 1;
    std::string name = target.substr(0, base + std::min(target.size() - base, kLongestBase));
    name += ".tmp" + std::to_string(::getpid()) + "." + std::to_string(counter.fetch_add(1)) + ".";
    std::uint32_t bits = random();
    for (int digit = 0; digit < 8; ++digit, bits >>= 4) name.push_back(kDigits[bits & 15u]);
    return name;
}

// The temporary file being written; removed unless it was renamed.
class TemporaryFile {
public:
    explicit TemporaryFile(const FileSystem& system) : system_(system) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (fd_ >= 0) system_.Close(fd_);
        if (!name_.empty()) system_.Unlink(name_.c_str());
    }

    // Attempts are bounded although names never repeat: a folder that
    // answers EEXIST for ever is broken, not busy.
    FileOutcome Create(const std::string& target, mode_t mode) {
        for (int attempt = 0; attempt < 32; ++attempt) {
            std::string name = TemporaryName(target);
            const int fd = system_.Open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
            if (fd >= 0) {
                fd_ = fd;
                name_ = std::move(name);
                return {};
            }
            if (errno != EEXIST) return Failed(FileStep::kOpen, errno);
        }
        return Failed(FileStep::kOpen, EEXIST);
    }
    FileOutcome WriteAll(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = system_.Write(fd_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            // A write that stores nothing without an error would loop for ever.
            if (written <= 0) return Failed(FileStep::kWrite, written == 0 ? EIO : errno);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }
    FileOutcome Close() {
        const int fd = fd_;
        fd_ = -1;
        return system_.Close(fd) == 0 ? FileOutcome{} : Failed(FileStep::kClose, errno);
    }
    FileOutcome RenameTo(const std::string& target) {
        if (system_.Rename(name_.c_str(), target.c_str()) != 0) return Failed(FileStep::kRename, errno);
        name_.clear();
        return {};
    }
    int fd() const { return fd_; }

private:
    const FileSystem& system_;
    int fd_ = -1;
    std::string name_;  // empty once renamed
};

// Makes the rename durable: a folder is flushed through a descriptor of its own.
FileOutcome FlushFolder(const std::string& folder, const FileSystem& system) {
    const int fd = system.Open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
    if (fd < 0) return Failed(FileStep::kFlushFolder, errno);
    const int flushed = system.Flush(fd);
    const int error = errno;
    system.Close(fd);
    return flushed == 0 ? FileOutcome{} : Failed(FileStep::kFlushFolder, error);
}

}  // namespace

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

FileOutcome ResolveLinks(const std::string& path, std::string* target, const FileSystem& system) {
    std::string current = path;
    for (int hops = 0;; ++hops) {
        struct stat info {};
        if (system.LinkStatus(current.c_str(), &info) != 0) {
            // A missing final target is a new file; anything else cannot be looked at.
            if (errno != ENOENT) return Failed(FileStep::kResolve, errno);
            break;
        }
        if (!S_ISLNK(info.st_mode)) break;
        if (hops == kMaxLinkHops) return {FileStep::kResolve, FileFailure::kLinkLoop, ELOOP};
        std::string link(4096, '\0');
        const ssize_t length = system.ReadLink(current.c_str(), link.data(), link.size());
        if (length < 0) return Failed(FileStep::kResolve, errno);
        if (static_cast<std::size_t>(length) >= link.size()) return Failed(FileStep::kResolve, ENAMETOOLONG);
        link.resize(static_cast<std::size_t>(length));
        if (!link.starts_with('/')) link.insert(0, FolderOf(current) + "/");
        current = std::move(link);
    }
    *target = std::move(current);
    return {};
}

FileOutcome ReplaceFile(const std::string& path, std::string_view bytes, const ReplaceOptions& options,
                        const FileSystem& system) {
    if (path.empty()) return Failed(FileStep::kResolve, ENOENT);
    std::string target;
    FileOutcome outcome = ResolveLinks(path, &target, system);
    if (!outcome.ok()) return outcome;

    struct stat old {};
    bool exists = true;
    if (system.LinkStatus(target.c_str(), &old) != 0) {
        if (errno != ENOENT) return Failed(FileStep::kInspect, errno);
        exists = false;
    }
    if (exists && S_ISDIR(old.st_mode)) return {FileStep::kInspect, FileFailure::kFolder, EISDIR};
    if (exists && !S_ISREG(old.st_mode)) return {FileStep::kInspect, FileFailure::kNotRegular, 0};

    const std::string folder = FolderOf(target);
    if (options.make_folders) {
        outcome = MakeFolders(folder, system);
        if (!outcome.ok()) return outcome;
    }

    TemporaryFile temporary(system);
    // Until it holds the old file's owner and mode, the temporary file is
    // readable by its creator only.
    outcome = temporary.Create(target, exists ? 0600 : options.new_file_mode);
    if (!outcome.ok()) return outcome;
    if (exists) {
        // Changing the owner is a privilege: without it the file becomes the
        // saver's own, as any editor's save would make it. The owner goes
        // first because changing it clears set-user-ID bits.
        if (system.ChangeOwner(temporary.fd(), old.st_uid, old.st_gid) != 0 && errno != EPERM) {
            return Failed(FileStep::kOwner, errno);
        }
        if (system.ChangeMode(temporary.fd(), old.st_mode & 07777) != 0) return Failed(FileStep::kMode, errno);
    }
    outcome = temporary.WriteAll(bytes);
    if (!outcome.ok()) return outcome;
    if (system.Flush(temporary.fd()) != 0) return Failed(FileStep::kFlush, errno);
    outcome = temporary.Close();
    if (!outcome.ok()) return outcome;
    outcome = temporary.RenameTo(target);
    if (!outcome.ok()) return outcome;
    return FlushFolder(folder, system);
}

}  // namespace kit
