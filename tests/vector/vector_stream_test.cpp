// The vector's stored form through a test-owned stream: the exact bytes, the
// reversed reload, capacity headers, and the 16-bit reader loop.
#include <gtest/gtest.h>

#include <bit>
#include <vector>

#include "vector/fake_data_stream.h"
#include "vector/test_listener.h"
#include "vector/vector_host.h"

static_assert(std::endian::native == std::endian::little, "the expected bytes below are little-endian");

namespace {

using Bytes = std::vector<std::uint8_t>;

// 3, then 4.0, 3.0 and 2.0 as IEEE doubles.
const Bytes kThreeHoldingTwoThreeFour{0x03, 0x00, 0x00, 0x00,                           //
                                      0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x40,   // 4.0
                                      0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0x40,   // 3.0
                                      0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40};  // 2.0

SmartPtr<IDblVector> VectorOfThreeHoldingTwoThreeFour() {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(3), S_OK);
    AppendAll(vector.get(), {1, 2, 3, 4});
    return vector;
}

std::int32_t SizeOf(IDblVector* vector) {
    std::int32_t size = -99;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    return size;
}

std::vector<double> AgesOf(IDblVector* vector) {
    std::vector<double> values;
    const std::int32_t size = SizeOf(vector);
    for (std::int32_t age = 0; age < size; ++age) {
        double value = 0;
        EXPECT_EQ(vector->get_Element(age, &value), S_OK);
        values.push_back(value);
    }
    return values;
}

// Appends expose the capacity: once full, the count stops growing.
std::int32_t CapacityOf(IDblVector* vector, std::int32_t probeLimit) {
    for (std::int32_t i = 0; i < probeLimit; ++i) {
        if (vector->put_Element(-1, 0.0) != S_OK) return 0;
    }
    return SizeOf(vector);
}

}  // namespace

TEST(VectorSave, WritesTheCapacityThenTheValuesNewestFirst) {
    SmartPtr<IDblVector> vector = VectorOfThreeHoldingTwoThreeFour();
    FakeDataStream stream;
    stream.writeDoneReport = -7;
    stream.numberWrites = true;
    EXPECT_EQ(vector->Save(&stream), 4);  // the last Write's result
    EXPECT_EQ(stream.bytes(), kThreeHoldingTwoThreeFour);
    EXPECT_EQ(stream.writes, (std::vector<StreamCall>{{4, 4}, {8, 8}, {8, 8}, {8, 8}}));
    EXPECT_TRUE(stream.reads.empty());
    EXPECT_EQ(stream.references(), 1);
}

TEST(VectorSave, PersistFormWritesTheSameBytesAndIgnoresFlags) {
    SmartPtr<IDblVector> vector = VectorOfThreeHoldingTwoThreeFour();
    SmartPtr<IDataPersist> persist = QueryAs<IDataPersist>(vector.get(), Iids().persist);
    ASSERT_TRUE(persist);
    for (std::int32_t flags : {0, 1, -1}) {
        FakeDataStream stream;
        EXPECT_EQ(persist->Save(&stream, flags), S_OK);
        EXPECT_EQ(stream.bytes(), kThreeHoldingTwoThreeFour);
    }
}

TEST(VectorSave, EmptyVectorWritesOnlyTheCapacityAndReturnsZero) {
    SmartPtr<IDblVector> vector = CreateVector();
    FakeDataStream stream;
    stream.numberWrites = true;
    EXPECT_EQ(vector->Save(&stream), S_OK);
    EXPECT_EQ(stream.bytes(), (Bytes{0x20, 0x00, 0x00, 0x00}));
    EXPECT_EQ(stream.writes, (std::vector<StreamCall>{{4, 4}}));
}

TEST(VectorSave, PartlyFilledVectorStillWritesTheCapacity) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(5), S_OK);
    AppendAll(vector.get(), {0.5, -1.0});
    FakeDataStream stream;
    EXPECT_EQ(vector->Save(&stream), S_OK);
    EXPECT_EQ(stream.bytes(), (Bytes{0x05, 0x00, 0x00, 0x00,                             //
                                     0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0xBF,     // -1.0
                                     0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xE0, 0x3F}));  // 0.5
}

