// The vector's event source through the loaded module: registration by
// identity, removal, the mode-2 replacement, enumeration, firing order and
// reference counts.
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "vector/test_listener.h"
#include "vector/vector_host.h"

namespace {

constexpr HRESULT kRefusal = static_cast<HRESULT>(0x8004ABCDu);

struct SourceFixture : ::testing::Test {
    // Listeners outlive the vector, which releases them when it dies.
    std::deque<TestListener> pool;
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);

    void SetUp() override {
        ASSERT_TRUE(vector);
        ASSERT_TRUE(source);
    }
    TestListener& Make(HRESULT refuseCode = S_OK) { return pool.emplace_back(refuseCode); }
    // The listener at `index` as its IUnknown pointer (reference dropped again).
    IUnknown* ItemAt(std::uint32_t index) {
        IUnknown* listener = nullptr;
        if (source->GetAdviseItem(index, &listener, nullptr) != S_OK || !listener) return nullptr;
        listener->Release();
        return listener;
    }
    std::int32_t ModeAt(std::uint32_t index) {
        std::int32_t mode = -99;
        EXPECT_EQ(source->GetAdviseItem(index, nullptr, &mode), S_OK);
        return mode;
    }
};

using EventSource = SourceFixture;

IUnknown* AsUnknown(TestListener& listener) { return static_cast<_IDblVectorEvent*>(&listener); }

}  // namespace

TEST_F(EventSource, StartsEmpty) {
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(source->GetAdviseItem(0, nullptr, nullptr), E_FAIL);
}

TEST_F(EventSource, AdviseKeepsOneReference) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(listener.references(), 2);
    EXPECT_EQ(ModeAt(0), 1);
}

TEST_F(EventSource, SameListenerTwiceGivesOneAndOneEntry) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(listener), 3), 1);
    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(listener.references(), 2);
    EXPECT_EQ(ModeAt(0), 1);
}

TEST_F(EventSource, IdentityIsByIUnknownAcrossInterfacePointers) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(source->Advise(listener.secondFace(), 1), 1);
    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(listener.references(), 2);
    EXPECT_EQ(source->Advise(listener.secondFace(), 0), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(listener.references(), 1);
}

TEST_F(EventSource, NineRegistrationsAreAllKeptInOrder) {
    TestListener listeners[9];
    for (TestListener& listener : listeners) EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 9);
    for (std::uint32_t i = 0; i < 9; ++i) EXPECT_EQ(ItemAt(i), AsUnknown(listeners[i])) << i;
    EXPECT_EQ(source->GetAdviseItem(9, nullptr, nullptr), E_FAIL);
    vector.reset();
    source.reset();
    for (TestListener& listener : listeners) EXPECT_EQ(listener.references(), 1);
}

TEST_F(EventSource, RemovingTheMiddleOfThreeKeepsTheOrder) {
    TestListener& first = Make();
    TestListener& middle = Make();
    TestListener& last = Make();
    std::vector<std::string> order;
    first.onElementChanged([&](IDblVector*, std::int32_t) { order.push_back("first"); });
    middle.onElementChanged([&](IDblVector*, std::int32_t) { order.push_back("middle"); });
    last.onElementChanged([&](IDblVector*, std::int32_t) { order.push_back("last"); });
    for (TestListener* listener : {&first, &middle, &last}) EXPECT_EQ(source->Advise(AsUnknown(*listener), 1), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(middle), 0), S_OK);
    EXPECT_EQ(middle.references(), 1);
    EXPECT_EQ(source->GetAdviseCount(), 2);
    EXPECT_EQ(ItemAt(0), AsUnknown(first));
    EXPECT_EQ(ItemAt(1), AsUnknown(last));
    EXPECT_EQ(source->GetAdviseItem(2, nullptr, nullptr), E_FAIL);
    EXPECT_EQ(vector->put_Element(-1, 1.0), S_OK);
    EXPECT_EQ(order, (std::vector<std::string>{"first", "last"}));
    EXPECT_EQ(middle.calls().size(), 0u);
}

TEST_F(EventSource, ModeZeroRemovesAndRefusesAnUnknownListener) {
    TestListener& registered = Make();
    TestListener& stranger = Make();
    EXPECT_EQ(source->Advise(AsUnknown(registered), 1), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(stranger), 0), E_FAIL);
    EXPECT_EQ(source->Advise(AsUnknown(registered), 0), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(registered), 0), E_FAIL);
    EXPECT_EQ(source->Advise(AsUnknown(registered), 0, Iids().info), E_FAIL);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(registered.references(), 1);
    EXPECT_EQ(stranger.references(), 1);
}

