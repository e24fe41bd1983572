#include "stress/counting_listener.h"

#include "support/module_host.h"

CountingListener::CountingListener() : eventIID_(HostIID("_IDblVectorEvent")) {}

HRESULT CountingListener::QueryInterface(const IID& iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, eventIID_)) return E_NOINTERFACE;
    *out = static_cast<_IDblVectorEvent*>(this);
    AddRef();
    return S_OK;
}

HRESULT CountingListener::SizeChanged(IDblVector*) {
    sizeEvents_.fetch_add(1);
    return S_OK;
}

HRESULT CountingListener::ElementChanged(IDblVector*, std::int32_t) {
    elementEvents_.fetch_add(1);
    return S_OK;
}
