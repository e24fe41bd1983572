// CDblBuffer: the "DblBuffer" component, a ring buffer of doubles that
// notifies its listeners of every change.
#pragma once

#include <cstdint>

#include "base/iids.h"
#include "base/object.h"
#include "base/resource_lock.h"
#include "com_types.h"
#include "module_interfaces.h"
#include "vector/dbl_storage.h"
#include "vector/event_source.h"
#include "vector/vector_events.h"

class CDblBuffer final : public CObject<CDblBuffer>,
                         public IObjectInfoImpl<CDblBuffer>,
                         public CDBLBuffer<CDblBuffer, double>,
                         public IEventSourceImpl<CDblBuffer, &IID__IDblVectorEvent>,
                         public _FIREDblVectorEvent<CDblBuffer>,
                         public IUIPropertyPageSpecify,
                         public IDataPersist {
public:
    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }
    void Lock() override { m_lock.Lock(); }
    void Unlock() override { m_lock.Unlock(); }

    // Locked and notifying forms of the storage operations.
    HRESULT put_Element(std::int32_t index, double value) override;
    HRESULT get_Element(std::int32_t index, double* value) override;
    HRESULT put_Size(std::int32_t size) override;

    // IUIPropertyPageSpecify
    HRESULT GetPages(std::int32_t reserved, INamedCollection** pages, IUnknown** site) override;

    // IDataPersist: the same as IDblVector's Save and Load; flags are ignored.
    HRESULT Save(IDataStream* stream, std::int32_t flags) override;
    HRESULT Load(IDataStream* stream, std::int32_t flags) override;
    using CDBLBuffer<CDblBuffer, double>::Save;
    using CDBLBuffer<CDblBuffer, double>::Load;

private:
    friend class CObject<CDblBuffer>;
    CDblBuffer() = default;
    // Listeners are released while the mutex still exists; the mutex member
    // is destroyed after this body, and nothing locks it afterwards.
    ~CDblBuffer() { ReleaseAllAdvise(); }

    CResourceLock m_lock;
};

template <>
const tagREFString IObjectInfoImpl<CDblBuffer>::m_ObjectName;
