#include <gtest/gtest.h>

#include "kit_test_support.h"

namespace {

SmartPtr<IComponentCollection> NewCollection() {
    return NewKit<IComponentCollection>(L"GlobalComponentCollection", "IComponentCollection");
}

std::int32_t Length(const wchar_t* text) { return static_cast<std::int32_t>(std::wcslen(text)); }

SmartPtr<IComponentString> Describe(IComponentCollection* collection, const wchar_t* name) {
    SmartPtr<IComponentString> descriptor;
    collection->GetComponent(Length(name), name, nullptr, descriptor.put_void());
    return descriptor;
}

std::wstring Part(IComponentString* descriptor, std::int32_t part) {
    tagREFString ref{};
    if (!descriptor || FAILED(descriptor->GetPart(part, &ref))) return L"<failed>";
    return TextOf(ref);
}

TEST(GlobalComponentCollection, NewCollectionHasOneReference) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    ASSERT_TRUE(collection);
    EXPECT_EQ(collection->AddRef(), 2);
    EXPECT_EQ(collection->Release(), 1);
    EXPECT_EQ(collection.detach()->Release(), 0);
}

TEST(GlobalComponentCollection, EachCreationIsASeparateCollection) {
    SmartPtr<IComponentCollection> first = NewCollection();
    SmartPtr<IComponentCollection> second = NewCollection();
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(first->RegisterComponent(4, L"Time", 8, L"Calendar"), S_OK);
    std::int32_t count = 0;
    second->GetComponentCount(&count);
    EXPECT_EQ(count, 10);
}

TEST(GlobalComponentCollection, StartsWithTheTenKitComponents) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    std::int32_t count = -1;
    EXPECT_EQ(collection->GetComponentCount(&count), S_OK);
    EXPECT_EQ(count, 10);
    EXPECT_EQ(collection->GetComponentCount(nullptr), E_POINTER);
}

TEST(GlobalComponentCollection, DescribesEveryKitComponentUnderCollections) {
    const wchar_t* const names[] = {L"GlobalComponentCollection",
                                    L"ComponentString",
                                    L"CreatableString",
                                    L"Variant",
                                    L"SuperCollection",
                                    L"Registry",
                                    L"DataStream",
                                    L"XMLStream",
                                    L"FolderStream",
                                    L"ParametersCreatable"};
    SmartPtr<IComponentCollection> collection = NewCollection();
    for (const wchar_t* name : names) {
        SmartPtr<IComponentString> descriptor = Describe(collection.get(), name);
        ASSERT_TRUE(descriptor) << name;
        EXPECT_EQ(Part(descriptor.get(), 4), L"Collections");
        EXPECT_EQ(Part(descriptor.get(), 1), name);
        EXPECT_EQ(Part(descriptor.get(), 0), L"");
        EXPECT_EQ(descriptor->AddRef(), 2);
        EXPECT_EQ(descriptor->Release(), 1);
        EXPECT_EQ(descriptor.detach()->Release(), 0);
    }
}

TEST(GlobalComponentCollection, DescriptorCreatesTheComponent) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    SmartPtr<IComponentString> descriptor = Describe(collection.get(), L"CreatableString");
    SmartPtr<ICreatableString> text;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("ICreatableString"), text.put_void()), S_OK);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->SetString(2, L"ok"), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"ok");
}

TEST(GlobalComponentCollection, UnknownNameGivesFailAndNull) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    void* out = reinterpret_cast<void*>(1);
    EXPECT_EQ(collection->GetComponent(4, L"Time", nullptr, &out), E_FAIL);
    EXPECT_EQ(out, nullptr);
    out = reinterpret_cast<void*>(1);
    const IID variant = HostIID("IVariant");
    EXPECT_EQ(collection->GetComponent(7, L"variant", &variant, &out), E_FAIL);  // case matters
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(collection->GetComponent(3, L"Variant", &variant, &out), E_FAIL);  // no prefix match
    EXPECT_EQ(collection->GetComponent(0, L"", nullptr, &out), E_FAIL);
}

TEST(GlobalComponentCollection, ReadsOnlyTheCountedCharacters) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    SmartPtr<IComponentString> descriptor;
    EXPECT_EQ(collection->GetComponent(7, L"VariantXYZ", nullptr, descriptor.put_void()), S_OK);
    EXPECT_EQ(Part(descriptor.get(), 1), L"Variant");
}

