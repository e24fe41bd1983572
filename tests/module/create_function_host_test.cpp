// CreateFunction: exact, counted, case-sensitive matching of component names.
#include <gtest/gtest.h>

#include "support/module_host.h"

namespace {

// Stands for "untouched" in result slots.
HRESULT Sentinel(void*, const IID*, void**) { return E_NOTIMPL; }

struct Lookup {
    HRESULT result;
    CREATEFUNCTION factory;
};

Lookup Call(std::int32_t length, const wchar_t* name) {
    Lookup lookup{0, &Sentinel};
    lookup.result = LoadModule("Calendar").createFunction(length, name, &lookup.factory);
    return lookup;
}

TEST(CreateFunction, IsExportedUnderItsPlainName) { EXPECT_NE(LoadModule("Calendar").createFunction, nullptr); }

TEST(CreateFunction, ServesDblBufferAndTimeWithDistinctFactories) {
    const Lookup vector = Call(9, L"DblBuffer");
    const Lookup time = Call(4, L"Time");
    EXPECT_EQ(vector.result, 0);
    EXPECT_EQ(time.result, 0);
    EXPECT_NE(vector.factory, nullptr);
    EXPECT_NE(time.factory, nullptr);
    EXPECT_NE(vector.factory, &Sentinel);
    EXPECT_NE(time.factory, &Sentinel);
    EXPECT_NE(vector.factory, time.factory);
    // The same name always gives the same factory.
    EXPECT_EQ(Call(9, L"DblBuffer").factory, vector.factory);
    EXPECT_EQ(Call(4, L"Time").factory, time.factory);
}

TEST(CreateFunction, EachFactoryMakesItsOwnComponent) {
    const IID objectInfo = HostIID("IObjectInfo");
    const struct {
        const wchar_t* name;
        std::int32_t length;
    } components[] = {{L"DblBuffer", 9}, {L"Time", 4}};
    for (const auto& component : components) {
        void* object = nullptr;
        ASSERT_EQ(Call(component.length, component.name).factory(nullptr, &objectInfo, &object), 0);
        tagREFString name{-1, nullptr};
        EXPECT_EQ(static_cast<IObjectInfo*>(object)->GetName(0, &name), 0);
        EXPECT_EQ(std::wstring(name.string, static_cast<std::size_t>(name.length)), component.name);
        EXPECT_EQ(static_cast<IObjectInfo*>(object)->Release(), 0);
    }
}

struct FailingName {
    const char* why;
    std::int32_t length;
    const wchar_t* name;
};

const FailingName kFailingNames[] = {
    {"lower case", 9, L"dblbuffer"},
    {"lower case", 4, L"time"},
    {"one letter's case", 4, L"TimE"},
    {"no prefix match", 3, L"Tim"},
    {"no prefix match of a full name", 3, L"Time"},
    {"no prefix match", 8, L"DblBuffe"},
    {"longer length", 5, L"Time "},
    {"longer length", 10, L"DblBuffers"},
    {"name of the other length", 4, L"DblB"},
    {"name of the other length", 9, L"Time\0\0\0\0\0"},
    {"zero length", 0, L"Time"},
    {"zero length, empty text", 0, L""},
    {"negative length", -4, L"Time"},
    {"negative length", -9, L"DblBuffer"},
    {"unknown component", 25, L"GlobalComponentCollection"},
};

TEST(CreateFunction, OtherNamesFailAndLeaveOutUntouched) {
    for (const FailingName& failing : kFailingNames) {
        const Lookup lookup = Call(failing.length, failing.name);
        EXPECT_EQ(lookup.result, static_cast<HRESULT>(0x80004005u)) << failing.why;
        EXPECT_EQ(lookup.factory, &Sentinel) << failing.why;
    }
}

TEST(CreateFunction, ZeroLengthNeverReadsTheName) {
    const Lookup lookup = Call(0, nullptr);
    EXPECT_EQ(lookup.result, static_cast<HRESULT>(0x80004005u));
    EXPECT_EQ(lookup.factory, &Sentinel);
}

TEST(CreateFunction, ReadsOnlyLengthCharacters) {
    const CREATEFUNCTION time = Call(4, L"Time").factory;
    const CREATEFUNCTION vector = Call(9, L"DblBuffer").factory;
    EXPECT_EQ(Call(4, L"Timeline").factory, time);
    EXPECT_EQ(Call(9, L"DblBufferEx").factory, vector);
    // Unterminated text: a read past the counted length would be caught.
    const wchar_t unterminated[4] = {L'T', L'i', L'm', L'e'};
    const Lookup lookup = Call(4, unterminated);
    EXPECT_EQ(lookup.result, 0);
    EXPECT_EQ(lookup.factory, time);
}

}  // namespace

namespace {

// Null pointers are refused with a code instead of being dereferenced.
TEST(CreateFunction, NullPointersGiveEPointer) {
    constexpr HRESULT kPointer = static_cast<HRESULT>(0x80004003u);
    EXPECT_EQ(LoadModule("Calendar").createFunction(4, L"Time", nullptr), kPointer);
    const Lookup lookup = Call(4, nullptr);
    EXPECT_EQ(lookup.result, kPointer);
    EXPECT_EQ(lookup.factory, &Sentinel);
}

}  // namespace
