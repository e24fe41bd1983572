// A global component collection that only counts: it records the value each
// AddRef and Release returns, in call order, and never frees itself (tests own
// it on the stack and by default start with their own reference, count 1).
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "com_types.h"
#include "framework_interfaces.h"
#include "support/fake_component_collection.h"

class CountingCollection final : public FakeComponentCollection {
public:
    explicit CountingCollection(std::int32_t initial = 1) : count(initial) {}

    std::int32_t count;
    std::vector<std::int32_t> history;  // results of AddRef (+n) and Release (-n)
    std::function<void()> onRelease;    // runs inside Release, before the count drops

    HRESULT QueryInterface(const IID& iid, void** out) override {
        static const IID kCollection = IIDFromName("IComponentCollection");
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, kCollection)) return E_NOINTERFACE;
        *out = static_cast<IComponentCollection*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override {
        history.push_back(+(++count));
        return count;
    }
    std::int32_t Release() override {
        if (onRelease) onRelease();
        history.push_back(-(--count));
        return count;
    }
};
