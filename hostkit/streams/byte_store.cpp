#include "hostkit/streams/byte_store.h"

#include <cstring>

namespace kit::streams {

std::int32_t ByteStore::Read(void* destination, std::int32_t size) {
    if (size <= 0) return 0;
    const std::int32_t available = this->size() - position_;  // [0, size()]
    const std::int32_t count = size < available ? size : available;
    if (count > 0) std::memcpy(destination, bytes_.data() + position_, static_cast<std::size_t>(count));
    position_ += count;
    return count;
}

HRESULT ByteStore::Write(const void* source, std::int32_t size) {
    if (size <= 0) return S_OK;
    const auto at = static_cast<std::size_t>(position_);
    const auto count = static_cast<std::size_t>(size);
    if (count > kMaxStreamSize - at) return E_OUTOFMEMORY;
    if (at + count > bytes_.size()) bytes_.resize(at + count);
    std::memcpy(bytes_.data() + at, source, count);
    position_ = static_cast<std::int32_t>(at + count);
    return S_OK;
}

HRESULT ByteStore::Insert(std::size_t offset, std::string_view text) {
    if (text.size() > kMaxStreamSize - bytes_.size()) return E_OUTOFMEMORY;
    bytes_.insert(offset, text);
    return S_OK;
}

void ByteStore::Assign(std::string bytes) {
    bytes_ = std::move(bytes);
    position_ = 0;
}

HRESULT StreamRead(ByteStore& store, void* buffer, std::int32_t size, std::int32_t* done) {
    if (done) *done = 0;
    if (size < 0) return E_INVALIDARG;
    if (size > 0 && !buffer) return E_POINTER;
    const std::int32_t count = store.Read(buffer, size);
    if (done) *done = count;
    return S_OK;
}

HRESULT StreamWrite(ByteStore& store, const void* buffer, std::int32_t size, std::int32_t* done) {
    if (done) *done = 0;
    if (size < 0) return E_INVALIDARG;
    if (size > 0 && !buffer) return E_POINTER;
    const HRESULT hr = store.Write(buffer, size);
    if (FAILED(hr)) return hr;
    if (done) *done = size;
    return S_OK;
}

HRESULT StreamGetSize(const ByteStore& store, std::int32_t* size) {
    if (!size) return E_POINTER;
    *size = store.size();
    return S_OK;
}

HRESULT StreamGetPosition(const ByteStore& store, std::int32_t* position) {
    if (!position) return E_POINTER;
    *position = store.position();
    return S_OK;
}

}  // namespace kit::streams
