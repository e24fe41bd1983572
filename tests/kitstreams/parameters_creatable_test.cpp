// "ParametersCreatable": named entries with kinds and values, saved and
// loaded through XML and folder streams.
#include <gtest/gtest.h>

#include <pugixml.hpp>

#include <cstring>
#include <limits>

#include "kitstreams/kit_streams_support.h"

namespace kitstreams_test {
namespace {

SmartPtr<IParametersCreatable> NewParameters() {
    return Make<IParametersCreatable>(L"ParametersCreatable", HostIID("IParametersCreatable"));
}

SmartPtr<IDataPersist> Persist(IUnknown* object) {
    SmartPtr<IDataPersist> persist;
    object->QueryInterface(HostIID("IDataPersist"), persist.put_void());
    return persist;
}

SmartPtr<IDataStream> NewXmlStream() { return Make<IDataStream>(L"XMLStream", HostIID("IDataStream")); }
SmartPtr<IDataStream> NewFolderStream() { return Make<IDataStream>(L"FolderStream", HostIID("IDataStream")); }

HRESULT Add(IParametersCreatable* parameters, const wchar_t* name, IVariant* value) {
    return parameters->AddParameter(Text(name).get(), value, 0, 0);
}

// The set the Time component builds for 5 March 2024 10:20:30.5.
SmartPtr<IParametersCreatable> TimeParameters() {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    Add(parameters.get(), L"Day", IntegerVariant(5).get());
    Add(parameters.get(), L"Month", IntegerVariant(3).get());
    Add(parameters.get(), L"Year", IntegerVariant(2024).get());
    Add(parameters.get(), L"Hour", IntegerVariant(10).get());
    Add(parameters.get(), L"Minute", IntegerVariant(20).get());
    Add(parameters.get(), L"Second", DoubleVariant(30.5).get());
    return parameters;
}

std::int32_t Count(INamedCollection* collection) {
    std::int32_t count = -1;
    collection->GetCount(&count);
    return count;
}

std::wstring NameAt(INamedCollection* collection, std::int32_t index) {
    SmartPtr<IString> name;
    collection->GetItemName(index, name.put());
    return TextOf(name.get());
}

SmartPtr<IVariant> ItemAt(INamedCollection* collection, std::int32_t index) {
    SmartPtr<IUnknown> item;
    collection->GetItem(index, item.put());
    SmartPtr<IVariant> variant;
    if (item) item->QueryInterface(HostIID("IVariant"), variant.put_void());
    return variant;
}

// Names, kinds and values of every entry, as one comparable text.
std::wstring Describe(INamedCollection* collection) {
    std::wstring description;
    for (std::int32_t i = 0; i < Count(collection); ++i) {
        SmartPtr<IVariant> value = ItemAt(collection, i);
        description += NameAt(collection, i) + L"=";
        if (!value) {
            description += L"?;";
            continue;
        }
        if (value->IsString()) {
            SmartPtr<IString> text;
            value->GetString(text.put());
            description += L"text:" + TextOf(text.get()) + L";";
            continue;
        }
        switch (value->GetType()) {
            case kVariantEmpty:
                description += L"empty;";
                break;
            case kVariantInteger:
                description += L"integer:" + std::to_wstring(value->GetInteger()) + L";";
                break;
            case kVariantDouble: {
                const double number = value->GetDouble();
                std::uint64_t bits = 0;
                std::memcpy(&bits, &number, sizeof bits);
                description += L"double:" + std::to_wstring(bits) + L";";
                break;
            }
            default:
                description += L"other;";
        }
    }
    return description;
}

std::wstring DoubleBits(double number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return std::to_wstring(bits);
}

TEST(ParametersCreatable, ReferenceCountsAreSharedByItsInterfaces) {
    IParametersCreatable* parameters = NewParameters().detach();
    ASSERT_NE(parameters, nullptr);
    INamedCollection* named = nullptr;
    IDataPersist* persist = nullptr;
    EXPECT_EQ(parameters->QueryInterface(HostIID("INamedCollection"), reinterpret_cast<void**>(&named)), S_OK);
    EXPECT_EQ(named, static_cast<INamedCollection*>(parameters));
    EXPECT_EQ(parameters->QueryInterface(HostIID("IDataPersist"), reinterpret_cast<void**>(&persist)), S_OK);
    EXPECT_EQ(parameters->AddRef(), 4);
    EXPECT_EQ(persist->Release(), 3);
    EXPECT_EQ(named->Release(), 2);
    void* none = &none;
    EXPECT_EQ(parameters->QueryInterface(HostIID("IDataStream"), &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(parameters->Release(), 1);
    EXPECT_EQ(parameters->Release(), 0);
}

TEST(ParametersCreatable, EntriesKeepTheirOrderNamesAndValues) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    EXPECT_EQ(Describe(parameters.get()),
              L"Day=integer:5;Month=integer:3;Year=integer:2024;Hour=integer:10;Minute=integer:20;Second=double:" +
                  DoubleBits(30.5) + L";");
}

TEST(ParametersCreatable, FindNameGivesTheIndexOrANegativeCode) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    std::int32_t index = -7;
    EXPECT_EQ(parameters->FindName(Text(L"Year").get(), &index), S_OK);
    EXPECT_EQ(index, 2);
    EXPECT_EQ(parameters->FindName(Text(L"year").get(), &index), kNameNotFound);
    EXPECT_EQ(index, -1);
    EXPECT_EQ(parameters->FindName(nullptr, &index), E_POINTER);
    EXPECT_EQ(parameters->FindName(Text(L"Year").get(), nullptr), E_POINTER);
}

TEST(ParametersCreatable, GetItemHandsOutANewVariantHoldingACopy) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    IUnknown* item = nullptr;
    EXPECT_EQ(parameters->GetItem(5, &item), S_OK);
    ASSERT_NE(item, nullptr);
    IVariant* variant = nullptr;
    EXPECT_EQ(item->QueryInterface(HostIID("IVariant"), reinterpret_cast<void**>(&variant)), S_OK);
    EXPECT_EQ(variant->GetType(), kVariantDouble);
    EXPECT_EQ(variant->GetDouble(), 30.5);
    variant->SetDouble(1.0);
    EXPECT_EQ(variant->Release(), 1);
    EXPECT_EQ(item->Release(), 0);
    EXPECT_EQ(ItemAt(parameters.get(), 5)->GetDouble(), 30.5);
}

TEST(ParametersCreatable, TheAddedVariantIsCopiedNotHeld) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    SmartPtr<IVariant> value = IntegerVariant(7);
    EXPECT_EQ(Add(parameters.get(), L"Month", value.get()), S_OK);
    EXPECT_EQ(RefCount(value.get()), 1);
    value->SetInteger(8);
    EXPECT_EQ(ItemAt(parameters.get(), 0)->GetInteger(), 7);
}

