// "XMLStream": XML text built element by element, its text, its file form.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <pugixml.hpp>

#include "kitstreams/kit_streams_support.h"

namespace kitstreams_test {
namespace {

SmartPtr<IXMLStream> NewXml() { return Make<IXMLStream>(L"XMLStream", HostIID("IXMLStream")); }

SmartPtr<IDataStream> AsData(IUnknown* stream) {
    SmartPtr<IDataStream> data;
    stream->QueryInterface(HostIID("IDataStream"), data.put_void());
    return data;
}

HRESULT Element(IXMLStream* xml, const wchar_t* name, const wchar_t* value) {
    return xml->WriteElement(Text(name).get(), nullptr, Text(value).get(), 0);
}
HRESULT Begin(IXMLStream* xml, const wchar_t* name) { return xml->BeginElement(Text(name).get(), nullptr, 0); }
HRESULT Attribute(IXMLStream* xml, const wchar_t* name, const wchar_t* value) {
    return xml->WriteAttribute(Text(name).get(), Text(value).get());
}

HRESULT SetText(IUnknown* stream, std::wstring_view text) {
    SmartPtr<IString> string;
    stream->QueryInterface(HostIID("IString"), string.put_void());
    return string->SetString(static_cast<std::int32_t>(text.size()), text.data());
}

constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

// The calendar state of 5 March 2024 10:07:30.5, weekday 2, as the module writes it.
SmartPtr<IXMLStream> DateTimeStream() {
    SmartPtr<IXMLStream> xml = NewXml();
    Begin(xml.get(), L"DATETIME");
    Element(xml.get(), L"WeekDay", L"2");
    Element(xml.get(), L"Day", L"5");
    Element(xml.get(), L"Month", L"3");
    Element(xml.get(), L"Year", L"2024");
    Element(xml.get(), L"Hour", L"10");
    Element(xml.get(), L"Minute", L"7");
    Element(xml.get(), L"Second", L"30.5");
    xml->EndElement();
    return xml;
}

TEST(XmlStream, ReferenceCountsAreSharedByItsThreeInterfaces) {
    IXMLStream* xml = NewXml().detach();
    ASSERT_NE(xml, nullptr);
    IDataStream* data = nullptr;
    IString* text = nullptr;
    EXPECT_EQ(xml->QueryInterface(HostIID("IDataStream"), reinterpret_cast<void**>(&data)), S_OK);
    EXPECT_EQ(xml->QueryInterface(HostIID("IString"), reinterpret_cast<void**>(&text)), S_OK);
    EXPECT_EQ(xml->AddRef(), 4);
    EXPECT_EQ(text->Release(), 3);
    EXPECT_EQ(data->Release(), 2);
    EXPECT_EQ(xml->Release(), 1);
    void* none = &none;
    EXPECT_EQ(xml->QueryInterface(HostIID("IFolderStream"), &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(xml->Release(), 0);
}

TEST(XmlStream, ElementsStandAsOpeningTagValueClosingTag) {
    SmartPtr<IXMLStream> xml = DateTimeStream();
    EXPECT_EQ(StreamText(xml.get()),
              L"<DATETIME><WeekDay>2</WeekDay><Day>5</Day><Month>3</Month><Year>2024</Year><Hour>10</Hour>"
              L"<Minute>7</Minute><Second>30.5</Second></DATETIME>");
}

TEST(XmlStream, ValuesEscapeTheFiveReservedCharacters) {
    SmartPtr<IXMLStream> xml = NewXml();
    EXPECT_EQ(Element(xml.get(), L"Note", L"a&b<c>d\"e'f"), S_OK);
    EXPECT_EQ(StreamText(xml.get()), L"<Note>a&amp;b&lt;c&gt;d&quot;e&apos;f</Note>");
}

TEST(XmlStream, CarriageReturnIsWrittenAsAReference) {
    SmartPtr<IXMLStream> xml = NewXml();
    EXPECT_EQ(Element(xml.get(), L"Line", L"a\r\nb\tc"), S_OK);
    EXPECT_EQ(StreamText(xml.get()), L"<Line>a&#13;\nb\tc</Line>");
}

TEST(XmlStream, AttributesGoIntoTheStartTagOfTheOpenElement) {
    SmartPtr<IXMLStream> xml = NewXml();
    EXPECT_EQ(Begin(xml.get(), L"Item"), S_OK);
    EXPECT_EQ(Attribute(xml.get(), L"id", L"1"), S_OK);
    EXPECT_EQ(Attribute(xml.get(), L"label", L"x<\"y'&>"), S_OK);
    EXPECT_EQ(Element(xml.get(), L"V", L"v"), S_OK);
    EXPECT_EQ(Attribute(xml.get(), L"late", L"z"), S_OK);
    EXPECT_EQ(xml->EndElement(), S_OK);
    EXPECT_EQ(StreamText(xml.get()),
              L"<Item id=\"1\" label=\"x&lt;&quot;y&apos;&amp;&gt;\" late=\"z\"><V>v</V></Item>");
}

TEST(XmlStream, NestedElementsCloseInnermostFirst) {
    SmartPtr<IXMLStream> xml = NewXml();
    Begin(xml.get(), L"A");
    Begin(xml.get(), L"B");
    Attribute(xml.get(), L"k", L"1");
    xml->EndElement();
    Attribute(xml.get(), L"k", L"2");
    xml->EndElement();
    EXPECT_EQ(StreamText(xml.get()), L"<A k=\"2\"><B k=\"1\"></B></A>");
    EXPECT_EQ(xml->EndElement(), E_FAIL);
}

TEST(XmlStream, NullValueWritesAnEmptyElement) {
    SmartPtr<IXMLStream> xml = NewXml();
    EXPECT_EQ(xml->WriteElement(Text(L"Day").get(), nullptr, nullptr, 0), S_OK);
    EXPECT_EQ(StreamText(xml.get()), L"<Day></Day>");
}

TEST(XmlStream, BadArgumentsGetCodesAndWriteNothing) {
    SmartPtr<IXMLStream> xml = NewXml();
    EXPECT_EQ(xml->EndElement(), E_FAIL);
    EXPECT_EQ(Attribute(xml.get(), L"a", L"b"), E_FAIL);
    EXPECT_EQ(xml->BeginElement(nullptr, nullptr, 0), E_POINTER);
    EXPECT_EQ(xml->WriteElement(nullptr, nullptr, Text(L"v").get(), 0), E_POINTER);
    EXPECT_EQ(xml->WriteAttribute(nullptr, nullptr), E_POINTER);
    EXPECT_EQ(Begin(xml.get(), L""), E_INVALIDARG);
    EXPECT_EQ(Begin(xml.get(), L"1abc"), E_INVALIDARG);
    EXPECT_EQ(Element(xml.get(), L"a b", L"v"), E_INVALIDARG);
    EXPECT_EQ(Element(xml.get(), L"Bell", L"\a"), E_INVALIDARG);
    const wchar_t surrogate[] = {static_cast<wchar_t>(0xDC00), 0};
    EXPECT_EQ(Element(xml.get(), L"Half", surrogate), E_INVALIDARG);
    SmartPtr<IUnknown> object(Text(L"x").detach());
    EXPECT_EQ(xml->BeginElement(Text(L"A").get(), object.get(), 0), E_NOTIMPL);
    EXPECT_EQ(StreamText(xml.get()), L"");
    Begin(xml.get(), L"A");
    EXPECT_EQ(Attribute(xml.get(), L"k", L"1"), S_OK);
    EXPECT_EQ(Attribute(xml.get(), L"k", L"2"), E_INVALIDARG);
    EXPECT_EQ(Attribute(xml.get(), L"j", L"\x01"), E_INVALIDARG);
    EXPECT_EQ(StreamText(xml.get()), L"<A k=\"1\">");
}

TEST(XmlStream, BytesAreTheTextInUtf8) {
    SmartPtr<IXMLStream> xml = NewXml();
    Element(xml.get(), L"A", L"\u00E9\U0001F600");
    SmartPtr<IDataStream> data = AsData(xml.get());
    std::int32_t size = 0;
    data->GetSize(&size);
    EXPECT_EQ(size, 13);
    EXPECT_EQ(ReadAll(data.get()), "<A>\xC3\xA9\xF0\x9F\x98\x80</A>");
    EXPECT_EQ(StreamText(xml.get()), L"<A>\u00E9\U0001F600</A>");
}

TEST(XmlStream, SetStringReplacesTheWholeText) {
    SmartPtr<IXMLStream> xml = DateTimeStream();
    EXPECT_EQ(SetText(xml.get(), L"<Day>7"), S_OK);
    EXPECT_EQ(StreamText(xml.get()), L"<Day>7");
    SmartPtr<IString> string;
    xml->QueryInterface(HostIID("IString"), string.put_void());
    EXPECT_EQ(string->Append(4, L"</Da"), S_OK);
    EXPECT_EQ(StreamText(xml.get()), L"<Day>7</Da");
    EXPECT_EQ(string->SetString(-1, L"x"), E_INVALIDARG);
    EXPECT_EQ(string->SetString(2, nullptr), E_POINTER);
    EXPECT_EQ(string->GetString(nullptr), E_POINTER);
    EXPECT_EQ(StreamText(xml.get()), L"<Day>7</Da");
    EXPECT_EQ(string->SetString(0, nullptr), S_OK);
    EXPECT_EQ(StreamText(xml.get()), L"");
}

TEST(XmlStream, ReplacingTheTextEndsOpenElements) {
    SmartPtr<IXMLStream> xml = NewXml();
    Begin(xml.get(), L"A");
    SetText(xml.get(), L"<B/>");
    EXPECT_EQ(xml->EndElement(), E_FAIL);
    EXPECT_EQ(StreamText(xml.get()), L"<B/>");
}

TEST(XmlStream, SavedFileIsAWellFormedDocument) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = DateTimeStream();
    Element(xml.get(), L"Second", L"1");  // a second root element: not a document
    EXPECT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("a.xml")), kCorrupt);
    EXPECT_EQ(folder.Listing(), "");

