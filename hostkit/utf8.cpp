#include "hostkit/utf8.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <new>

namespace kit {

namespace {

// The wide text of this platform: UTF-32 in the machine's (little-endian) order.
constexpr const char* kWideEncoding = "UTF-32LE";
constexpr const char* kUtf8 = "UTF-8";
constexpr std::size_t kChunk = 4096;  // bytes converted per call

// One converter per thread and direction, opened on first use: a converter
// keeps state between calls and may not be shared by threads.
class Converter {
public:
    Converter(const char* to, const char* from) : handle_(::iconv_open(to, from)) {
        // Both encodings are built into the C library; failing to open one is
        // as exceptional as running out of memory.
        if (reinterpret_cast<std::intptr_t>(handle_) == -1) throw std::bad_alloc();
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { ::iconv_close(handle_); }

    // Converts as much of *in as is well-formed, appending to out; *in keeps
    // what was not converted. The error when it stopped early (EILSEQ for an
    // ill-formed sequence, EINVAL for one cut by the end), or 0.
    template <class Output>
    int Convert(std::string_view* in, Output* out) {
        ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        char buffer[kChunk];
        auto* source = const_cast<char*>(in->data());  // iconv's signature; the input is not written
        std::size_t left = in->size();
        int error = 0;
        while (left > 0 && error == 0) {
            char* target = buffer;
            std::size_t room = sizeof buffer;
            if (::iconv(handle_, &source, &left, &target, &room) == static_cast<std::size_t>(-1) && errno != E2BIG) {
                error = errno;
            }
            Append(buffer, static_cast<std::size_t>(target - buffer), out);
        }
        in->remove_prefix(in->size() - left);
        return error;
    }

private:
    static void Append(const char* bytes, std::size_t size, std::string* out) { out->append(bytes, size); }
    static void Append(const char* bytes, std::size_t size, std::wstring* out) {
        for (std::size_t at = 0; at + 4 <= size; at += 4) {
            const auto* unit = reinterpret_cast<const unsigned char*>(bytes + at);
            out->push_back(static_cast<wchar_t>(unit[0] | (unit[1] << 8) | (unit[2] << 16) | (unit[3] << 24)));
        }
    }

    iconv_t handle_;
};

Converter& ToUtf8() {
    thread_local Converter converter(kUtf8, kWideEncoding);
    return converter;
}

Converter& FromUtf8() {
    thread_local Converter converter(kWideEncoding, kUtf8);
    return converter;
}

static_assert(sizeof(wchar_t) == 4, "wide text is UTF-32");

}  // namespace

bool AppendUtf8(std::wstring_view text, std::string* out) {
    std::string_view units(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
    return ToUtf8().Convert(&units, out) == 0;
}

Utf8Status DecodeUtf8Checked(std::string_view bytes, std::wstring* out) {
    out->clear();
    out->reserve(bytes.size());
    switch (FromUtf8().Convert(&bytes, out)) {
        case 0:
            return Utf8Status::kValid;
        case EINVAL:
            return Utf8Status::kIncomplete;
        default:
            return Utf8Status::kInvalid;
    }
}

bool DecodeUtf8(std::string_view bytes, std::wstring* out) {
    return DecodeUtf8Checked(bytes, out) == Utf8Status::kValid;
}

bool IsValidUtf8(std::string_view bytes) {
    std::wstring ignored;
    return DecodeUtf8(bytes, &ignored);
}

std::wstring DecodeUtf8Lenient(std::string_view bytes) {
    std::wstring out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        if (FromUtf8().Convert(&bytes, &out) == 0) break;
        out.push_back(L'\xFFFD');
        bytes.remove_prefix(1);
    }
    return out;
}

}  // namespace kit
