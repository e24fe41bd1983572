#include "wide_text.h"

#include <gtest/gtest.h>

namespace timetool {
namespace {

TEST(WidenUtf8, DecodesMultiByteSequences) {
    EXPECT_EQ(WidenUtf8("a.xml"), L"a.xml");
    EXPECT_EQ(WidenUtf8("\xC3\xA9t\xC3\xA9"), L"\u00E9t\u00E9");
    EXPECT_EQ(WidenUtf8("\xF0\x9F\x8C\x95"), L"\U0001F315");
}

TEST(WidenUtf8, CarriesInvalidBytesOneByOne) {
    EXPECT_EQ(WidenUtf8("\xC3"), std::wstring(1, static_cast<wchar_t>(0xC3)));
    EXPECT_EQ(WidenUtf8("\xE2\x82"), (std::wstring{static_cast<wchar_t>(0xE2), static_cast<wchar_t>(0x82)}));
}

TEST(NarrowToUtf8, ReadsExactlyTheCountedCharacters) {
    const wchar_t text[] = L"Year\u00E9";
    EXPECT_EQ(NarrowToUtf8(tagREFString{4, text}), "Year");
    EXPECT_EQ(NarrowToUtf8(tagREFString{5, text}), "Year\xC3\xA9");
    EXPECT_EQ(NarrowToUtf8(tagREFString{0, text}), "");
    EXPECT_EQ(NarrowToUtf8(tagREFString{-3, text}), "");
    EXPECT_EQ(NarrowToUtf8(tagREFString{3, nullptr}), "");
}

}  // namespace
}  // namespace timetool