    SmartPtr<IXMLStream> good = DateTimeStream();
    ASSERT_EQ(SaveStream(AsData(good.get()).get(), folder.File("dt.xml")), S_OK);
    EXPECT_EQ(folder.Listing(), "dt.xml;");
    pugi::xml_document document;
    const pugi::xml_parse_result parsed =
        document.load_file(folder.File("dt.xml").c_str(), pugi::parse_default | pugi::parse_declaration);
    ASSERT_TRUE(parsed) << parsed.description();
    const pugi::xml_node root = document.child("DATETIME");
    EXPECT_STREQ(root.child_value("WeekDay"), "2");
    EXPECT_STREQ(root.child_value("Day"), "5");
    EXPECT_STREQ(root.child_value("Year"), "2024");
    EXPECT_STREQ(root.child_value("Second"), "30.5");
    EXPECT_STREQ(document.first_child().attribute("encoding").value(), "UTF-8");
}

TEST(XmlStream, EscapedValuesReadBackThroughAnXmlParser) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = NewXml();
    Begin(xml.get(), L"Root");
    Attribute(xml.get(), L"note", L"\"quoted\" & 'single'");
    Element(xml.get(), L"Text", L"1 < 2 && 3 > 2 \u00E9");
    xml->EndElement();
    ASSERT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("e.xml")), S_OK);
    pugi::xml_document document;
    ASSERT_TRUE(document.load_file(folder.File("e.xml").c_str()));
    EXPECT_STREQ(document.child("Root").attribute("note").value(), "\"quoted\" & 'single'");
    EXPECT_STREQ(document.child("Root").child_value("Text"), "1 < 2 && 3 > 2 \xC3\xA9");
}

