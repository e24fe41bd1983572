// Listener objects owned by the tests: they count their references, record
// every event with its arguments and never delete themselves (the test owns
// their storage), so counts can be checked after the vector is gone.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

#include "com_types.h"
#include "module_interfaces.h"

struct ListenerCall {
    enum Kind { kSizeChanged, kElementChanged };
    Kind kind;
    IDblVector* vector;
    std::int32_t index;       // ElementChanged only, else 0
    std::int32_t references;  // the listener's count while it was being called

    bool operator==(const ListenerCall&) const = default;
};

class TestListener;

// A second interface of the same listener object, for identity tests: its
// QueryInterface answers with the listener's own sub-objects.
class TestListenerSecondFace : public IObjectInfo {
public:
    explicit TestListenerSecondFace(TestListener& owner) : owner_(owner) {}
    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override;
    std::int32_t Release() override;
    HRESULT GetName(std::int32_t, tagREFString*) override { return E_NOTIMPL; }

private:
    TestListener& owner_;
};

class TestListener : public _IDblVectorEvent {
public:
    // refuseCode: when not 0, QueryInterface for the event interface returns
    // it instead of answering.
    explicit TestListener(HRESULT refuseCode = S_OK) : refuseCode_(refuseCode) {}
    TestListener(const TestListener&) = delete;
    TestListener& operator=(const TestListener&) = delete;

    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override { return refs_.fetch_add(1) + 1; }
    std::int32_t Release() override { return refs_.fetch_sub(1) - 1; }
    HRESULT SizeChanged(IDblVector* vector) override;
    HRESULT ElementChanged(IDblVector* vector, std::int32_t index) override;

    // The count, starting at 1 for the test's own reference.
    std::int32_t references() const { return refs_.load(); }
    std::vector<ListenerCall> calls() const;
    std::size_t callCount() const;
    IObjectInfo* secondFace() { return &second_; }
    // Run inside ElementChanged, after the call was recorded.
    void onElementChanged(std::function<void(IDblVector*, std::int32_t)> hook) { hook_ = std::move(hook); }
    // When set, calls are counted but not recorded (long runs).
    void countOnly() { countOnly_ = true; }

private:
    void Record(const ListenerCall& call);

    HRESULT refuseCode_;
    std::atomic<std::int32_t> refs_{1};
    TestListenerSecondFace second_{*this};
    mutable std::mutex mutex_;
    std::vector<ListenerCall> calls_;
    std::atomic<std::size_t> callCount_{0};
    bool countOnly_ = false;
    std::function<void(IDblVector*, std::int32_t)> hook_;
};
