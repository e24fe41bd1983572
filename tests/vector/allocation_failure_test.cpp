// Allocation failures inside the vector: a capacity or a listener slot array
// that cannot be allocated gives E_OUTOFMEMORY and changes nothing. This
// binary replaces the non-throwing array allocation so that refusals are
// deterministic whatever the machine's memory.
#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <vector>

#include "vector/fake_data_stream.h"
#include "vector/storage_probe.h"
#include "vector/test_listener.h"

namespace {
// Non-throwing array allocations of at least this many bytes are refused.
std::atomic<std::size_t> gRefuseFrom{std::numeric_limits<std::size_t>::max()};

struct RefuseFrom {
    explicit RefuseFrom(std::size_t bytes) { gRefuseFrom = bytes; }
    ~RefuseFrom() { gRefuseFrom = std::numeric_limits<std::size_t>::max(); }
};
}  // namespace

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (size >= gRefuseFrom.load()) return nullptr;
    try {
        return ::operator new[](size);
    } catch (...) {
        return nullptr;
    }
}

namespace {

constexpr std::size_t kLargeArray = std::size_t{1} << 20;

struct AllocationFixture : ::testing::Test {
    IEventSource* source = CreateBufferSource();
    IDblVector* vector = nullptr;
    TestListener listener;

    void SetUp() override {
        ASSERT_NE(source, nullptr);
        ASSERT_EQ(source->QueryInterface(IID_IDblVector, reinterpret_cast<void**>(&vector)), S_OK);
        ASSERT_EQ(vector->put_Size(3), S_OK);
        for (double value : {1.0, 2.0, 3.0, 4.0}) ASSERT_EQ(vector->put_Element(-1, value), S_OK);
        ASSERT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listener), 1), S_OK);
    }
    void TearDown() override {
        if (vector) {
            EXPECT_EQ(vector->Release(), 1);
        }
        if (source) {
            EXPECT_EQ(source->Release(), 0);
        }
        EXPECT_EQ(listener.references(), 1);
    }
    // The buffer still holds 2, 3, 4 with capacity 3, and a new append wraps.
    void ExpectUnchanged() {
        std::int32_t size = 0;
        EXPECT_EQ(vector->get_Size(&size), S_OK);
        EXPECT_EQ(size, 3);
        const double expected[] = {2.0, 3.0, 4.0};
        for (std::int32_t age = 0; age < 3; ++age) {
            double value = 0;
            EXPECT_EQ(vector->get_Element(age, &value), S_OK);
            EXPECT_EQ(value, expected[age]) << age;
        }
        EXPECT_EQ(listener.calls().size(), 0u);
        EXPECT_EQ(vector->put_Element(-1, 5.0), S_OK);
        double oldest = 0;
        EXPECT_EQ(vector->get_Element(0, &oldest), S_OK);
        EXPECT_EQ(oldest, 3.0);
    }
};

using AllocationFailure = AllocationFixture;

}  // namespace

TEST_F(AllocationFailure, PutSizeThatCannotBeAllocatedChangesNothing) {
    {
        RefuseFrom refuse(kLargeArray);
        EXPECT_EQ(vector->put_Size(INT32_MAX), static_cast<HRESULT>(0x8007000Eu));
        EXPECT_EQ(vector->put_Size(1 << 20), static_cast<HRESULT>(0x8007000Eu));
    }
    ExpectUnchanged();
}

TEST_F(AllocationFailure, LoadWithAnAbsurdCapacityChangesNothing) {
    std::vector<std::uint8_t> bytes;
    AppendInt32(bytes, INT32_MAX);
    AppendDouble(bytes, 7.0);
    FakeDataStream stream(bytes);
    {
        RefuseFrom refuse(kLargeArray);
        EXPECT_EQ(vector->Load(&stream), static_cast<HRESULT>(0x8007000Eu));
    }
    EXPECT_EQ(stream.reads.size(), 1u);
    EXPECT_EQ(stream.references(), 1);
    ExpectUnchanged();
}

TEST_F(AllocationFailure, SmallCapacitiesStillSucceedWhileLargeOnesAreRefused) {
    RefuseFrom refuse(kLargeArray);
    EXPECT_EQ(vector->put_Size(8), S_OK);
    std::int32_t size = -1;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(listener.calls().size(), 1u);
}

TEST(AdviseTableAllocation, GrowthThatCannotBeAllocatedRefusesTheListener) {
    IEventSource* source = CreateBufferSource();
    ASSERT_NE(source, nullptr);
    TestListener listeners[9];
    for (int i = 0; i < 8; ++i) EXPECT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listeners[i]), 1), S_OK);
    {
        RefuseFrom refuse(16 * sizeof(void*));
        EXPECT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listeners[8]), 1), static_cast<HRESULT>(0x8007000Eu));
    }
    EXPECT_EQ(source->GetAdviseCount(), 8);
    EXPECT_EQ(static_cast<DblEventSource*>(source)->GetAdviseCapacity(), 8);
    EXPECT_EQ(listeners[8].references(), 1);
    EXPECT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listeners[8]), 1), S_OK);
    EXPECT_EQ(source->Release(), 0);
    for (TestListener& listener : listeners) EXPECT_EQ(listener.references(), 1);
}
