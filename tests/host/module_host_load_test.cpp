// Loading the module and the kit through the host helper: what a loaded host
// holds, and the path and reason of every way loading can fail.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstring>

#include "module_host.h"
#include "temporary_folder.h"

namespace {

using calendar_module::LoadFailure;
using calendar_module::ModuleHost;
using calendar_module::ModuleLibrary;
using calendar_module::ModuleLoadError;

std::string BuildFolder() { return std::string(CAL_BUILD_DIR) + "/_binlinux"; }
std::string BuildCalendar() { return BuildFolder() + "/Calendar.so"; }
std::string BuildKit() { return BuildFolder() + "/CollectionsEx.so"; }
constexpr const char* kNoFile = "cannot open shared object file: No such file or directory";

TEST(ModuleHostLoad, LoadsBothLibrariesFromTheFolder) {
    const ModuleHost host(BuildFolder());
    ASSERT_TRUE(host.loaded()) << host.failure().Message();
    EXPECT_FALSE(host.failure().failed());
    EXPECT_EQ(host.folder(), BuildFolder());
    EXPECT_EQ(host.calendar().path, BuildCalendar());
    EXPECT_EQ(host.kit().path, BuildKit());
    EXPECT_NE(host.calendar().handle, host.kit().handle);
    EXPECT_NE(host.collection(), nullptr);
}

TEST(ModuleHostLoad, ResolvesTheModulesDecoratedExports) {
    const ModuleHost host(BuildFolder());
    const ModuleLibrary& calendar = host.calendar();
    EXPECT_NE(calendar.createFunction, nullptr);
    EXPECT_EQ(reinterpret_cast<void*>(calendar.initializeModule),
              dlsym(calendar.handle, "_Z16InitializeModulePvP20IComponentCollection"));
    EXPECT_NE(calendar.initializeModule, nullptr);
    EXPECT_NE(calendar.moduleCreateFunction, nullptr);
    EXPECT_EQ(calendar.plainInitializeModule, nullptr);  // the module has no plain-named one
    ASSERT_NE(calendar.iidOfc, nullptr);
    // "ITime" packs into 89 A6 56 and thirteen zero bytes.
    const IID time = calendar.iidOfc("ITime");
    const unsigned char expected[16] = {0x89, 0xA6, 0x56};
    EXPECT_EQ(std::memcmp(&time, expected, sizeof expected), 0);
}

TEST(ModuleHostLoad, ResolvesTheKitsPlainEntryPoints) {
    const ModuleHost host(BuildFolder());
    const ModuleLibrary& kit = host.kit();
    EXPECT_NE(kit.createFunction, nullptr);
    EXPECT_NE(kit.plainInitializeModule, nullptr);
    EXPECT_EQ(kit.initializeModule, nullptr);
    EXPECT_EQ(kit.moduleCreateFunction, nullptr);
    EXPECT_EQ(kit.iidOfc, nullptr);
}

TEST(ModuleHostLoad, MissingFolderNamesTheCalendarLibrary) {
    const TemporaryFolder folder;
    const std::string missing = folder.path() + "/nowhere";
    const ModuleHost host(missing);
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().code, E_FAIL);
    EXPECT_EQ(host.failure().path, missing + "/Calendar.so");
    EXPECT_EQ(host.failure().reason, kNoFile);  // without the path the loader puts first
    EXPECT_EQ(host.failure().Message(), "cannot load module " + missing + "/Calendar.so (" + kNoFile + ")");
    EXPECT_EQ(host.collection(), nullptr);
    EXPECT_FALSE(host.kit().loaded());
}

TEST(ModuleHostLoad, MissingKitNamesTheKitLibrary) {
    const TemporaryFolder folder;
    folder.Link(BuildCalendar(), "Calendar");
    const ModuleHost host(folder.path());
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().path, folder.path() + "/CollectionsEx.so");
    EXPECT_EQ(host.failure().reason, kNoFile);
    EXPECT_TRUE(host.calendar().loaded());
    EXPECT_EQ(host.collection(), nullptr);
}

TEST(ModuleHostLoad, CalendarWithoutCreateFunctionIsRefused) {
    const TemporaryFolder folder;
    folder.Link(STAND_IN_EMPTY, "Calendar");
    folder.Link(BuildKit(), "CollectionsEx");
    const ModuleHost host(folder.path());
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().path, folder.path() + "/Calendar.so");
    EXPECT_EQ(host.failure().reason, "no symbol CreateFunction");
    EXPECT_EQ(host.failure().code, E_FAIL);
}

TEST(ModuleHostLoad, CalendarWithoutDecoratedInitializeModuleIsRefused) {
    const TemporaryFolder folder;
    folder.Link(STAND_IN_SERVES_NOTHING, "Calendar");
    folder.Link(BuildKit(), "CollectionsEx");
    const ModuleHost host(folder.path());
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().path, folder.path() + "/Calendar.so");
    EXPECT_EQ(host.failure().reason, "no symbol _Z16InitializeModulePvP20IComponentCollection");
}

TEST(ModuleHostLoad, KitWithoutCreateFunctionIsRefused) {
    const TemporaryFolder folder;
    folder.Link(BuildCalendar(), "Calendar");
    folder.Link(STAND_IN_EMPTY, "CollectionsEx");
    const ModuleHost host(folder.path());
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().path, folder.path() + "/CollectionsEx.so");
    EXPECT_EQ(host.failure().reason, "no symbol CreateFunction");
}

TEST(ModuleHostLoad, KitWithoutGlobalCollectionIsRefused) {
    const TemporaryFolder folder;
    folder.Link(BuildCalendar(), "Calendar");
    folder.Link(STAND_IN_SERVES_NOTHING, "CollectionsEx");
    const ModuleHost host(folder.path());
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().path, folder.path() + "/CollectionsEx.so");
    EXPECT_EQ(host.failure().reason, "no GlobalComponentCollection");
    EXPECT_EQ(host.failure().code, E_FAIL);
}

