// The bytes of a memory stream and its read/write position.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include "com_types.h"

namespace kit::streams {

// Largest stream: sizes and positions travel as signed 32-bit values.
inline constexpr std::size_t kMaxStreamSize = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());

class ByteStore {
public:
    std::int32_t size() const { return static_cast<std::int32_t>(bytes_.size()); }
    std::int32_t position() const { return position_; }
    std::string_view bytes() const { return bytes_; }

    void Rewind() { position_ = 0; }
    // Copies up to size bytes from the position on; returns the count copied
    // (0 at the end).
    std::int32_t Read(void* destination, std::int32_t size);
    // Writes at the position, overwriting and then extending; the position
    // moves past the bytes written. E_OUTOFMEMORY (nothing written) when the
    // stream would exceed kMaxStreamSize.
    HRESULT Write(const void* source, std::int32_t size);
    // Inserts at an offset (at most size()); a position at or after the offset
    // is not moved. E_OUTOFMEMORY as for Write.
    HRESULT Insert(std::size_t offset, std::string_view text);
    // Appends at the end without moving the position.
    HRESULT Append(std::string_view text) { return Insert(bytes_.size(), text); }
    // Replaces the content; the position returns to 0.
    void Assign(std::string bytes);
    void Clear() { Assign({}); }

private:
    std::string bytes_;          // the content, at most kMaxStreamSize bytes
    std::int32_t position_ = 0;  // [0, size()]
};

// The IDataStream operations over a ByteStore, with the interface's argument
// checks: a negative size is E_INVALIDARG, a null buffer with a positive size
// is E_POINTER; done is optional and receives the byte count transferred.
HRESULT StreamRead(ByteStore& store, void* buffer, std::int32_t size, std::int32_t* done);
HRESULT StreamWrite(ByteStore& store, const void* buffer, std::int32_t size, std::int32_t* done);
HRESULT StreamGetSize(const ByteStore& store, std::int32_t* size);
HRESULT StreamGetPosition(const ByteStore& store, std::int32_t* position);

}  // namespace kit::streams
