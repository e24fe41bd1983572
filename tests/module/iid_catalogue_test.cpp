// The identifier globals computed at load, in catalogue order.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/framework_binding.h"
#include "base/iids.h"
#include "catalogue_names.h"
#include "iid_bytes.h"

namespace {

TEST(IIDCatalogue, NamesInTheFrameworkOrder) {
    ASSERT_EQ(kCatalogueSize, 106u);
    for (std::size_t i = 0; i < kCatalogueSize; ++i) {
        EXPECT_EQ(std::string_view(kCatalogue[i].name), kCatalogueNames[i]) << i;
    }
}

// The framework's name rule written out bit by bit: 5 bits per character
// from bit 0 upward, at most 25 characters, letters 1..26 without regard to
// case, "0".."4" 28..32, everything else 27.
IIDBytes NameRule(std::string_view name) {
    IIDBytes bytes{};
    const std::size_t n = name.size() < 25 ? name.size() : 25;
    for (std::size_t i = 0; i < n; ++i) {
        const int c = static_cast<signed char>(name[i]);
        int code = 27;
        if (c >= 'A' && c <= 'Z')
            code = c - 0x40;
        else if (c >= 'a' && c <= 'z')
            code = c - 0x60;
        else if (c >= '0' && c <= '4')
            code = c - 0x14;
        for (int bit = 0; bit < 6; ++bit) {
            if (!(code & (1 << bit))) continue;
            const std::size_t position = 5 * i + static_cast<std::size_t>(bit);
            if (position < 128) bytes[position / 8] |= static_cast<std::uint8_t>(1u << (position % 8));
        }
    }
    return bytes;
}

TEST(IIDCatalogue, NameRuleGivesTheWorkedExamples) {
    EXPECT_EQ(NameRule("ITime"), (IIDBytes{0x89, 0xA6, 0x56, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                           0x00, 0x00, 0x00}));
    EXPECT_EQ(NameRule("I4"), (IIDBytes{0x09, 0x04, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                        0x00, 0x00, 0x00}));
}

TEST(IIDCatalogue, EachGlobalHoldsTheIdentifierOfItsName) {
    const IIDBytes zeros{};
    for (const CatalogueEntry& entry : kCatalogue) {
        EXPECT_EQ(BytesOf(*entry.iid), NameRule(entry.name)) << entry.name;
        EXPECT_NE(BytesOf(*entry.iid), zeros) << entry.name;
    }
}

TEST(IIDCatalogue, WorkedExamplesInTheGlobals) {
    EXPECT_EQ(BytesOf(IID_ITime), (IIDBytes{0x89, 0xA6, 0x56, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                                            0x00, 0x00, 0x00, 0x00}));
    EXPECT_EQ(BytesOf(IID_IDblVector), (IIDBytes{0x89, 0x08, 0x66, 0xCB, 0xA0, 0x4F, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00,
                                                 0x00, 0x00, 0x00, 0x00}));
    EXPECT_EQ(BytesOf(IID__IDblVectorEvent), (IIDBytes{0x3B, 0x11, 0xC1, 0x6C, 0x19, 0xF4, 0xC9, 0x62, 0x8B, 0xA3, 0x00,
                                                       0x00, 0x00, 0x00, 0x00, 0x00}));
    EXPECT_EQ(BytesOf(IID_IComponentCollection), (IIDBytes{0x69, 0xBC, 0x06, 0x9F, 0x2B, 0x8E, 0x8E, 0xC7, 0x58, 0x19,
                                                           0x34, 0x3D, 0x07, 0x00, 0x00, 0x00}));
}

TEST(IIDCatalogue, RowsNameTheirGlobals) {
    const struct {
        std::string_view name;
        const IID* global;
    } used[] = {
        {"IComponentCollection", &IID_IComponentCollection},
        {"IComponentString", &IID_IComponentString},
        {"ICreatableString", &IID_ICreatableString},
        {"IDataPersist", &IID_IDataPersist},
        {"IDblVector", &IID_IDblVector},
        {"IEventSource", &IID_IEventSource},
        {"IFolderStream", &IID_IFolderStream},
        {"IObjectInfo", &IID_IObjectInfo},
        {"IParametersCreatable", &IID_IParametersCreatable},
        {"IParametricObject", &IID_IParametricObject},
        {"IRegistry", &IID_IRegistry},
        {"IString", &IID_IString},
        {"ISuperCollection", &IID_ISuperCollection},
        {"ITime", &IID_ITime},
        {"IUIPropertyPageSpecify", &IID_IUIPropertyPageSpecify},
        {"IVariant", &IID_IVariant},
        {"IXMLStream", &IID_IXMLStream},
        {"_IDblVectorEvent", &IID__IDblVectorEvent},
    };
    for (const auto& row : used) {
        int found = 0;
        for (const CatalogueEntry& entry : kCatalogue) {
            if (entry.name == row.name) {
                ++found;
                EXPECT_EQ(entry.iid, row.global) << row.name;
            }
        }
        EXPECT_EQ(found, 1) << row.name;
    }
}

TEST(IIDCatalogue, FixedConstants) {
    EXPECT_EQ(BytesOf(IID_NULL), IIDBytes{});
    EXPECT_EQ(BytesOf(IID_IUnknown), (IIDBytes{0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xC0, 0x00, 0x00, 0x00,
                                               0x00, 0x00, 0x00, 0x46}));
}

TEST(IIDOfc, NullNameIsIIDNull) { EXPECT_EQ(BytesOf(__IIDOfc(nullptr)), IIDBytes{}); }

}  // namespace
