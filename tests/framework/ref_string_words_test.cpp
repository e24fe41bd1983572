#include <gtest/gtest.h>

#include "framework/ref_string.h"
#include "view_text.h"

namespace {

struct SplitCase {
    const wchar_t* text;
    const wchar_t* separators;
    int stopAtControl;
    std::int32_t result;
    const wchar_t* head;
    const wchar_t* tail;
};

TEST(Split, HeadAndTailAtFirstSeparator) {
    const SplitCase cases[] = {
        {L"key=value", L"=", 0, S_OK, L"0:key", L"3:=value"},
        {L"a;b,c", L",;", 0, S_OK, L"0:a", L"1:;b,c"},
        {L"=x", L"=", 0, S_OK, L"0:", L"0:=x"},
        {L"ab\tc=d", L"=", 1, S_OK, L"0:ab", L"2:\tc=d"},
        {L"ab\tc=d", L"=", 0, S_OK, L"0:ab\tc", L"4:=d"},
        {L"ab\tc", L" ", 0, E_FAIL, L"0:ab\tc", L"S:"},
        // An empty separator set never splits, not even at a control character.
        {L"ab\tc", L"", 1, E_FAIL, L"0:ab\tc", L"S:"},
        {L"key=value", L"", 0, E_FAIL, L"0:key=value", L"S:"},
        {L"", L"=", 1, E_FAIL, L"0:", L"S:"},
    };
    for (const SplitCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "case " << (&c - cases));
        CREFString text = View(c.text);
        CREFString head = Sentinel();
        CREFString tail = Sentinel();
        EXPECT_EQ(text.Split(&head, &tail, View(c.separators), c.stopAtControl), c.result);
        EXPECT_EQ(Describe(head, c.text), c.head);
        EXPECT_EQ(Describe(tail, c.text), c.tail);
        EXPECT_EQ(Describe(text, c.text), L"0:" + std::wstring(c.text));
    }
}

TEST(Split, NegativeCharacterCountsAsControl) {
    const wchar_t source[] = {L'a', static_cast<wchar_t>(-5), L'b', L'\0'};
    CREFString text(source, 3);
    CREFString head;
    CREFString tail;
    EXPECT_EQ(text.Split(&head, &tail, View(L"="), 1), S_OK);
    EXPECT_EQ(head.length, 1);
    EXPECT_EQ(tail.string, source + 1);
    EXPECT_EQ(tail.length, 2);
}

struct WordCase {
    const wchar_t* text;
    bool advance;
    std::int32_t result;
    const wchar_t* out;
    const wchar_t* rest;
};

