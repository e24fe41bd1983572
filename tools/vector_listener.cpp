#include "vector_listener.h"

#include <utility>

namespace timetool {

namespace {

constexpr IID kEventIid = IIDFromName("_IDblVectorEvent");

}  // namespace

HRESULT VectorListener::QueryInterface(const IID& iid, void** out) {
    if (!out) return E_POINTER;
    if (iid == IID_IUnknown || iid == kEventIid) {
        *out = static_cast<_IDblVectorEvent*>(this);
        AddRef();
        return S_OK;
    }
    *out = nullptr;
    return E_NOINTERFACE;
}

std::int32_t VectorListener::AddRef() { return ++references_; }

std::int32_t VectorListener::Release() {
    const std::int32_t left = --references_;
    if (left == 0) delete this;
    return left;
}

// Called by the module: nothing may escape, so a failed record is dropped.
HRESULT VectorListener::SizeChanged(IDblVector* /*vector*/) {
    try {
        events_.push_back(VectorEvent{"SizeChanged", 0});
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

HRESULT VectorListener::ElementChanged(IDblVector* /*vector*/, std::int32_t index) {
    try {
        events_.push_back(VectorEvent{"ElementChanged", index});
    } catch (...) {
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

std::vector<VectorEvent> VectorListener::TakeEvents() { return std::exchange(events_, {}); }

}  // namespace timetool
