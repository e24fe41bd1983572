// Listeners run without the vector's lock: they may read the vector from
// inside a notification, and two threads may append and read at once.
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "vector/test_listener.h"
#include "vector/vector_host.h"

namespace {

IUnknown* AsUnknown(TestListener& listener) { return static_cast<_IDblVectorEvent*>(&listener); }

constexpr int kAppendsPerThread = 20000;

}  // namespace

TEST(VectorListenerReentry, ListenerReadsTheVectorInsideElementChanged) {
    TestListener first, second;  // outlive the vector
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
    std::vector<double> seen;
    std::vector<std::int32_t> sizes;
    auto reader = [&](IDblVector* from, std::int32_t) {
        double newest = kUntouched;
        EXPECT_EQ(from->get_Element(-1, &newest), S_OK);
        seen.push_back(newest);
        std::int32_t size = -1;
        EXPECT_EQ(from->get_Size(&size), S_OK);
        sizes.push_back(size);
    };
    first.onElementChanged(reader);
    second.onElementChanged(reader);
    EXPECT_EQ(source->Advise(AsUnknown(first), 1), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(second), 1), S_OK);
    EXPECT_EQ(vector->put_Size(2), S_OK);
    AppendAll(vector.get(), {1.5, 2.5, 3.5});
    EXPECT_EQ(seen, (std::vector<double>{1.5, 1.5, 2.5, 2.5, 3.5, 3.5}));
    EXPECT_EQ(sizes, (std::vector<std::int32_t>{1, 1, 2, 2, 2, 2}));
    // The vector is still usable, and unlocked, afterwards.
    double oldest = 0;
    EXPECT_EQ(vector->get_Element(0, &oldest), S_OK);
    EXPECT_EQ(oldest, 2.5);
    EXPECT_EQ(vector->put_Element(-1, 4.5), S_OK);
    EXPECT_EQ(first.references(), 2);
}

TEST(VectorListenerReentry, ListenerMayResizeInsideElementChanged) {
    TestListener listener;  // outlives the vector
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
    bool resized = false;
    listener.onElementChanged([&](IDblVector* from, std::int32_t) {
        if (!resized) {
            resized = true;
            EXPECT_EQ(from->put_Size(4), S_OK);
        }
    });
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(vector->put_Element(-1, 1.0), S_OK);
    std::int32_t size = -1;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    EXPECT_EQ(size, 0);
    AppendAll(vector.get(), {1, 2, 3, 4, 5});
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    EXPECT_EQ(size, 4);
    EXPECT_EQ(listener.calls().size(), 7u);  // 6 appends and the size change
}

TEST(VectorThreads, TwoThreadsAppendAndReadWithListenersAttached) {
    TestListener counting, reading;
    counting.countOnly();
    reading.countOnly();
    std::atomic<int> readFailures{0};
    reading.onElementChanged([&](IDblVector* from, std::int32_t) {
        double value = 0;
        if (from->get_Element(-1, &value) != S_OK) ++readFailures;
    });
    {
        SmartPtr<IDblVector> vector = CreateVector();
        SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
        ASSERT_EQ(source->Advise(AsUnknown(counting), 1), S_OK);
        ASSERT_EQ(source->Advise(AsUnknown(reading), 1), S_OK);
        ASSERT_EQ(vector->put_Size(64), S_OK);
        std::atomic<int> badReads{0};
        auto work = [&](double sign) {
            for (int i = 1; i <= kAppendsPerThread; ++i) {
                if (vector->put_Element(-1, sign * i) != S_OK) ++badReads;
                // Once this thread alone has appended 64 values every age in
                // [-64, 63] is held.
                double value = 0;
                const HRESULT read = vector->get_Element(i % 128 - 64, &value);
                if (i > 64 && read != S_OK) ++badReads;
                std::int32_t size = 0;
                if (vector->get_Size(&size) != S_OK || size < 1 || size > 64) ++badReads;
            }
        };
        std::thread a(work, 1.0);
        std::thread b(work, -1.0);
        a.join();
        b.join();
        EXPECT_EQ(badReads.load(), 0);
        EXPECT_EQ(readFailures.load(), 0);
        std::int32_t size = 0;
        EXPECT_EQ(vector->get_Size(&size), S_OK);
        EXPECT_EQ(size, 64);
        EXPECT_EQ(counting.callCount(), 2u * kAppendsPerThread + 1u);
        EXPECT_EQ(reading.callCount(), 2u * kAppendsPerThread + 1u);
        EXPECT_EQ(counting.references(), 2);
        EXPECT_EQ(reading.references(), 2);
        EXPECT_EQ(source.detach()->Release(), 1);
        EXPECT_EQ(vector.detach()->Release(), 0);
    }
    EXPECT_EQ(counting.references(), 1);
    EXPECT_EQ(reading.references(), 1);
    EXPECT_EQ(counting.Release(), 0);
    EXPECT_EQ(reading.Release(), 0);
}

TEST(VectorThreads, RegistrationChurnDuringAppendsKeepsCountsBalanced) {
    TestListener steady, churning;
    steady.countOnly();
    churning.countOnly();
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
    ASSERT_EQ(source->Advise(AsUnknown(steady), 1), S_OK);
    std::atomic<bool> appending{true};
    std::thread appender([&] {
        for (int i = 0; i < kAppendsPerThread; ++i) vector->put_Element(-1, i);
        appending = false;
    });
    std::thread churner([&] {
        int rounds = 0;
        while (appending.load() || rounds < 10) {
            EXPECT_EQ(source->Advise(AsUnknown(churning), 1), S_OK);
            EXPECT_EQ(source->Advise(AsUnknown(churning), 0), S_OK);
            ++rounds;
        }
    });
    appender.join();
    churner.join();
    EXPECT_EQ(steady.callCount(), static_cast<std::size_t>(kAppendsPerThread));
    EXPECT_LE(churning.callCount(), static_cast<std::size_t>(kAppendsPerThread));
    EXPECT_EQ(churning.references(), 1);
    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(source.detach()->Release(), 1);
    EXPECT_EQ(vector.detach()->Release(), 0);
    EXPECT_EQ(steady.references(), 1);
}