TEST(ParametersCreatable, TextEntriesAnswerAsTextVariants) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    EXPECT_EQ(Add(parameters.get(), L"Second", TextVariant(L"  12.25").get()), S_OK);
    SmartPtr<IVariant> value = ItemAt(parameters.get(), 0);
    ASSERT_TRUE(value);
    EXPECT_NE(value->IsString(), 0);
    SmartPtr<IString> text;
    EXPECT_EQ(value->GetString(text.put()), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"  12.25");
}

TEST(ParametersCreatable, AddingAnExistingNameReplacesItsValueInPlace) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    EXPECT_EQ(Add(parameters.get(), L"Month", DoubleVariant(2.5).get()), S_FALSE);
    EXPECT_EQ(Count(parameters.get()), 6);
    EXPECT_EQ(NameAt(parameters.get(), 1), L"Month");
    EXPECT_EQ(ItemAt(parameters.get(), 1)->GetDouble(), 2.5);
}

TEST(ParametersCreatable, BadArgumentsGetCodesAndAddNothing) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    EXPECT_EQ(parameters->AddParameter(nullptr, IntegerVariant(1).get(), 0, 0), E_POINTER);
    EXPECT_EQ(Add(parameters.get(), L"A", nullptr), E_POINTER);
    EXPECT_EQ(Add(parameters.get(), L"", IntegerVariant(1).get()), E_INVALIDARG);
    SmartPtr<IVariant> holding_object = Make<IVariant>(L"Variant", HostIID("IVariant"));
    holding_object->SetObject(Text(L"x").get());
    EXPECT_EQ(Add(parameters.get(), L"A", holding_object.get()), E_INVALIDARG);
    EXPECT_EQ(Count(parameters.get()), 0);
    EXPECT_EQ(parameters->GetCount(nullptr), E_POINTER);
    IUnknown* item = reinterpret_cast<IUnknown*>(&item);
    EXPECT_EQ(parameters->GetItem(0, &item), E_INVALIDARG);
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(parameters->GetItem(0, nullptr), E_POINTER);
    IString* name = reinterpret_cast<IString*>(&name);
    EXPECT_EQ(parameters->GetItemName(-1, &name), E_INVALIDARG);
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(parameters->RemoveItem(0), E_INVALIDARG);
}