TEST(VectorSave, ZeroCapacityWritesAZeroHeader) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(-4), S_OK);
    FakeDataStream stream;
    EXPECT_EQ(vector->Save(&stream), S_OK);
    EXPECT_EQ(stream.bytes(), (Bytes{0x00, 0x00, 0x00, 0x00}));
}

TEST(VectorLoad, ReloadReversesTheValues) {
    SmartPtr<IDblVector> vector = CreateVector();
    FakeDataStream stream(kThreeHoldingTwoThreeFour);
    EXPECT_EQ(vector->Load(&stream), S_OK);
    EXPECT_EQ(AgesOf(vector.get()), (std::vector<double>{4.0, 3.0, 2.0}));
    EXPECT_EQ(stream.reads, (std::vector<StreamCall>{{4, 4}, {8, 8}, {8, 8}, {8, 8}}));
    EXPECT_EQ(CapacityOf(vector.get(), 10), 3);
    EXPECT_EQ(stream.references(), 1);
}

TEST(VectorLoad, PersistFormLoadsTheSameWay) {
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IDataPersist> persist = QueryAs<IDataPersist>(vector.get(), Iids().persist);
    ASSERT_TRUE(persist);
    FakeDataStream stream(kThreeHoldingTwoThreeFour);
    EXPECT_EQ(persist->Load(&stream, 99), S_OK);
    EXPECT_EQ(AgesOf(vector.get()), (std::vector<double>{4.0, 3.0, 2.0}));
}

TEST(VectorLoad, SaveThenLoadGivesCapacityThreeWithFourThreeTwo) {
    SmartPtr<IDblVector> saved = VectorOfThreeHoldingTwoThreeFour();
    FakeDataStream stream;
    EXPECT_EQ(saved->Save(&stream), S_OK);
    EXPECT_EQ(stream.Rewind(), S_OK);
    SmartPtr<IDblVector> loaded = CreateVector();
    EXPECT_EQ(loaded->Load(&stream), S_OK);
    EXPECT_EQ(AgesOf(loaded.get()), (std::vector<double>{4.0, 3.0, 2.0}));
    EXPECT_EQ(CapacityOf(loaded.get(), 10), 3);
}

TEST(VectorLoad, StopsAfterCapacityValuesAndLeavesTheRest) {
    Bytes bytes;
    AppendInt32(bytes, 2);
    for (double value : {1.0, 2.0, 3.0, 4.0}) AppendDouble(bytes, value);
    FakeDataStream stream(bytes);
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->Load(&stream), S_OK);
    EXPECT_EQ(AgesOf(vector.get()), (std::vector<double>{1.0, 2.0}));
    EXPECT_EQ(stream.reads.size(), 3u);
    std::int32_t position = 0;
    EXPECT_EQ(stream.GetPosition(&position), S_OK);
    EXPECT_EQ(position, 20);
}

TEST(VectorLoad, NotFullSaveConsumesWhatFollowsUntilTheStreamEnds) {
    SmartPtr<IDblVector> saved = CreateVector();
    EXPECT_EQ(saved->put_Size(5), S_OK);
    AppendAll(saved.get(), {10, 20});
    FakeDataStream stream;
    EXPECT_EQ(saved->Save(&stream), S_OK);
    std::int32_t trailing = 0;
    const double next = 99.0;
    EXPECT_EQ(stream.Write(&next, 8, &trailing), S_OK);
    EXPECT_EQ(stream.Rewind(), S_OK);
    SmartPtr<IDblVector> loaded = CreateVector();
    EXPECT_EQ(loaded->Load(&stream), S_OK);
    EXPECT_EQ(AgesOf(loaded.get()), (std::vector<double>{20.0, 10.0, 99.0}));
    // Header, three values, then one read that delivered nothing.
    EXPECT_EQ(stream.reads, (std::vector<StreamCall>{{4, 4}, {8, 8}, {8, 8}, {8, 8}, {8, 8}}));
}

