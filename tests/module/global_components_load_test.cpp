// GLOBALComponents creating the global collection from "CollectionsEx" when
// the host has provided none. One test per process: the loader keeps the
// library found under "./_binlinux/CollectionsEx.so" for later lookups.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <vector>

#include "base/framework_binding.h"
#include "counting_collection.h"
#include "iid_bytes.h"
#include "module/entry.h"
#include "scoped_module_folder.h"

namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;
using History = std::vector<std::int32_t>;

template <class R, class... Args>
R CallFixture(void* library, const char* name, Args... args) {
    auto function = reinterpret_cast<R (*)(Args...)>(dlsym(library, name));
    if (!function) throw std::runtime_error(name);
    return function(args...);
}

TEST(GLOBALComponents, CreatesTheCollectionFromCollectionsExOnce) {
    ScopedModuleFolder folder;
    // The test's own load of the installed file is the library the module
    // later opens by its relative path.
    void* library = dlopen(folder.Install(FIXTURE_FULL, "CollectionsEx").c_str(), RTLD_NOW);
    ASSERT_NE(library, nullptr);
    auto* collection = CallFixture<CountingCollection*>(library, "FixtureCollection");
    auto requests = [library] { return CallFixture<int>(library, "FixtureCollectionRequests"); };

    // A creation that leaves the slot empty: null, nothing printed, retried later.
    CallFixture<void>(library, "FixtureSetCollectionMode", 0);
    CaptureStdout();
    EXPECT_EQ(GLOBALComponents(), nullptr);
    EXPECT_EQ(GetCapturedStdout(), "");
    EXPECT_EQ(requests(), 1);
    EXPECT_EQ(gGlobalComponentCollection.get(), nullptr);

    // The creation's result code is not looked at; the slot is.
    CallFixture<void>(library, "FixtureSetCollectionMode", 2);
    IComponentCollection* global = GLOBALComponents();
    EXPECT_EQ(requests(), 2);
    EXPECT_EQ(global, collection);
    EXPECT_EQ(CallFixture<void*>(library, "FixtureCollectionOuter"), nullptr);
    EXPECT_EQ(
        BytesOf(CallFixture<IID>(library, "FixtureCollectionIID")),
        (IIDBytes{0x69, 0xBC, 0x06, 0x9F, 0x2B, 0x8E, 0x8E, 0xC7, 0x58, 0x19, 0x34, 0x3D, 0x07, 0x00, 0x00, 0x00}));
    // One reference from the creation, kept by the module; one for the caller.
    EXPECT_EQ(collection->history, (History{+1, +2}));
    // The module had no collection to hand on when it loaded the library.
    EXPECT_EQ(CallFixture<int>(library, "FixtureInitializeCalls"), 0);

    // Kept: the next call adds a reference and creates nothing.
    IComponentCollection* again = GLOBALComponents();
    EXPECT_EQ(again, collection);
    EXPECT_EQ(requests(), 2);
    EXPECT_EQ(collection->history, (History{+1, +2, +3}));

    EXPECT_EQ(again->Release(), 2);
    EXPECT_EQ(global->Release(), 1);
    InitializeModule(nullptr, nullptr);
    EXPECT_EQ(collection->count, 0);
}

}  // namespace