TEST(XmlStream, FileIsTheDeclarationLineThenTheText) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = NewXml();
    Element(xml.get(), L"Day", L"5");
    ASSERT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("d.xml")), S_OK);
    EXPECT_EQ(ReadBytes(folder.File("d.xml")), std::string(kDeclaration) + "<Day>5</Day>");
}

TEST(XmlStream, TextWithItsOwnDeclarationIsSavedAsItIs) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = NewXml();
    SetText(xml.get(), L"<?xml version='1.0'?><r a='1'/>");
    ASSERT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("own.xml")), S_OK);
    EXPECT_EQ(ReadBytes(folder.File("own.xml")), "<?xml version='1.0'?><r a='1'/>");
    SmartPtr<IXMLStream> loaded = NewXml();
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), folder.File("own.xml")), S_OK);
    EXPECT_EQ(StreamText(loaded.get()), L"<?xml version='1.0'?><r a='1'/>");
}

TEST(XmlStream, IncompleteTextsAreNotSaved) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = NewXml();
    EXPECT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("empty.xml")), kCorrupt);
    Begin(xml.get(), L"Open");
    EXPECT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("open.xml")), kCorrupt);
    EXPECT_EQ(folder.Listing(), "");
}

TEST(XmlStream, FileRoundTripRestoresTheText) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = DateTimeStream();
    ASSERT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("dt.xml")), S_OK);
    SmartPtr<IXMLStream> loaded = NewXml();
    SetText(loaded.get(), L"<Old/>");
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), folder.File("dt.xml")), S_OK);
    EXPECT_EQ(StreamText(loaded.get()), StreamText(xml.get()));
    std::int32_t position = -1;
    AsData(loaded.get())->GetPosition(&position);
    EXPECT_EQ(position, 0);
}

