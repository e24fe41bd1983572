// InitializeModule and GLOBALComponents against a counting collection.
#include <gtest/gtest.h>

#include <vector>

#include "base/framework_binding.h"
#include "counting_collection.h"
#include "module/entry.h"
#include "scoped_module_folder.h"

namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;
using History = std::vector<std::int32_t>;

// Every test leaves the module without a global collection; the collections
// outlive that last release.
class GlobalCollection : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(gGlobalComponentCollection.get(), nullptr); }
    void TearDown() override { InitializeModule(nullptr, nullptr); }

    CountingCollection collection;
    CountingCollection second;
};

TEST_F(GlobalCollection, InitializeModuleAlwaysReturnsZero) {
    EXPECT_EQ(InitializeModule(nullptr, &collection), 0);
    EXPECT_EQ(InitializeModule(&collection, &collection), 0);  // the first argument is ignored
    EXPECT_EQ(InitializeModule(nullptr, nullptr), 0);
    EXPECT_EQ(collection.count, 1);
}

TEST_F(GlobalCollection, SameCollectionTwiceHoldsExactlyOneReference) {
    InitializeModule(nullptr, &collection);
    InitializeModule(nullptr, &collection);
    EXPECT_EQ(collection.count, 2);  // the test's own and the module's
    // The new reference is added before the old one is dropped.
    EXPECT_EQ(collection.history, (History{+2, +3, -2}));
    EXPECT_EQ(gGlobalComponentCollection.get(), &collection);
}

TEST_F(GlobalCollection, NullReleasesTheHeldCollection) {
    InitializeModule(nullptr, &collection);
    InitializeModule(nullptr, nullptr);
    EXPECT_EQ(collection.count, 1);
    EXPECT_EQ(collection.history, (History{+2, -1}));
    EXPECT_EQ(gGlobalComponentCollection.get(), nullptr);
}

TEST_F(GlobalCollection, ReplacementReleasesTheOldWithTheSlotEmpty) {
    CountingCollection& first = collection;
    InitializeModule(nullptr, &first);
    IComponentCollection* seenDuringRelease = &first;
    std::int32_t secondCountDuringRelease = 0;
    first.onRelease = [&] {
        seenDuringRelease = gGlobalComponentCollection.get();
        secondCountDuringRelease = second.count;
    };
    InitializeModule(nullptr, &second);
    EXPECT_EQ(seenDuringRelease, nullptr);
    EXPECT_EQ(secondCountDuringRelease, 2);
    EXPECT_EQ(first.history, (History{+2, -1}));
    EXPECT_EQ(second.history, (History{+2}));
    EXPECT_EQ(gGlobalComponentCollection.get(), &second);
}

TEST_F(GlobalCollection, GlobalComponentsAddsAReferenceAndLoadsNothing) {
    ScopedModuleFolder folder;  // empty: a load attempt would print a message
    InitializeModule(nullptr, &collection);
    CaptureStdout();
    IComponentCollection* global = GLOBALComponents();
    EXPECT_EQ(GetCapturedStdout(), "");
    EXPECT_EQ(global, &collection);
    EXPECT_EQ(collection.count, 3);
    EXPECT_EQ(collection.history, (History{+2, +3}));
    EXPECT_EQ(global->Release(), 2);
}

TEST_F(GlobalCollection, GlobalComponentsWithoutAnyCollectionTriesCollectionsExEachTime) {
    ScopedModuleFolder folder;
    const char* message =
        "Module not available ./_binlinux/CollectionsEx.so, error ./_binlinux/CollectionsEx.so: "
        "cannot open shared object file: No such file or directory\n";
    for (int attempt = 0; attempt < 2; ++attempt) {
        CaptureStdout();
        EXPECT_EQ(GLOBALComponents(), nullptr);
        EXPECT_EQ(GetCapturedStdout(), message);
        EXPECT_EQ(gGlobalComponentCollection.get(), nullptr);
    }
}

}  // namespace
