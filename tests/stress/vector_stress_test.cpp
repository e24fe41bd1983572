// The vector's changing operations from several threads while listeners are
// advised and removed: every call returns one of its documented codes, the
// listener registered throughout hears every change exactly once, and every
// reference taken is given back.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <latch>
#include <thread>
#include <vector>

#include "stress/counting_listener.h"
#include "support/module_host.h"

namespace {

constexpr int kWrites = 10000;  // per writer thread
constexpr int kReads = 20000;
constexpr int kResizes = 300;
constexpr int kAdviseRounds = 300;
constexpr int kTransientListeners = 3;

struct Outcomes {
    std::atomic<std::int64_t> stored{0};      // put_Element S_OK
    std::atomic<std::int64_t> noCapacity{0};  // put_Element E_FAIL
    std::atomic<std::int64_t> read{0};        // get_Element S_OK
    std::atomic<std::int64_t> outOfRange{0};  // get_Element E_INVALIDARG
    std::atomic<std::int64_t> unexpected{0};  // any other code
};

void CountWrite(Outcomes& outcomes, HRESULT hr) {
    if (hr == S_OK) {
        outcomes.stored.fetch_add(1);
    } else if (hr == E_FAIL) {
        outcomes.noCapacity.fetch_add(1);
    } else {
        outcomes.unexpected.fetch_add(1);
    }
}

// A DblBuffer and its event source, each held by one reference that the test
// gives back itself (the last Release of the vector must return 0).
class VectorStress : public ::testing::Test {
protected:
    void SetUp() override {
        SmartPtr<IDblVector> created = host_.CreateDblBuffer<IDblVector>(HostIID("IDblVector"));
        ASSERT_TRUE(created);
        vector = created.detach();
        void* sourceSlot = nullptr;
        ASSERT_EQ(vector->QueryInterface(HostIID("IEventSource"), &sourceSlot), S_OK);
        source = static_cast<IEventSource*>(sourceSlot);
    }

    IDblVector* vector = nullptr;
    IEventSource* source = nullptr;

private:
    ModuleHost host_;
};

TEST_F(VectorStress, ChangesFromThreadsReachTheStandingListenerExactlyOnce) {
    CountingListener standing;
    std::array<CountingListener, kTransientListeners> transient;
    ASSERT_EQ(source->Advise(&standing, 1), S_OK);

    Outcomes outcomes;
    std::atomic<std::int64_t> adviseFailures{0};
    std::atomic<std::int64_t> sizeFailures{0};
    std::latch start(5);
    std::vector<std::thread> threads;
    // Appender: the usual put_Element(-1, value).
    threads.emplace_back([&] {
        start.arrive_and_wait();
        for (int i = 0; i < kWrites; ++i) CountWrite(outcomes, vector->put_Element(-1, i));
    });
    // Overwriter: positions that may or may not hold a value at the moment.
    threads.emplace_back([&] {
        start.arrive_and_wait();
        for (int i = 0; i < kWrites; ++i) CountWrite(outcomes, vector->put_Element(i % 40, -i));
    });
    // Reader: ages from both ends, some beyond any capacity used here.
    threads.emplace_back([&] {
        start.arrive_and_wait();
        for (int i = 0; i < kReads; ++i) {
            double value = 0.0;
            const HRESULT hr = vector->get_Element(i % 80 - 40, &value);
            if (hr == S_OK) {
                outcomes.read.fetch_add(1);
            } else if (hr == E_INVALIDARG) {
                outcomes.outOfRange.fetch_add(1);
            } else {
                outcomes.unexpected.fetch_add(1);
            }
        }
    });
    // Resizer: capacities 0 (appends then fail), small ones that wrap, the
    // current one (values kept) and larger ones.
    threads.emplace_back([&] {
        constexpr std::array<std::int32_t, 6> kSizes{3, 0, 32, 32, 7, -5};
        start.arrive_and_wait();
        for (int i = 0; i < kResizes; ++i) {
            if (vector->put_Size(kSizes[i % kSizes.size()]) != S_OK) sizeFailures.fetch_add(1);
        }
    });
    // Advisor: listeners come and go while events are fired.
    threads.emplace_back([&] {
        start.arrive_and_wait();
        for (int i = 0; i < kAdviseRounds; ++i) {
            CountingListener& listener = transient[i % kTransientListeners];
            if (source->Advise(&listener, 1) != S_OK) adviseFailures.fetch_add(1);
            if (source->Advise(&listener, 0) != S_OK) adviseFailures.fetch_add(1);
        }
    });
    for (std::thread& thread : threads) thread.join();

    EXPECT_EQ(outcomes.unexpected.load(), 0);
    EXPECT_EQ(outcomes.stored.load() + outcomes.noCapacity.load(), 2 * kWrites);
    EXPECT_EQ(outcomes.read.load() + outcomes.outOfRange.load(), kReads);
    EXPECT_EQ(sizeFailures.load(), 0);
    EXPECT_EQ(adviseFailures.load(), 0);

    // Notified in every case, a refused write included.
    EXPECT_EQ(standing.elementEvents(), 2 * kWrites);
    EXPECT_EQ(standing.sizeEvents(), kResizes);
    for (const CountingListener& listener : transient) {
        EXPECT_EQ(listener.references(), 1);
        EXPECT_LE(listener.elementEvents(), 2 * kWrites);
        EXPECT_LE(listener.sizeEvents(), kResizes);
    }

    // The last resize (kResizes % 6 == 0 rounds of the table) left capacity -5,
    // that is 0; the state is whole again once the threads are done.
    std::int32_t size = -1;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(vector->put_Size(3), S_OK);
    for (double value : {1.0, 2.0, 3.0, 4.0}) EXPECT_EQ(vector->put_Element(-1, value), S_OK);
    double oldest = 0.0;
    EXPECT_EQ(vector->get_Element(0, &oldest), S_OK);
    EXPECT_EQ(oldest, 2.0);

    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(standing.references(), 2);
    EXPECT_EQ(source->Advise(&standing, 0), S_OK);
    EXPECT_EQ(standing.references(), 1);
    EXPECT_EQ(source->Release(), 1);
    EXPECT_EQ(vector->Release(), 0);
}

// Listeners advised and removed from several threads at once: the table ends
// empty and every listener holds only the test's reference again.
TEST_F(VectorStress, ConcurrentAdviseAndRemoveLeaveNoEntries) {
    constexpr int kAdvisors = 4;
    constexpr int kRounds = 500;
    std::array<CountingListener, kAdvisors * 3> listeners;
    std::atomic<std::int64_t> failures{0};
    std::latch start(kAdvisors + 1);
    std::vector<std::thread> threads;
    for (int t = 0; t < kAdvisors; ++t) {
        threads.emplace_back([&, t] {
            start.arrive_and_wait();
            for (int i = 0; i < kRounds; ++i) {
                CountingListener& listener = listeners[t * 3 + i % 3];
                if (source->Advise(&listener, 1) != S_OK) failures.fetch_add(1);
                if (source->Advise(&listener, 0) != S_OK) failures.fetch_add(1);
            }
        });
    }
    threads.emplace_back([&] {
        start.arrive_and_wait();
        for (int i = 0; i < kRounds; ++i) vector->put_Element(-1, i);
    });
    for (std::thread& thread : threads) thread.join();

    EXPECT_EQ(failures.load(), 0);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    for (const CountingListener& listener : listeners) EXPECT_EQ(listener.references(), 1);
    EXPECT_EQ(source->Release(), 1);
    EXPECT_EQ(vector->Release(), 0);
}

}  // namespace
