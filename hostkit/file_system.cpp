#include "hostkit/file_system.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace kit {

namespace {

class PosixFileSystem final : public FileSystem {
public:
    int LinkStatus(const char* path, struct stat* info) const override { return ::lstat(path, info); }
    ssize_t ReadLink(const char* path, char* buffer, std::size_t size) const override {
        return ::readlink(path, buffer, size);
    }
    int MakeFolder(const char* path, mode_t mode) const override { return ::mkdir(path, mode); }
    int Open(const char* path, int flags, mode_t mode) const override { return ::open(path, flags, mode); }
    int Status(int fd, struct stat* info) const override { return ::fstat(fd, info); }
    int ChangeOwner(int fd, uid_t owner, gid_t group) const override { return ::fchown(fd, owner, group); }
    int ChangeMode(int fd, mode_t mode) const override { return ::fchmod(fd, mode); }
    ssize_t Read(int fd, void* buffer, std::size_t size) const override { return ::read(fd, buffer, size); }
    ssize_t Write(int fd, const void* buffer, std::size_t size) const override { return ::write(fd, buffer, size); }
    int Flush(int fd) const override { return ::fsync(fd); }
    int Close(int fd) const override { return ::close(fd); }
    int Rename(const char* from, const char* to) const override { return ::rename(from, to); }
    int Unlink(const char* path) const override { return ::unlink(path); }
};

}  // namespace

const FileSystem& SystemFileSystem() {
    static const PosixFileSystem system;
    return system;
}

}  // namespace kit
