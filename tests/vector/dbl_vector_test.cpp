// The DblBuffer component through the loaded module: object mechanics,
// capacity, element access by age and by raw position, Sort.
#include <gtest/gtest.h>

#include <cwchar>

#include "vector/vector_host.h"

namespace {

struct AgeCase {
    std::int32_t index;
    HRESULT hr;
    double value;
};

void ExpectReads(IDblVector* vector, std::initializer_list<AgeCase> cases) {
    for (const AgeCase& c : cases) {
        const ElementRead read = ReadAt(vector, c.index);
        EXPECT_EQ(read.hr, c.hr) << "age " << c.index;
        EXPECT_EQ(read.value, c.value) << "age " << c.index;
    }
}

std::int32_t SizeOf(IDblVector* vector) {
    std::int32_t size = -99;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    return size;
}

}  // namespace

TEST(DblBufferObject, CreatedWithUnknownHasCountOneAndDiesAtSecondRelease) {
    CREATEFUNCTION create = LoadModule("Calendar").Factory(L"DblBuffer");
    ASSERT_NE(create, nullptr);
    IUnknown* object = nullptr;
    ASSERT_EQ(create(nullptr, &IID_IUnknown, reinterpret_cast<void**>(&object)), S_OK);
    ASSERT_NE(object, nullptr);
    IDblVector* vector = nullptr;
    ASSERT_EQ(object->QueryInterface(Iids().vector, reinterpret_cast<void**>(&vector)), S_OK);
    EXPECT_EQ(object->AddRef(), 3);
    EXPECT_EQ(object->Release(), 2);
    EXPECT_EQ(vector->Release(), 1);
    EXPECT_EQ(object->Release(), 0);
}

TEST(DblBufferObject, UnsupportedIdentifierFailsAtCreation) {
    CREATEFUNCTION create = LoadModule("Calendar").Factory(L"DblBuffer");
    ASSERT_NE(create, nullptr);
    void* out = reinterpret_cast<void*>(0x1);
    EXPECT_EQ(create(nullptr, &Iids().event, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(DblBufferObject, AnswersItsFiveInterfacesAndNotTheEventOnes) {
    SmartPtr<IDblVector> vector = CreateVector();
    ASSERT_TRUE(vector);
    for (const IID* iid : {&Iids().vector, &Iids().info, &Iids().source, &Iids().persist, &Iids().pages}) {
        SmartPtr<IUnknown> face = QueryAs<IUnknown>(vector.get(), *iid);
        EXPECT_TRUE(face);
    }
    for (const IID* iid : {&Iids().event, &Iids().persistEx, &Iids().stream}) {
        void* out = reinterpret_cast<void*>(0x1);
        EXPECT_EQ(vector->QueryInterface(*iid, &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(vector->AddRef(), 2);
    EXPECT_EQ(vector->Release(), 1);
}

TEST(DblBufferObject, EveryInterfaceSharesOneMapAndOneCount) {
    SmartPtr<IDblVector> vector = CreateVector();
    ASSERT_TRUE(vector);
    IDataPersist* persist = nullptr;
    ASSERT_EQ(vector->QueryInterface(Iids().persist, reinterpret_cast<void**>(&persist)), S_OK);
    IUnknown* viaPersist = nullptr;
    IUnknown* viaVector = nullptr;
    ASSERT_EQ(persist->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&viaPersist)), S_OK);
    ASSERT_EQ(vector->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&viaVector)), S_OK);
    EXPECT_EQ(viaPersist, viaVector);
    IDblVector* back = nullptr;
    ASSERT_EQ(persist->QueryInterface(Iids().vector, reinterpret_cast<void**>(&back)), S_OK);
    EXPECT_EQ(back, vector.get());
    EXPECT_EQ(back->Release(), 4);
    EXPECT_EQ(viaVector->Release(), 3);
    EXPECT_EQ(viaPersist->Release(), 2);
    EXPECT_EQ(persist->Release(), 1);
}

TEST(DblBufferObject, GetNameIsDblBufferWhateverTheInteger) {
    SmartPtr<IDblVector> vector = CreateVector();
    SmartPtr<IObjectInfo> info = QueryAs<IObjectInfo>(vector.get(), Iids().info);
    ASSERT_TRUE(info);
    for (std::int32_t reserved : {0, 1, -7}) {
        tagREFString name{0, nullptr};
        EXPECT_EQ(info->GetName(reserved, &name), S_OK);
        ASSERT_EQ(name.length, 9);
        EXPECT_EQ(std::wmemcmp(name.string, L"DblBuffer", 9), 0);
    }
}

TEST(DblVector, NewObjectIsEmptyAndRefusesBothEnds) {
    SmartPtr<IDblVector> vector = CreateVector();
    ASSERT_TRUE(vector);
    EXPECT_EQ(SizeOf(vector.get()), 0);
    ExpectReads(vector.get(), {{0, E_INVALIDARG, kUntouched}, {-1, E_INVALIDARG, kUntouched}});
}

TEST(DblVector, NewObjectHoldsThirtyTwoBeforeOverwriting) {
    SmartPtr<IDblVector> vector = CreateVector();
    for (int i = 1; i <= 33; ++i) EXPECT_EQ(vector->put_Element(-1, i), S_OK);
    EXPECT_EQ(SizeOf(vector.get()), 32);
    ExpectReads(vector.get(), {{0, S_OK, 2.0}, {31, S_OK, 33.0}, {-1, S_OK, 33.0}, {-32, S_OK, 2.0}});
}

TEST(DblVector, CapacityThreeKeepsTheNewestThreeWithAliases) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(3), S_OK);
    AppendAll(vector.get(), {1, 2, 3, 4});
    EXPECT_EQ(SizeOf(vector.get()), 3);
    ExpectReads(vector.get(), {{0, S_OK, 2.0},
                               {1, S_OK, 3.0},
                               {2, S_OK, 4.0},
                               {-1, S_OK, 4.0},
                               {-2, S_OK, 3.0},
                               {-3, S_OK, 2.0},
                               {3, S_OK, 2.0},
                               {4, S_OK, 3.0},
                               {5, S_OK, 4.0},
                               {7, S_OK, 3.0},
                               {8, E_INVALIDARG, kUntouched},
                               {-4, S_OK, 4.0},
                               {-5, E_INVALIDARG, kUntouched},
                               {INT32_MAX, E_INVALIDARG, kUntouched},
                               {INT32_MIN, E_INVALIDARG, kUntouched}});
}