TEST(XmlStream, EveryStrictPrefixOfASavedFileIsTruncated) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = DateTimeStream();
    ASSERT_EQ(SaveStream(AsData(xml.get()).get(), folder.File("dt.xml")), S_OK);
    const std::string file = ReadBytes(folder.File("dt.xml"));
    ASSERT_EQ(file.size(), 179u);
    for (std::size_t length = 0; length < file.size(); ++length) {
        WriteBytes(folder.File("cut.xml"), std::string_view(file).substr(0, length));
        SmartPtr<IXMLStream> loaded = NewXml();
        SetText(loaded.get(), L"<Old/>");
        EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), folder.File("cut.xml")), kTruncated) << length;
        EXPECT_EQ(StreamText(loaded.get()), L"") << length;
    }
    WriteBytes(folder.File("cut.xml"), file);
    SmartPtr<IXMLStream> loaded = NewXml();
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), folder.File("cut.xml")), S_OK);
    EXPECT_EQ(StreamText(loaded.get()), StreamText(xml.get()));
}

struct CorruptDocument {
    const char* what;
    std::string_view bytes;
};

const CorruptDocument kCorruptDocuments[] = {
    {"mismatched end tag", "<a><b></a></b>"},
    {"undeclared entity", "<a>&nbsp;</a>"},
    {"bare ampersand", "<a>x & y</a>"},
    {"invalid utf-8 byte", "<a>\xFF</a>"},
    {"overlong utf-8 form", "<a>\xC0\xAF</a>"},
    {"control character", "<a>\x01</a>"},
    {"reference to a control character", "<a>&#1;</a>"},
    {"two root elements", "<a/><b/>"},
    {"text outside the root", "<a/>x"},
    {"document type declaration", "<!DOCTYPE a><a/>"},
    {"repeated attribute", "<a k='1' k='2'/>"},
    {"attribute without quotes", "<a k=1/>"},
    {"less-than in an attribute", "<a k='<'/>"},
    {"cdata end in text", "<a>]]></a>"},
    {"double hyphen in a comment", "<a><!-- x -- y --></a>"},
    {"declaration not at the start", " <?xml version='1.0'?><a/>"},
    {"declaration without version", "<?xml encoding='UTF-8'?><a/>"},
    {"name starting with a digit", "<1a/>"},
    {"end tag without start", "</a>"},
    {"flipped angle bracket", "<a>5</a<"},
};

TEST(XmlStream, CorruptedFilesFailAndLeaveTheStreamEmpty) {
    ScratchFolder folder;
    for (const CorruptDocument& corrupt : kCorruptDocuments) {
        WriteBytes(folder.File("bad.xml"), corrupt.bytes);
        SmartPtr<IXMLStream> loaded = NewXml();
        SetText(loaded.get(), L"<Old/>");
        EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), folder.File("bad.xml")), kCorrupt) << corrupt.what;
        EXPECT_EQ(StreamText(loaded.get()), L"") << corrupt.what;
    }
}

// Well-formedness of stream files, one document per row: S_OK, kTruncated or kCorrupt.
struct WellFormedCase {
    std::string_view file;
    HRESULT expected;
};