TEST(ParametersCreatable, EmptyVariantsMakeEmptyEntries) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    EXPECT_EQ(Add(parameters.get(), L"Nothing", Make<IVariant>(L"Variant", HostIID("IVariant")).get()), S_OK);
    EXPECT_EQ(Describe(parameters.get()), L"Nothing=empty;");
}

TEST(ParametersCreatable, RemoveItemAndClear) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    EXPECT_EQ(parameters->RemoveItem(0), S_OK);
    EXPECT_EQ(NameAt(parameters.get(), 0), L"Month");
    EXPECT_EQ(parameters->RemoveItem(5), E_INVALIDARG);
    EXPECT_EQ(Count(parameters.get()), 5);
    EXPECT_EQ(parameters->Clear(), S_OK);
    EXPECT_EQ(Count(parameters.get()), 0);
}

TEST(ParametersCreatable, UnusedSlotsAnswerNotImplemented) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    EXPECT_EQ(parameters->Unused7(), E_NOTIMPL);
    EXPECT_EQ(parameters->Unused12(), E_NOTIMPL);
    EXPECT_EQ(parameters->Unused16(), E_NOTIMPL);
}

TEST(ParametersCreatable, XmlFormIsOneElementPerEntry) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    Add(parameters.get(), L"Day", IntegerVariant(5).get());
    Add(parameters.get(), L"Second", DoubleVariant(30.5).get());
    Add(parameters.get(), L"A&B", TextVariant(L"x<y").get());
    Add(parameters.get(), L"None", Make<IVariant>(L"Variant", HostIID("IVariant")).get());
    SmartPtr<IDataStream> stream = NewXmlStream();
    EXPECT_EQ(Persist(parameters.get())->Save(stream.get(), 0x800000), S_OK);
    EXPECT_EQ(StreamText(stream.get()),
              L"<Parameters>"
              L"<Parameter><Name>Day</Name><Type>integer</Type><Value>5</Value></Parameter>"
              L"<Parameter><Name>Second</Name><Type>double</Type><Value>30.5</Value></Parameter>"
              L"<Parameter><Name>A&amp;B</Name><Type>text</Type><Value>x&lt;y</Value></Parameter>"
              L"<Parameter><Name>None</Name><Type>empty</Type><Value></Value></Parameter>"
              L"</Parameters>");
}