TEST_F(EventSource, ListenerWithoutTheEventInterfaceIsRefusedWithItsCode) {
    TestListener& refusing = Make(kRefusal);
    EXPECT_EQ(source->Advise(AsUnknown(refusing), 1), kRefusal);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(refusing.references(), 1);
}

TEST_F(EventSource, ThreeArgumentFormChecksTheGivenInterface) {
    TestListener& refusing = Make(kRefusal);
    EXPECT_EQ(source->Advise(AsUnknown(refusing), 5, Iids().info), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(ModeAt(0), 5);
    EXPECT_EQ(source->Advise(AsUnknown(refusing), 5, Iids().stream), E_NOINTERFACE);
    EXPECT_EQ(refusing.references(), 2);
}

TEST_F(EventSource, NullListenerIsAPointerError) {
    EXPECT_EQ(source->Advise(nullptr, 1), E_POINTER);
    EXPECT_EQ(source->Advise(nullptr, 2), E_POINTER);
    EXPECT_EQ(source->GetAdviseCount(), 0);
}

TEST_F(EventSource, NullWithModeZeroRemovesEveryListener) {
    EXPECT_EQ(source->Advise(nullptr, 0), S_OK);
    TestListener& a = Make();
    TestListener& b = Make();
    EXPECT_EQ(source->Advise(AsUnknown(a), 1), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(b), 2), S_OK);
    EXPECT_EQ(source->Advise(nullptr, 0), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 0);
    EXPECT_EQ(a.references(), 1);
    EXPECT_EQ(b.references(), 1);
    EXPECT_EQ(source->Advise(AsUnknown(b), 1), S_OK);
    EXPECT_EQ(ItemAt(0), AsUnknown(b));
}

TEST_F(EventSource, ModeTwoReplacesTheFirstModeTwoListener) {
    TestListener& plain = Make();
    TestListener& firstReplaceable = Make();
    TestListener& second = Make();
    EXPECT_EQ(source->Advise(AsUnknown(plain), 1), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(firstReplaceable), 2), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 2);
    EXPECT_EQ(source->Advise(AsUnknown(second), 2), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 2);
    EXPECT_EQ(ItemAt(0), AsUnknown(plain));
    EXPECT_EQ(ItemAt(1), AsUnknown(second));
    EXPECT_EQ(ModeAt(1), 2);
    EXPECT_EQ(firstReplaceable.references(), 1);
    EXPECT_EQ(second.references(), 2);
    EXPECT_EQ(plain.references(), 2);
}

TEST_F(EventSource, ModeTwoWithTheSameListenerReplacesItByItself) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 2), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(listener), 2), S_OK);
    EXPECT_EQ(source->GetAdviseCount(), 1);
    EXPECT_EQ(listener.references(), 2);
}

TEST_F(EventSource, ModeTwoReplacementSkipsTheInterfaceCheck) {
    TestListener& replaceable = Make();
    TestListener& refusing = Make(kRefusal);
    EXPECT_EQ(source->Advise(AsUnknown(refusing), 2), kRefusal);
    EXPECT_EQ(source->Advise(AsUnknown(replaceable), 2), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(refusing), 2), S_OK);
    EXPECT_EQ(ItemAt(0), AsUnknown(refusing));
    EXPECT_EQ(refusing.references(), 2);
    EXPECT_EQ(replaceable.references(), 1);
    // A listener that does not answer the event interface is skipped.
    EXPECT_EQ(vector->put_Element(-1, 1.0), S_OK);
    EXPECT_EQ(vector->put_Size(4), S_OK);
    EXPECT_EQ(refusing.calls().size(), 0u);
    EXPECT_EQ(refusing.references(), 2);
}

TEST_F(EventSource, GetAdviseItemReportsModeAndAddsAReference) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 7), S_OK);
    IUnknown* item = nullptr;
    std::int32_t mode = 0;
    EXPECT_EQ(source->GetAdviseItem(0, &item, &mode), S_OK);
    EXPECT_EQ(item, AsUnknown(listener));
    EXPECT_EQ(mode, 7);
    EXPECT_EQ(listener.references(), 3);
    EXPECT_EQ(item->Release(), 2);
    mode = 0;
    EXPECT_EQ(source->GetAdviseItem(0, nullptr, &mode), S_OK);
    EXPECT_EQ(mode, 7);
    EXPECT_EQ(source->GetAdviseItem(0, nullptr, nullptr), S_OK);
    EXPECT_EQ(listener.references(), 2);
}

TEST_F(EventSource, GetAdviseItemBeyondTheTableFails) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    for (std::uint32_t index : {1u, 2u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu}) {
        IUnknown* item = nullptr;
        std::int32_t mode = -5;
        EXPECT_EQ(source->GetAdviseItem(index, &item, &mode), E_FAIL) << index;
        EXPECT_EQ(item, nullptr);
        EXPECT_EQ(mode, -5);
    }
    EXPECT_EQ(listener.references(), 2);
}