TEST(DblVector, BeforeTheWrapAgesAreBoundedByTheCount) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(5), S_OK);
    AppendAll(vector.get(), {10, 20});
    ExpectReads(vector.get(), {{0, S_OK, 10.0},
                               {1, S_OK, 20.0},
                               {2, E_INVALIDARG, kUntouched},
                               {-1, S_OK, 20.0},
                               {-2, S_OK, 10.0},
                               {-3, E_INVALIDARG, kUntouched}});
}

TEST(DblVector, PutElementAfterTheWrapAddressesTheRawPosition) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(3), S_OK);
    AppendAll(vector.get(), {1, 2, 3, 4});
    EXPECT_EQ(vector->put_Element(0, 9), S_OK);
    EXPECT_EQ(SizeOf(vector.get()), 3);
    ExpectReads(vector.get(), {{0, S_OK, 2.0}, {1, S_OK, 3.0}, {2, S_OK, 9.0}, {-1, S_OK, 9.0}});
}

TEST(DblVector, PutElementBeyondTheCountAppends) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(4), S_OK);
    EXPECT_EQ(vector->put_Element(7, 1.5), S_OK);
    EXPECT_EQ(vector->put_Element(1, 2.5), S_OK);
    EXPECT_EQ(vector->put_Element(INT32_MIN, 3.5), S_OK);
    EXPECT_EQ(vector->put_Element(0, 0.5), S_OK);  // overwrites position 0
    EXPECT_EQ(SizeOf(vector.get()), 3);
    ExpectReads(vector.get(), {{0, S_OK, 0.5}, {1, S_OK, 2.5}, {2, S_OK, 3.5}});
}

TEST(DblVector, PutSizeWithTheSameCapacityEmpties) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(3), S_OK);
    AppendAll(vector.get(), {1, 2, 3, 4});
    EXPECT_EQ(vector->put_Size(3), S_OK);
    EXPECT_EQ(SizeOf(vector.get()), 0);
    ExpectReads(vector.get(), {{0, E_INVALIDARG, kUntouched}, {-1, E_INVALIDARG, kUntouched}});
    AppendAll(vector.get(), {7});
    ExpectReads(vector.get(), {{0, S_OK, 7.0}, {-1, S_OK, 7.0}, {1, E_INVALIDARG, kUntouched}});
}

TEST(DblVector, ZeroOrNegativeSizeLeavesNoCapacity) {
    for (std::int32_t size : {0, -1, INT32_MIN}) {
        SmartPtr<IDblVector> vector = CreateVector();
        AppendAll(vector.get(), {1, 2});
        EXPECT_EQ(vector->put_Size(size), S_OK) << size;
        EXPECT_EQ(SizeOf(vector.get()), 0);
        EXPECT_EQ(vector->put_Element(-1, 5.0), E_FAIL) << size;
        EXPECT_EQ(vector->put_Element(0, 5.0), E_FAIL) << size;
        EXPECT_EQ(SizeOf(vector.get()), 0);
        ExpectReads(vector.get(), {{0, E_INVALIDARG, kUntouched}, {-1, E_INVALIDARG, kUntouched}});
        EXPECT_EQ(vector->put_Size(0), S_OK);
        EXPECT_EQ(vector->put_Size(2), S_OK);
        AppendAll(vector.get(), {6});
        ExpectReads(vector.get(), {{0, S_OK, 6.0}});
    }
}

TEST(DblVector, SortChangesNothing) {
    SmartPtr<IDblVector> vector = CreateVector();
    EXPECT_EQ(vector->put_Size(3), S_OK);
    AppendAll(vector.get(), {3, 1, 2});
    EXPECT_EQ(vector->Sort(nullptr), S_OK);
    ExpectReads(vector.get(), {{0, S_OK, 3.0}, {1, S_OK, 1.0}, {2, S_OK, 2.0}});
}

TEST(DblVector, NullOutPointersGiveEPointer) {
    SmartPtr<IDblVector> vector = CreateVector();
    AppendAll(vector.get(), {1});
    EXPECT_EQ(vector->get_Size(nullptr), E_POINTER);
    EXPECT_EQ(vector->get_Element(0, nullptr), E_POINTER);
    EXPECT_EQ(vector->Save(nullptr), E_POINTER);
    EXPECT_EQ(vector->Load(nullptr), E_POINTER);
    SmartPtr<IDataPersist> persist = QueryAs<IDataPersist>(vector.get(), Iids().persist);
    ASSERT_TRUE(persist);
    EXPECT_EQ(persist->Save(nullptr, 0), E_POINTER);
    EXPECT_EQ(persist->Load(nullptr, 0), E_POINTER);
    SmartPtr<IUIPropertyPageSpecify> pages = QueryAs<IUIPropertyPageSpecify>(vector.get(), Iids().pages);
    ASSERT_TRUE(pages);
    EXPECT_EQ(pages->GetPages(0, nullptr, nullptr), E_POINTER);
    ExpectReads(vector.get(), {{0, S_OK, 1.0}});
}
