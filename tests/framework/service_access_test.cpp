#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "base/framework_binding.h"
#include "base/iids.h"
#include "child_process.h"
#include "framework/conversions.h"
#include "framework/ref_string.h"
#include "kit_services.h"
#include "module/entry.h"
#include "support/fake_component_collection.h"

namespace {

std::string Narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

// Creates each service twice and describes what came back: whether an object
// was made, that the two calls gave two objects, and what the objects do.
std::string ExerciseServices() {
    std::string report;
    SmartPtr<ICreatableString> text(CREFString::CreateString());
    SmartPtr<ICreatableString> secondText(CREFString::CreateString());
    report += "string=" + std::string(text ? "object" : "null");
    if (text) {
        text->SetString(3, L"abc");
        report += " text=" + Narrow(TextOf(text.get()));
        report += " distinct=" + std::to_string(text.get() != secondText.get());
        const std::int32_t added = text->AddRef();
        const std::int32_t released = text->Release();
        report += " refs=" + std::to_string(added) + "," + std::to_string(released);
    }
    SmartPtr<IVariant> variant(CREFString::CreateVariant());
    report += "\nvariant=" + std::string(variant ? "object" : "null");
    if (variant) {
        variant->SetInteger(5);
        report += " type=" + std::to_string(variant->GetType()) + " integer=" + std::to_string(variant->GetInteger());
    }
    SmartPtr<ISuperCollection> collection(CREFString::CreateCollection());
    report += "\ncollection=" + std::string(collection ? "object" : "null");
    if (collection) {
        SmartPtr<INamedCollection> named;
        collection->QueryInterface(IID_INamedCollection, named.put_void());
        std::int32_t count = -1;
        if (named) named->GetCount(&count);
        report += " count=" + std::to_string(count);
    }
    SmartPtr<IString> converted(ISCreate(L"xyz"));
    report += "\nISCreate=" + Narrow(TextOf(converted.get()));
    SmartPtr<IVariant> integer(IVCreate(9));
    report += "\nIVCreate=" + std::string(integer ? std::to_string(integer->GetInteger()) : "null");
    return report + "\n";
}

constexpr const char kWorkingServices[] =
    "string=object text=abc distinct=1 refs=2,1\n"
    "variant=object type=1 integer=5\n"
    "collection=object count=0\n"
    "ISCreate=xyz\n"
    "IVCreate=9\n";

// A descriptor that counts the instances it makes and the parts set on it;
// its instances are kit variants.
class RecordingDescriptor final : public IComponentString {
public:
    HRESULT QueryInterface(const IID&, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return ++references; }
    std::int32_t Release() override { return --references; }
    HRESULT GetPart(std::int32_t, tagREFString*) override { return E_NOTIMPL; }
    HRESULT GetCreateFunction(CREATEFUNCTION*) override { return E_NOTIMPL; }
    HRESULT CreateInstance(const IID& iid, void** out) override {
        ++instances;
        askedForVariant = iid == IID_IVariant;
        *out = LoadModule("CollectionsEx").Create<IVariant>(L"Variant", HostIID("IVariant")).detach();
        return S_OK;
    }
    HRESULT SetPart(std::int32_t, std::int32_t, const wchar_t*) override {
        ++partsSet;
        return S_OK;
    }

    std::int32_t references = 0;
    int instances = 0;
    int partsSet = 0;
    bool askedForVariant = false;
};

// A collection that registers only "Variant" (served by the recording
// descriptor) and records every lookup.
class RecordingCollection final : public FakeComponentCollection {
public:
    HRESULT QueryInterface(const IID&, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return ++references; }
    std::int32_t Release() override { return --references; }
    HRESULT GetComponent(std::int32_t length, const wchar_t* name, const IID* iid, void** out) override {
        const std::wstring text(name, static_cast<std::size_t>(length));
        lookups += (lookups.empty() ? "" : ",") + Narrow(text) + (iid ? "+iid" : "");
        *out = nullptr;
        if (text != L"Variant") return E_FAIL;
        descriptor.AddRef();
        *out = static_cast<IComponentString*>(&descriptor);
        return S_OK;
    }