TEST_F(EventSource, ElementChangedCarriesTheCallersIndex) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(vector->put_Size(3), S_OK);
    EXPECT_EQ(vector->put_Element(-1, 1.0), S_OK);
    EXPECT_EQ(vector->put_Element(0, 2.0), S_OK);
    EXPECT_EQ(vector->put_Element(7, 3.0), S_OK);
    EXPECT_EQ(vector->put_Element(INT32_MIN, 4.0), S_OK);
    IDblVector* v = vector.get();
    // During a call the listener holds the test's, the table's, the firing's
    // and the event interface's references.
    const std::vector<ListenerCall> expected{{ListenerCall::kSizeChanged, v, 0, 4},
                                             {ListenerCall::kElementChanged, v, -1, 4},
                                             {ListenerCall::kElementChanged, v, 0, 4},
                                             {ListenerCall::kElementChanged, v, 7, 4},
                                             {ListenerCall::kElementChanged, v, INT32_MIN, 4}};
    EXPECT_EQ(listener.calls(), expected);
    EXPECT_EQ(listener.references(), 2);
}

TEST_F(EventSource, ZeroCapacityStillNotifies) {
    TestListener& listener = Make();
    EXPECT_EQ(vector->put_Size(0), S_OK);
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(vector->put_Element(-1, 1.0), E_FAIL);
    EXPECT_EQ(vector->put_Size(-3), S_OK);
    IDblVector* v = vector.get();
    const std::vector<ListenerCall> expected{{ListenerCall::kElementChanged, v, -1, 4},
                                             {ListenerCall::kSizeChanged, v, 0, 4}};
    EXPECT_EQ(listener.calls(), expected);
}

TEST_F(EventSource, ReadsAndUnchangedOperationsDoNotNotify) {
    TestListener& listener = Make();
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    double value = 0;
    std::int32_t size = 0;
    EXPECT_EQ(vector->get_Element(0, &value), E_INVALIDARG);
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    EXPECT_EQ(vector->Sort(nullptr), S_OK);
    EXPECT_EQ(listener.calls().size(), 0u);
}

TEST_F(EventSource, ListenersAreCalledInRegistrationOrder) {
    TestListener& a = Make();
    TestListener& b = Make();
    TestListener& c = Make();
    std::vector<std::string> order;
    a.onElementChanged([&](IDblVector*, std::int32_t) { order.push_back("a"); });
    b.onElementChanged([&](IDblVector*, std::int32_t) { order.push_back("b"); });
    c.onElementChanged([&](IDblVector*, std::int32_t) { order.push_back("c"); });
    for (TestListener* listener : {&b, &c, &a}) EXPECT_EQ(source->Advise(AsUnknown(*listener), 1), S_OK);
    EXPECT_EQ(vector->put_Element(-1, 1.0), S_OK);
    EXPECT_EQ(order, (std::vector<std::string>{"b", "c", "a"}));
}

TEST(EventSourceLifetime, DestructionReleasesEveryListenerOnce) {
    TestListener a, b, c;
    {
        SmartPtr<IDblVector> vector = CreateVector();
        SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
        ASSERT_TRUE(source);
        EXPECT_EQ(source->Advise(AsUnknown(a), 1), S_OK);
        EXPECT_EQ(source->Advise(AsUnknown(b), 2), S_OK);
        EXPECT_EQ(source->Advise(AsUnknown(c), 9), S_OK);
        EXPECT_EQ(source->Advise(a.secondFace(), 1), 1);
        EXPECT_EQ(source.get()->Release(), 1);
        source.detach();
        EXPECT_EQ(vector.detach()->Release(), 0);
    }
    EXPECT_EQ(a.references(), 1);
    EXPECT_EQ(b.references(), 1);
    EXPECT_EQ(c.references(), 1);
    EXPECT_EQ(a.Release(), 0);
    EXPECT_EQ(b.Release(), 0);
    EXPECT_EQ(c.Release(), 0);
}

TEST(EventSourceLifetime, ListenerMayOutliveAndBeReleasedLastElsewhere) {
    TestListener listener;
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IEventSource> source = QueryAs<IEventSource>(vector.get(), Iids().source);
    EXPECT_EQ(source->Advise(AsUnknown(listener), 1), S_OK);
    EXPECT_EQ(listener.Release(), 1);  // the table now holds the only reference
    EXPECT_EQ(vector->put_Element(-1, 2.0), S_OK);
    EXPECT_EQ(listener.calls().size(), 1u);
    EXPECT_EQ(listener.calls()[0].references, 3);
    EXPECT_EQ(source->Advise(nullptr, 0), S_OK);
    EXPECT_EQ(listener.references(), 0);
}
