#include "output_charset.h"

#include <gtest/gtest.h>

#include <limits>

#include "number_text.h"

namespace {

using timetool::Charset;

// Restores the charset the process had, so test order does not matter.
class OutputCharsetTest : public ::testing::Test {
protected:
    OutputCharsetTest() : saved_(timetool::OutputCharset()) {}
    ~OutputCharsetTest() override { timetool::SetOutputCharset(saved_); }

private:
    Charset saved_;
};

TEST(CtypeLocaleName, FirstNonEmptyOfLcAllLcCtypeLang) {
    EXPECT_EQ(timetool::CtypeLocaleName("C", "C.UTF-8", "C.UTF-8"), "C");
    EXPECT_EQ(timetool::CtypeLocaleName("", "C.UTF-8", "C"), "C.UTF-8");
    EXPECT_EQ(timetool::CtypeLocaleName(nullptr, nullptr, "POSIX"), "POSIX");
    EXPECT_EQ(timetool::CtypeLocaleName(nullptr, "", ""), "C");
    EXPECT_EQ(timetool::CtypeLocaleName(nullptr, nullptr, nullptr), "C");
}

TEST(CharsetOfLocaleName, CAndPosixAreAscii) {
    EXPECT_EQ(timetool::CharsetOfLocaleName("C"), Charset::Ascii);
    EXPECT_EQ(timetool::CharsetOfLocaleName("POSIX"), Charset::Ascii);
    EXPECT_EQ(timetool::CharsetOfLocaleName(""), Charset::Ascii);
}

TEST(CharsetOfLocaleName, InstalledUtf8LocaleIsUtf8) {
    // C.UTF-8 comes with the C library itself.
    EXPECT_EQ(timetool::CharsetOfLocaleName("C.UTF-8"), Charset::Utf8);
    EXPECT_EQ(timetool::CharsetOfLocaleName("C.utf8"), Charset::Utf8);
}

TEST(CharsetOfLocaleName, UnknownLocaleGoesByItsName) {
    EXPECT_EQ(timetool::CharsetOfLocaleName("xx_YY.UTF-8"), Charset::Utf8);
    EXPECT_EQ(timetool::CharsetOfLocaleName("xx_YY.utf8@euro"), Charset::Utf8);
    EXPECT_EQ(timetool::CharsetOfLocaleName("xx_YY.ISO-8859-1"), Charset::Ascii);
    EXPECT_EQ(timetool::CharsetOfLocaleName("xx_YY"), Charset::Ascii);
}

TEST_F(OutputCharsetTest, GlyphsInUtf8AreUnchanged) {
    timetool::SetOutputCharset(Charset::Utf8);
    EXPECT_EQ(timetool::DegreeSign(), "\xC2\xB0");
    EXPECT_EQ(timetool::TextGlyph("\xF0\x9F\x8C\x95"), "\xF0\x9F\x8C\x95");
    EXPECT_EQ(timetool::PlainText("Gr\xC3\xBC\xC3\x9F"), "Gr\xC3\xBC\xC3\x9F");
}

TEST_F(OutputCharsetTest, GlyphsInAsciiKeepTheirWidth) {
    timetool::SetOutputCharset(Charset::Ascii);
    EXPECT_EQ(timetool::DegreeSign(), "deg");
    const char* moons[] = {"\xF0\x9F\x8C\x91", "\xF0\x9F\x8C\x92", "\xF0\x9F\x8C\x93", "\xF0\x9F\x8C\x94",
                           "\xF0\x9F\x8C\x95", "\xF0\x9F\x8C\x96", "\xF0\x9F\x8C\x97", "\xF0\x9F\x8C\x98"};
    const char* expected[] = {"()", " )", "|)", "@)", "@@", "(@", "(|", "( "};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(timetool::TextGlyph(moons[i]), expected[i]) << i;
    EXPECT_EQ(timetool::TextGlyph("?"), "?");
    EXPECT_EQ(timetool::TextGlyph("\xE2\x98\x85"), "?");
}

TEST_F(OutputCharsetTest, PlainTextInAsciiNamesEveryOtherCharacter) {
    timetool::SetOutputCharset(Charset::Ascii);
    EXPECT_EQ(timetool::PlainText("Year"), "Year");
    EXPECT_EQ(timetool::PlainText("Gr\xC3\xBC\xC3\x9F"), "Gr<U+00FC><U+00DF>");
    EXPECT_EQ(timetool::PlainText("\xF0\x9F\x8C\x95!"), "<U+1F315>!");
    EXPECT_EQ(timetool::PlainText("a\xFF"
                                  "b\xC3"),
              "a<FF>b<C3>");
}

TEST(NarrowTextColumns, OnePerCharacter) {
    EXPECT_EQ(timetool::NarrowTextColumns("deg"), 3u);
    EXPECT_EQ(timetool::NarrowTextColumns("\xC2\xB0"), 1u);
    EXPECT_EQ(timetool::NarrowTextColumns(""), 0u);
}

TEST(AppendNumber, ShortestRoundTripAndNamedNonFinite) {
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {0.1, "0.1"},
        {4.5, "4.5"},
        {-0.0, "-0"},
        {1e300, "1e+300"},
        {100000000.0, "1e+08"},
        {100.0, "100"},
        {1200.0, "1200"},
        {1.0 / 3.0, "0.3333333333333333"},
        {std::numeric_limits<double>::infinity(), "inf"},
        {-std::numeric_limits<double>::infinity(), "-inf"},
        {std::numeric_limits<double>::quiet_NaN(), "nan"},
        {-std::numeric_limits<double>::quiet_NaN(), "nan"},
    };
    for (const Case& c : cases) {
        std::string out = "x";
        timetool::AppendNumber(out, c.value);
        EXPECT_EQ(out, std::string("x") + c.text);
    }
}

}  // namespace
