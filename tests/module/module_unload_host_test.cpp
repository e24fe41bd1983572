// Unloading the module releases the global collection it holds, once.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <vector>

#include "counting_collection.h"
#include "scoped_module_folder.h"
#include "support/module_host.h"

namespace {

TEST(ModuleUnload, ReleasesTheGlobalCollectionOnce) {
    ScopedModuleFolder folder;
    // A private copy: a library of its own, which nothing else keeps loaded.
    void* library = dlopen(folder.Install(ModulePath("Calendar"), "CalendarCopy").c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    auto initialize = reinterpret_cast<InitializeModuleProc>(dlsym(library, kInitializeModuleSymbol));
    ASSERT_NE(initialize, nullptr);
    CountingCollection collection;
    EXPECT_EQ(initialize(nullptr, &collection), 0);
    EXPECT_EQ(collection.history, (std::vector<std::int32_t>{+2}));
    ASSERT_EQ(dlclose(library), 0);
    EXPECT_EQ(collection.history, (std::vector<std::int32_t>{+2, -1}));
    EXPECT_EQ(collection.count, 1);
}

TEST(ModuleUnload, WithoutACollectionReleasesNothing) {
    ScopedModuleFolder folder;
    void* library = dlopen(folder.Install(ModulePath("Calendar"), "CalendarBare").c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    auto initialize = reinterpret_cast<InitializeModuleProc>(dlsym(library, kInitializeModuleSymbol));
    CountingCollection collection;
    initialize(nullptr, &collection);
    initialize(nullptr, nullptr);
    ASSERT_EQ(dlclose(library), 0);
    EXPECT_EQ(collection.history, (std::vector<std::int32_t>{+2, -1}));
}

}  // namespace
