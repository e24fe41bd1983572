// An in-memory IDataStream owned by the test. It records, for every Read and
// Write, the size asked for and the *done value found on entry, and can
// answer each Write with its own ordinal (1, 2, ...) so that the caller's
// choice of result is visible.
#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "com_types.h"
#include "framework_interfaces.h"

struct StreamCall {
    std::int32_t size;
    std::int32_t doneOnEntry;
    bool operator==(const StreamCall&) const = default;
};

class FakeDataStream : public IDataStream {
public:
    FakeDataStream() = default;
    explicit FakeDataStream(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}
    FakeDataStream(const FakeDataStream&) = delete;
    FakeDataStream& operator=(const FakeDataStream&) = delete;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown)) return E_NOINTERFACE;
        *out = static_cast<IDataStream*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs_; }
    std::int32_t Release() override { return --refs_; }
    HRESULT Rewind() override {
        position_ = 0;
        return S_OK;
    }
    HRESULT GetSize(std::int32_t* size) override {
        *size = static_cast<std::int32_t>(bytes_.size());
        return S_OK;
    }
    HRESULT GetPosition(std::int32_t* position) override {
        *position = static_cast<std::int32_t>(position_);
        return S_OK;
    }
    // Delivers what is left, at most `size` bytes (and at most readLimit when set).
    HRESULT Read(void* buffer, std::int32_t size, std::int32_t* done) override {
        reads.push_back({size, *done});
        std::size_t n = bytes_.size() - position_;
        if (n > static_cast<std::size_t>(size)) n = static_cast<std::size_t>(size);
        if (readLimit >= 0 && n > static_cast<std::size_t>(readLimit)) n = static_cast<std::size_t>(readLimit);
        if (n > 0) std::memcpy(buffer, bytes_.data() + position_, n);
        position_ += n;
        *done = static_cast<std::int32_t>(n);
        return S_OK;
    }
    HRESULT Write(const void* buffer, std::int32_t size, std::int32_t* done) override {
        writes.push_back({size, *done});
        const auto* first = static_cast<const std::uint8_t*>(buffer);
        bytes_.insert(bytes_.end(), first, first + size);
        *done = writeDoneReport.value_or(size);
        return numberWrites ? static_cast<HRESULT>(writes.size()) : S_OK;
    }
    HRESULT SaveToFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    HRESULT LoadFromFile(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }

    const std::vector<std::uint8_t>& bytes() const { return bytes_; }
    std::int32_t references() const { return refs_; }

    std::vector<StreamCall> reads;
    std::vector<StreamCall> writes;
    bool numberWrites = false;
    // When set, Write reports this in *done instead of the size written.
    std::optional<std::int32_t> writeDoneReport;
    std::int32_t readLimit = -1;

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
    std::int32_t refs_ = 1;
};

// Byte helpers: the stored form uses the machine's byte order.
inline void AppendInt32(std::vector<std::uint8_t>& bytes, std::int32_t value) {
    std::uint8_t raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.insert(bytes.end(), raw, raw + sizeof raw);
}
inline void AppendDouble(std::vector<std::uint8_t>& bytes, double value) {
    std::uint8_t raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.insert(bytes.end(), raw, raw + sizeof raw);
}