TEST(GlobalComponentCollection, WithIidCreatesAnInstance) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    const IID iid = HostIID("IVariant");
    SmartPtr<IVariant> value;
    EXPECT_EQ(collection->GetComponent(7, L"Variant", &iid, value.put_void()), S_OK);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->SetInteger(5), S_OK);
    EXPECT_EQ(value->GetInteger(), 5);
    EXPECT_EQ(value->AddRef(), 2);
    EXPECT_EQ(value->Release(), 1);
    EXPECT_EQ(value.detach()->Release(), 0);
    EXPECT_EQ(RefsHeld(collection.get()), 1);
}

TEST(GlobalComponentCollection, WithUnansweredIidGivesNoInterface) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    const IID iid = HostIID("IString");
    void* out = reinterpret_cast<void*>(1);
    EXPECT_EQ(collection->GetComponent(7, L"Variant", &iid, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(GlobalComponentCollection, RegistersComponentsOfOtherLibraries) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    EXPECT_EQ(collection->RegisterComponent(4, L"Time", 8, L"Calendar"), S_OK);
    std::int32_t count = 0;
    collection->GetComponentCount(&count);
    EXPECT_EQ(count, 11);
    SmartPtr<IComponentString> descriptor = Describe(collection.get(), L"Time");
    EXPECT_EQ(Part(descriptor.get(), 4), L"Calendar");
    EXPECT_EQ(Part(descriptor.get(), 1), L"Time");
}

TEST(GlobalComponentCollection, ReRegisteringReplacesTheLibraryAndKeepsTheCount) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    EXPECT_EQ(collection->RegisterComponent(5, L"Probe", 5, L"Other"), S_OK);
    EXPECT_EQ(collection->RegisterComponent(5, L"Probe", 8, L"KitProbe"), S_FALSE);
    EXPECT_EQ(collection->RegisterComponent(5, L"Probe", 8, L"KitProbe"), S_FALSE);
    std::int32_t count = 0;
    collection->GetComponentCount(&count);
    EXPECT_EQ(count, 11);
    EXPECT_EQ(Part(Describe(collection.get(), L"Probe").get(), 4), L"KitProbe");
}

TEST(GlobalComponentCollection, CreatesComponentsOfOtherLibrariesByName) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    collection->RegisterComponent(5, L"Probe", 8, L"KitProbe");
    const IID iid = HostIID("IProbe");
    for (int round = 0; round < 2; ++round) {  // the second round uses the cached creation function
        SmartPtr<IUnknown> probe;
        EXPECT_EQ(collection->GetComponent(5, L"Probe", &iid, probe.put_void()), S_OK);
        ASSERT_TRUE(probe);
        EXPECT_EQ(probe->AddRef(), 2);
        EXPECT_EQ(probe->Release(), 1);
        EXPECT_EQ(probe.detach()->Release(), 0);
    }
    SmartPtr<IComponentString> descriptor = Describe(collection.get(), L"Probe");
    SmartPtr<IUnknown> probe;
    EXPECT_EQ(descriptor->CreateInstance(iid, probe.put_void()), S_OK);
    EXPECT_TRUE(probe);
}

TEST(GlobalComponentCollection, ReRegisteringRedirectsCreation) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    collection->RegisterComponent(5, L"Probe", 8, L"KitProbe");
    SmartPtr<IUnknown> probe;
    EXPECT_EQ(collection->GetComponent(5, L"Probe", &IID_IUnknown, probe.put_void()), S_OK);
    collection->RegisterComponent(5, L"Probe", 13, L"NoSuchLibrary");
    EXPECT_EQ(collection->GetComponent(5, L"Probe", &IID_IUnknown, probe.put_void()), E_FAIL);
    EXPECT_FALSE(probe);
}

TEST(GlobalComponentCollection, UnloadableLibraryGivesFail) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    collection->RegisterComponent(5, L"Probe", 12, L"KitProbeBare");
    void* out = reinterpret_cast<void*>(1);
    EXPECT_EQ(collection->GetComponent(5, L"Probe", &IID_IUnknown, &out), E_FAIL);
    EXPECT_EQ(out, nullptr);
    // Describing does not load anything.
    EXPECT_EQ(Part(Describe(collection.get(), L"Probe").get(), 4), L"KitProbeBare");
}

