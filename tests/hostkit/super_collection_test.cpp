#include <gtest/gtest.h>

#include "kit_test_support.h"

namespace {

SmartPtr<ISuperCollection> NewCollection() { return NewKit<ISuperCollection>(L"SuperCollection", "ISuperCollection"); }

std::int32_t CountOf(INamedCollection* collection) {
    std::int32_t count = -1;
    collection->GetCount(&count);
    return count;
}

TEST(SuperCollection, NewCollectionIsEmptyWithOneReference) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    ASSERT_TRUE(collection);
    EXPECT_EQ(CountOf(collection.get()), 0);
    EXPECT_EQ(collection->AddRef(), 2);
    EXPECT_EQ(collection->Release(), 1);
    EXPECT_EQ(collection.detach()->Release(), 0);
}

TEST(SuperCollection, AnswersNamedCollectionOnTheSameObject) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<INamedCollection> named;
    EXPECT_EQ(collection->QueryInterface(HostIID("INamedCollection"), named.put_void()), S_OK);
    EXPECT_EQ(static_cast<void*>(named.get()), static_cast<void*>(collection.get()));
    EXPECT_EQ(RefsHeld(collection.get()), 2);
    SmartPtr<INamedCollection> direct = NewKit<INamedCollection>(L"SuperCollection", "INamedCollection");
    EXPECT_TRUE(direct);
}

TEST(SuperCollection, AddHoldsTheValueAndCopiesTheTexts) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> key = NewText(L"Time");
    SmartPtr<IString> value = NewText(L"UIPropPages.UIParametricObjectPropPage");
    SmartPtr<IString> extra = NewText(L"Time");
    EXPECT_EQ(collection->Add(key.get(), value.get(), extra.get(), 7), S_OK);
    EXPECT_EQ(RefsHeld(key.get()), 1);
    EXPECT_EQ(RefsHeld(value.get()), 2);
    EXPECT_EQ(RefsHeld(extra.get()), 1);
    key->SetString(1, L"X");
    extra->SetString(1, L"Y");
    EXPECT_EQ(CountOf(collection.get()), 1);

    SmartPtr<IString> name;
    EXPECT_EQ(collection->GetItemName(0, name.put()), S_OK);
    EXPECT_EQ(TextOf(name.get()), L"Time");
    EXPECT_EQ(RefsHeld(name.get()), 1);
    SmartPtr<IString> third;
    EXPECT_EQ(collection->GetItemExtra(0, third.put()), S_OK);
    EXPECT_EQ(TextOf(third.get()), L"Time");
    std::int32_t flags = 0;
    EXPECT_EQ(collection->GetItemFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, 7);

    IUnknown* item = nullptr;
    EXPECT_EQ(collection->GetItem(0, &item), S_OK);
    EXPECT_EQ(item, static_cast<IUnknown*>(value.get()));
    EXPECT_EQ(item->Release(), 2);
    EXPECT_EQ(collection.detach()->Release(), 0);
    EXPECT_EQ(RefsHeld(value.get()), 1);
}

TEST(SuperCollection, ValueAndThirdTextMayBeNull) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> key = NewText(L"k");
    EXPECT_EQ(collection->Add(key.get(), nullptr, nullptr, 0), S_OK);
    IUnknown* item = reinterpret_cast<IUnknown*>(1);
    EXPECT_EQ(collection->GetItem(0, &item), S_OK);
    EXPECT_EQ(item, nullptr);
    IString* extra = reinterpret_cast<IString*>(1);
    EXPECT_EQ(collection->GetItemExtra(0, &extra), S_OK);
    EXPECT_EQ(extra, nullptr);
}

TEST(SuperCollection, EmptyThirdTextIsKeptApartFromNone) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> key = NewText(L"k");
    SmartPtr<IString> empty = NewText(L"");
    EXPECT_EQ(collection->Add(key.get(), nullptr, empty.get(), 0), S_OK);
    SmartPtr<IString> extra;
    EXPECT_EQ(collection->GetItemExtra(0, extra.put()), S_OK);
    ASSERT_TRUE(extra);
    EXPECT_EQ(TextOf(extra.get()), L"");
}

TEST(SuperCollection, KeyIsRequired) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> value = NewText(L"v");
    EXPECT_EQ(collection->Add(nullptr, value.get(), nullptr, 0), E_POINTER);
    EXPECT_EQ(CountOf(collection.get()), 0);
    EXPECT_EQ(RefsHeld(value.get()), 1);
}