// Entries whose values only survive an exact round trip.
SmartPtr<IParametersCreatable> AwkwardParameters() {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    Add(parameters.get(), L"Low", IntegerVariant(std::numeric_limits<std::int32_t>::min()).get());
    Add(parameters.get(), L"Sum", DoubleVariant(0.1 + 0.2).get());
    Add(parameters.get(), L"Tiny", DoubleVariant(5e-324).get());
    Add(parameters.get(), L"Minus zero", DoubleVariant(-0.0).get());
    Add(parameters.get(), L"Huge", DoubleVariant(-std::numeric_limits<double>::infinity()).get());
    Add(parameters.get(), L"\u00DCber \U0001F600", TextVariant(L"<&>\"' \t\r\n\u00E9").get());
    Add(parameters.get(), L"Blank", TextVariant(L"").get());
    Add(parameters.get(), L"Nothing", Make<IVariant>(L"Variant", HostIID("IVariant")).get());
    Add(parameters.get(), L"Day", IntegerVariant(5).get());
    return parameters;
}

TEST(ParametersCreatable, XmlRoundTripKeepsNamesOrderKindsAndValues) {
    SmartPtr<IParametersCreatable> saved = AwkwardParameters();
    SmartPtr<IDataStream> stream = NewXmlStream();
    ASSERT_EQ(Persist(saved.get())->Save(stream.get(), 0), S_OK);
    SmartPtr<IParametersCreatable> loaded = NewParameters();
    Add(loaded.get(), L"Old", IntegerVariant(1).get());
    ASSERT_EQ(Persist(loaded.get())->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(Count(loaded.get()), 9);
    EXPECT_EQ(Describe(loaded.get()), Describe(saved.get()));
    EXPECT_EQ(NameAt(loaded.get(), 5), L"\u00DCber \U0001F600");
}

TEST(ParametersCreatable, FolderRoundTripKeepsNamesOrderKindsAndValues) {
    SmartPtr<IParametersCreatable> saved = AwkwardParameters();
    SmartPtr<IDataStream> stream = NewFolderStream();
    ASSERT_EQ(Persist(saved.get())->Save(stream.get(), 0), S_OK);
    SmartPtr<IParametersCreatable> loaded = NewParameters();
    Add(loaded.get(), L"Old", IntegerVariant(1).get());
    ASSERT_EQ(Persist(loaded.get())->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(Describe(loaded.get()), Describe(saved.get()));
}

SmartPtr<IFolderStream> AsFolder(IUnknown* stream) {
    SmartPtr<IFolderStream> folder;
    stream->QueryInterface(HostIID("IFolderStream"), folder.put_void());
    return folder;
}

std::string FolderValue(IFolderStream* folder, const wchar_t* name) {
    std::int32_t size = 0;
    if (FAILED(folder->GetValueSize(Text(name).get(), &size))) return "absent";
    std::string bytes(static_cast<std::size_t>(size), '\0');
    folder->ReadValue(Text(name).get(), bytes.data(), size, 0);
    return bytes;
}

TEST(ParametersCreatable, FolderFormIsOneKindedValuePerEntry) {
    SmartPtr<IParametersCreatable> parameters = NewParameters();
    Add(parameters.get(), L"Day", IntegerVariant(5).get());
    Add(parameters.get(), L"Second", DoubleVariant(30.5).get());
    Add(parameters.get(), L"Note", TextVariant(L"ab").get());
    Add(parameters.get(), L"None", Make<IVariant>(L"Variant", HostIID("IVariant")).get());
    SmartPtr<IDataStream> stream = NewFolderStream();
    ASSERT_EQ(Persist(parameters.get())->Save(stream.get(), 0), S_OK);
    SmartPtr<IFolderStream> folder = AsFolder(stream.get());
    std::int32_t count = 0;
    folder->GetValueCount(&count);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(FolderValue(folder.get(), L"Parameter:Day"), std::string("\x01\x05\x00\x00\x00", 5));
    EXPECT_EQ(FolderValue(folder.get(), L"Parameter:Second"), std::string("\x02\x00\x00\x00\x00\x00\x80\x3E\x40", 9));
    EXPECT_EQ(FolderValue(folder.get(), L"Parameter:Note"), std::string("\x03"
                                                                        "a\x00\x00\x00"
                                                                        "b\x00\x00\x00",
                                                                        9));
    EXPECT_EQ(FolderValue(folder.get(), L"Parameter:None"), std::string("\x00", 1));
}

TEST(ParametersCreatable, FolderSaveReplacesEarlierParametersAndKeepsOtherValues) {
    SmartPtr<IDataStream> stream = NewFolderStream();
    SmartPtr<IFolderStream> folder = AsFolder(stream.get());
    folder->WriteValue(Text(L"Day").get(), "\x07\x00", 2, 0);
    folder->WriteValue(Text(L"Parameter:Stale").get(), "\x01\x01\x00\x00\x00", 5, 0);
    ASSERT_EQ(Persist(TimeParameters().get())->Save(stream.get(), 0), S_OK);
    EXPECT_EQ(FolderValue(folder.get(), L"Parameter:Stale"), "absent");
    EXPECT_EQ(FolderValue(folder.get(), L"Day"), std::string("\x07\x00", 2));
    SmartPtr<IParametersCreatable> loaded = NewParameters();
    ASSERT_EQ(Persist(loaded.get())->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(Describe(loaded.get()), Describe(TimeParameters().get()));
}

TEST(ParametersCreatable, HostTextLoadsWhereverTheParametersStand) {
    SmartPtr<IDataStream> stream = NewXmlStream();
    SmartPtr<IString> text;
    stream->QueryInterface(HostIID("IString"), text.put_void());
    const std::wstring host_text =
        L"<Doc><Other>x</Other>\n <Parameters>\n  <Parameter><Value>7</Value><Extra/><Type>integer</Type>"
        L"<Name>Month</Name></Parameter>\n  <Parameter><Name>Second</Name><Type>text</Type>"
        L"<Value>  12.25</Value></Parameter>\n </Parameters><Parameters/></Doc>";
    text->SetString(static_cast<std::int32_t>(host_text.size()), host_text.data());
    SmartPtr<IParametersCreatable> loaded = NewParameters();
    ASSERT_EQ(Persist(loaded.get())->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(Describe(loaded.get()), L"Month=integer:7;Second=text:  12.25;");
}

TEST(ParametersCreatable, ReferencesAndCDataDecodeInNamesAndValues) {
    SmartPtr<IDataStream> stream = NewXmlStream();
    SmartPtr<IString> text;
    stream->QueryInterface(HostIID("IString"), text.put_void());
    const std::wstring host_text =
        L"<Parameters><Parameter><Name>a&amp;b&#x42;</Name><Type>text</Type>"
        L"<Value>&#233;&#x1F600;&#13;<![CDATA[<c>]]><!-- n -->&lt;<Deeper>ignored</Deeper>z</Value></Parameter>"
        L"</Parameters>";
    text->SetString(static_cast<std::int32_t>(host_text.size()), host_text.data());
    SmartPtr<IParametersCreatable> loaded = NewParameters();
    ASSERT_EQ(Persist(loaded.get())->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(Describe(loaded.get()), L"a&bB=text:\u00E9\U0001F600\r<c><z;");
}

// Stream texts hold any sequence of elements and text; only the kit's
// well-formedness rules decide.
struct FragmentCase {
    const wchar_t* text;
    HRESULT expected;
};

const FragmentCase kFragmentCases[] = {
    {L"text only", kNameNotFound},
    {L"<a/><b/>text<c>x</c>", kNameNotFound},
    {L"<?xml version='1.0'?><a/><b/>", kNameNotFound},
    {L"x]]y", kNameNotFound},
    {L"<a>", kTruncated},
    {L"</a>", kCorrupt},
    {L"a & b", kCorrupt},
    {L"a ]]> b", kCorrupt},
    {L"<a>&bogus;</a><Parameters/>", kCorrupt},
    {L"<Parameters/>", S_OK},
};

TEST(ParametersCreatable, StreamTextsAreCheckedAsFragments) {
    for (const FragmentCase& c : kFragmentCases) {
        SmartPtr<IDataStream> stream = NewXmlStream();
        SmartPtr<IString> text;
        stream->QueryInterface(HostIID("IString"), text.put_void());
        text->SetString(static_cast<std::int32_t>(std::wcslen(c.text)), c.text);
        SmartPtr<IParametersCreatable> loaded = NewParameters();
        EXPECT_EQ(Persist(loaded.get())->Load(stream.get(), 0), c.expected)
            << std::string(c.text, c.text + std::wcslen(c.text));
    }
}

struct BadParametersText {
    const char* what;
    const wchar_t* text;
    HRESULT expected;
};

const BadParametersText kBadParametersTexts[] = {
    {"no parameters element", L"<DATETIME><Day>5</Day></DATETIME>", kNameNotFound},
    {"empty text", L"", kNameNotFound},
    {"not well-formed", L"<Parameters><Parameter></Parameters>", kCorrupt},
    {"cut short", L"<Parameters><Parameter><Name>Day</Name>", kTruncated},
    {"unknown type", L"<Parameters><Parameter><Name>D</Name><Type>date</Type><Value>1</Value></Parameter></Parameters>",
     kCorrupt},
    {"integer with a tail",
     L"<Parameters><Parameter><Name>D</Name><Type>integer</Type><Value>5x</Value></Parameter></Parameters>", kCorrupt},
    {"integer out of range",
     L"<Parameters><Parameter><Name>D</Name><Type>integer</Type><Value>2147483648</Value></Parameter></Parameters>",
     kCorrupt},
    {"double with a space",
     L"<Parameters><Parameter><Name>D</Name><Type>double</Type><Value> 1.5</Value></Parameter></Parameters>", kCorrupt},
    {"missing name", L"<Parameters><Parameter><Type>integer</Type><Value>1</Value></Parameter></Parameters>", kCorrupt},
    {"empty name", L"<Parameters><Parameter><Name></Name><Type>integer</Type><Value>1</Value></Parameter></Parameters>",
     kCorrupt},
    {"two values",
     L"<Parameters><Parameter><Name>D</Name><Type>integer</Type><Value>1</Value><Value>2</Value></Parameter></"
     L"Parameters>",
     kCorrupt},
    {"empty kind with a value",
     L"<Parameters><Parameter><Name>D</Name><Type>empty</Type><Value>1</Value></Parameter></Parameters>", kCorrupt},
    {"repeated name",
     L"<Parameters><Parameter><Name>D</Name><Type>text</Type><Value></Value></Parameter>"
     L"<Parameter><Name>D</Name><Type>text</Type><Value></Value></Parameter></Parameters>",
     kCorrupt},
};

TEST(ParametersCreatable, BadTextsFailAndKeepTheEntries) {
    for (const BadParametersText& bad : kBadParametersTexts) {
        SmartPtr<IDataStream> stream = NewXmlStream();
        SmartPtr<IString> text;
        stream->QueryInterface(HostIID("IString"), text.put_void());
        text->SetString(static_cast<std::int32_t>(std::wcslen(bad.text)), bad.text);
        SmartPtr<IParametersCreatable> loaded = TimeParameters();
        EXPECT_EQ(Persist(loaded.get())->Load(stream.get(), 0), bad.expected) << bad.what;
        EXPECT_EQ(Count(loaded.get()), 6) << bad.what;
    }
}

TEST(ParametersCreatable, BadFolderValuesFailAndKeepTheEntries) {
    const std::string_view bad_values[] = {
        std::string_view("\x09\x01\x00\x00\x00", 5),  // unknown kind
        std::string_view("\x01\x01\x00\x00", 4),      // integer too short
        std::string_view("\x02\x00", 2),              // double too short
        std::string_view("\x03"
                         "ab",
                         3),              // text not whole code units
        std::string_view("\x00\x00", 2),  // empty kind with payload
    };
    for (const std::string_view bytes : bad_values) {
        SmartPtr<IDataStream> stream = NewFolderStream();
        AsFolder(stream.get())
            ->WriteValue(Text(L"Parameter:Bad").get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), 0);
        SmartPtr<IParametersCreatable> loaded = TimeParameters();
        EXPECT_EQ(Persist(loaded.get())->Load(stream.get(), 0), kCorrupt) << bytes.size();
        EXPECT_EQ(Count(loaded.get()), 6);
    }
}

TEST(ParametersCreatable, StreamsOfNeitherKindAreRefused) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    SmartPtr<IDataStream> plain = Make<IDataStream>(L"DataStream", HostIID("IDataStream"));
    EXPECT_EQ(Persist(parameters.get())->Save(plain.get(), 0), E_NOINTERFACE);
    std::int32_t size = -1;
    plain->GetSize(&size);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(Persist(parameters.get())->Load(plain.get(), 0), E_NOINTERFACE);
    EXPECT_EQ(Persist(parameters.get())->Save(nullptr, 0), E_POINTER);
    EXPECT_EQ(Persist(parameters.get())->Load(nullptr, 0), E_POINTER);
    EXPECT_EQ(Count(parameters.get()), 6);
    EXPECT_EQ(RefCount(plain.get()), 1);
}

TEST(ParametersCreatable, XmlSaveOfUnwritableTextWritesNothing) {
    SmartPtr<IParametersCreatable> parameters = TimeParameters();
    Add(parameters.get(), L"Bell", TextVariant(L"\a").get());
    SmartPtr<IDataStream> stream = NewXmlStream();
    EXPECT_EQ(Persist(parameters.get())->Save(stream.get(), 0), E_INVALIDARG);
    EXPECT_EQ(StreamText(stream.get()), L"");
}

TEST(ParametersCreatable, RoundTripThroughXmlAndFolderFiles) {
    ScratchFolder scratch;
    SmartPtr<IParametersCreatable> saved = AwkwardParameters();
    SmartPtr<IDataStream> xml = NewXmlStream();
    SmartPtr<IDataStream> folder = NewFolderStream();
    ASSERT_EQ(Persist(saved.get())->Save(xml.get(), 0), S_OK);
    ASSERT_EQ(Persist(saved.get())->Save(folder.get(), 0), S_OK);
    ASSERT_EQ(SaveStream(xml.get(), scratch.File("p.xml")), S_OK);
    ASSERT_EQ(SaveStream(folder.get(), scratch.File("p.fld")), S_OK);

    pugi::xml_document document;
    ASSERT_TRUE(document.load_file(scratch.File("p.xml").c_str()));
    const pugi::xml_node first = document.child("Parameters").child("Parameter");
    EXPECT_STREQ(first.child_value("Name"), "Low");
    EXPECT_STREQ(first.child_value("Type"), "integer");
    EXPECT_STREQ(first.child_value("Value"), "-2147483648");
    EXPECT_STREQ(first.next_sibling().child_value("Value"), "0.30000000000000004");

    SmartPtr<IDataStream> xml_back = NewXmlStream();
    SmartPtr<IDataStream> folder_back = NewFolderStream();
    ASSERT_EQ(LoadStream(xml_back.get(), scratch.File("p.xml")), S_OK);
    ASSERT_EQ(LoadStream(folder_back.get(), scratch.File("p.fld")), S_OK);
    SmartPtr<IParametersCreatable> from_xml = NewParameters();
    SmartPtr<IParametersCreatable> from_folder = NewParameters();
    ASSERT_EQ(Persist(from_xml.get())->Load(xml_back.get(), 0), S_OK);
    ASSERT_EQ(Persist(from_folder.get())->Load(folder_back.get(), 0), S_OK);
    EXPECT_EQ(Describe(from_xml.get()), Describe(saved.get()));
    EXPECT_EQ(Describe(from_folder.get()), Describe(saved.get()));
}

}  // namespace
}  // namespace kitstreams_test
