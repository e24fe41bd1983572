#include "hostkit/streams/stream_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "hostkit/file_io.h"
#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/text_codec.h"

namespace kit::streams {

namespace {

HRESULT OpenFailure(int error, HRESULT otherwise) {
    if (error == ENOENT || error == ENOTDIR) return kE_FileNotFound;
    if (error == EACCES || error == EPERM || error == EROFS) return kE_AccessDenied;
    return otherwise;
}

// Temporary names differ per process and per call, so concurrent savers in
// one folder never share one.
std::string TemporaryName(const std::string& path, unsigned attempt) {
    static std::atomic<unsigned> counter{0};
    return path + ".tmp" + std::to_string(::getpid()) + "." + std::to_string(counter.fetch_add(1)) + "." +
           std::to_string(attempt);
}

}  // namespace

HRESULT PathFromWide(std::int32_t length, const wchar_t* path, std::string* out) {
    if (length <= 0) return E_INVALIDARG;
    if (!path) return E_POINTER;
    const std::wstring_view text(path, static_cast<std::size_t>(length));
    if (text.find(L'\0') != std::wstring_view::npos) return E_INVALIDARG;
    out->clear();
    if (!AppendUtf8(text, *out)) return E_INVALIDARG;
    return S_OK;
}

HRESULT ReadWholeFile(const std::string& path, std::string* out) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0) return OpenFailure(errno, kE_ReadFault);
    struct stat info {};
    if (::fstat(file.get(), &info) != 0) return kE_ReadFault;
    if (S_ISDIR(info.st_mode)) return kE_AccessDenied;
    // Devices and pipes may never end; only regular files are streams' files.
    if (!S_ISREG(info.st_mode) || info.st_size < 0) return kE_ReadFault;
    if (static_cast<std::uint64_t>(info.st_size) > kMaxStreamSize) return E_OUTOFMEMORY;
    std::string bytes;
    char chunk[65536];
    for (;;) {
        const ssize_t got = ::read(file.get(), chunk, sizeof chunk);
        if (got < 0) {
            if (errno == EINTR) continue;
            return kE_ReadFault;
        }
        if (got == 0) break;
        // The file may grow while being read; a stream still cannot exceed its limit.
        if (static_cast<std::size_t>(got) > kMaxStreamSize - bytes.size()) return E_OUTOFMEMORY;
        bytes.append(chunk, static_cast<std::size_t>(got));
    }
    *out = std::move(bytes);
    return S_OK;
}

HRESULT WriteFileAtomically(const std::string& path, std::string_view bytes) {
    struct stat existing {};
    if (::stat(path.c_str(), &existing) == 0 && S_ISDIR(existing.st_mode)) return kE_AccessDenied;
    std::string temporary;
    int fd = -1;
    for (unsigned attempt = 0; attempt < 16 && fd < 0; ++attempt) {
        temporary = TemporaryName(path, attempt);
        fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) return OpenFailure(errno, kE_WriteFault);
    }
    if (fd < 0) return kE_WriteFault;
    FileDescriptor file(fd);
    int error = 0;
    if (!WriteAll(file.get(), bytes) || ::fsync(file.get()) != 0) error = errno;
    if (!file.Close() && error == 0) error = errno;
    if (error == 0 && ::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
    if (error != 0) {
        ::unlink(temporary.c_str());
        return OpenFailure(error, kE_WriteFault);
    }
    return S_OK;
}

}  // namespace kit::streams
