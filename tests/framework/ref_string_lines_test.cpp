#include <gtest/gtest.h>

#include "framework/ref_string.h"
#include "view_text.h"

namespace {

struct LineCase {
    const wchar_t* text;
    bool advance;
    bool drop;
    std::int32_t result;
    const wchar_t* out;
    const wchar_t* rest;
};

TEST(GetLine, CutsFrontLineAtDelimiter) {
    const LineCase cases[] = {
        {L"a,b", true, false, S_OK, L"0:a,", L"2:b"},
        {L"a,b", true, true, S_OK, L"0:a", L"2:b"},
        {L"b", true, false, S_FALSE, L"0:b", L"1:"},
        {L"ab,", true, false, S_FALSE, L"0:ab,", L"3:"},
        {L"ab,", true, true, S_FALSE, L"0:ab", L"3:"},
        {L",x", true, true, S_OK, L"0:", L"1:x"},
        {L",,", true, false, S_OK, L"0:,", L"1:,"},
        {L"abc", true, true, S_FALSE, L"0:abc", L"3:"},
        {L"a,b", false, false, S_OK, L"0:a,", L"0:a,b"},
        {L"a,b", false, true, S_OK, L"0:a", L"0:a,b"},
        // Without advance the last line fails although out is filled.
        {L"abc", false, false, E_FAIL, L"0:abc", L"0:abc"},
        {L"ab,", false, false, E_FAIL, L"0:ab,", L"0:ab,"},
        {L"ab,", false, true, E_FAIL, L"0:ab", L"0:ab,"},
        {L"", true, false, E_FAIL, L"S:", L"0:"},
        {L"", false, false, E_FAIL, L"S:", L"0:"},
    };
    for (const LineCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' advance " << c.advance << " drop " << c.drop);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.GetLine(&out, c.advance, L',', c.drop), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

TEST(GetLine, AdvancingThroughTextEndsWithOneThenFails) {
    const wchar_t* source = L"a,b";
    CREFString text = View(source);
    CREFString out;
    EXPECT_EQ(text.GetLine(&out, true, L',', false), S_OK);
    EXPECT_EQ(Describe(out, source), L"0:a,");
    EXPECT_EQ(text.GetLine(&out, true, L',', false), S_FALSE);
    EXPECT_EQ(Describe(out, source), L"2:b");
    EXPECT_EQ(text.length, 0);
    EXPECT_EQ(text.GetLine(&out, true, L',', false), E_FAIL);
    EXPECT_EQ(out.length, 0);
}

TEST(GetLineCRLF, CutsFrontLineAtLineBreak) {
    // drop stands for dropTerminator here.
    const LineCase cases[] = {
        {L"x\r\ny", true, true, S_OK, L"0:x", L"3:y"},
        {L"x\r\ny", true, false, S_OK, L"0:x\r\n", L"3:y"},
        {L"x\n\ry", true, false, S_OK, L"0:x\n\r", L"3:y"},
        {L"x\n\ny", true, false, S_OK, L"0:x\n", L"2:\ny"},
        {L"x\n\ny", true, true, S_OK, L"0:x", L"2:\ny"},
        {L"x\r\ry", true, false, S_OK, L"0:x\r", L"2:\ry"},
        {L"\ny", true, true, S_OK, L"0:", L"1:y"},
        {L"xyz", true, false, S_FALSE, L"0:xyz", L"3:"},
        {L"x\n", true, false, S_FALSE, L"0:x\n", L"2:"},
        {L"x\r\n", true, true, S_FALSE, L"0:x", L"3:"},
        // Without advance every line succeeds, the last one included.
        {L"xyz", false, false, S_OK, L"0:xyz", L"0:xyz"},
        {L"x\r\ny", false, true, S_OK, L"0:x", L"0:x\r\ny"},
        {L"x\r\ny", false, false, S_OK, L"0:x\r\n", L"0:x\r\ny"},
        {L"", true, false, E_FAIL, L"S:", L"0:"},
        {L"", false, true, E_FAIL, L"S:", L"0:"},
    };
    for (const LineCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "case " << (&c - cases) << " advance " << c.advance << " drop " << c.drop);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.GetLineCRLF(&out, c.drop, c.advance), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

TEST(GetReverseLine, HeadBeforeLastDelimiter) {
    // drop stands for skipDelimiter here.
    const LineCase cases[] = {
        {L"/a/b", true, false, S_OK, L"0:/a", L"2:/b"},
        {L"/a/b", true, true, S_OK, L"0:/a", L"3:b"},
        {L"/a/b", false, true, S_OK, L"0:/a", L"0:/a/b"},
        {L"ab/", true, true, S_OK, L"0:ab", L"3:"},
        {L"ab/", true, false, S_OK, L"0:ab", L"2:/"},
        // The last delimiter at index 0 leaves no head: a failure.
        {L"/ab", true, false, E_FAIL, L"0:", L"0:/ab"},
        {L"/", true, true, E_FAIL, L"0:", L"0:/"},
        {L"abc", true, false, E_FAIL, L"0:", L"0:abc"},
        {L"", true, false, E_FAIL, L"0:", L"0:"},
    };
    for (const LineCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' advance " << c.advance << " skip " << c.drop);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.GetReverseLine(&out, L'/', c.advance, c.drop), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

struct TailCase {
    const wchar_t* text;
    bool cut;
    bool skip;
    bool whole;
    std::int32_t result;
    const wchar_t* out;
    const wchar_t* rest;
};

TEST(GetLineRight, TailAfterLastDelimiter) {
    const TailCase cases[] = {
        // Without skipDelimiter the delimiter belongs to both pieces.
        {L"a.b.c", true, false, false, S_OK, L"3:.c", L"0:a.b."},
        {L"a.b.c", true, true, false, S_OK, L"4:c", L"0:a.b"},
        {L"a.b.c", false, false, false, S_OK, L"3:.c", L"0:a.b.c"},
        {L"a.b.c", false, true, true, S_OK, L"4:c", L"0:a.b.c"},
        {L"ab.", true, true, false, S_OK, L"3:", L"0:ab"},
        {L"ab.", true, false, false, S_OK, L"2:.", L"0:ab."},
        {L".ab", true, false, false, S_OK, L"0:.ab", L"0:."},
        {L".ab", true, true, false, S_OK, L"1:ab", L"0:"},
        {L"abc", true, false, false, E_FAIL, L"S:", L"0:abc"},
        {L"abc", false, false, true, S_OK, L"0:abc", L"0:abc"},
        {L"abc", true, true, true, S_OK, L"0:abc", L"0:"},
        // An empty string leaves out untouched.
        {L"", true, false, true, E_FAIL, L"S:sentinel", L"0:"},
        {L"", false, false, false, E_FAIL, L"S:sentinel", L"0:"},
    };
    for (const TailCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' cut " << c.cut << " skip " << c.skip << " whole "
                                        << c.whole);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.GetLineRight(&out, L'.', c.cut, c.skip, c.whole), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

TEST(Crop, TailAfterLastDelimiterWithoutFallback) {
    const TailCase cases[] = {
        {L"a.b.c", true, false, false, S_OK, L"3:.c", L"0:a.b."}, {L"a.b.c", true, true, false, S_OK, L"4:c", L"0:a.b"},
        {L"a.b", false, false, false, S_OK, L"1:.b", L"0:a.b"},   {L"a.b", false, true, false, S_OK, L"2:b", L"0:a.b"},
        {L".ab", true, false, false, S_OK, L"0:.ab", L"0:."},     {L".ab", true, true, false, S_OK, L"1:ab", L"0:"},
        {L"abc", true, false, false, E_FAIL, L"S:", L"0:abc"},    {L"", true, true, false, E_FAIL, L"S:", L"0:"},
    };
    for (const TailCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' cut " << c.cut << " skip " << c.skip);
        CREFString text = View(c.text);
        CREFString out = Sentinel();
        EXPECT_EQ(text.Crop(&out, L'.', c.cut, c.skip), c.result);
        EXPECT_EQ(Describe(out, c.text), c.out);
        EXPECT_EQ(Describe(text, c.text), c.rest);
    }
}

}  // namespace
