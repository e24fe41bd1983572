#include "checked_output.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <streambuf>
#include <string>

namespace timetool {

namespace {

// A stream buffer writing straight into a C stream; it keeps the errno of
// the first write that failed (0 while none has).
class CStreamBuffer final : public std::streambuf {
public:
    explicit CStreamBuffer(std::FILE* stream) : stream_(stream) {}

    int error() const { return error_; }
    bool failed() const { return failed_; }

    // Records a failure seen outside this buffer (a flush or close of the
    // C stream); the first reason wins.
    void Fail(int error) {
        if (!failed_) error_ = error;
        failed_ = true;
    }

protected:
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        if (failed_) return 0;
        errno = 0;
        const std::size_t written = std::fwrite(text, 1, static_cast<std::size_t>(count), stream_);
        if (written != static_cast<std::size_t>(count)) Fail(errno);
        return static_cast<std::streamsize>(written);
    }

    int_type overflow(int_type character) override {
        if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
        const char byte = traits_type::to_char_type(character);
        return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
    }

    int sync() override {
        if (failed_) return -1;
        errno = 0;
        if (std::fflush(stream_) != 0) {
            Fail(errno);
            return -1;
        }
        return 0;
    }

private:
    std::FILE* stream_;
    int error_ = 0;
    bool failed_ = false;
};

// Never destroyed: the standard streams may flush at exit, after every
// static object of this file has gone.
CStreamBuffer& OutputBuffer() {
    static CStreamBuffer* const buffer = new CStreamBuffer(stdout);
    return *buffer;
}

CStreamBuffer& ErrorBuffer() {
    static CStreamBuffer* const buffer = new CStreamBuffer(stderr);
    return *buffer;
}

// Flushes and closes the C stream behind `buffer`, recording what fails;
// the C++ stream writing into it writes nowhere afterwards.
void Close(std::ostream& owner, CStreamBuffer& buffer, std::FILE* stream) {
    owner.flush();
    owner.rdbuf(nullptr);
    errno = 0;
    if (std::fflush(stream) != 0) buffer.Fail(errno);
    if (std::ferror(stream)) buffer.Fail(0);
    errno = 0;
    if (std::fclose(stream) != 0) buffer.Fail(errno);
}

std::string Reason(int error) { return error == 0 ? std::string("write error") : std::strerror(error); }

}  // namespace

void InstallCheckedOutput() {
    std::signal(SIGPIPE, SIG_DFL);
    std::cout.rdbuf(&OutputBuffer());
    std::cerr.rdbuf(&ErrorBuffer());
}

int FinishOutput(int status) {
    CStreamBuffer& output = OutputBuffer();
    Close(std::cout, output, stdout);
    const int failed = status != 0 ? status : 1;
    if (output.failed()) {
        status = failed;
        if (output.error() != EPIPE)
            std::cerr << "timetool: cannot write to standard output: " << Reason(output.error()) << "\n";
    }
    CStreamBuffer& errors = ErrorBuffer();
    Close(std::cerr, errors, stderr);
    if (errors.failed()) status = failed;
    return status;
}

}  // namespace timetool
