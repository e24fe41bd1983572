// The vector's property page list, built from the framework's collection and
// string services (the host kit installed as the global collection).
#include <gtest/gtest.h>

#include <string>

#include "vector/vector_host.h"

namespace {

std::wstring TextOf(IString* text) {
    tagREFString view{0, nullptr};
    EXPECT_EQ(text->GetString(&view), S_OK);
    return view.length > 0 ? std::wstring(view.string, static_cast<std::size_t>(view.length)) : std::wstring();
}

struct PageFixture : ::testing::Test {
    ModuleHost host;
    SmartPtr<IDblVector> vector = host.CreateDblBuffer<IDblVector>(Iids().vector);
    SmartPtr<IUIPropertyPageSpecify> pages;

    void SetUp() override {
        ASSERT_TRUE(vector);
        pages = QueryAs<IUIPropertyPageSpecify>(vector.get(), Iids().pages);
        ASSERT_TRUE(pages);
    }
};

using VectorPropertyPage = PageFixture;

}  // namespace

TEST_F(VectorPropertyPage, OneItemKeyedByTheComponentNameNamingTheVectorPage) {
    INamedCollection* collection = nullptr;
    ASSERT_EQ(pages->GetPages(0, &collection, nullptr), S_OK);
    ASSERT_NE(collection, nullptr);
    std::int32_t count = -1;
    EXPECT_EQ(collection->GetCount(&count), S_OK);
    EXPECT_EQ(count, 1);
    SmartPtr<IString> key;
    EXPECT_EQ(collection->GetItemName(0, key.put()), S_OK);
    ASSERT_TRUE(key);
    EXPECT_EQ(TextOf(key.get()), L"DblBuffer");
    SmartPtr<IUnknown> item;
    EXPECT_EQ(collection->GetItem(0, item.put()), S_OK);
    ASSERT_TRUE(item);
    SmartPtr<IString> page = QueryAs<IString>(item.get(), Iids().string);
    ASSERT_TRUE(page);
    EXPECT_EQ(TextOf(page.get()), L"UIPropPages.UIVectorPropPage");
    SmartPtr<ISuperCollection> super = QueryAs<ISuperCollection>(collection, Iids().superCollection);
    ASSERT_TRUE(super);
    std::int32_t flags = -1;
    EXPECT_EQ(super->GetItemFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, 0);
    super.reset();
    key.reset();
    item.reset();
    page.reset();
    EXPECT_EQ(collection->Release(), 0);
}

TEST_F(VectorPropertyPage, IntegerAndSiteArgumentsAreIgnoredAndEachCallIsNew) {
    INamedCollection* first = nullptr;
    INamedCollection* second = nullptr;
    IUnknown* site = vector.get();
    ASSERT_EQ(pages->GetPages(0, &first, nullptr), S_OK);
    ASSERT_EQ(pages->GetPages(-42, &second, &site), S_OK);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(site, static_cast<IUnknown*>(vector.get()));
    std::int32_t count = -1;
    EXPECT_EQ(second->GetCount(&count), S_OK);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(first->Release(), 0);
    EXPECT_EQ(second->Release(), 0);
    EXPECT_EQ(vector->AddRef(), 3);  // ours and the page interface's
    EXPECT_EQ(vector->Release(), 2);
}
