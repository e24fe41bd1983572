// AddRef and Release of one object from many threads at once: every value
// returned stays within what the live references allow, and once the threads
// are done the count is back where it started.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <latch>
#include <thread>
#include <vector>

#include "support/module_host.h"

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 4000;
constexpr int kBatch = 4;  // references each thread holds at its peak

// Values outside [low, high] seen by the threads.
struct CountViolations {
    std::atomic<std::int64_t> addRef{0};
    std::atomic<std::int64_t> release{0};
    std::atomic<std::int64_t> addRefs{0};
    std::atomic<std::int64_t> releases{0};
};

// Runs `round` kRounds times on each of kThreads threads, all released at once.
template <class Round>
void RunRoundsOnThreads(const Round& round) {
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int i = 0; i < kRounds; ++i) round();
        });
    }
    for (std::thread& thread : threads) thread.join();
}

// The caller holds one reference throughout, so no count seen by a thread
// can drop below 1 or exceed 1 + kThreads * kBatch.
void HammerReferences(IUnknown* object, CountViolations& seen) {
    constexpr std::int32_t kMost = 1 + kThreads * kBatch;
    RunRoundsOnThreads([&] {
        for (int i = 0; i < kBatch; ++i) {
            const std::int32_t count = object->AddRef();
            seen.addRefs.fetch_add(1);
            if (count < 2 || count > kMost) seen.addRef.fetch_add(1);
        }
        for (int i = 0; i < kBatch; ++i) {
            const std::int32_t count = object->Release();
            seen.releases.fetch_add(1);
            if (count < 1 || count > kMost - 1) seen.release.fetch_add(1);
        }
    });
}

// Hammers `object`, which holds only the caller's reference, then checks
// every thread saw counts in range and the count is back at 1; the caller's
// reference is released here.
void ExpectCountsStayExact(IUnknown* object) {
    CountViolations seen;
    HammerReferences(object, seen);

    EXPECT_EQ(seen.addRefs.load(), 128000);
    EXPECT_EQ(seen.releases.load(), 128000);
    EXPECT_EQ(seen.addRef.load(), 0);
    EXPECT_EQ(seen.release.load(), 0);
    EXPECT_EQ(object->AddRef(), 2);
    EXPECT_EQ(object->Release(), 1);
    EXPECT_EQ(object->Release(), 0);
}

TEST(ReferenceCountStress, TimeCountsStayExactAcrossThreads) {
    ModuleHost host;
    SmartPtr<ITime> created = host.CreateTime<ITime>(HostIID("ITime"));
    ASSERT_TRUE(created);
    ExpectCountsStayExact(created.detach());
}

TEST(ReferenceCountStress, DblBufferCountsStayExactAcrossThreads) {
    ModuleHost host;
    SmartPtr<IDblVector> created = host.CreateDblBuffer<IDblVector>(HostIID("IDblVector"));
    ASSERT_TRUE(created);
    ExpectCountsStayExact(created.detach());
}

// QueryInterface hands out references too; threads asking for a second
// interface of the same object leave the count as they found it.
TEST(ReferenceCountStress, QueryInterfaceFromThreadsLeavesCountUnchanged) {
    ModuleHost host;
    SmartPtr<IDblVector> created = host.CreateDblBuffer<IDblVector>(HostIID("IDblVector"));
    ASSERT_TRUE(created);
    IDblVector* vector = created.detach();
    const IID sourceIID = HostIID("IEventSource");

    std::atomic<std::int64_t> failures{0};
    RunRoundsOnThreads([&] {
        void* source = nullptr;
        if (vector->QueryInterface(sourceIID, &source) != S_OK || !source) {
            failures.fetch_add(1);
            return;
        }
        if (static_cast<IUnknown*>(source)->Release() < 1) failures.fetch_add(1);
    });

    EXPECT_EQ(failures.load(), 0);
    EXPECT_EQ(vector->Release(), 0);
}

}  // namespace
