// The reference-counted object base shared by the module's components: one
// count, one interface map and one class factory per class.
#pragma once

#include <atomic>
#include <cstddef>
#include <new>

#include "base/iids.h"
#include "com_types.h"
#include "module_interfaces.h"

// One row of a class's interface map: the identifier and the sub-object that answers it.
template <class T>
struct InterfaceMapEntry {
    const IID* iid;
    IUnknown* (*subobject)(T* object);
};

// Walks an interface map in order. The first row is always IID_IUnknown; for
// any other identifier *out is cleared before the remaining rows are tried.
template <class T, std::size_t N>
HRESULT QueryInterfaceFromMap(T* object, const InterfaceMapEntry<T> (&map)[N], const IID& iid, void** out) {
    static_assert(N >= 1);
    if (!out) return E_POINTER;
    for (std::size_t i = 0; i < N; ++i) {
        if (IsEqualIID(iid, *map[i].iid)) {
            IUnknown* answer = map[i].subobject(object);
            object->AddRef();
            *out = answer;
            return S_OK;
        }
        if (i == 0) *out = nullptr;
    }
    return E_NOINTERFACE;
}

// Base of every component class T (T is its own template argument). The
// concrete class supplies QueryInterface, AddRef and Release, so that all its
// interface sub-objects share them; AddRefImpl and ReleaseImpl do the counting.
template <class T>
class CObject : public IUnknown {
public:
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    HRESULT QueryInterface(const IID& /*iid*/, void** out) override {
        if (out) *out = nullptr;
        return E_NOINTERFACE;
    }
    virtual HRESULT FinalConstruct() { return S_OK; }
    virtual void FinalRelease() {}
    virtual void Lock() {}
    virtual void Unlock() {}

    // The creation function handed out by CreateFunction. Aggregation is not
    // supported: `outer` is ignored.
    static HRESULT _CreateInstance(void* outer, const IID* iid, void** out);

protected:
    CObject() = default;
    ~CObject() = default;

    // The count is read again after the increment; callers see that value.
    std::int32_t AddRefImpl() {
        m_refCount.fetch_add(1, std::memory_order_relaxed);
        return m_refCount.load(std::memory_order_relaxed);
    }

    // The count after the decrement is taken from the atomic operation itself,
    // so two threads releasing at once can never both see zero.
    std::int32_t ReleaseImpl() {
        const std::int32_t count = m_refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (count == 0) [[unlikely]]
            return Destroy();
        return count;
    }

private:
    // Returns 0, the count a destroyed object reports.
    std::int32_t Destroy() {
        FinalRelease();
        delete static_cast<T*>(this);
        return 0;
    }

    std::atomic<std::int32_t> m_refCount{1};
};

template <class T>
HRESULT CObject<T>::_CreateInstance(void* /*outer*/, const IID* iid, void** out) {
    if (!iid || !out) return E_POINTER;
    T* object = nullptr;
    try {
        object = new T();
    } catch (...) {
        return E_OUTOFMEMORY;  // the partly built object is freed by the language
    }
    // A failed final construction leaves *out as the caller passed it.
    HRESULT hr = object->FinalConstruct();
    if (hr == S_OK) {
        *out = nullptr;
        hr = object->QueryInterface(*iid, out);
        if (SUCCEEDED(hr)) {
            object->Release();  // the caller keeps the reference QueryInterface added
            if (hr == S_OK) return S_OK;
            *out = nullptr;  // a positive code is a failure; the maps never give one
        }
    }
    object->FinalRelease();
    delete object;
    return hr;
}

// Supplies a component's name through IObjectInfo.
template <class T>
class IObjectInfoImpl : public IObjectInfo {
public:
    // Defined once per class: "Time", "DblBuffer".
    static const tagREFString m_ObjectName;

    HRESULT GetName(std::int32_t /*reserved*/, tagREFString* name) override {
        if (!name) return E_POINTER;
        *name = m_ObjectName;
        return S_OK;
    }

protected:
    ~IObjectInfoImpl() = default;
};
