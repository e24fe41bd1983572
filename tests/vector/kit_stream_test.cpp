// The vector's stored form through the host kit's memory stream ("DataStream"
// of CollectionsEx): the bytes read back, the reversed reload, and streams
// holding more values than the capacity.
#include <gtest/gtest.h>

#include <bit>
#include <vector>

#include "vector/fake_data_stream.h"
#include "vector/vector_host.h"

static_assert(std::endian::native == std::endian::little, "the expected bytes below are little-endian");

namespace {

using Bytes = std::vector<std::uint8_t>;

SmartPtr<IDataStream> CreateKitStream() {
    return LoadModule("CollectionsEx").Create<IDataStream>(L"DataStream", Iids().stream);
}

Bytes ReadEverything(IDataStream* stream) {
    EXPECT_EQ(stream->Rewind(), S_OK);
    std::int32_t size = 0;
    EXPECT_EQ(stream->GetSize(&size), S_OK);
    Bytes bytes(static_cast<std::size_t>(size));
    std::int32_t done = size;
    EXPECT_EQ(stream->Read(bytes.data(), size, &done), S_OK);
    EXPECT_EQ(done, size);
    EXPECT_EQ(stream->Rewind(), S_OK);
    return bytes;
}

void WriteBytes(IDataStream* stream, const Bytes& bytes) {
    std::int32_t done = static_cast<std::int32_t>(bytes.size());
    EXPECT_EQ(stream->Write(bytes.data(), done, &done), S_OK);
    EXPECT_EQ(stream->Rewind(), S_OK);
}

std::vector<double> AgesOf(IDblVector* vector) {
    std::int32_t size = 0;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    std::vector<double> values;
    for (std::int32_t age = 0; age < size; ++age) {
        double value = 0;
        EXPECT_EQ(vector->get_Element(age, &value), S_OK);
        values.push_back(value);
    }
    return values;
}

}  // namespace

TEST(VectorKitStream, SavedBytesAreTheCapacityThenNewestFirst) {
    SmartPtr<IDataStream> stream = CreateKitStream();
    ASSERT_TRUE(stream);
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(3), S_OK);
    AppendAll(vector.get(), {1, 2, 3, 4});
    EXPECT_EQ(vector->Save(stream.get()), S_OK);
    EXPECT_EQ(ReadEverything(stream.get()), (Bytes{0x03, 0x00, 0x00, 0x00,                             //
                                                   0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x10, 0x40,     // 4.0
                                                   0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x08, 0x40,     // 3.0
                                                   0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x40}));  // 2.0
    EXPECT_EQ(stream.detach()->Release(), 0);
}

TEST(VectorKitStream, PersistFormSavesTheSameBytes) {
    SmartPtr<IDataStream> stream = CreateKitStream();
    ASSERT_TRUE(stream);
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(2), S_OK);
    AppendAll(vector.get(), {-1.0});
    SmartPtr<IDataPersist> persist = QueryAs<IDataPersist>(vector.get(), Iids().persist);
    ASSERT_TRUE(persist);
    EXPECT_EQ(persist->Save(stream.get(), 5), S_OK);
    EXPECT_EQ(ReadEverything(stream.get()),
              (Bytes{0x02, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0xBF}));
}

TEST(VectorKitStream, ReloadGivesCapacityThreeReadingFourThreeTwo) {
    SmartPtr<IDataStream> stream = CreateKitStream();
    ASSERT_TRUE(stream);
    SmartPtr<IDblVector> saved = CreateVector();
    EXPECT_EQ(saved->put_Size(3), S_OK);
    AppendAll(saved.get(), {1, 2, 3, 4});
    EXPECT_EQ(saved->Save(stream.get()), S_OK);
    EXPECT_EQ(stream->Rewind(), S_OK);
    SmartPtr<IDblVector> loaded = CreateVector();
    SmartPtr<IDataPersist> persist = QueryAs<IDataPersist>(loaded.get(), Iids().persist);
    EXPECT_EQ(persist->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(AgesOf(loaded.get()), (std::vector<double>{4.0, 3.0, 2.0}));
    AppendAll(loaded.get(), {5.0});
    EXPECT_EQ(AgesOf(loaded.get()), (std::vector<double>{3.0, 2.0, 5.0}));
}

TEST(VectorKitStream, MoreValuesThanTheCapacityAreLeftInTheStream) {
    SmartPtr<IDataStream> stream = CreateKitStream();
    ASSERT_TRUE(stream);
    Bytes bytes;
    AppendInt32(bytes, 2);
    for (double value : {1.0, 2.0, 3.0, 4.0}) AppendDouble(bytes, value);
    WriteBytes(stream.get(), bytes);
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->Load(stream.get()), S_OK);
    EXPECT_EQ(AgesOf(vector.get()), (std::vector<double>{1.0, 2.0}));
    std::int32_t position = 0;
    EXPECT_EQ(stream->GetPosition(&position), S_OK);
    EXPECT_EQ(position, 20);
    double rest = 0;
    std::int32_t done = 8;
    EXPECT_EQ(stream->Read(&rest, 8, &done), S_OK);
    EXPECT_EQ(done, 8);
    EXPECT_EQ(rest, 3.0);
}

TEST(VectorKitStream, NotFullSaveReloadsWhateverFollowsUntilTheEnd) {
    SmartPtr<IDataStream> stream = CreateKitStream();
    ASSERT_TRUE(stream);
    SmartPtr<IDblVector> first = CreateVector();
    EXPECT_EQ(first->put_Size(5), S_OK);
    AppendAll(first.get(), {10, 20});
    SmartPtr<IDblVector> second = CreateVector();
    EXPECT_EQ(second->put_Size(1), S_OK);
    AppendAll(second.get(), {30});
    EXPECT_EQ(first->Save(stream.get()), S_OK);
    EXPECT_EQ(second->Save(stream.get()), S_OK);
    EXPECT_EQ(stream->Rewind(), S_OK);
    SmartPtr<IDblVector> loaded = CreateVector();
    EXPECT_EQ(loaded->Load(stream.get()), S_OK);
    // After 20 and 10 the reader takes the second vector's 12 bytes as
    // values: its header 1 with the low half of 30.0 (all zero), then the
    // high half of 30.0 alone (a short read, the missing bytes zero); the
    // next read delivers nothing and ends the load.
    EXPECT_EQ(AgesOf(loaded.get()), (std::vector<double>{20.0, 10.0, std::bit_cast<double>(std::uint64_t{0x1}),
                                                         std::bit_cast<double>(std::uint64_t{0x403E0000})}));
    std::int32_t position = 0;
    EXPECT_EQ(stream->GetPosition(&position), S_OK);
    EXPECT_EQ(position, 32);
}
