// A vector listener for runs on many threads: it counts its references and
// the events it receives, records nothing else and never deletes itself (the
// test owns it), so its counts can be checked after the vector is gone.
#pragma once

#include <atomic>
#include <cstdint>

#include "com_types.h"
#include "module_interfaces.h"

class CountingListener : public _IDblVectorEvent {
public:
    CountingListener();
    CountingListener(const CountingListener&) = delete;
    CountingListener& operator=(const CountingListener&) = delete;

    HRESULT QueryInterface(const IID& iid, void** out) override;
    std::int32_t AddRef() override { return refs_.fetch_add(1) + 1; }
    std::int32_t Release() override { return refs_.fetch_sub(1) - 1; }
    HRESULT SizeChanged(IDblVector*) override;
    HRESULT ElementChanged(IDblVector*, std::int32_t) override;

    // Starts at 1: the test's own reference.
    std::int32_t references() const { return refs_.load(); }
    std::int64_t sizeEvents() const { return sizeEvents_.load(); }
    std::int64_t elementEvents() const { return elementEvents_.load(); }

private:
    IID eventIID_;
    std::atomic<std::int32_t> refs_{1};
    std::atomic<std::int64_t> sizeEvents_{0};
    std::atomic<std::int64_t> elementEvents_{0};
};
