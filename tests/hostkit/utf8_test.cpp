#include "hostkit/utf8.h"

#include <gtest/gtest.h>

namespace {

struct Utf8Case {
    std::wstring_view wide;
    std::string_view bytes;
};

TEST(Utf8, EncodesAndDecodesEveryLength) {
    const Utf8Case cases[] = {
        {L"", ""},
        {L"Calendar", "Calendar"},
        {std::wstring_view(L"\0", 1), std::string_view("\0", 1)},
        {L"\u00FC", "\xC3\xBC"},
        {L"\u05D0", "\xD7\x90"},
        {L"\u20AC", "\xE2\x82\xAC"},
        {L"\uFFFF", "\xEF\xBF\xBF"},
        {L"\U0001F600", "\xF0\x9F\x98\x80"},
        {L"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
    };
    for (const Utf8Case& c : cases) {
        std::string bytes;
        EXPECT_TRUE(kit::AppendUtf8(c.wide, &bytes));
        EXPECT_EQ(bytes, c.bytes);
        std::wstring wide;
        EXPECT_TRUE(kit::DecodeUtf8(c.bytes, &wide));
        EXPECT_EQ(wide, c.wide);
        EXPECT_TRUE(kit::IsValidUtf8(c.bytes));
    }
}

TEST(Utf8, RefusesUnitsThatAreNotScalarValues) {
    for (const wchar_t unit : {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0xDFFF),
                               static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)}) {
        std::string bytes;
        EXPECT_FALSE(kit::AppendUtf8(std::wstring_view(&unit, 1), &bytes)) << static_cast<long>(unit);
    }
}

TEST(Utf8, StrictDecodingRejectsIllFormedSequences) {
    for (const std::string_view bad : {"\x80", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                                       "\xF8\x88\x80\x80\x80", "\xE2\x82", "a\xFF"}) {
        std::wstring wide;
        EXPECT_FALSE(kit::DecodeUtf8(bad, &wide)) << bad.size();
        EXPECT_FALSE(kit::IsValidUtf8(bad));
    }
}

TEST(Utf8, LenientDecodingReplacesEachBadByte) {
    EXPECT_EQ(kit::DecodeUtf8Lenient("a\xFF"
                                     "b"),
              L"a\uFFFDb");
    EXPECT_EQ(kit::DecodeUtf8Lenient("\xC3"), L"\uFFFD");
    EXPECT_EQ(kit::DecodeUtf8Lenient("\xE2\x82"
                                     "x"),
              L"\uFFFD\uFFFDx");
    EXPECT_EQ(kit::DecodeUtf8Lenient("/home/\xC3\xBC"), L"/home/\u00FC");
}

}  // namespace
