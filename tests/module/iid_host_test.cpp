// The exported __IIDOfc against the framework's published identifiers.
#include <gtest/gtest.h>

#include <string>

#include "catalogue_names.h"
#include "iid_bytes.h"
#include "support/module_host.h"

namespace {

IIDOfcProc ModuleIIDOfc() { return LoadModule("Calendar").iidOfc; }

IIDBytes ModuleBytes(const char* name) { return BytesOf(ModuleIIDOfc()(name)); }

struct WorkedExample {
    const char* name;
    IIDBytes bytes;
};

const WorkedExample kWorkedExamples[] = {
    {"ITime", {0x89, 0xA6, 0x56, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}},
    {"IDblVector", {0x89, 0x08, 0x66, 0xCB, 0xA0, 0x4F, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}},
    {"_IDblVectorEvent",
     {0x3B, 0x11, 0xC1, 0x6C, 0x19, 0xF4, 0xC9, 0x62, 0x8B, 0xA3, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}},
    {"IComponentCollection",
     {0x69, 0xBC, 0x06, 0x9F, 0x2B, 0x8E, 0x8E, 0xC7, 0x58, 0x19, 0x34, 0x3D, 0x07, 0x00, 0x00, 0x00}},
    // "4" has the six-bit code 32, which reaches into the next character's field.
    {"I4", {0x09, 0x04, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}},
    // A "4" in 25th place sets bit 125 and nothing beyond the record.
    {"AAAAAAAAAAAAAAAAAAAAAAAA4",
     {0x21, 0x84, 0x10, 0x42, 0x08, 0x21, 0x84, 0x10, 0x42, 0x08, 0x21, 0x84, 0x10, 0x42, 0x08, 0x20}},
    {"4444444444444444444444444",
     {0x20, 0x84, 0x10, 0x42, 0x08, 0x21, 0x84, 0x10, 0x42, 0x08, 0x21, 0x84, 0x10, 0x42, 0x08, 0x21}},
    {"ZZZZZZZZZZZZZZZZZZZZZZZZZ",
     {0x5A, 0x6B, 0xAD, 0xB5, 0xD6, 0x5A, 0x6B, 0xAD, 0xB5, 0xD6, 0x5A, 0x6B, 0xAD, 0xB5, 0xD6, 0x1A}},
};

TEST(IIDOfc, IsExported) { EXPECT_NE(ModuleIIDOfc(), nullptr); }

TEST(IIDOfc, WorkedExamplesByteForByte) {
    for (const WorkedExample& example : kWorkedExamples) {
        EXPECT_EQ(ModuleBytes(example.name), example.bytes) << example.name;
    }
}

TEST(IIDOfc, EmptyNameIsIIDNull) {
    const IIDBytes zeros{};
    EXPECT_EQ(ModuleBytes(""), zeros);
    EXPECT_TRUE(IsEqualIID(ModuleIIDOfc()(""), IID_NULL));
}

TEST(IIDOfc, LowerCaseNameEqualsITime) {
    EXPECT_EQ(ModuleBytes("itime"), kWorkedExamples[0].bytes);
    EXPECT_EQ(ModuleBytes("iTIME"), kWorkedExamples[0].bytes);
}

TEST(IIDOfc, OnlyTheFirst25CharactersCount) {
    const std::string prefix = "IAbcdefghijklmnopqrstuvwx";  // 25 characters
    ASSERT_EQ(prefix.size(), 25u);
    EXPECT_EQ(ModuleBytes((prefix + "Y").c_str()), ModuleBytes((prefix + "Zebra").c_str()));
    EXPECT_EQ(ModuleBytes((prefix + "Y").c_str()), ModuleBytes(prefix.c_str()));
    // Long names are cut, never overrun.
    EXPECT_EQ(ModuleBytes((prefix + std::string(1000, 'Q')).c_str()), ModuleBytes(prefix.c_str()));
    // A difference in the 25th character still counts.
    const std::string shorter = prefix.substr(0, 24);
    EXPECT_NE(ModuleBytes((shorter + "Y").c_str()), ModuleBytes((shorter + "Z").c_str()));
}

TEST(IIDOfc, UnmappedCharactersShareOneCode) {
    const IIDBytes underscore = ModuleBytes("I_");
    EXPECT_EQ(ModuleBytes("I5"), underscore);
    EXPECT_EQ(ModuleBytes("I9"), underscore);
    EXPECT_EQ(ModuleBytes("I!"), underscore);
    EXPECT_EQ(ModuleBytes("I\xE9"), underscore);  // bytes above 0x7F are negative characters
    EXPECT_NE(ModuleBytes("I4"), underscore);
    const IIDBytes expected{0x69, 0x03};  // codes 9 and 27
    EXPECT_EQ(underscore, expected);
}

TEST(IIDOfc, DigitsZeroToFourHaveCodes28To32) {
    const WorkedExample digits[] = {
        {"I0", {0x89, 0x03}}, {"I1", {0xA9, 0x03}}, {"I2", {0xC9, 0x03}}, {"I3", {0xE9, 0x03}}, {"I4", {0x09, 0x04}},
    };
    for (const WorkedExample& digit : digits) EXPECT_EQ(ModuleBytes(digit.name), digit.bytes) << digit.name;
}

TEST(IIDOfc, IUnknownIsFixedNotDerivedFromItsName) {
    const IIDBytes unknown{0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                           0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};
    EXPECT_EQ(BytesOf(IID_IUnknown), unknown);
    EXPECT_NE(ModuleBytes("IUnknown"), unknown);
}

TEST(IIDOfc, HostRuleAgreesForEveryCatalogueName) {
    for (std::string_view name : kCatalogueNames) {
        const std::string text(name);
        EXPECT_EQ(BytesOf(IIDFromName(name)), ModuleBytes(text.c_str())) << text;
    }
}

}  // namespace
