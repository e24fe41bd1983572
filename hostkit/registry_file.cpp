#include "hostkit/registry_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <vector>

#include "hostkit/file_io.h"

namespace kit {

namespace {

// Creates every missing folder of `folder` (like mkdir -p).
bool MakeFolders(const std::string& folder) {
    if (folder.empty()) return true;
    struct stat info {};
    if (::stat(folder.c_str(), &info) == 0) return S_ISDIR(info.st_mode);
    const std::size_t slash = folder.find_last_of('/');
    if (slash != std::string::npos && slash > 0 && !MakeFolders(folder.substr(0, slash))) return false;
    return ::mkdir(folder.c_str(), 0755) == 0 || errno == EEXIST;
}

// The file a symbolic link names, or the path itself.
std::string FollowLink(const std::string& path) {
    struct stat info {};
    if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    char* resolved = ::realpath(path.c_str(), nullptr);
    if (!resolved) return path;
    std::string target(resolved);
    std::free(resolved);
    return target;
}

}  // namespace

FileRead ReadWholeFile(const std::string& path, std::size_t limit, std::string* text) {
    text->clear();
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    // ENOTDIR: a file stands where a folder of the path should be, so the file cannot exist.
    if (file.get() < 0) return errno == ENOENT || errno == ENOTDIR ? FileRead::kMissing : FileRead::kFailed;
    struct stat info {};
    if (::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return FileRead::kFailed;
    if (static_cast<std::size_t>(info.st_size) > limit) return FileRead::kTooLarge;
    // The size may change while reading; the limit holds regardless.
    char buffer[4096];
    for (;;) {
        const ssize_t got = ::read(file.get(), buffer, sizeof buffer);
        if (got < 0) {
            if (errno == EINTR) continue;
            return FileRead::kFailed;
        }
        if (got == 0) break;
        if (text->size() + static_cast<std::size_t>(got) > limit) return FileRead::kTooLarge;
        text->append(buffer, static_cast<std::size_t>(got));
    }
    return FileRead::kRead;
}

bool ReplaceFileAtomically(const std::string& path, std::string_view text) {
    if (path.empty()) return false;
    const std::string target = FollowLink(path);
    const std::size_t slash = target.find_last_of('/');
    const std::string folder = slash == std::string::npos ? std::string()
                               : slash == 0               ? std::string("/")
                                                          : target.substr(0, slash);
    if (!MakeFolders(folder)) return false;

    mode_t mode = 0644;
    struct stat info {};
    if (::stat(target.c_str(), &info) == 0) mode = info.st_mode & 07777;

    std::string temporary = target + ".tmp.XXXXXX";
    std::vector<char> name(temporary.begin(), temporary.end());
    name.push_back('\0');
    FileDescriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (file.get() < 0) return false;
    temporary.assign(name.data());
    const bool ok = ::fchmod(file.get(), mode) == 0 && WriteAll(file.get(), text) && ::fsync(file.get()) == 0 &&
                    file.Close() && ::rename(temporary.c_str(), target.c_str()) == 0;
    if (!ok) {
        ::unlink(temporary.c_str());
        return false;
    }
    // Makes the rename itself durable; the new content is in place either way.
    FileDescriptor directory(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (directory.get() >= 0) ::fsync(directory.get());
    return true;
}

}  // namespace kit
