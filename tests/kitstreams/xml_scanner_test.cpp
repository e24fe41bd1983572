// The kit's XML well-formedness scanner, by table.
#include "hostkit/streams/xml_scanner.h"

#include <gtest/gtest.h>

#include <string>

namespace kit::streams {
namespace {

struct ScanCase {
    std::string_view text;
    XmlMode mode;
    XmlScan expected;
};

constexpr XmlMode kDoc = XmlMode::kDocument;
constexpr XmlMode kFrag = XmlMode::kFragment;
constexpr XmlScan kOk = XmlScan::kOk;
constexpr XmlScan kCut = XmlScan::kTruncated;
constexpr XmlScan kBad = XmlScan::kCorrupt;

const ScanCase kScanCases[] = {
    {"<a/>", kDoc, kOk},
    {"<a></a>", kDoc, kOk},
    {"<a>text &amp; &lt;&gt;&quot;&apos; &#65;&#x42;</a>", kDoc, kOk},
    {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>\n", kDoc, kOk},
    {"\xEF\xBB\xBF<a/>", kDoc, kOk},
    {"<!-- c --><?pi data?><a b='1' c=\"2\"><![CDATA[<&>]]></a><!-- after -->", kDoc, kOk},
    {"<a >x</a >", kDoc, kOk},
    {"<r:a xmlns:r='u' r:k='v'/>", kDoc, kOk},
    {"<\xC3\xA9t\xC3\xA9>\xF0\x9F\x98\x80</\xC3\xA9t\xC3\xA9>", kDoc, kOk},
    {"", kDoc, kCut},
    {"   ", kDoc, kCut},
    {"<?xml version='1.0'?>", kDoc, kCut},
    {"<a>", kDoc, kCut},
    {"<a", kDoc, kCut},
    {"<a b='1", kDoc, kCut},
    {"<a>&am", kDoc, kCut},
    {"<a>&#6", kDoc, kCut},
    {"<a></a", kDoc, kCut},
    {"<a><!-- x", kDoc, kCut},
    {"<a><![CDATA[x]]", kDoc, kCut},
    {"<a>\xC3", kDoc, kCut},
    {"\xEF\xBB", kDoc, kCut},
    {"<a/><b/>", kDoc, kBad},
    {"x<a/>", kDoc, kBad},
    {"<a/>&amp;", kDoc, kBad},
    {"<![CDATA[x]]><a/>", kDoc, kBad},
    {"<a></b>", kDoc, kBad},
    {"<a>&unknown;</a>", kDoc, kBad},
    {"<a>&#0;</a>", kDoc, kBad},
    {"<a>&#xD800;</a>", kDoc, kBad},
    {"<a>&#x110000;</a>", kDoc, kBad},
    {"<a>&#99999999999999999999;</a>", kDoc, kBad},
    {"<a>&#;</a>", kDoc, kBad},
    {"<a>&#X41;</a>", kDoc, kBad},
    {"<a b='1'c='2'/>", kDoc, kBad},
    {"<a b='1' b='2'/>", kDoc, kBad},
    {"<a b/>", kDoc, kBad},
    {"<a b='<'/>", kDoc, kBad},
    {"<a b='&'/>", kDoc, kBad},
    {"<a>]]></a>", kDoc, kBad},
    {"<a><!-- -- --></a>", kDoc, kBad},
    {"<a><?xml version='1.0'?></a>", kDoc, kBad},
    {"<a><?XML x?></a>", kDoc, kBad},
    {"<?xml encoding='UTF-8'?><a/>", kDoc, kBad},
    {"<!DOCTYPE a><a/>", kDoc, kBad},
    {"<a>\x01</a>", kDoc, kBad},
    {"<a>\xFF</a>", kDoc, kBad},
    {"<a>\xED\xA0\x80</a>", kDoc, kBad},
    {"<a>\xEF\xBF\xBE</a>", kDoc, kBad},
    {"<.a/>", kDoc, kBad},
    {"<a/ >", kDoc, kBad},
    {"", kFrag, kOk},
    {"text only", kFrag, kOk},
    {"<a/><b/>text<c>x</c>", kFrag, kOk},
    {"<?xml version='1.0'?><a/><b/>", kFrag, kOk},
    {"x]]y", kFrag, kOk},
    {"<a>", kFrag, kCut},
    {"</a>", kFrag, kBad},
    {"a & b", kFrag, kBad},
};

TEST(ScanXml, Table) {
    for (const ScanCase& c : kScanCases) {
        EXPECT_EQ(ScanXml(c.text, c.mode, nullptr), c.expected) << c.text;
    }
}

// Records the scanner's events as one text.
class Recorder final : public XmlHandler {
public:
    void StartElement(std::string_view name) override { events += "<" + std::string(name) + ">"; }
    void EndElement() override { events += "</>"; }
    void Text(std::string_view text) override { events += "[" + std::string(text) + "]"; }
    std::string events;
};

TEST(ScanXml, ReportsElementsAndDecodedText) {
    Recorder recorder;
    EXPECT_EQ(ScanXml("<a k='&lt;'>x&amp;y<b/><![CDATA[<c>]]><!-- n -->z</a>", kDoc, &recorder), kOk);
    EXPECT_EQ(recorder.events, "<a>[x&y]<b></>[<c>][z]</>");
}

TEST(ScanXml, CharacterReferencesDecodeToUtf8) {
    Recorder recorder;
    EXPECT_EQ(ScanXml("<a>&#233;&#x1F600;&#13;</a>", kDoc, &recorder), kOk);
    EXPECT_EQ(recorder.events, "<a>[\xC3\xA9\xF0\x9F\x98\x80\r]</>");
}

}  // namespace
}  // namespace kit::streams
