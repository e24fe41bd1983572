#include <gtest/gtest.h>

#include "kit_test_support.h"

namespace {

SmartPtr<IComponentString> NewDescriptor(const wchar_t* library, const wchar_t* component) {
    SmartPtr<IComponentString> descriptor = NewKit<IComponentString>(L"ComponentString", "IComponentString");
    if (descriptor) {
        descriptor->SetPart(4, static_cast<std::int32_t>(std::wcslen(library)), library);
        descriptor->SetPart(1, static_cast<std::int32_t>(std::wcslen(component)), component);
    }
    return descriptor;
}

TEST(ComponentString, NewDescriptorHasEmptyPartsAndOneReference) {
    SmartPtr<IComponentString> descriptor = NewKit<IComponentString>(L"ComponentString", "IComponentString");
    ASSERT_TRUE(descriptor);
    for (std::int32_t part = 0; part < 16; ++part) {
        tagREFString ref{-1, nullptr};
        EXPECT_EQ(descriptor->GetPart(part, &ref), S_OK);
        EXPECT_EQ(ref.length, 0);
    }
    EXPECT_EQ(descriptor->AddRef(), 2);
    EXPECT_EQ(descriptor->Release(), 1);
    EXPECT_EQ(descriptor.detach()->Release(), 0);
}

TEST(ComponentString, PartsAreStoredAsCopies) {
    SmartPtr<IComponentString> descriptor = NewKit<IComponentString>(L"ComponentString", "IComponentString");
    wchar_t library[] = L"Collections";
    EXPECT_EQ(descriptor->SetPart(4, 11, library), S_OK);
    library[0] = L'X';
    EXPECT_EQ(descriptor->SetPart(1, 7, L"Variant"), S_OK);
    EXPECT_EQ(descriptor->SetPart(0, 3, L"abc"), S_OK);
    EXPECT_EQ(descriptor->SetPart(15, 2, L"zz"), S_OK);
    tagREFString ref{};
    EXPECT_EQ(descriptor->GetPart(4, &ref), S_OK);
    EXPECT_EQ(TextOf(ref), L"Collections");
    EXPECT_EQ(descriptor->GetPart(1, &ref), S_OK);
    EXPECT_EQ(TextOf(ref), L"Variant");
    EXPECT_EQ(descriptor->GetPart(0, &ref), S_OK);
    EXPECT_EQ(TextOf(ref), L"abc");
    EXPECT_EQ(descriptor->GetPart(15, &ref), S_OK);
    EXPECT_EQ(TextOf(ref), L"zz");
}

TEST(ComponentString, BadPartArgumentsGiveCodes) {
    SmartPtr<IComponentString> descriptor = NewKit<IComponentString>(L"ComponentString", "IComponentString");
    tagREFString ref{};
    EXPECT_EQ(descriptor->GetPart(1, nullptr), E_POINTER);
    EXPECT_EQ(descriptor->GetPart(-1, &ref), E_INVALIDARG);
    EXPECT_EQ(descriptor->GetPart(16, &ref), E_INVALIDARG);
    EXPECT_EQ(descriptor->SetPart(-1, 1, L"x"), E_INVALIDARG);
    EXPECT_EQ(descriptor->SetPart(16, 1, L"x"), E_INVALIDARG);
    EXPECT_EQ(descriptor->SetPart(1, -1, L"x"), E_INVALIDARG);
    EXPECT_EQ(descriptor->SetPart(1, 1, nullptr), E_POINTER);
    EXPECT_EQ(descriptor->GetCreateFunction(nullptr), E_POINTER);
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IVariant"), nullptr), E_POINTER);
}

TEST(ComponentString, CollectionsLibraryCreatesKitComponents) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"Collections", L"Variant");
    SmartPtr<IVariant> value;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IVariant"), value.put_void()), S_OK);
    ASSERT_TRUE(value);
    EXPECT_EQ(value->GetType(), 0);
    EXPECT_EQ(value->AddRef(), 2);
    EXPECT_EQ(value->Release(), 1);
    EXPECT_EQ(value.detach()->Release(), 0);
    // The descriptor itself is unaffected by the instances it makes.
    EXPECT_EQ(RefsHeld(descriptor.get()), 1);
}

