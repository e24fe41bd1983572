// The storage template's fields across construction, resizing and appends,
// and the growth of the listener table.
#include <gtest/gtest.h>

#include "vector/storage_probe.h"
#include "vector/test_listener.h"

TEST(DblStorage, ConstructionGivesCapacityThirtyTwoAndAnEmptyRing) {
    StorageProbe probe;
    EXPECT_EQ(probe.capacity.load(), 32);
    EXPECT_EQ(probe.count.load(), 0);
    EXPECT_EQ(probe.head, -1);
    EXPECT_NE(probe.data, nullptr);
}

TEST(DblStorage, AppendsWrapOntoTheOldestPosition) {
    StorageProbe probe;
    EXPECT_EQ(probe.put_Size(3), S_OK);
    for (double value : {1.0, 2.0, 3.0, 4.0}) EXPECT_EQ(probe.put_Element(-1, value), S_OK);
    EXPECT_EQ(probe.count.load(), 3);
    EXPECT_EQ(probe.head, 0);
    EXPECT_EQ(probe.data[0], 4.0);
    EXPECT_EQ(probe.data[1], 2.0);
    EXPECT_EQ(probe.data[2], 3.0);
}

TEST(DblStorage, SameCapacityKeepsTheArrayAndItsValues) {
    StorageProbe probe;
    EXPECT_EQ(probe.put_Size(3), S_OK);
    for (double value : {1.0, 2.0, 3.0, 4.0}) EXPECT_EQ(probe.put_Element(-1, value), S_OK);
    const double* before = probe.data.get();
    EXPECT_EQ(probe.put_Size(3), S_OK);
    EXPECT_EQ(probe.data.get(), before);
    EXPECT_EQ(probe.count.load(), 0);
    EXPECT_EQ(probe.head, -1);
    EXPECT_EQ(probe.capacity.load(), 3);
    EXPECT_EQ(probe.data[0], 4.0);
    EXPECT_EQ(probe.data[1], 2.0);
    EXPECT_EQ(probe.data[2], 3.0);
}

TEST(DblStorage, OtherCapacityReplacesTheArray) {
    StorageProbe probe;
    EXPECT_EQ(probe.put_Element(-1, 1.0), S_OK);
    EXPECT_EQ(probe.put_Size(5), S_OK);
    EXPECT_EQ(probe.capacity.load(), 5);
    EXPECT_EQ(probe.count.load(), 0);
    EXPECT_EQ(probe.head, -1);
    EXPECT_NE(probe.data, nullptr);
}

TEST(DblStorage, ZeroOrNegativeCapacityLeavesNoArray) {
    for (std::int32_t size : {0, -1, -32, INT32_MIN}) {
        StorageProbe probe;
        EXPECT_EQ(probe.put_Size(size), S_OK);
        EXPECT_EQ(probe.capacity.load(), 0) << size;
        EXPECT_EQ(probe.data, nullptr) << size;
        EXPECT_EQ(probe.count.load(), 0);
        EXPECT_EQ(probe.head, -1);
        EXPECT_EQ(probe.put_Element(-1, 1.0), E_FAIL);
        EXPECT_EQ(probe.count.load(), 0);
        EXPECT_EQ(probe.put_Size(0), S_OK);
        EXPECT_EQ(probe.data, nullptr);
    }
}

TEST(DblStorage, OverwriteAfterTheWrapStoresAtTheRawPosition) {
    StorageProbe probe;
    EXPECT_EQ(probe.put_Size(3), S_OK);
    for (double value : {1.0, 2.0, 3.0, 4.0}) EXPECT_EQ(probe.put_Element(-1, value), S_OK);
    EXPECT_EQ(probe.put_Element(0, 9.0), S_OK);
    EXPECT_EQ(probe.data[0], 9.0);
    EXPECT_EQ(probe.head, 0);
    EXPECT_EQ(probe.count.load(), 3);
}

TEST(AdviseTable, NineRegistrationsGrowTheTableToSixteenSlots) {
    IEventSource* source = CreateBufferSource();
    ASSERT_NE(source, nullptr);
    auto* table = static_cast<DblEventSource*>(source);
    EXPECT_EQ(table->GetAdviseCapacity(), 0);
    TestListener listeners[9];
    const std::int32_t expectedSlots[] = {8, 8, 8, 8, 8, 8, 8, 8, 16};
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listeners[i]), 1), S_OK);
        EXPECT_EQ(table->GetAdviseCapacity(), expectedSlots[i]) << i;
    }
    EXPECT_EQ(source->Advise(nullptr, 0), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(table->GetAdviseCapacity(), 16);  // the slot array is kept
    EXPECT_EQ(source->Release(), 0);
    for (TestListener& listener : listeners) EXPECT_EQ(listener.references(), 1);
}
