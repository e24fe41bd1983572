#include "vector/test_listener.h"

#include "support/module_host.h"

namespace {
const IID kEventIID = HostIID("_IDblVectorEvent");
const IID kSecondIID = HostIID("IObjectInfo");
}  // namespace

HRESULT TestListenerSecondFace::QueryInterface(const IID& iid, void** out) { return owner_.QueryInterface(iid, out); }
std::int32_t TestListenerSecondFace::AddRef() { return owner_.AddRef(); }
std::int32_t TestListenerSecondFace::Release() { return owner_.Release(); }

HRESULT TestListener::QueryInterface(const IID& iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (IsEqualIID(iid, IID_IUnknown)) {
        *out = static_cast<_IDblVectorEvent*>(this);
    } else if (IsEqualIID(iid, kEventIID)) {
        if (refuseCode_ != S_OK) return refuseCode_;
        *out = static_cast<_IDblVectorEvent*>(this);
    } else if (IsEqualIID(iid, kSecondIID)) {
        *out = &second_;
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

HRESULT TestListener::SizeChanged(IDblVector* vector) {
    Record({ListenerCall::kSizeChanged, vector, 0, references()});
    return S_OK;
}

HRESULT TestListener::ElementChanged(IDblVector* vector, std::int32_t index) {
    Record({ListenerCall::kElementChanged, vector, index, references()});
    if (hook_) hook_(vector, index);
    return S_OK;
}

void TestListener::Record(const ListenerCall& call) {
    callCount_.fetch_add(1);
    if (countOnly_) return;
    std::lock_guard<std::mutex> lock(mutex_);
    calls_.push_back(call);
}

std::vector<ListenerCall> TestListener::calls() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return calls_;
}

std::size_t TestListener::callCount() const { return callCount_.load(); }