TEST(ModuleHostLoad, FailedCollectionCreationKeepsTheKitsCode) {
    const TemporaryFolder folder;
    folder.Link(BuildCalendar(), "Calendar");
    folder.Link(STAND_IN_COLLECTION_FAILS, "CollectionsEx");
    const ModuleHost host(folder.path());
    EXPECT_FALSE(host.loaded());
    EXPECT_EQ(host.failure().path, folder.path() + "/CollectionsEx.so");
    EXPECT_EQ(host.failure().reason, "GlobalComponentCollection failed 0x8007000E");
    EXPECT_EQ(host.failure().code, E_OUTOFMEMORY);
    EXPECT_EQ(host.collection(), nullptr);
}

TEST(ModuleHostLoad, LoadOrThrowThrowsTheFailure) {
    const TemporaryFolder folder;
    try {
        ModuleHost::LoadOrThrow(folder.path());
        FAIL() << "no exception";
    } catch (const ModuleLoadError& error) {
        EXPECT_EQ(error.failure().path, folder.path() + "/Calendar.so");
        EXPECT_EQ(std::string(error.what()), "cannot load module " + folder.path() + "/Calendar.so (" + kNoFile + ")");
    }
}

TEST(ModuleHostLoad, LoadOrThrowGivesALoadedHost) {
    const ModuleHost host = ModuleHost::LoadOrThrow(BuildFolder());
    EXPECT_TRUE(host.loaded());
    EXPECT_NE(host.collection(), nullptr);
}

TEST(ModuleLibrary, DefaultRecordIsNotLoaded) {
    const ModuleLibrary library;
    EXPECT_FALSE(library.loaded());
    EXPECT_EQ(library.Symbol("CreateFunction"), nullptr);
    EXPECT_EQ(library.Factory(L"Time"), nullptr);
    void* object = &object;
    EXPECT_EQ(library.Create(L"Time", IID_IUnknown, &object), E_FAIL);
    EXPECT_EQ(object, nullptr);
}

TEST(ModuleLibrary, OpenFailureKeepsThePathAndTheLoaderText) {
    const TemporaryFolder folder;
    const std::string path = folder.path() + "/Missing.so";
    LoadFailure failure;
    const ModuleLibrary library = ModuleLibrary::Open(path, &failure);
    EXPECT_FALSE(library.loaded());
    EXPECT_EQ(library.path, path);
    EXPECT_EQ(library.createFunction, nullptr);
    EXPECT_EQ(failure.path, path);
    EXPECT_EQ(failure.reason, kNoFile);
    EXPECT_EQ(failure.code, E_FAIL);
    EXPECT_THROW(ModuleLibrary::OpenOrThrow(path), ModuleLoadError);
}

TEST(ModuleLibrary, SymbolLookupMissLeavesNoLoaderError) {
    const ModuleLibrary library = ModuleLibrary::OpenOrThrow(BuildCalendar());
    EXPECT_EQ(library.Symbol("GLOBALComponents"), nullptr);  // not exported
    EXPECT_EQ(dlerror(), nullptr);
    EXPECT_NE(library.Symbol("CreateFunction"), nullptr);
}

TEST(ModuleLibrary, FactoryAnswersOnlyTheServedNames) {
    const ModuleLibrary library = ModuleLibrary::OpenOrThrow(BuildCalendar());
    const CREATEFUNCTION time = library.Factory(L"Time");
    const CREATEFUNCTION buffer = library.Factory(L"DblBuffer");
    EXPECT_NE(time, nullptr);
    EXPECT_NE(buffer, nullptr);
    EXPECT_NE(time, buffer);
    EXPECT_EQ(library.Factory(L"time"), nullptr);
    EXPECT_EQ(library.Factory(L"Tim"), nullptr);
    EXPECT_EQ(library.Factory(L""), nullptr);
}

TEST(ModuleLibrary, OpeningAgainGivesTheSameLibrary) {
    const ModuleLibrary first = ModuleLibrary::OpenOrThrow(BuildCalendar());
    const TemporaryFolder folder;
    const ModuleLibrary linked = ModuleLibrary::OpenOrThrow(folder.Link(BuildCalendar(), "Calendar"));
    EXPECT_EQ(linked.handle, first.handle);
    EXPECT_EQ(linked.createFunction, first.createFunction);
}

TEST(HostHelpers, FormatResultGivesEightHexDigits) {
    EXPECT_EQ(calendar_module::FormatResult(E_FAIL), "0x80004005");
    EXPECT_EQ(calendar_module::FormatResult(E_INVALIDARG), "0x80070057");
    EXPECT_EQ(calendar_module::FormatResult(S_OK), "0x00000000");
    EXPECT_EQ(calendar_module::FormatResult(S_FALSE), "0x00000001");
}

TEST(HostHelpers, ModulePathJoinsFolderNameAndSuffix) {
    EXPECT_EQ(calendar_module::ModulePath("/opt/m/_binlinux", "Calendar"), "/opt/m/_binlinux/Calendar.so");
    EXPECT_EQ(calendar_module::ModulePath("/opt/m/_binlinux/", "CollectionsEx"), "/opt/m/_binlinux/CollectionsEx.so");
    EXPECT_EQ(calendar_module::ModulePath("_binlinux", "Calendar"), "_binlinux/Calendar.so");
    // Never a bare name, which the loader would look for on its search path.
    EXPECT_EQ(calendar_module::ModulePath("", "Calendar"), "./Calendar.so");
}

}  // namespace
