// Components through the host helper: the module's by name, the kit's
// through the global collection, the collection handed to the module, and
// the reference each caller receives.
#include <gtest/gtest.h>

#include "module_host.h"
#include "temporary_folder.h"

namespace {

using calendar_module::CollectionUse;
using calendar_module::ModuleHost;

std::string BuildFolder() { return std::string(CAL_BUILD_DIR) + "/_binlinux"; }

TEST(ModuleHostCollection, InstallingHandsTheModuleOneReference) {
    const ModuleHost host(BuildFolder(), CollectionUse::HostOnly);
    ASSERT_TRUE(host.loaded()) << host.failure().Message();
    IComponentCollection* collection = host.collection();
    EXPECT_EQ(collection->AddRef(), 2);  // the host's and this probe's
    EXPECT_EQ(collection->Release(), 1);

    EXPECT_EQ(host.InstallCollection(), S_OK);
    EXPECT_EQ(collection->AddRef(), 3);  // the host's, the module's and this probe's
    EXPECT_EQ(collection->Release(), 2);

    EXPECT_EQ(host.InstallCollection(), S_OK);  // the module still holds one
    EXPECT_EQ(collection->AddRef(), 3);
    EXPECT_EQ(collection->Release(), 2);

    host.calendar().initializeModule(nullptr, nullptr);  // the module lets go
    EXPECT_EQ(collection->AddRef(), 2);
    EXPECT_EQ(collection->Release(), 1);
}

TEST(ModuleHostCollection, DefaultLoadInstallsTheCollection) {
    const ModuleHost host(BuildFolder());
    ASSERT_TRUE(host.loaded()) << host.failure().Message();
    EXPECT_EQ(host.collection()->AddRef(), 3);
    EXPECT_EQ(host.collection()->Release(), 2);
}

TEST(ModuleHostCreate, TimeComesWithOneReference) {
    const ModuleHost host(BuildFolder());
    HRESULT hr = E_FAIL;
    SmartPtr<ITime> time = host.CreateTime(&hr);
    EXPECT_EQ(hr, S_OK);
    ASSERT_TRUE(time);
    EXPECT_EQ(time->AddRef(), 2);
    EXPECT_EQ(time->Release(), 1);
    EXPECT_EQ(time->SetDate(21, 6, 2024), S_OK);
    double starDate = 0.0;
    EXPECT_EQ(time->get_StarDate(0, &starDate), S_OK);
    EXPECT_EQ(starDate, 739060.0);  // 2024-06-21 00:00 counted from 1 January AD 1 (Julian) as 1.0
    EXPECT_EQ(time.detach()->Release(), 0);
}

TEST(ModuleHostCreate, DblBufferComesWithOneReference) {
    const ModuleHost host(BuildFolder());
    HRESULT hr = E_FAIL;
    SmartPtr<IDblVector> vector = host.CreateDblBuffer(&hr);
    EXPECT_EQ(hr, S_OK);
    ASSERT_TRUE(vector);
    std::int32_t size = -1;
    EXPECT_EQ(vector->get_Size(&size), S_OK);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(vector->AddRef(), 2);
    EXPECT_EQ(vector->Release(), 1);
    EXPECT_EQ(vector.detach()->Release(), 0);
}

TEST(ModuleHostCreate, ByNameAnswersTheRequestedInterface) {
    const ModuleHost host(BuildFolder());
    SmartPtr<IUnknown> unknown = host.Create<IUnknown>(L"Time", IID_IUnknown);
    ASSERT_TRUE(unknown);
    SmartPtr<ITime> time;
    EXPECT_EQ(unknown->QueryInterface(IIDFromName("ITime"), time.put_void()), S_OK);
    EXPECT_EQ(unknown->AddRef(), 3);  // one for each holder and this probe
    EXPECT_EQ(unknown->Release(), 2);
}

TEST(ModuleHostCreate, UnknownNameFailsWithEFail) {
    const ModuleHost host(BuildFolder());
    HRESULT hr = S_OK;
    EXPECT_FALSE(host.Create<IUnknown>(L"Clock", IID_IUnknown, &hr));
    EXPECT_EQ(hr, E_FAIL);
    EXPECT_FALSE(host.Create<IUnknown>(L"time", IID_IUnknown, &hr));  // names are case-sensitive
    EXPECT_EQ(hr, E_FAIL);
}

TEST(ModuleHostCreate, UnsupportedInterfaceGivesTheFactorysCode) {
    const ModuleHost host(BuildFolder());
    void* object = &object;
    EXPECT_EQ(host.CreateComponent(L"Time", IIDFromName("IDblVector"), &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST(ModuleHostCreate, NullResultSlotIsEPointer) {
    const ModuleHost host(BuildFolder());
    EXPECT_EQ(host.CreateComponent(L"Time", IIDFromName("ITime"), nullptr), E_POINTER);
    EXPECT_EQ(host.CreateKitComponent(L"DataStream", IIDFromName("IDataStream"), nullptr), E_POINTER);
}

TEST(ModuleHostCreate, KitComponentsComeFromTheCollection) {
    const ModuleHost host(BuildFolder());
    HRESULT hr = E_FAIL;
    SmartPtr<IDataStream> stream = host.CreateKit<IDataStream>(L"XMLStream", IIDFromName("IDataStream"), &hr);
    EXPECT_EQ(hr, S_OK);
    ASSERT_TRUE(stream);
    std::int32_t size = -1;
    EXPECT_EQ(stream->GetSize(&size), S_OK);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(stream->AddRef(), 2);
    EXPECT_EQ(stream->Release(), 1);
}

TEST(ModuleHostCreate, UnknownKitComponentGivesTheCollectionsCode) {
    const ModuleHost host(BuildFolder());
    void* object = &object;
    EXPECT_EQ(host.CreateKitComponent(L"NoSuchStream", IIDFromName("IDataStream"), &object), E_FAIL);
    EXPECT_EQ(object, nullptr);
}

TEST(ModuleHostCreate, HostThatFailedToLoadCreatesNothing) {
    const TemporaryFolder folder;
    const ModuleHost host(folder.path());
    ASSERT_FALSE(host.loaded());
    HRESULT hr = S_OK;
    EXPECT_FALSE(host.CreateTime(&hr));
    EXPECT_EQ(hr, E_FAIL);
    EXPECT_FALSE(host.CreateKit<IDataStream>(L"XMLStream", IIDFromName("IDataStream"), &hr));
    EXPECT_EQ(hr, E_FAIL);
    EXPECT_EQ(host.InstallCollection(), E_FAIL);
}

TEST(ModuleHostCreate, MovedHostKeepsItsObjectsUsable) {
    ModuleHost first(BuildFolder());
    SmartPtr<ITime> time = first.CreateTime();
    const ModuleHost second(std::move(first));
    ASSERT_TRUE(second.loaded());
    EXPECT_TRUE(second.CreateKit<IDataStream>(L"DataStream", IIDFromName("IDataStream")));
    EXPECT_EQ(time->SetDate(1, 1, 2000), S_OK);
    EXPECT_EQ(time->GetDayOfWeek(), 6);  // a Saturday
}

}  // namespace