    std::int32_t references = 0;
    std::string lookups;
    RecordingDescriptor descriptor;
};

TEST(ServiceAccess, FindsServicesInInstalledCollection) {
    const ChildOutcome outcome = RunInChild([] {
        // An empty current directory: a fallback load could not succeed here.
        const std::string empty = MakeEmptyDirectory();
        if (chdir(empty.c_str()) != 0) return std::string("chdir failed");
        SmartPtr<IComponentCollection> collection = CreateKitCollection();
        if (!collection) return std::string("no kit collection");
        InitializeModule(nullptr, collection.get());
        std::string report = ExerciseServices();
        rmdir(empty.c_str());
        return report;
    });
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.report, kWorkingServices);
    EXPECT_EQ(outcome.output, "");
}

TEST(ServiceAccess, LoadsServicesModuleWithoutCollection) {
    const ChildOutcome outcome = RunInChild([] {
        if (chdir(CAL_BUILD_DIR) != 0) return std::string("chdir failed");
        std::string report = ExerciseServices();
        // The accessors do not install a global collection of their own.
        report += "global=" + std::string(gGlobalComponentCollection ? "set" : "null") + "\n";
        return report;
    });
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.report, std::string(kWorkingServices) + "global=null\n");
    EXPECT_EQ(outcome.output, "");
}

TEST(ServiceAccess, MissingServicesModuleGivesNullAndMessage) {
    const ChildOutcome outcome = RunInChild([] {
        const std::string empty = MakeEmptyDirectory();
        if (chdir(empty.c_str()) != 0) return std::string("chdir failed");
        std::string report = ExerciseServices();
        rmdir(empty.c_str());
        return report;
    });
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.report,
              "string=null\n"
              "variant=null\n"
              "collection=null\n"
              "ISCreate=<null>\n"
              "IVCreate=null\n");
    // Nothing is cached after a failure, so every call tries the load again.
    const std::string message =
        "Module not available ./_binlinux/CollectionsEx.so, error ./_binlinux/CollectionsEx.so: "
        "cannot open shared object file: No such file or directory\n";
    std::string expected;
    for (int call = 0; call < 6; ++call) expected += message;
    EXPECT_EQ(outcome.output, expected);
}

TEST(ServiceAccess, LooksUpOnceThenUsesCachedDescriptor) {
    const ChildOutcome outcome = RunInChild([] {
        if (chdir(CAL_BUILD_DIR) != 0) return std::string("chdir failed");
        static RecordingCollection collection;
        InitializeModule(nullptr, &collection);
        std::string report = ExerciseServices();
        report += "lookups=" + collection.lookups + "\n";
        report += ExerciseServices();
        report += "lookups=" + collection.lookups + "\n";
        const RecordingDescriptor& descriptor = collection.descriptor;
        report += "instances=" + std::to_string(descriptor.instances) +
                  " variant=" + std::to_string(descriptor.askedForVariant) +
                  " parts=" + std::to_string(descriptor.partsSet) +
                  " references=" + std::to_string(descriptor.references) + "\n";
        InitializeModule(nullptr, nullptr);  // the collection dies before the module's exit handlers run
        return report;
    });
    EXPECT_EQ(outcome.exitCode, 0);
    // Names not registered are loaded from the services module; "Variant"
    // comes from the collection's descriptor, whose parts stay as they are.
    // IVCreate makes a third variant; the cache holds the one reference.
    EXPECT_EQ(outcome.report, std::string(kWorkingServices) + "lookups=CreatableString,Variant,SuperCollection\n" +
                                  kWorkingServices +
                                  "lookups=CreatableString,Variant,SuperCollection\n"
                                  "instances=4 variant=1 parts=0 references=1\n");
    EXPECT_EQ(outcome.output, "");
}

}  // namespace
