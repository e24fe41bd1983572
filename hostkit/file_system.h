// The system calls the kit's file layer makes, behind one table. The kit
// passes the system's own table; tests pass a table that fails a chosen call
// with a chosen error, to prove that every failure leaves the old file intact
// and no temporary file behind. Every operation has the system call's
// signature and sets errno the same way.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstddef>

namespace kit {

class FileSystem {
public:
    virtual int LinkStatus(const char* path, struct stat* info) const = 0;  // lstat
    virtual ssize_t ReadLink(const char* path, char* buffer, std::size_t size) const = 0;
    virtual int MakeFolder(const char* path, mode_t mode) const = 0;
    virtual int Open(const char* path, int flags, mode_t mode) const = 0;
    virtual int Status(int fd, struct stat* info) const = 0;  // fstat
    virtual int ChangeOwner(int fd, uid_t owner, gid_t group) const = 0;
    virtual int ChangeMode(int fd, mode_t mode) const = 0;
    virtual ssize_t Read(int fd, void* buffer, std::size_t size) const = 0;
    virtual ssize_t Write(int fd, const void* buffer, std::size_t size) const = 0;
    virtual int Flush(int fd) const = 0;  // fsync
    virtual int Close(int fd) const = 0;
    virtual int Rename(const char* from, const char* to) const = 0;
    virtual int Unlink(const char* path) const = 0;

protected:
    FileSystem() = default;
    FileSystem(const FileSystem&) = default;
    FileSystem& operator=(const FileSystem&) = default;
    ~FileSystem() = default;
};

// The process's real file system.
const FileSystem& SystemFileSystem();

}  // namespace kit