TEST(GetFirstWord, TakesOneTokenOffTheFront) {
    const WordCase cases[] = {
        {L"-12.5e+3x", true, S_OK, L"0:-12.5e+3", L"8:x"},
        {L"1.5E-2z", true, S_OK, L"0:1.5E-2", L"6:z"},
        {L"1e+3", true, S_OK, L"0:1", L"1:e+3"},
        {L"1.5e5", true, S_OK, L"0:1.5", L"3:e5"},
        {L"1.5e+", true, S_OK, L"0:1.5", L"3:e+"},
        {L"3.x", true, S_OK, L"0:3", L"1:.x"},
        {L"3.", true, S_OK, L"0:3", L"1:."},
        {L"-7", true, S_OK, L"0:-7", L"2:"},
        {L"-0", true, S_OK, L"0:-0", L"2:"},
        {L"12.34.5", true, S_OK, L"0:12.34", L"5:.5"},
        {L"0.5e-1x", true, S_OK, L"0:0.5e-1", L"6:x"},
        {L"1.5e-x", true, S_OK, L"0:1.5", L"3:e-x"},
        {L"-.5", true, E_FAIL, L"S:sentinel", L"0:-.5"},
        {L"ab12 x", true, S_OK, L"0:ab12", L"4: x"},
        {L"a\tb", true, S_OK, L"0:a", L"1:\tb"},
        {L"a-b", true, S_OK, L"0:a", L"1:-b"},
        {L"42 x", false, S_OK, L"0:42", L"0:42 x"},
        {L"ab_c d", true, S_OK, L"0:ab_c", L"4: d"},
        {L"abc def", false, S_OK, L"0:abc", L"0:abc def"},
        {L"ab.c", true, S_OK, L"0:ab", L"2:.c"},
        {L"_abc", true, S_OK, L"0:_", L"1:abc"},
        {L"(x", true, S_OK, L"0:(", L"1:x"},
        {L"+1", true, S_OK, L"0:+", L"1:1"},
        // Quoted tokens: both quotes consumed, out without them.
        {L"\"hi\" rest", true, S_OK, L"1:hi", L"4: rest"},
        {L"\"\"", true, S_OK, L"1:", L"2:"},
        {L"\"abc", true, S_OK, L"0:\"abc", L"4:"},
        {L"\"a", true, S_OK, L"0:\"a", L"2:"},
        {L"\"", true, S_OK, L"0:\"", L"1:"},
        // A quote right after a word or number costs it its first character.
        {L"ab\"c", true, S_OK, L"1:b", L"3:c"},
        {L"12\"", true, S_OK, L"1:2", L"3:"},
        {L" x", true, E_FAIL, L"S:sentinel", L"0: x"},
        {L"-x", true, E_FAIL, L"S:sentinel", L"0:-x"},
        {L"-", true, E_FAIL, L"S:sentinel", L"0:-"},
        {L"", true, E_FAIL, L"S:", L"0:"},
    };
    for (const WordCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' advance " << c.advance);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.GetFirstWord(&out, c.advance), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

TEST(GetFirstWord, WithoutOutTheFollowingQuoteStays) {
    const wchar_t* source = L"x\"y";
    CREFString text = View(source);
    EXPECT_EQ(text.GetFirstWord(nullptr, true), S_OK);
    EXPECT_EQ(Describe(text, source), L"1:\"y");
}

TEST(GetWord, FrontTextUpToFirstDelimiter) {
    const WordCase cases[] = {
        {L"ab,cd", true, 3, L"0:ab", L"2:,cd"},    {L"ab;cd", false, 3, L"0:ab", L"0:ab;cd"},
        {L",x", true, 1, L"0:", L"0:,x"},          {L"abcd", true, 0, L"0:abcd", L"4:"},
        {L"abcd", false, 0, L"0:abcd", L"0:abcd"}, {L"", true, E_FAIL, L"S:", L"0:"},
    };
    for (const WordCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' advance " << c.advance);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.GetWord(&out, c.advance, View(L",;")), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

TEST(GetWord, EmptyDelimiterSetTakesWholeText) {
    const wchar_t* source = L"ab,cd";
    CREFString text = View(source);
    CREFString out;
    EXPECT_EQ(text.GetWord(&out, true, View(L"")), 0);
    EXPECT_EQ(Describe(out, source), L"0:ab,cd");
    EXPECT_EQ(Describe(text, source), L"5:");
}

struct SearchCase {
    const wchar_t* text;
    const wchar_t* pattern;
    std::int32_t result;
};

TEST(Contains, PositionOfPattern) {
    const SearchCase cases[] = {
        {L"xab", L"ab", 1},
        // A longer match at index 0 is reported as 1; a one-character one as 0.
        {L"ab", L"ab", 1},
        {L"abab", L"ab", 1},
        {L"a", L"a", 0},
        {L"xa", L"a", 1},
        {L"ba", L"a", 1},
        {L"xxab", L"ab", 2},
        {L"xabz", L"ab", 1},
        // The character that broke a partial match does not start a new one.
        {L"aab", L"ab", E_FAIL},
        {L"xaab", L"ab", E_FAIL},
        {L"ab", L"abc", E_FAIL},
        {L"abc", L"", E_FAIL},
        {L"", L"a", E_FAIL},
    };
    for (const SearchCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' pattern '" << c.pattern << "'");
        CREFString text = View(c.text);
        EXPECT_EQ(text.Contains(View(c.pattern)), c.result);
    }
}

TEST(ContainsChar, IndexOfFirstCharacterInSet) {
    const SearchCase cases[] = {
        {L"hello", L"lo", 2},     {L"hello", L"h", 0},     {L"hello", L"zo", 4},
        {L"hello", L"z", E_FAIL}, {L"hello", L"", E_FAIL}, {L"", L"a", E_FAIL},
    };
    for (const SearchCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' set '" << c.pattern << "'");
        CREFString text = View(c.text);
        EXPECT_EQ(text.ContainsChar(View(c.pattern)), c.result);
    }
}

TEST(CREFString, EveryScannerFailsOnEmptyString) {
    CREFString empty;
    CREFString out;
    EXPECT_EQ(empty.GetLine(&out, true, L',', false), E_FAIL);
    EXPECT_EQ(empty.GetLineCRLF(&out, false, true), E_FAIL);
    EXPECT_EQ(empty.GetReverseLine(&out, L'/', true, false), E_FAIL);
    EXPECT_EQ(empty.GetLineRight(&out, L'.', true, false, true), E_FAIL);
    EXPECT_EQ(empty.Crop(&out, L'.', true, false), E_FAIL);
    EXPECT_EQ(empty.Split(&out, &out, View(L"="), 1), E_FAIL);
    EXPECT_EQ(empty.GetFirstWord(&out, true), E_FAIL);
    EXPECT_EQ(empty.GetWord(&out, true, View(L",")), E_FAIL);
    EXPECT_EQ(empty.Contains(View(L"a")), E_FAIL);
    EXPECT_EQ(empty.ContainsChar(View(L"a")), E_FAIL);
}

TEST(CREFString, NegativeLengthIsEmpty) {
    const wchar_t* source = L"a,b";
    CREFString text(source, -3);
    CREFString out;
    EXPECT_EQ(text.GetLine(&out, true, L',', false), E_FAIL);
    EXPECT_EQ(text.GetLineRight(&out, L',', true, false, true), E_FAIL);
    EXPECT_EQ(text.Contains(View(L"a")), E_FAIL);
    EXPECT_EQ(text.length, -3);
}

TEST(CREFString, NullOutAcceptedEverywhere) {
    const wchar_t* source = L"a.b/c d=e,f\r\ng";
    CREFString text = View(source);
    EXPECT_EQ(text.GetLine(nullptr, false, L',', true), S_OK);
    EXPECT_EQ(text.GetLineCRLF(nullptr, true, false), S_OK);
    EXPECT_EQ(text.GetReverseLine(nullptr, L'/', false, false), S_OK);
    EXPECT_EQ(text.GetLineRight(nullptr, L'.', false, false, false), S_OK);
    EXPECT_EQ(text.Crop(nullptr, L'.', false, false), S_OK);
    EXPECT_EQ(text.Split(nullptr, nullptr, View(L"="), 0), S_OK);
    EXPECT_EQ(text.GetFirstWord(nullptr, false), S_OK);
    EXPECT_EQ(text.GetWord(nullptr, false, View(L",")), 10);
    EXPECT_EQ(Describe(text, source), L"0:" + std::wstring(source));
    // Advancing without out still moves the view.
    EXPECT_EQ(text.GetLine(nullptr, true, L',', true), S_OK);
    EXPECT_EQ(Describe(text, source), L"10:f\r\ng");
    EXPECT_EQ(text.GetLineCRLF(nullptr, true, true), S_OK);
    EXPECT_EQ(Describe(text, source), L"13:g");
    EXPECT_EQ(text.GetLineRight(nullptr, L'x', true, false, true), S_OK);
    EXPECT_EQ(text.length, 0);
    // Failures with a null out as well.
    CREFString empty;
    EXPECT_EQ(empty.GetLine(nullptr, true, L',', false), E_FAIL);
    EXPECT_EQ(empty.GetLineCRLF(nullptr, false, true), E_FAIL);
    EXPECT_EQ(empty.GetReverseLine(nullptr, L'/', true, false), E_FAIL);
    EXPECT_EQ(empty.Crop(nullptr, L'.', true, false), E_FAIL);
    EXPECT_EQ(empty.Split(nullptr, nullptr, View(L"="), 1), E_FAIL);
    EXPECT_EQ(empty.GetFirstWord(nullptr, true), E_FAIL);
    EXPECT_EQ(empty.GetWord(nullptr, true, View(L",")), E_FAIL);
}

}  // namespace