const WellFormedCase kWellFormedCases[] = {
    {"<a/>", S_OK},
    {"<a></a>", S_OK},
    {"<a>text &amp; &lt;&gt;&quot;&apos; &#65;&#x42;</a>", S_OK},
    {"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a/>\n", S_OK},
    {"\xEF\xBB\xBF<a/>", S_OK},
    {"<!-- c --><?pi data?><a b='1' c=\"2\"><![CDATA[<&>]]></a><!-- after -->", S_OK},
    {"<a >x</a >", S_OK},
    {"<r:a xmlns:r='u' r:k='v'/>", S_OK},
    {"<\xC3\xA9t\xC3\xA9>\xF0\x9F\x98\x80</\xC3\xA9t\xC3\xA9>", S_OK},
    {"", kTruncated},
    {"   ", kTruncated},
    {"<?xml version='1.0'?>", kTruncated},
    {"<a>", kTruncated},
    {"<a", kTruncated},
    {"<a b='1", kTruncated},
    {"<a>&am", kTruncated},
    {"<a>&#6", kTruncated},
    {"<a></a", kTruncated},
    {"<a><!-- x", kTruncated},
    {"<a><![CDATA[x]]", kTruncated},
    {"<a>\xC3", kTruncated},
    {"\xEF\xBB", kTruncated},
    {"<a/><b/>", kCorrupt},
    {"x<a/>", kCorrupt},
    {"<a/>&amp;", kCorrupt},
    {"<![CDATA[x]]><a/>", kCorrupt},
    {"<a></b>", kCorrupt},
    {"<a>&unknown;</a>", kCorrupt},
    {"<a>&#0;</a>", kCorrupt},
    {"<a>&#xD800;</a>", kCorrupt},
    {"<a>&#x110000;</a>", kCorrupt},
    {"<a>&#99999999999999999999;</a>", kCorrupt},
    {"<a>&#;</a>", kCorrupt},
    {"<a>&#X41;</a>", kCorrupt},
    {"<a>& b</a>", kCorrupt},
    {"<a b='1'c='2'/>", kCorrupt},
    {"<a b='1' b='2'/>", kCorrupt},
    {"<a b/>", kCorrupt},
    {"<a b='<'/>", kCorrupt},
    {"<a b='&'/>", kCorrupt},
    {"<a b='&unknown;'/>", kCorrupt},
    {"<a>]]></a>", kCorrupt},
    {"<a><!-- -- --></a>", kCorrupt},
    {"<a><!-- x- --></a>", S_OK},
    {"<a><!-- x---></a>", kCorrupt},
    {"<a><?xml version='1.0'?></a>", kCorrupt},
    {"<a><?XML x?></a>", kCorrupt},
    {"<?xml encoding='UTF-8'?><a/>", kCorrupt},
    {"<!-- c --><?xml version='1.0'?><a/>", kCorrupt},
    {" <?xml version='1.0'?><a/>", kCorrupt},
    {"<!DOCTYPE a><a/>", kCorrupt},
    {"<a>\x01</a>", kCorrupt},
    {"<a>\xFF</a>", kCorrupt},
    {"<a>\xED\xA0\x80</a>", kCorrupt},
    {"<a>\xEF\xBF\xBE</a>", kCorrupt},
    {"<.a/>", kCorrupt},
    {"<a\xC3\x97/>", kCorrupt},  // U+00D7 is no name character
    {"<a b\xC3\x97='1'/>", kCorrupt},
    {"<a/ >", kCorrupt},
};

TEST(XmlStream, FilesLoadOnlyWhenWellFormed) {
    ScratchFolder folder;
    for (const WellFormedCase& c : kWellFormedCases) {
        WriteBytes(folder.File("case.xml"), c.file);
        SmartPtr<IXMLStream> xml = NewXml();
        EXPECT_EQ(LoadStream(AsData(xml.get()).get(), folder.File("case.xml")), c.expected) << c.file;
    }
}

TEST(XmlStream, DocumentsFromElsewhereLoadAsTheirWholeText) {
    ScratchFolder folder;
    const std::string_view document =
        "\xEF\xBB\xBF<?xml version=\"1.0\"?>\n<!-- c --><?pi x?><r k=\"&#x41;\"><![CDATA[<raw>]]>&lt;</r>\n";
    WriteBytes(folder.File("other.xml"), document);
    SmartPtr<IXMLStream> loaded = NewXml();
    EXPECT_EQ(LoadStream(AsData(loaded.get()).get(), folder.File("other.xml")), S_OK);
    EXPECT_EQ(StreamText(loaded.get()),
              L"\uFEFF<?xml version=\"1.0\"?>\n<!-- c --><?pi x?><r k=\"&#x41;\"><![CDATA[<raw>]]>&lt;</r>\n");
    EXPECT_EQ(SaveStream(AsData(loaded.get()).get(), folder.File("again.xml")), S_OK);
    EXPECT_EQ(ReadBytes(folder.File("again.xml")), document);
}

TEST(XmlStream, DevicesAreNotStreamFiles) {
    ScratchFolder folder;
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    SmartPtr<IXMLStream> xml = NewXml();
    SetText(xml.get(), L"<Keep/>");
    // Answered at once: no writer is waited for.
    EXPECT_EQ(LoadStream(AsData(xml.get()).get(), folder.File("pipe")), static_cast<HRESULT>(0x8007001Eu));
    EXPECT_EQ(StreamText(xml.get()), L"<Keep/>");
}

TEST(XmlStream, LoadOfAMissingFileKeepsTheText) {
    ScratchFolder folder;
    SmartPtr<IXMLStream> xml = NewXml();
    SetText(xml.get(), L"<Keep/>");
    EXPECT_EQ(LoadStream(AsData(xml.get()).get(), folder.File("absent.xml")), kFileNotFound);
    EXPECT_EQ(StreamText(xml.get()), L"<Keep/>");
}

}  // namespace
}  // namespace kitstreams_test