TEST(SuperCollection, FindNameComparesExactlyAndFindsTheFirst) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    const wchar_t* const keys[] = {L"Day", L"Month", L"Year", L"Month"};
    for (std::int32_t i = 0; i < 4; ++i) {
        SmartPtr<IString> key = NewText(keys[i]);
        collection->Add(key.get(), nullptr, nullptr, i);
    }
    struct Case {
        const wchar_t* name;
        HRESULT code;
        std::int32_t index;
    };
    const Case cases[] = {
        {L"Day", S_OK, 0},    {L"Month", S_OK, 1},   {L"Year", S_OK, 2}, {L"day", E_FAIL, -1},
        {L"Mon", E_FAIL, -1}, {L"Days", E_FAIL, -1}, {L"", E_FAIL, -1},
    };
    for (const Case& c : cases) {
        SmartPtr<IString> name = NewText(c.name);
        std::int32_t index = 99;
        EXPECT_EQ(collection->FindName(name.get(), &index), c.code) << c.name;
        EXPECT_EQ(index, c.index) << c.name;
    }
}

TEST(SuperCollection, FindNameBadArguments) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> name = NewText(L"x");
    std::int32_t index = 5;
    EXPECT_EQ(collection->FindName(nullptr, &index), E_POINTER);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(collection->FindName(name.get(), nullptr), E_POINTER);
}

TEST(SuperCollection, EveryIndexIsChecked) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> key = NewText(L"k");
    collection->Add(key.get(), key.get(), key.get(), 1);
    for (const std::int32_t index : {-1, 1, 2, -2147483647 - 1, 2147483647}) {
        IUnknown* item = reinterpret_cast<IUnknown*>(1);
        EXPECT_EQ(collection->GetItem(index, &item), E_INVALIDARG);
        EXPECT_EQ(item, nullptr);
        IString* text = reinterpret_cast<IString*>(1);
        EXPECT_EQ(collection->GetItemName(index, &text), E_INVALIDARG);
        EXPECT_EQ(text, nullptr);
        text = reinterpret_cast<IString*>(1);
        EXPECT_EQ(collection->GetItemExtra(index, &text), E_INVALIDARG);
        EXPECT_EQ(text, nullptr);
        std::int32_t flags = 9;
        EXPECT_EQ(collection->GetItemFlags(index, &flags), E_INVALIDARG);
        EXPECT_EQ(flags, 0);
        EXPECT_EQ(collection->RemoveItem(index), E_INVALIDARG);
    }
    EXPECT_EQ(collection->GetItem(0, nullptr), E_POINTER);
    EXPECT_EQ(collection->GetItemName(0, nullptr), E_POINTER);
    EXPECT_EQ(collection->GetItemExtra(0, nullptr), E_POINTER);
    EXPECT_EQ(collection->GetItemFlags(0, nullptr), E_POINTER);
    EXPECT_EQ(collection->GetCount(nullptr), E_POINTER);
    EXPECT_EQ(CountOf(collection.get()), 1);
}

TEST(SuperCollection, RemoveItemReleasesTheValueAndShiftsLaterEntries) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> a = NewText(L"a");
    SmartPtr<IString> b = NewText(L"b");
    SmartPtr<IString> c = NewText(L"c");
    collection->Add(a.get(), a.get(), nullptr, 1);
    collection->Add(b.get(), b.get(), nullptr, 2);
    collection->Add(c.get(), c.get(), nullptr, 3);
    EXPECT_EQ(collection->RemoveItem(1), S_OK);
    EXPECT_EQ(RefsHeld(b.get()), 1);
    EXPECT_EQ(RefsHeld(a.get()), 2);
    EXPECT_EQ(RefsHeld(c.get()), 2);
    EXPECT_EQ(CountOf(collection.get()), 2);
    SmartPtr<IString> name;
    collection->GetItemName(1, name.put());
    EXPECT_EQ(TextOf(name.get()), L"c");
    std::int32_t flags = 0;
    collection->GetItemFlags(1, &flags);
    EXPECT_EQ(flags, 3);
    std::int32_t index = -1;
    EXPECT_EQ(collection->FindName(c.get(), &index), S_OK);
    EXPECT_EQ(index, 1);
}

TEST(SuperCollection, ClearReleasesEveryValue) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> a = NewText(L"a");
    collection->Add(a.get(), a.get(), nullptr, 0);
    collection->Add(a.get(), a.get(), nullptr, 0);
    EXPECT_EQ(RefsHeld(a.get()), 3);
    EXPECT_EQ(collection->Clear(), S_OK);
    EXPECT_EQ(RefsHeld(a.get()), 1);
    EXPECT_EQ(CountOf(collection.get()), 0);
    EXPECT_EQ(collection->Clear(), S_OK);
}

TEST(SuperCollection, CollectionMayHoldItself) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    SmartPtr<IString> key = NewText(L"self");
    EXPECT_EQ(collection->Add(key.get(), collection.get(), nullptr, 0), S_OK);
    EXPECT_EQ(RefsHeld(collection.get()), 2);
    EXPECT_EQ(collection->RemoveItem(0), S_OK);
    EXPECT_EQ(RefsHeld(collection.get()), 1);
}

TEST(SuperCollection, UnusedSlotsAreNotImplemented) {
    SmartPtr<ISuperCollection> collection = NewCollection();
    EXPECT_EQ(collection->Unused9(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused10(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused11(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused12(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused13(), E_NOTIMPL);
}

}  // namespace
