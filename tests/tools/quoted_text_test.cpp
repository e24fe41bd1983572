// How timetool shows an argument it echoes: printable text as it is, every
// control character as an escape, long arguments cut. Expected forms are
// written out by hand from the escape rules.
#include <gtest/gtest.h>

#include <string>

#include "quoted_text.h"

namespace {

using timetool::EscapeText;
using timetool::QuoteArgument;

struct EscapeCase {
    std::string text;
    const char* shown;
};

TEST(QuoteArgument, PrintableTextIsShownAsItIs) {
    EXPECT_EQ(QuoteArgument("2024-06-21"), "'2024-06-21'");
    EXPECT_EQ(QuoteArgument(""), "''");
    EXPECT_EQ(QuoteArgument("15 Sivan \xD7\xA1\xD7\x99\xD7\x95\xD7\x9F"),
              "'15 Sivan \xD7\xA1\xD7\x99\xD7\x95\xD7\x9F'");
    EXPECT_EQ(QuoteArgument("it's"), "'it's'");
    EXPECT_EQ(QuoteArgument("\xF0\x9F\x8C\x95"), "'\xF0\x9F\x8C\x95'");
}

TEST(QuoteArgument, ControlCharactersAreEscaped) {
    const EscapeCase cases[] = {
        {"\x1b]0;owned\x07", "'\\x1b]0;owned\\x07'"},
        {"a\nb", "'a\\nb'"},
        {"a\rb\tc", "'a\\rb\\tc'"},
        {std::string("a\0b", 3), "'a\\x00b'"},
        {"\x7f", "'\\x7f'"},
        {"back\\slash", "'back\\\\slash'"},
        // C1 controls (CSI is U+009B), line separator, right-to-left override.
        {"\xC2\x9B"
         "31m",
         "'\\u009b31m'"},
        {"a\xE2\x80\xA8"
         "b",
         "'a\\u2028b'"},
        {"\xE2\x80\xAE"
         "abc",
         "'\\u202eabc'"},
        {"\xE2\x81\xA6x", "'\\u2066x'"},
    };
    for (const EscapeCase& c : cases) EXPECT_EQ(QuoteArgument(c.text), c.shown);
}

TEST(QuoteArgument, BytesThatAreNotUtf8AreEscapedOneByOne) {
    const EscapeCase cases[] = {
        {"\xff", "'\\xff'"},
        {"a\xC3", "'a\\xc3'"},                           // cut short
        {"\xC0\xAF", "'\\xc0\\xaf'"},                    // overlong '/'
        {"\xED\xA0\x80", "'\\xed\\xa0\\x80'"},           // a surrogate
        {"\xF4\x90\x80\x80", "'\\xf4\\x90\\x80\\x80'"},  // past U+10FFFF
        {"\xE2\x82", "'\\xe2\\x82'"},
    };
    for (const EscapeCase& c : cases) EXPECT_EQ(QuoteArgument(c.text), c.shown);
}

TEST(QuoteArgument, LongArgumentsAreCutAfter64Characters) {
    EXPECT_EQ(QuoteArgument(std::string(64, 'x')), "'" + std::string(64, 'x') + "'");
    EXPECT_EQ(QuoteArgument(std::string(65, 'x')), "'" + std::string(64, 'x') + "\xE2\x80\xA6'");
    EXPECT_EQ(QuoteArgument(std::string(4 << 20, 'x')), "'" + std::string(64, 'x') + "\xE2\x80\xA6'");
    // Characters are counted, not bytes: 70 two-byte letters keep 64 of them.
    std::string alef;
    for (int i = 0; i < 70; ++i) alef += "\xD7\x90";
    EXPECT_EQ(QuoteArgument(alef), "'" + alef.substr(0, 128) + "\xE2\x80\xA6'");
    // An escape counts as the one character it stands for.
    EXPECT_EQ(
        QuoteArgument(std::string(70, '\x1b')), "'" + [] {
            std::string shown;
            for (int i = 0; i < 64; ++i) shown += "\\x1b";
            return shown;
        }() + "\xE2\x80\xA6'");
}

TEST(EscapeText, TakesItsOwnLimit) {
    EXPECT_EQ(EscapeText("abc\n", 10), "abc\\n");
    EXPECT_EQ(EscapeText("abcdef", 3), "abc\xE2\x80\xA6");
    EXPECT_EQ(EscapeText("abc", 0), "\xE2\x80\xA6");
    EXPECT_EQ(EscapeText("", 0), "");
}

}  // namespace