TEST(VectorLoad, ZeroOrNegativeHeaderLeavesNoCapacityAndReadsNoValues) {
    for (std::int32_t header : {0, -1, INT32_MIN}) {
        Bytes bytes;
        AppendInt32(bytes, header);
        AppendDouble(bytes, 5.0);
        FakeDataStream stream(bytes);
        SmartPtr<IDblVector> vector = CreateVector();
        AppendAll(vector.get(), {1.0});
        EXPECT_EQ(vector->Load(&stream), S_OK) << header;
        EXPECT_EQ(SizeOf(vector.get()), 0);
        EXPECT_EQ(vector->put_Element(-1, 1.0), E_FAIL);
        EXPECT_EQ(stream.reads.size(), 1u);
    }
}

TEST(VectorLoad, NotifiesSizeThenEveryAppend) {
    TestListener listener;  // outlives the vector
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
    EXPECT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listener), 1), S_OK);
    FakeDataStream stream(kThreeHoldingTwoThreeFour);
    EXPECT_EQ(vector->Load(&stream), S_OK);
    IDblVector* v = vector.get();
    EXPECT_EQ(listener.calls(), (std::vector<ListenerCall>{{ListenerCall::kSizeChanged, v, 0, 4},
                                                           {ListenerCall::kElementChanged, v, -1, 4},
                                                           {ListenerCall::kElementChanged, v, -1, 4},
                                                           {ListenerCall::kElementChanged, v, -1, 4}}));
}

TEST(VectorLoad, StreamWithoutAHeaderFailsAndChangesNothing) {
    for (const Bytes& bytes : {Bytes{}, Bytes{0x03, 0x00}}) {
        TestListener listener;  // outlives the vector
        SmartPtr<IDblVector> vector = CreateVector();
        SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
        EXPECT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listener), 1), S_OK);
        AppendAll(vector.get(), {1.0, 2.0});
        FakeDataStream stream(bytes);
        EXPECT_EQ(vector->Load(&stream), E_FAIL);
        EXPECT_EQ(AgesOf(vector.get()), (std::vector<double>{1.0, 2.0}));
        EXPECT_EQ(listener.calls().size(), 2u);  // the two appends only
    }
}

TEST(VectorLoad, SixteenBitCounterStopsAtTheHeaderBelow32768) {
    Bytes bytes;
    AppendInt32(bytes, 32767);
    for (int i = 0; i < 32768; ++i) AppendDouble(bytes, i);
    FakeDataStream stream(bytes);
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->Load(&stream), S_OK);
    EXPECT_EQ(SizeOf(vector.get()), 32767);
    EXPECT_EQ(stream.reads.size(), 32768u);  // the header and 32767 values
    double newest = 0;
    EXPECT_EQ(vector->get_Element(-1, &newest), S_OK);
    EXPECT_EQ(newest, 32766.0);
}

TEST(VectorLoad, SixteenBitCounterWrapsAbove32767AndReadsToTheEnd) {
    Bytes bytes;
    AppendInt32(bytes, 32768);
    for (int i = 0; i < 40000; ++i) AppendDouble(bytes, i);
    FakeDataStream stream(bytes);
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->Load(&stream), S_OK);
    EXPECT_EQ(SizeOf(vector.get()), 32768);
    EXPECT_EQ(stream.reads.size(), 40002u);  // header, 40000 values, one empty read
    double oldest = 0;
    double newest = 0;
    EXPECT_EQ(vector->get_Element(0, &oldest), S_OK);
    EXPECT_EQ(vector->get_Element(-1, &newest), S_OK);
    EXPECT_EQ(oldest, 7232.0);
    EXPECT_EQ(newest, 39999.0);
}

TEST(VectorSort, TouchesNeitherTheStreamNorTheValues) {
    SmartPtr<IDblVector> vector = VectorOfThreeHoldingTwoThreeFour();
    FakeDataStream stream(kThreeHoldingTwoThreeFour);
    EXPECT_EQ(vector->Sort(&stream), S_OK);
    EXPECT_TRUE(stream.reads.empty());
    EXPECT_TRUE(stream.writes.empty());
    EXPECT_EQ(AgesOf(vector.get()), (std::vector<double>{2.0, 3.0, 4.0}));
}
