// A data stream over fuzzed bytes for the module's loaders: reads hand out
// the bytes in order (a short read at the end, then 0), writes are kept.
// Reference counting is checked, not trusted: the stream lives on the
// harness's stack and must be back at one reference when the call returns.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/iids.h"
#include "com_types.h"
#include "framework_interfaces.h"

namespace fuzz {

class MemoryStream : public IDataStream {
public:
    explicit MemoryStream(std::string_view bytes) : bytes_(bytes) {}
    MemoryStream(const MemoryStream&) = delete;
    MemoryStream& operator=(const MemoryStream&) = delete;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IDataStream)) return E_NOINTERFACE;
        *out = static_cast<IDataStream*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++references_; }
    std::int32_t Release() override { return --references_; }

    HRESULT Rewind() override {
        position_ = 0;
        return S_OK;
    }
    HRESULT GetSize(std::int32_t* size) override {
        if (!size) return E_POINTER;
        *size = static_cast<std::int32_t>(bytes_.size());
        return S_OK;
    }
    HRESULT GetPosition(std::int32_t* position) override {
        if (!position) return E_POINTER;
        *position = static_cast<std::int32_t>(position_);
        return S_OK;
    }
    HRESULT Read(void* buffer, std::int32_t size, std::int32_t* done) override {
        const std::size_t wanted = size > 0 ? static_cast<std::size_t>(size) : 0;
        const std::size_t count = std::min(wanted, bytes_.size() - position_);
        if (count > 0) std::memcpy(buffer, bytes_.data() + position_, count);
        position_ += count;
        if (done) *done = static_cast<std::int32_t>(count);
        return S_OK;
    }
    HRESULT Write(const void* buffer, std::int32_t size, std::int32_t* done) override {
        if (size > 0) written_.append(static_cast<const char*>(buffer), static_cast<std::size_t>(size));
        if (done) *done = size > 0 ? size : 0;
        return S_OK;
    }
    HRESULT SaveToFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    HRESULT LoadFromFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }

    std::int32_t references() const { return references_; }
    const std::string& written() const { return written_; }

private:
    std::string_view bytes_;
    std::size_t position_ = 0;
    std::string written_;
    std::int32_t references_ = 1;
};

}  // namespace fuzz
