// Reading a fuzzer's bytes as parameters and texts. Every text is copied to a
// heap block of exactly its length, so AddressSanitizer catches any read past
// the counted end; nothing is terminated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace fuzz {

// Stops the run with a message; libFuzzer and the replay main both report it.
inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "fuzz property violated: %s\n", property);
    std::abort();
}

class ByteReader {
public:
    ByteReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool empty() const { return size_ == 0; }
    std::size_t remaining() const { return size_; }
    // 0 once the bytes are used up.
    std::uint8_t Byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    std::int32_t Int32() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = value << 8 | Byte();
        return static_cast<std::int32_t>(value);
    }
    // Up to `count` bytes (fewer when the input ends).
    std::string_view Bytes(std::size_t count) {
        if (count > size_) count = size_;
        std::string_view taken(reinterpret_cast<const char*>(data_), count);
        data_ += count;
        size_ -= count;
        return taken;
    }
    std::string_view Rest() { return Bytes(size_); }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

// One byte as a wide character. The two top byte values stand for characters
// no byte reaches: the largest scalar value and a negative wchar_t.
inline wchar_t WideFromByte(std::uint8_t byte) {
    if (byte == 0xFE) return static_cast<wchar_t>(0x10FFFF);
    if (byte == 0xFF) return static_cast<wchar_t>(-2);
    return static_cast<wchar_t>(byte);
}

// Wide characters in a block of exactly their count (a zero-length block for
// an empty text, still a distinct pointer).
class ExactWide {
public:
    explicit ExactWide(std::string_view bytes)
        : length_(static_cast<std::int32_t>(bytes.size())), chars_(new wchar_t[bytes.size()]) {
        for (std::size_t i = 0; i < bytes.size(); ++i) chars_[i] = WideFromByte(static_cast<std::uint8_t>(bytes[i]));
    }
    const wchar_t* data() const { return chars_.get(); }
    std::int32_t length() const { return length_; }
    // A view [start, start + length) lies inside the block; empty views may
    // sit anywhere from its start to one past its end.
    bool Holds(const wchar_t* start, std::int32_t length) const {
        if (length <= 0) return true;
        return start >= data() && start + length <= data() + length_;
    }

private:
    std::int32_t length_;
    std::unique_ptr<wchar_t[]> chars_;
};

// The bytes in a block of exactly their size.
class ExactBytes {
public:
    explicit ExactBytes(std::string_view bytes) : size_(bytes.size()), bytes_(new char[bytes.size()]) {
        for (std::size_t i = 0; i < size_; ++i) bytes_[i] = bytes[i];
    }
    std::string_view view() const { return {bytes_.get(), size_}; }

private:
    std::size_t size_;
    std::unique_ptr<char[]> bytes_;
};

}  // namespace fuzz
