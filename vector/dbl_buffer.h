// CDblBuffer: the "DblBuffer" component, a ring buffer of doubles with change events.
#pragma once

#include "com_types.h"
#include "module/iids.h"
#include "module/object.h"
#include "module_interfaces.h"

// Storage of the ring buffer (plain, unlocked, silent operations).
template <class T, class V>
class CDBLBuffer : public IDblVector {
public:
    HRESULT get_Size(std::int32_t* size) override {
        if (!size) return E_POINTER;
        *size = count;
        return S_OK;
    }
    HRESULT put_Size(std::int32_t) override { return E_NOTIMPL; }
    HRESULT get_Element(std::int32_t, double*) override { return E_NOTIMPL; }
    HRESULT put_Element(std::int32_t, double) override { return E_NOTIMPL; }
    HRESULT Sort(IDataStream*) override { return S_OK; }
    HRESULT Save(IDataStream*) override { return E_NOTIMPL; }
    HRESULT Load(IDataStream*) override { return E_NOTIMPL; }

protected:
    CDBLBuffer() : data(new V[32]) {}
    ~CDBLBuffer() { delete[] data; }

    std::int32_t count = 0;      // values held, 0..capacity
    std::int32_t head = -1;      // array position of the newest value, -1 when empty
    std::int32_t capacity = 32;  // length of the array
    V* data;                     // owned; null when capacity is 0
};

// The listener table of an event source for the listener interface *piid.
template <class T, const IID* piid>
class IEventSourceImpl : public IEventSource {
public:
    HRESULT Advise(IUnknown*, std::int32_t) override { return E_NOTIMPL; }
    std::int32_t GetAdviseCount() override { return 0; }
    HRESULT GetAdviseItem(std::uint32_t, IUnknown**, std::int32_t*) override { return E_FAIL; }
    HRESULT Advise(IUnknown*, std::int32_t, const IID&) override { return E_NOTIMPL; }

protected:
    ~IEventSourceImpl() = default;
};

// The firing side of the vector's events.
template <class T>
class _FIREDblVectorEvent {};

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

    HRESULT GetPages(std::int32_t reserved, INamedCollection** pages, IUnknown** site) override;
    HRESULT Save(IDataStream* stream, std::int32_t flags) override;
    HRESULT Load(IDataStream* stream, std::int32_t flags) override;
    using CDBLBuffer<CDblBuffer, double>::Save;
    using CDBLBuffer<CDblBuffer, double>::Load;

private:
    friend class CObject<CDblBuffer>;
    CDblBuffer() = default;
    ~CDblBuffer() = default;

    CResourceLock m_lock;
};

template <>
const tagREFString IObjectInfoImpl<CDblBuffer>::m_ObjectName;
