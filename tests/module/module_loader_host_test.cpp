// MODULECreateFunction: loading framework modules from "./_binlinux/" relative
// to the current directory, seen through the module's exports.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "counting_collection.h"
#include "scoped_module_folder.h"
#include "support/module_host.h"

namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

CREATEFUNCTION LoadComponent(tagREFString module, tagREFString component) {
    return LoadModule("Calendar").moduleCreateFunction(module, component);
}

void SetGlobalCollection(IComponentCollection* collection) {
    LoadModule("Calendar").initializeModule(nullptr, collection);
}

// What an installed copy of the fixture module recorded; the copy must
// already be loaded (by the module under test).
struct FixtureRecord {
    void* handle = nullptr;

    explicit FixtureRecord(const std::string& installed) : handle(dlopen(installed.c_str(), RTLD_NOW | RTLD_NOLOAD)) {}

    template <class R>
    R Call(const char* name) const {
        auto function = reinterpret_cast<R (*)()>(dlsym(handle, name));
        return function ? function() : R{};
    }
    int initializeCalls() const { return Call<int>("FixtureInitializeCalls"); }
    void* initializeReserved() const { return Call<void*>("FixtureInitializeReserved"); }
    IComponentCollection* initializeCollection() const {
        return Call<IComponentCollection*>("FixtureInitializeCollection");
    }
    int createCalls() const { return Call<int>("FixtureCreateCalls"); }
    std::int32_t createLength() const { return Call<std::int32_t>("FixtureCreateLength"); }
    CREATEFUNCTION widget() const { return Call<CREATEFUNCTION>("FixtureWidgetFactory"); }
};

const tagREFString kWidget{6, L"Widget"};

// Each test uses its own module names: the loader finds a library again by
// the path string it was first opened with, whatever the current directory.

TEST(MODULECreateFunction, IsExportedWeakAndDecorated) {
    EXPECT_NE(LoadModule("Calendar").moduleCreateFunction, nullptr);
    EXPECT_NE(LoadModule("Calendar").initializeModule, nullptr);
}

TEST(MODULECreateFunction, InitialisesTheModuleWithTheGlobalCollectionAndRequestsTheComponent) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_FULL, "LoaderWithCollection");
    CountingCollection collection;
    SetGlobalCollection(&collection);
    CaptureStdout();
    const CREATEFUNCTION create = LoadComponent({20, L"LoaderWithCollection"}, kWidget);
    EXPECT_EQ(GetCapturedStdout(), "");
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);
    EXPECT_NE(create, nullptr);
    EXPECT_EQ(create, record.widget());
    EXPECT_EQ(record.initializeCalls(), 1);
    EXPECT_EQ(record.initializeReserved(), nullptr);
    EXPECT_EQ(record.initializeCollection(), &collection);
    EXPECT_EQ(record.createCalls(), 1);
    EXPECT_EQ(record.createLength(), 6);
    SetGlobalCollection(nullptr);
    // The module's own reference only: the loader passes the collection on without one.
    EXPECT_EQ(collection.history, (std::vector<std::int32_t>{+2, -1}));
    EXPECT_EQ(collection.count, 1);
}

TEST(MODULECreateFunction, WithoutGlobalCollectionTheModuleIsNotInitialised) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_FULL, "LoaderWithoutCollection");
    const CREATEFUNCTION create = LoadComponent({23, L"LoaderWithoutCollection"}, kWidget);
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);
    EXPECT_EQ(create, record.widget());
    EXPECT_EQ(record.initializeCalls(), 0);
    EXPECT_EQ(record.createCalls(), 1);
}

TEST(MODULECreateFunction, UnknownComponentGivesNull) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_FULL, "LoaderUnknownComponent");
    CaptureStdout();
    const CREATEFUNCTION create = LoadComponent({22, L"LoaderUnknownComponent"}, {6, L"Gadget"});
    EXPECT_EQ(GetCapturedStdout(), "");
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);
    EXPECT_EQ(create, nullptr);
    EXPECT_EQ(record.createCalls(), 1);
}

TEST(MODULECreateFunction, NamesAreReadUpToTheirLength) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_FULL, "LoaderCounted");
    const CREATEFUNCTION create = LoadComponent({13, L"LoaderCountedAndMore"}, {6, L"WidgetAndMore"});
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);
    EXPECT_EQ(create, record.widget());
    EXPECT_EQ(record.createLength(), 6);
}

