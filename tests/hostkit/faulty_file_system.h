// A file system that behaves as the real one except that one chosen call
// fails with a chosen error: the seam through which the file layer's tests
// inject a full disk, an I/O error or a refused rename at any step of a save.
#pragma once

#include <unistd.h>

#include <cerrno>

#include "hostkit/file_system.h"

enum class FileCall { kNone, kOpen, kOwner, kMode, kWrite, kFlush, kClose, kRename, kRead, kLinkStatus };

class FaultyFileSystem final : public kit::FileSystem {
public:
    // Fails the `nth` call (1-based) of `call` with `error`. Writes store at
    // most `write_chunk` bytes per call, so that a save makes several writes.
    FaultyFileSystem(FileCall call, int nth, int error, std::size_t write_chunk = 4096)
        : call_(call), nth_(nth), error_(error), write_chunk_(write_chunk) {}

    int LinkStatus(const char* path, struct stat* info) const override {
        if (Fails(FileCall::kLinkStatus)) return -1;
        return real().LinkStatus(path, info);
    }
    ssize_t ReadLink(const char* path, char* buffer, std::size_t size) const override {
        return real().ReadLink(path, buffer, size);
    }
    int MakeFolder(const char* path, mode_t mode) const override { return real().MakeFolder(path, mode); }
    int Open(const char* path, int flags, mode_t mode) const override {
        if (Fails(FileCall::kOpen)) return -1;
        return real().Open(path, flags, mode);
    }
    int Status(int fd, struct stat* info) const override { return real().Status(fd, info); }
    int ChangeOwner(int fd, uid_t owner, gid_t group) const override {
        if (Fails(FileCall::kOwner)) return -1;
        return real().ChangeOwner(fd, owner, group);
    }
    int ChangeMode(int fd, mode_t mode) const override {
        if (Fails(FileCall::kMode)) return -1;
        return real().ChangeMode(fd, mode);
    }
    ssize_t Read(int fd, void* buffer, std::size_t size) const override {
        if (Fails(FileCall::kRead)) return -1;
        return real().Read(fd, buffer, size);
    }
    ssize_t Write(int fd, const void* buffer, std::size_t size) const override {
        if (Fails(FileCall::kWrite)) return -1;
        return real().Write(fd, buffer, size < write_chunk_ ? size : write_chunk_);
    }
    int Flush(int fd) const override {
        if (Fails(FileCall::kFlush)) return -1;
        return real().Flush(fd);
    }
    // The descriptor is closed either way, as the system does when close fails.
    int Close(int fd) const override {
        const int closed = real().Close(fd);
        if (Fails(FileCall::kClose)) return -1;
        return closed;
    }
    int Rename(const char* from, const char* to) const override {
        if (Fails(FileCall::kRename)) return -1;
        return real().Rename(from, to);
    }
    int Unlink(const char* path) const override { return real().Unlink(path); }

    // How often `call` was made.
    int Calls(FileCall call) const { return counts_[static_cast<int>(call)]; }

private:
    static const kit::FileSystem& real() { return kit::SystemFileSystem(); }
    bool Fails(FileCall call) const {
        if (++counts_[static_cast<int>(call)] != nth_ || call != call_) return false;
        errno = error_;
        return true;
    }

    FileCall call_;
    int nth_;
    int error_;
    std::size_t write_chunk_;
    mutable int counts_[10] = {};
};