TEST(GlobalComponentCollection, BadArgumentsGiveCodes) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    void* out = reinterpret_cast<void*>(1);
    EXPECT_EQ(collection->GetComponent(7, L"Variant", nullptr, nullptr), E_POINTER);
    EXPECT_EQ(collection->GetComponent(-1, L"Variant", nullptr, &out), E_INVALIDARG);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(collection->GetComponent(7, nullptr, nullptr, &out), E_POINTER);
    EXPECT_EQ(collection->RegisterComponent(-1, L"A", 1, L"B"), E_INVALIDARG);
    EXPECT_EQ(collection->RegisterComponent(1, L"A", -1, L"B"), E_INVALIDARG);
    EXPECT_EQ(collection->RegisterComponent(1, nullptr, 1, L"B"), E_POINTER);
    EXPECT_EQ(collection->RegisterComponent(1, L"A", 1, nullptr), E_POINTER);
    EXPECT_EQ(collection->RegisterComponent(0, L"", 1, L"B"), E_INVALIDARG);
    EXPECT_EQ(collection->RegisterComponent(1, L"A", 0, L""), E_INVALIDARG);
    std::int32_t count = 0;
    collection->GetComponentCount(&count);
    EXPECT_EQ(count, 10);
}

TEST(GlobalComponentCollection, UnusedSlotsAreNotImplemented) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    EXPECT_EQ(collection->Unused3(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused4(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused5(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused6(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused7(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused8(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused9(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused10(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused11(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused12(), E_NOTIMPL);
    EXPECT_EQ(collection->Unused13(), E_NOTIMPL);
}

TEST(KitCreateFunction, ServesExactNamesOnly) {
    EXPECT_NE(Kit().Factory(L"Variant"), nullptr);
    EXPECT_EQ(Kit().Factory(L"variant"), nullptr);
    CreateFunctionProc entry = Kit().createFunction;
    ASSERT_NE(entry, nullptr);
    CREATEFUNCTION out = nullptr;
    EXPECT_EQ(entry(0, L"", &out), E_FAIL);
    EXPECT_EQ(entry(-1, L"Variant", &out), E_FAIL);
    EXPECT_EQ(entry(7, nullptr, &out), E_FAIL);
    EXPECT_EQ(entry(7, L"Variant", nullptr), E_FAIL);
    EXPECT_EQ(out, nullptr);
    CREATEFUNCTION create = Kit().Factory(L"Variant");
    EXPECT_EQ(create(nullptr, nullptr, nullptr), E_POINTER);
}

TEST(KitInitializeModule, IsExportedByPlainNameAndKeepsNoReference) {
    using Initialize = HRESULT (*)(void*, IComponentCollection*);
    auto initialize = reinterpret_cast<Initialize>(Kit().Symbol("InitializeModule"));
    ASSERT_NE(initialize, nullptr);
    SmartPtr<IComponentCollection> collection = NewCollection();
    EXPECT_EQ(initialize(nullptr, collection.get()), S_OK);
    EXPECT_EQ(RefsHeld(collection.get()), 1);
}

}  // namespace

namespace {

TEST(GlobalComponentCollection, CreatesTheModulesTimeThroughItsLibrary) {
    SmartPtr<IComponentCollection> collection = NewCollection();
    EXPECT_EQ(collection->RegisterComponent(4, L"Time", 8, L"Calendar"), S_OK);
    const IID iid = HostIID("ITime");
    SmartPtr<ITime> time;
    EXPECT_EQ(collection->GetComponent(4, L"Time", &iid, time.put_void()), S_OK);
    ASSERT_TRUE(time);
    EXPECT_EQ(time->AddRef(), 2);
    EXPECT_EQ(time->Release(), 1);
    // The descriptor resolves the same way.
    SmartPtr<IComponentString> descriptor = Describe(collection.get(), L"Time");
    SmartPtr<ITime> second;
    EXPECT_EQ(descriptor->CreateInstance(iid, second.put_void()), S_OK);
    EXPECT_TRUE(second);
    EXPECT_NE(second.get(), time.get());
    EXPECT_EQ(time.detach()->Release(), 0);
}

}  // namespace
