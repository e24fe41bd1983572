// The ring's position arithmetic as plain functions.
#include <gtest/gtest.h>

#include <cstdint>

#include "vector/ring_position.h"

namespace {

struct ReadCase {
    RingState ring;
    std::int32_t index;
    std::int32_t position;
};

// Capacity 3 after appending 1, 2, 3, 4: the array holds 4, 2, 3 and the
// newest value (4) sits at position 0.
constexpr RingState kWrappedThree{3, 0, 3};
// Capacity 5 holding two values at positions 0 and 1.
constexpr RingState kPartFive{2, 1, 5};
constexpr RingState kEmpty{0, -1, 32};
constexpr RingState kNoCapacity{0, -1, 0};

const ReadCase kReadCases[] = {
    {kEmpty, 0, -1},
    {kEmpty, -1, -1},
    {kNoCapacity, 0, -1},
    {kNoCapacity, -1, -1},
    {kWrappedThree, 0, 1},
    {kWrappedThree, 1, 2},
    {kWrappedThree, 2, 0},
    {kWrappedThree, 3, 1},  // an age equal to the capacity reads the oldest again
    {kWrappedThree, 4, 2},
    {kWrappedThree, 5, 0},
    {kWrappedThree, 7, 2},
    {kWrappedThree, 8, -1},
    {kWrappedThree, -1, 0},
    {kWrappedThree, -2, 2},
    {kWrappedThree, -3, 1},
    {kWrappedThree, -4, 0},
    {kWrappedThree, -5, -1},
    {kWrappedThree, INT32_MAX, -1},
    {kWrappedThree, INT32_MIN, -1},
    {kPartFive, 0, 0},
    {kPartFive, 1, 1},
    {kPartFive, 2, -1},
    {kPartFive, 4, -1},
    {kPartFive, 5, 0},  // wrapped once: aliases exist before the ring is full too
    {kPartFive, 6, 1},
    {kPartFive, 7, -1},
    {kPartFive, -1, 1},
    {kPartFive, -2, 0},
    {kPartFive, -3, -1},
    {kPartFive, -6, 1},
    {kPartFive, -7, 0},
    {kPartFive, -8, -1},
};

}  // namespace

TEST(RingReadPosition, MapsAgesToPositionsWithOneWrap) {
    for (const ReadCase& c : kReadCases) {
        EXPECT_EQ(RingReadPosition(c.ring, c.index), c.position)
            << "count " << c.ring.count << " head " << c.ring.head << " capacity " << c.ring.capacity << " index "
            << c.index;
    }
}

TEST(RingOverwrites, OnlyIndicesBelowTheCount) {
    EXPECT_TRUE(RingOverwrites(kWrappedThree, 0));
    EXPECT_TRUE(RingOverwrites(kWrappedThree, 2));
    EXPECT_FALSE(RingOverwrites(kWrappedThree, 3));
    EXPECT_FALSE(RingOverwrites(kWrappedThree, -1));
    EXPECT_FALSE(RingOverwrites(kEmpty, 0));
    EXPECT_FALSE(RingOverwrites(kPartFive, 2));
}

TEST(RingAppend, FillsInOrderThenOverwritesTheOldest) {
    RingState ring{0, -1, 3};
    const std::int32_t expectedPositions[] = {0, 1, 2, 0, 1, 2, 0};
    const std::int32_t expectedCounts[] = {1, 2, 3, 3, 3, 3, 3};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(RingAppend(ring), expectedPositions[i]) << i;
        EXPECT_EQ(ring.head, expectedPositions[i]) << i;
        EXPECT_EQ(ring.count, expectedCounts[i]) << i;
    }
}

TEST(RingAppend, CapacityOneAlwaysUsesPositionZero) {
    RingState ring{0, -1, 1};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(RingAppend(ring), 0);
        EXPECT_EQ(ring.count, 1);
    }
}

TEST(RingAppend, AfterEmptyingStartsAtPositionZeroAgain) {
    RingState ring{0, -1, 4};  // emptied with the same capacity
    EXPECT_EQ(RingAppend(ring), 0);
    EXPECT_EQ(RingAppend(ring), 1);
}