TEST(MODULECreateFunction, ModuleWithoutCreateFunctionGivesNullSilently) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_NO_CREATE, "LoaderNoCreate");
    CountingCollection collection;
    SetGlobalCollection(&collection);
    CaptureStdout();
    const CREATEFUNCTION create = LoadComponent({14, L"LoaderNoCreate"}, kWidget);
    EXPECT_EQ(GetCapturedStdout(), "");
    SetGlobalCollection(nullptr);
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);  // loaded all the same
    EXPECT_EQ(create, nullptr);
    EXPECT_EQ(record.initializeCalls(), 0);
    EXPECT_EQ(collection.history, (std::vector<std::int32_t>{+2, -1}));
}

TEST(MODULECreateFunction, ModuleWithoutInitializeModuleStillServesTheComponent) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_NO_INITIALIZE, "LoaderNoInitialize");
    CountingCollection collection;
    SetGlobalCollection(&collection);
    CaptureStdout();
    const CREATEFUNCTION create = LoadComponent({18, L"LoaderNoInitialize"}, kWidget);
    EXPECT_EQ(GetCapturedStdout(), "");
    SetGlobalCollection(nullptr);
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);
    EXPECT_NE(create, nullptr);
    EXPECT_EQ(create, record.widget());
    EXPECT_EQ(record.createCalls(), 1);
    EXPECT_EQ(collection.history, (std::vector<std::int32_t>{+2, -1}));
}

TEST(MODULECreateFunction, MissingModulePrintsTheMessageAndGivesNull) {
    ScopedModuleFolder folder;
    CaptureStdout();
    const CREATEFUNCTION create = LoadComponent({12, L"NoSuchModule"}, kWidget);
    EXPECT_EQ(GetCapturedStdout(),
              "Module not available ./_binlinux/NoSuchModule.so, error ./_binlinux/NoSuchModule.so: "
              "cannot open shared object file: No such file or directory\n");
    EXPECT_EQ(create, nullptr);
    EXPECT_EQ(dlerror(), nullptr);  // the loader's error state is cleared
    // Every attempt tries again and says so again.
    CaptureStdout();
    EXPECT_EQ(LoadComponent({12, L"NoSuchModule"}, kWidget), nullptr);
    EXPECT_EQ(GetCapturedStdout(),
              "Module not available ./_binlinux/NoSuchModule.so, error ./_binlinux/NoSuchModule.so: "
              "cannot open shared object file: No such file or directory\n");
}

TEST(MODULECreateFunction, MissingModulePathUsesOnlyTheCountedName) {
    ScopedModuleFolder folder;
    CaptureStdout();
    EXPECT_EQ(LoadComponent({4, L"NoSuchModule"}, kWidget), nullptr);
    EXPECT_EQ(GetCapturedStdout(),
              "Module not available ./_binlinux/NoSu.so, error ./_binlinux/NoSu.so: "
              "cannot open shared object file: No such file or directory\n");
}

TEST(MODULECreateFunction, UnloadableModulePrintsTheLoaderError) {
    ScopedModuleFolder folder;
    std::ofstream("_binlinux/LoaderBroken.so") << std::string(256, 'x');
    CaptureStdout();
    EXPECT_EQ(LoadComponent({12, L"LoaderBroken"}, kWidget), nullptr);
    EXPECT_EQ(GetCapturedStdout(),
              "Module not available ./_binlinux/LoaderBroken.so, error ./_binlinux/LoaderBroken.so: "
              "invalid ELF header\n");
}

TEST(MODULECreateFunction, CollectionsExIsOpenedFromTheModuleFolder) {
    ScopedModuleFolder folder;
    const std::string installed = folder.Install(FIXTURE_FULL, "CollectionsEx");
    CaptureStdout();
    const CREATEFUNCTION create = LoadComponent({13, L"CollectionsEx"}, kWidget);
    EXPECT_EQ(GetCapturedStdout(), "");
    const FixtureRecord record(installed);
    ASSERT_NE(record.handle, nullptr);
    EXPECT_NE(create, nullptr);
    EXPECT_EQ(create, record.widget());
}

}  // namespace