TEST(ComponentString, EachCreateInstanceMakesANewObject) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"Collections", L"CreatableString");
    SmartPtr<IString> first;
    SmartPtr<IString> second;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("ICreatableString"), first.put_void()), S_OK);
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IString"), second.put_void()), S_OK);
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    EXPECT_NE(first.get(), second.get());
}

TEST(ComponentString, CreateFunctionOfAKitComponentIsTheKitsOwn) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"Collections", L"Variant");
    CREATEFUNCTION create = nullptr;
    EXPECT_EQ(descriptor->GetCreateFunction(&create), S_OK);
    EXPECT_EQ(create, Kit().Factory(L"Variant"));
}

TEST(ComponentString, UnansweredInterfaceGivesNoInterface) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"Collections", L"Variant");
    void* out = reinterpret_cast<void*>(1);
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IString"), &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(ComponentString, UnknownKitComponentFails) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"Collections", L"variant");
    void* out = reinterpret_cast<void*>(1);
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IVariant"), &out), E_FAIL);
    EXPECT_EQ(out, nullptr);
    CREATEFUNCTION create = reinterpret_cast<CREATEFUNCTION>(1);
    EXPECT_EQ(descriptor->GetCreateFunction(&create), E_FAIL);
    EXPECT_EQ(create, nullptr);
}

TEST(ComponentString, ChangingTheClassChangesWhatIsCreated) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"Collections", L"Variant");
    SmartPtr<IUnknown> first;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IVariant"), first.put_void()), S_OK);
    descriptor->SetPart(1, 15, L"CreatableString");
    SmartPtr<IUnknown> second;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IVariant"), second.put_void()), E_NOINTERFACE);
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IString"), second.put_void()), S_OK);
}

TEST(ComponentString, OtherLibrariesLoadByTheModuleRule) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"KitProbe", L"Probe");
    SmartPtr<IUnknown> probe;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IProbe"), probe.put_void()), S_OK);
    ASSERT_TRUE(probe);
    EXPECT_EQ(probe->AddRef(), 2);
    EXPECT_EQ(probe->Release(), 1);
    EXPECT_EQ(probe.detach()->Release(), 0);
    CREATEFUNCTION create = nullptr;
    EXPECT_EQ(descriptor->GetCreateFunction(&create), S_OK);
    EXPECT_NE(create, nullptr);
}

TEST(ComponentString, ModuleLibraryNamedByItsFileName) {
    SmartPtr<IComponentString> descriptor = NewDescriptor(L"CollectionsEx", L"Variant");
    SmartPtr<IVariant> value;
    EXPECT_EQ(descriptor->CreateInstance(HostIID("IVariant"), value.put_void()), S_OK);
    EXPECT_TRUE(value);
}

struct LoadFailureCase {
    const wchar_t* library;
    const wchar_t* component;
    HRESULT code;
};

TEST(ComponentString, LoadFailuresGiveCodes) {
    const LoadFailureCase cases[] = {
        {L"NoSuchLibrary", L"Probe", E_FAIL},  // no file
        {L"KitProbeBare", L"Probe", E_FAIL},   // no CreateFunction
        {L"KitProbe", L"Other", E_FAIL},       // component not served
        {L"KitProbe", L"", E_INVALIDARG},      // no class name
        {L"", L"Probe", E_INVALIDARG},         // no library name
    };
    for (const LoadFailureCase& c : cases) {
        SmartPtr<IComponentString> descriptor = NewDescriptor(c.library, c.component);
        void* out = reinterpret_cast<void*>(1);
        EXPECT_EQ(descriptor->CreateInstance(IID_IUnknown, &out), c.code) << c.library;
        EXPECT_EQ(out, nullptr);
        CREATEFUNCTION create = reinterpret_cast<CREATEFUNCTION>(1);
        EXPECT_EQ(descriptor->GetCreateFunction(&create), c.code);
        EXPECT_EQ(create, nullptr);
    }
}

TEST(ComponentString, OverlongLibraryNameIsRejected) {
    const std::wstring library(256, L'a');
    SmartPtr<IComponentString> descriptor = NewDescriptor(library.c_str(), L"Probe");
    void* out = nullptr;
    EXPECT_EQ(descriptor->CreateInstance(IID_IUnknown, &out), E_INVALIDARG);
}

}  // namespace
