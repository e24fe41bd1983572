// Unit-test access to the vector's storage and listener table fields.
#pragma once

#include "module/entry.h"
#include "vector/dbl_buffer.h"
#include "vector/dbl_storage.h"

// The storage template on its own, with its fields visible.
class StorageProbe final : public CDBLBuffer<StorageProbe, double> {
public:
    StorageProbe() = default;
    ~StorageProbe() = default;
    HRESULT QueryInterface(const IID&, void** out) override {
        if (out) *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return 1; }
    std::int32_t Release() override { return 1; }

    using CDBLBuffer::capacity;
    using CDBLBuffer::count;
    using CDBLBuffer::data;
    using CDBLBuffer::head;
};

using DblEventSource = IEventSourceImpl<CDblBuffer, &IID__IDblVectorEvent>;

// A new CDblBuffer answering IEventSource (one reference, the caller's),
// created through the module's CreateFunction as a host would.
inline IEventSource* CreateBufferSource() {
    CREATEFUNCTION create = nullptr;
    if (CreateFunction(9, L"DblBuffer", &create) != S_OK || !create) return nullptr;
    void* out = nullptr;
    create(nullptr, &IID_IEventSource, &out);
    return static_cast<IEventSource*>(out);
}
