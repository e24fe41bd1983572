#include <gtest/gtest.h>

#include "framework/tagged_text.h"
#include "view_text.h"

namespace {

struct TaggedCase {
    const wchar_t* source;
    const wchar_t* tag;
    HRESULT result;
    const wchar_t* attributes;
    const wchar_t* content;
    const wchar_t* rest;  // source after a call with advance
};

TEST(XMLGetTAGGED, ReadsFirstElementOfName) {
    const TaggedCase cases[] = {
        {L"<Year>2024</Year><Day>5</Day>", L"Day", S_OK, L"21:", L"22:5", L"29:"},
        {L"<Day>5</Day><Day>6</Day>", L"Day", S_OK, L"4:", L"5:5", L"12:<Day>6</Day>"},
        {L"x<Day a=\"1\">text</Day>y", L"Day", S_OK, L"5: a=\"1\"", L"12:text", L"22:y"},
        // Only the first part of the tag text names the element.
        {L"<Day>5</Day>", L"Day extra", S_OK, L"4:", L"5:5", L"12:"},
        {L"<Day>5</Day>", L"Day>", S_OK, L"4:", L"5:5", L"12:"},
        {L"<Day>5</Day>", L"Day\rx", S_OK, L"4:", L"5:5", L"12:"},
        // A missing closing tag gives empty content; the rest follows the '>'.
        {L"<Day>5", L"Day", S_OK, L"4:", L"5:", L"5:5"},
        {L"<Day x=1/>", L"Day", S_OK, L"4: x=1", L"10:", L"10:"},
        {L"<?xml version=1?>", L"?xml", S_OK, L"5: version=1", L"17:", L"17:"},
        {L"<Day x/?>", L"Day", S_OK, L"4: x", L"9:", L"9:"},
        {L"<Day x?/>", L"Day", S_OK, L"4: x?", L"9:", L"9:"},
        // The opening pattern is a prefix test.
        {L"<Days>7</Days><Day>5</Day>", L"Day", S_OK, L"4:s", L"6:7</Days><Day>5", L"26:"},
        {L"<Day", L"Day", S_OK, L"4:", L"4:", L"4:"},
        // Without a '>' attributes and content both keep the rest.
        {L"<Day abc", L"Day", S_OK, L"4: abc", L"4:", L"4: abc"},
        {L"<Day>a<Day>b</Day>c</Day>", L"Day", S_OK, L"4:", L"5:a<Day>b", L"18:c</Day>"},
        // After a partial match only the mismatching character restarts it.
        {L"<<Day>5</Day>", L"Day", S_OK, L"5:", L"6:5", L"13:"},
        {L"<Day>5<</Day>", L"Day", S_OK, L"4:", L"5:5<", L"13:"},
    };
    for (const TaggedCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "source '" << c.source << "' tag '" << c.tag << "'");
        CREFString source = View(c.source);
        CREFString tag = View(c.tag);
        CREFString attributes = Sentinel();
        CREFString content = Sentinel();
        EXPECT_EQ(XMLGetTAGGED(source, tag, attributes, content, 0), c.result);
        EXPECT_EQ(Describe(attributes, c.source), c.attributes);
        EXPECT_EQ(Describe(content, c.source), c.content);
        EXPECT_EQ(Describe(source, c.source), L"0:" + std::wstring(c.source));
        EXPECT_EQ(XMLGetTAGGED(source, tag, attributes, content, 1), c.result);
        EXPECT_EQ(Describe(source, c.source), c.rest);
    }
}

struct MissingCase {
    const wchar_t* source;
    const wchar_t* tag;
};

TEST(XMLGetTAGGED, FailsWithoutOpeningTag) {
    const MissingCase cases[] = {
        {L"<Da", L"Day"},
        {L"<DAY>5</DAY>", L"Day"},
        {L"Day>5", L"Day"},
        {L"<xDay>", L"Day"},
        // The match at index 2 starts inside a broken partial match and is missed.
        {L"<a<a<b>", L"a<b"},
    };
    for (const MissingCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "source '" << c.source << "'");
        CREFString source = View(c.source);
        CREFString tag = View(c.tag);
        CREFString attributes = Sentinel();
        CREFString content = Sentinel();
        EXPECT_EQ(XMLGetTAGGED(source, tag, attributes, content, 1), E_FAIL);
        EXPECT_EQ(Describe(content, c.source), L"0:" + std::wstring(c.source));
        EXPECT_EQ(Describe(attributes, c.source), L"S:sentinel");
        EXPECT_EQ(Describe(source, c.source), L"0:" + std::wstring(c.source));
    }
}

TEST(XMLGetTAGGED, EmptySourceFails) {
    CREFString source;
    CREFString tag = View(L"Day");
    CREFString attributes = Sentinel();
    CREFString content = Sentinel();
    EXPECT_EQ(XMLGetTAGGED(source, tag, attributes, content, 1), E_FAIL);
    EXPECT_EQ(content.length, 0);
    EXPECT_EQ(content.string, source.string);
    EXPECT_EQ(Describe(attributes, L""), L"S:sentinel");
}

TEST(XMLGetTAGGED, TagStartingWithSeparatorNamesNothing) {
    const wchar_t* text = L"a<>b</>c";
    CREFString source = View(text);
    CREFString tag = View(L" Day");
    CREFString attributes;
    CREFString content;
    EXPECT_EQ(XMLGetTAGGED(source, tag, attributes, content, 1), S_OK);
    EXPECT_EQ(Describe(attributes, text), L"2:");
    EXPECT_EQ(Describe(content, text), L"3:b");
    EXPECT_EQ(Describe(source, text), L"7:c");
}

TEST(XMLGetTAGGED, MismatchingCharacterRestartsMatch) {
    // The '<' that breaks the partial match "</Da" starts the closing tag.
    const wchar_t* text = L"<Day>x</Da</Day>";
    CREFString source = View(text);
    CREFString tag = View(L"Day");
    CREFString attributes;
    CREFString content;
    EXPECT_EQ(XMLGetTAGGED(source, tag, attributes, content, 1), S_OK);
    EXPECT_EQ(Describe(content, text), L"5:x</Da");
    EXPECT_EQ(Describe(source, text), L"16:");
}

}  // namespace
