// A randomized comparison of the loaded component with a small model of the
// ring written here from the documented rules: count, head, capacity and the
// raw array. Every result code, every value read, every notification and
// every saved byte must agree.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "vector/fake_data_stream.h"
#include "vector/test_listener.h"
#include "vector/vector_host.h"

namespace {

class RingModel {
public:
    HRESULT PutSize(std::int32_t n) {
        if (!(n == capacity_ && n != 0)) {
            capacity_ = n >= 1 ? n : 0;
            array_.assign(static_cast<std::size_t>(capacity_), 0.0);
        }
        count_ = 0;
        head_ = -1;
        return S_OK;
    }

    HRESULT Put(std::int32_t index, double value) {
        if (capacity_ == 0) return E_FAIL;
        if (index >= 0 && index < count_) {
            array_[static_cast<std::size_t>(index)] = value;
            return S_OK;
        }
        if (count_ < capacity_) {
            head_ = count_;
            ++count_;
        } else {
            ++head_;
            if (head_ == capacity_) head_ = 0;
        }
        array_[static_cast<std::size_t>(head_)] = value;
        return S_OK;
    }

    HRESULT Get(std::int32_t index, double* value) const {
        std::int64_t position = 0;
        if (index >= 0) {
            position = std::int64_t{index} + head_ - count_ + 1;
            if (position >= capacity_) position -= capacity_;
            if (position < 0) position += capacity_;
        } else {
            position = std::int64_t{head_} + index + 1;
            if (position < 0) position += capacity_;
        }
        if (position < 0 || position >= count_) return E_INVALIDARG;
        *value = array_[static_cast<std::size_t>(position)];
        return S_OK;
    }

    std::int32_t count() const { return count_; }
    std::int32_t capacity() const { return capacity_; }

    // The saved form: capacity, then ages count-1 down to 0.
    std::vector<std::uint8_t> SavedBytes() const {
        std::vector<std::uint8_t> bytes;
        AppendInt32(bytes, capacity_);
        for (std::int32_t age = count_ - 1; age >= 0; --age) {
            double value = 0;
            Get(age, &value);
            AppendDouble(bytes, value);
        }
        return bytes;
    }

private:
    std::int32_t count_ = 0;
    std::int32_t head_ = -1;
    std::int32_t capacity_ = 32;
    std::vector<double> array_ = std::vector<double>(32, 0.0);
};

class Dice {
public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}
    // Uniform in [low, high].
    std::int32_t Between(std::int32_t low, std::int32_t high) {
        const auto span = static_cast<std::uint32_t>(static_cast<std::int64_t>(high) - low) + 1u;
        return static_cast<std::int32_t>(static_cast<std::int64_t>(low) + engine_() % span);
    }

private:
    std::mt19937 engine_;
};

constexpr int kOperations = 120000;

}  // namespace

TEST(RingModel, HundredThousandRandomOperationsAgreeWithTheModel) {
    TestListener listener;  // outlives the vector
    SmartPtr<IDblVector> vector = CreateVector();
    ASSERT_TRUE(vector);
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
    listener.countOnly();
    std::int32_t lastIndex = 0;
    listener.onElementChanged([&](IDblVector*, std::int32_t index) { lastIndex = index; });
    ASSERT_EQ(source->Advise(static_cast<_IDblVectorEvent*>(&listener), 1), S_OK);

    RingModel model;
    Dice dice(20261121);
    std::size_t expectedCalls = 0;
    const std::int32_t extremes[] = {INT32_MIN, INT32_MIN + 1, INT32_MAX, INT32_MAX - 1};

    for (int op = 0; op < kOperations; ++op) {
        const std::int32_t kind = dice.Between(0, 999);
        const std::int32_t span = model.capacity() + 3;
        if (kind < 15) {
            std::int32_t n = 0;
            switch (dice.Between(0, 4)) {
                case 0:
                    n = model.capacity();
                    break;
                case 1:
                    n = dice.Between(-5, 0);
                    break;
                case 2:
                    n = 1;
                    break;
                default:
                    n = dice.Between(1, 40);
                    break;
            }
            ASSERT_EQ(vector->put_Size(n), model.PutSize(n)) << "op " << op;
            ++expectedCalls;
        } else if (kind < 500) {
            std::int32_t index = -1;
            switch (dice.Between(0, 9)) {
                case 0:
                    index = extremes[dice.Between(0, 3)];
                    break;
                case 1:
                case 2:
                case 3:
                    index = dice.Between(-3, model.count() + 3);
                    break;
                default:
                    break;
            }
            const double value = op + 0.25;
            ASSERT_EQ(vector->put_Element(index, value), model.Put(index, value)) << "op " << op;
            ++expectedCalls;
            ASSERT_EQ(lastIndex, index) << "op " << op;
        } else if (kind < 950) {
            std::int32_t index = dice.Between(0, 19) == 0 ? extremes[dice.Between(0, 3)] : dice.Between(-span, span);
            double got = kUntouched;
            double want = kUntouched;
            ASSERT_EQ(vector->get_Element(index, &got), model.Get(index, &want)) << "op " << op << " index " << index;
            ASSERT_EQ(got, want) << "op " << op << " index " << index;
        } else if (kind < 990) {
            std::int32_t size = -1;
            ASSERT_EQ(vector->get_Size(&size), S_OK);
            ASSERT_EQ(size, model.count()) << "op " << op;
        } else {
            FakeDataStream stream;
            const HRESULT saved = vector->Save(&stream);
            ASSERT_EQ(saved, S_OK);
            const std::vector<std::uint8_t> expected = model.SavedBytes();
            ASSERT_EQ(stream.bytes(), expected) << "op " << op;
            ASSERT_EQ(stream.Rewind(), S_OK);
            ASSERT_EQ(vector->Load(&stream), S_OK);
            const std::int32_t n = model.capacity();
            model.PutSize(n);
            ++expectedCalls;
            for (std::size_t offset = 4; offset + 8 <= expected.size() && n >= 1; offset += 8) {
                double value = 0;
                std::memcpy(&value, expected.data() + offset, 8);
                model.Put(-1, value);
                ++expectedCalls;
            }
        }
        ASSERT_EQ(listener.callCount(), expectedCalls) << "op " << op;
    }
    EXPECT_EQ(source.detach()->Release(), 1);
    EXPECT_EQ(vector.detach()->Release(), 0);
    EXPECT_EQ(listener.references(), 1);
}
