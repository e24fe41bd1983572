// CDBLBuffer: storage of the double ring buffer with its plain (unlocked,
// silent) operations. The component class overrides put_Size, get_Element
// and put_Element with locked, notifying ones that call the plain forms.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <new>

#include "com_types.h"
#include "module_interfaces.h"
#include "vector/ring_position.h"
#include "vector/vector_stream.h"

template <class T, class V>
class CDBLBuffer : public IDblVector {
public:
    CDBLBuffer(const CDBLBuffer&) = delete;
    CDBLBuffer& operator=(const CDBLBuffer&) = delete;

    // No lock: the count alone is read.
    HRESULT get_Size(std::int32_t* size) override {
        if (!size) return E_POINTER;
        *size = count.load(std::memory_order_relaxed);
        return S_OK;
    }
    HRESULT put_Size(std::int32_t size) override { return ResizeStorage(size); }
    HRESULT get_Element(std::int32_t index, double* value) override { return ReadElement(index, value); }
    HRESULT put_Element(std::int32_t index, double value) override { return WriteElement(index, value); }
    // Kept for interface compatibility: the values are not sorted.
    HRESULT Sort(IDataStream* /*stream*/) override { return S_OK; }
    // Both go through the (virtual) element operations, one lock per element.
    HRESULT Save(IDataStream* stream) override {
        return SaveDblVector(*this, capacity.load(std::memory_order_relaxed), stream);
    }
    HRESULT Load(IDataStream* stream) override { return LoadDblVector(*this, stream); }

protected:
    // Capacity 32; the array's contents start undefined and are never read
    // before an append has written them.
    CDBLBuffer() : data(new V[32]) {}
    ~CDBLBuffer() = default;

    // Sets the capacity and empties the ring. The same non-zero capacity keeps
    // the array and its old values; any other frees it and allocates a fresh,
    // uninitialised one (0 or less: no array). When the new array cannot be
    // allocated, E_OUTOFMEMORY and nothing has changed.
    HRESULT ResizeStorage(std::int32_t size) noexcept {
        const std::int32_t current = capacity.load(std::memory_order_relaxed);
        if (size != current || size == 0) {
            std::unique_ptr<V[]> fresh;
            if (size >= 1) {
                fresh.reset(new (std::nothrow) V[static_cast<std::size_t>(size)]);
                if (!fresh) return E_OUTOFMEMORY;
            }
            data = std::move(fresh);
            capacity.store(size >= 1 ? size : 0, std::memory_order_relaxed);
        }
        count.store(0, std::memory_order_relaxed);
        head = -1;
        return S_OK;
    }

    // E_INVALIDARG leaves *value untouched.
    HRESULT ReadElement(std::int32_t index, V* value) const noexcept {
        if (!value) return E_POINTER;
        const std::int32_t position = RingReadPosition(Ring(), index);
        if (position < 0) return E_INVALIDARG;
        *value = data[position];
        return S_OK;
    }

    // E_FAIL for capacity 0, where nothing is stored.
    HRESULT WriteElement(std::int32_t index, V value) noexcept {
        RingState ring = Ring();
        if (ring.capacity == 0) return E_FAIL;
        if (RingOverwrites(ring, index)) {
            data[index] = value;
            return S_OK;
        }
        const std::int32_t position = RingAppend(ring);
        head = ring.head;
        count.store(ring.count, std::memory_order_relaxed);
        data[position] = value;
        return S_OK;
    }

    // count and capacity are atomic only because get_Size and Save read them
    // without the lock; every write happens under it.
    std::atomic<std::int32_t> count{0};      // values held, [0, capacity]
    std::int32_t head = -1;                  // array position of the newest value, -1 when empty
    std::atomic<std::int32_t> capacity{32};  // length of the array, >= 0
    std::unique_ptr<V[]> data;               // array new; null when capacity is 0

private:
    RingState Ring() const noexcept {
        return RingState{count.load(std::memory_order_relaxed), head, capacity.load(std::memory_order_relaxed)};
    }
};
