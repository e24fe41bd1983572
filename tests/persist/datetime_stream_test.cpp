#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <stdexcept>
#include <string>
#include <vector>

#include "fake_streams.h"
#include "kit_environment.h"
#include "time/calendar_classes.h"
#include "time/date_timer.h"
#include "time/generic_calendar.h"

namespace {

using namespace persist_test;

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new KitEnvironment);

constexpr wchar_t kSampleText[] =
    L"<DATETIME><WeekDay>2</WeekDay><Day>5</Day><Month>3</Month><Year>2024</Year><Hour>10</Hour>"
    L"<Minute>7</Minute><Second>30.5</Second></DATETIME>";

// 5 March 2024 10:07:30.5, weekday 2.
tagDATETIME Sample() {
    tagDATETIME record;
    record.WeekDay = 2;
    record.Day = 5;
    record.Month = 3;
    record.Year = 2024;
    record.Hour = 10;
    record.Minute = 7;
    record.Second = 30.5f;
    return record;
}

// Every field distinct from the sample's.
tagDATETIME Other() {
    tagDATETIME record;
    record.WeekDay = 6;
    record.Day = 9;
    record.Month = 11;
    record.Year = 1999;
    record.Hour = 23;
    record.Minute = 59;
    record.Second = 1.25f;
    return record;
}

void ExpectFields(const tagDATETIME& record, int weekDay, int day, int month, int year, int hour, int minute,
                  float second) {
    EXPECT_EQ(record.WeekDay, weekDay);
    EXPECT_EQ(record.Day, day);
    EXPECT_EQ(record.Month, month);
    EXPECT_EQ(record.Year, year);
    EXPECT_EQ(record.Hour, hour);
    EXPECT_EQ(record.Minute, minute);
    EXPECT_EQ(record.Second, second);
}

std::string Narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

std::int32_t FolderValueCount(IDataStream* stream) {
    SmartPtr<IFolderStream> folder;
    stream->QueryInterface(HostIID("IFolderStream"), folder.put_void());
    std::int32_t count = -1;
    if (folder) folder->GetValueCount(&count);
    return count;
}

// Each class that persists a date record the same way.
template <class T>
class DateRecordStream : public testing::Test {
protected:
    T record_;
    void Set(const tagDATETIME& fields) { static_cast<tagDATETIME&>(record_) = fields; }
    const tagDATETIME& fields() const { return record_; }
    HRESULT Save(IDataStream* stream) { return record_.Save(stream, 12345); }
    HRESULT Load(IDataStream* stream) { return record_.Load(stream, 12345); }
    HRESULT LoadText(const wchar_t* text) {
        SmartPtr<IDataStream> stream = NewXmlStream();
        SetStreamText(stream.get(), text);
        return Load(stream.get());
    }
};

using RecordClasses = testing::Types<CGregorian, CJulian, CDateTimer>;
TYPED_TEST_SUITE(DateRecordStream, RecordClasses);

TYPED_TEST(DateRecordStream, XmlSaveWritesTheSevenElementsInsideDateTime) {
    SmartPtr<IDataStream> stream = NewXmlStream();
    this->Set(Sample());
    EXPECT_EQ(this->Save(stream.get()), S_OK);
    EXPECT_EQ(StreamText(stream.get()), kSampleText);
}

TYPED_TEST(DateRecordStream, XmlSaveParsesAsSevenChildrenInFieldOrder) {
    SmartPtr<IDataStream> stream = NewXmlStream();
    this->Set(Sample());
    this->Save(stream.get());
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(Narrow(StreamText(stream.get())).c_str()));
    const pugi::xml_node root = document.document_element();
    EXPECT_STREQ(root.name(), "DATETIME");
    std::vector<std::pair<std::string, std::string>> children;
    for (const pugi::xml_node child : root.children()) children.emplace_back(child.name(), child.text().get());
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"WeekDay", "2"}, {"Day", "5"},    {"Month", "3"},    {"Year", "2024"},
        {"Hour", "10"},   {"Minute", "7"}, {"Second", "30.5"}};
    EXPECT_EQ(children, expected);
}

TYPED_TEST(DateRecordStream, XmlSaveReleasesEveryReferenceItTook) {
    SmartPtr<IDataStream> stream = NewXmlStream();
    this->Set(Sample());
    this->Save(stream.get());
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TYPED_TEST(DateRecordStream, SaveToAStreamOfferingBothFormsWritesOnlyElements) {
    SmartPtr<IDataStream> xml = NewXmlStream();
    SmartPtr<IDataStream> folder = NewFolderStream();
    DualStream both(xml.get(), folder.get());
    this->Set(Sample());
    EXPECT_EQ(this->Save(&both), S_OK);
    EXPECT_EQ(StreamText(xml.get()), kSampleText);
    EXPECT_EQ(FolderValueCount(folder.get()), 0);
    EXPECT_EQ(both.refs, 1);
    EXPECT_EQ(RefCount(xml.get()), 1);
    EXPECT_EQ(RefCount(folder.get()), 1);
}

TYPED_TEST(DateRecordStream, FolderSaveWritesSixValuesWithoutTheWeekday) {
    SmartPtr<IDataStream> stream = NewFolderStream();
    this->Set(Sample());
    EXPECT_EQ(this->Save(stream.get()), S_OK);
    SmartPtr<IFolderStream> folder;
    stream->QueryInterface(HostIID("IFolderStream"), folder.put_void());
    ASSERT_TRUE(folder);
    std::int32_t count = 0;
    folder->GetValueCount(&count);
    EXPECT_EQ(count, 6);
    const std::vector<std::pair<std::wstring, std::int32_t>> sizes = {{L"Day", 2},  {L"Month", 2},  {L"Year", 2},
                                                                      {L"Hour", 2}, {L"Minute", 2}, {L"Second", 4}};
    for (std::int32_t i = 0; i < count; ++i) {
        SmartPtr<IString> name;
        folder->GetValueName(i, name.put());
        std::int32_t size = -1;
        folder->GetValueSize(name.get(), &size);
        EXPECT_EQ(TextOf(name.get()), sizes[static_cast<std::size_t>(i)].first) << i;
        EXPECT_EQ(size, sizes[static_cast<std::size_t>(i)].second) << i;
    }
    std::int16_t year = 0;
    folder->ReadValue(NewText(Kit(), L"Year").get(), &year, 2, 0);
    EXPECT_EQ(year, 2024);
    float second = 0.0f;
    folder->ReadValue(NewText(Kit(), L"Second").get(), &second, 4, 0);
    EXPECT_EQ(second, 30.5f);
    std::int32_t weekDaySize = -1;
    EXPECT_LT(folder->GetValueSize(NewText(Kit(), L"WeekDay").get(), &weekDaySize), 0);
    folder.reset();
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TYPED_TEST(DateRecordStream, BinaryRoundTripKeepsEveryFieldButTheWeekday) {
    SmartPtr<IDataStream> stream = NewFolderStream();
    this->Set(Sample());
    this->Save(stream.get());
    this->Set(Other());
    EXPECT_EQ(this->Load(stream.get()), S_OK);
    ExpectFields(this->fields(), 6, 5, 3, 2024, 10, 7, 30.5f);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TYPED_TEST(DateRecordStream, XmlRoundTripKeepsEveryFieldWithTheWeekday) {
    SmartPtr<IDataStream> stream = NewXmlStream();
    this->Set(Sample());
    this->Save(stream.get());
    this->Set(Other());
    EXPECT_EQ(this->Load(stream.get()), S_OK);
    ExpectFields(this->fields(), 2, 5, 3, 2024, 10, 7, 30.5f);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TYPED_TEST(DateRecordStream, LoadingOnlyAYearElementChangesOnlyTheYear) {
    this->Set(Other());
    EXPECT_EQ(this->LoadText(L"<Year>2024</Year>"), S_OK);
    ExpectFields(this->fields(), 6, 9, 11, 2024, 23, 59, 1.25f);
}

TYPED_TEST(DateRecordStream, ElementsInAnyOrderAmongOtherElementsLoadTheSame) {
    this->Set(Other());
    EXPECT_EQ(this->LoadText(L"<Log><Second>30.5</Second><Note>x</Note><Minute>7</Minute><Hour>10</Hour>"
                             L"<Year>2024</Year><Month>3</Month><Day>5</Day><WeekDay>2</WeekDay></Log>"),
              S_OK);
    ExpectFields(this->fields(), 2, 5, 3, 2024, 10, 7, 30.5f);
}

TYPED_TEST(DateRecordStream, ElementsOutsideDateTimeAreFound) {
    this->Set(Other());
    this->LoadText(L"<Day>4</Day><DATETIME></DATETIME><Hour>3</Hour>");
    ExpectFields(this->fields(), 6, 4, 11, 1999, 3, 59, 1.25f);
}

TYPED_TEST(DateRecordStream, EmptyTextChangesNothing) {
    this->Set(Other());
    EXPECT_EQ(this->LoadText(L""), S_OK);
    ExpectFields(this->fields(), 6, 9, 11, 1999, 23, 59, 1.25f);
}

struct MalformedElement {
    const wchar_t* text;
    int day;       // after loading into a record whose day is 9
    int minute;    // likewise, from 59
    float second;  // likewise, from 1.25
};

// Found elements take what the number readers make of their content; a
// missing closing tag leaves empty content, which reads as 0.
const MalformedElement kMalformedElements[] = {
    {L"<Day></Day>", 0, 59, 1.25f},
    {L"<Day>7", 0, 59, 1.25f},
    {L"<Minute>#1E</Minute>", 9, 30, 1.25f},
    {L"<Day> 4</Day>", 0, 59, 1.25f},
    {L"<Day>x4</Day>", 0, 59, 1.25f},
    {L"<Day>12abc</Day>", 12, 59, 1.25f},
    {L"<Day>-3</Day>", -3, 59, 1.25f},
    {L"<Day>70000</Day>", 4464, 59, 1.25f},  // low 16 bits of 70000
    {L"<Second>12.25</Second>", 9, 59, 12.25f},
    {L"<Second>1e5</Second>", 9, 59, 1.0f},
    {L"<Second>-0.5", 9, 59, 0.0f},
    {L"<Days>8</Days>", 0, 59, 1.25f},  // "<Day" is a prefix match; the content has no "</Day>"
    {L"<DAY>8</DAY>", 9, 59, 1.25f},
};

TYPED_TEST(DateRecordStream, MalformedContentReadsAsTheNumberReadersGiveIt) {
    for (const MalformedElement& row : kMalformedElements) {
        this->Set(Other());
        EXPECT_EQ(this->LoadText(row.text), S_OK) << Narrow(row.text);
        EXPECT_EQ(this->fields().Day, row.day) << Narrow(row.text);
        EXPECT_EQ(this->fields().Minute, row.minute) << Narrow(row.text);
        EXPECT_EQ(this->fields().Second, row.second) << Narrow(row.text);
        EXPECT_EQ(this->fields().Year, 1999) << Narrow(row.text);
    }
}

TYPED_TEST(DateRecordStream, AStreamOfferingBothFormsIsReadTwiceAndTheBinaryValuesWin) {
    SmartPtr<IDataStream> xml = NewXmlStream();
    SmartPtr<IDataStream> folder = NewFolderStream();
    this->Set(Sample());
    this->Save(folder.get());
    SetStreamText(xml.get(), L"<WeekDay>4</WeekDay><Day>1</Day><Year>1</Year><Second>2.5</Second>");
    DualStream both(xml.get(), folder.get());
    this->Set(Other());
    EXPECT_EQ(this->Load(&both), S_OK);
    ExpectFields(this->fields(), 4, 5, 3, 2024, 10, 7, 30.5f);
    EXPECT_EQ(both.refs, 1);
    EXPECT_EQ(RefCount(xml.get()), 1);
    EXPECT_EQ(RefCount(folder.get()), 1);
}

TYPED_TEST(DateRecordStream, FolderStreamWithoutTheValuesChangesNothing) {
    SmartPtr<IDataStream> stream = NewFolderStream();
    this->Set(Other());
    EXPECT_EQ(this->Load(stream.get()), S_OK);
    ExpectFields(this->fields(), 6, 9, 11, 1999, 23, 59, 1.25f);
}

TYPED_TEST(DateRecordStream, NullStreamDoesNothing) {
    this->Set(Other());
    EXPECT_EQ(this->Save(nullptr), S_OK);
    EXPECT_EQ(this->Load(nullptr), S_OK);
    ExpectFields(this->fields(), 6, 9, 11, 1999, 23, 59, 1.25f);
}

TYPED_TEST(DateRecordStream, StreamOfferingNeitherFormIsNeitherWrittenNorRead) {
    PlainStream plain;
    this->Set(Other());
    EXPECT_EQ(this->Save(&plain), S_OK);
    EXPECT_EQ(this->Load(&plain), S_OK);
    EXPECT_EQ(plain.calls, 0);
    EXPECT_EQ(plain.refs, 1);
    ExpectFields(this->fields(), 6, 9, 11, 1999, 23, 59, 1.25f);
}

TYPED_TEST(DateRecordStream, FailingWriteReleasesTheStreamAndPassesOn) {
    ThrowingFolderStream stream(L"Hour");
    this->Set(Sample());
    EXPECT_THROW(this->Save(&stream), std::runtime_error);
    EXPECT_EQ(stream.visited, (std::vector<std::wstring>{L"Day", L"Month", L"Year", L"Hour"}));
    EXPECT_EQ(stream.refs, 1);
}

TYPED_TEST(DateRecordStream, FailingReadKeepsTheFieldsAlreadyLoaded) {
    ThrowingFolderStream stream(L"Hour");
    this->Set(Other());
    EXPECT_THROW(this->Load(&stream), std::runtime_error);
    EXPECT_EQ(stream.refs, 1);
    ExpectFields(this->fields(), 6, 42, 42, 42, 23, 59, 1.25f);
}

TYPED_TEST(DateRecordStream, FolderReadsGoStraightIntoTheFields) {
    ThrowingFolderStream stream(L"none");
    this->Set(Other());
    EXPECT_EQ(this->Load(&stream), S_OK);
    EXPECT_EQ(stream.visited, (std::vector<std::wstring>{L"Day", L"Month", L"Year", L"Hour", L"Minute", L"Second"}));
    ExpectFields(this->fields(), 6, 42, 42, 42, 42, 42, 4.5f);
    EXPECT_EQ(stream.refs, 1);
}

struct SecondText {
    float second;
    const wchar_t* text;
};

// The fewest decimals, up to nine, that show the float widened to double.
const SecondText kSecondTexts[] = {
    {30.5f, L"30.5"}, {12.0f, L"12"}, {1.0f / 3.0f, L"0.333333343"}, {0.0f, L"0"}, {-0.25f, L"-0.25"},
};

TEST(DateRecordXml, SecondIsWrittenWithAutomaticDecimals) {
    for (const SecondText& row : kSecondTexts) {
        CGregorian record;
        record.Second = row.second;
        SmartPtr<IDataStream> stream = NewXmlStream();
        record.Save(stream.get(), 0);
        const std::wstring expected = std::wstring(
                                          L"<DATETIME><WeekDay>0</WeekDay><Day>0</Day><Month>0</Month>"
                                          L"<Year>0</Year><Hour>0</Hour><Minute>0</Minute><Second>") +
                                      row.text + L"</Second></DATETIME>";
        EXPECT_EQ(StreamText(stream.get()), expected) << Narrow(row.text);
    }
}

TEST(DateRecordXml, NegativeFieldsAreWrittenAsSignedDecimals) {
    CDateTimer record;
    record.Day = -3;
    record.Year = -1;
    record.WeekDay = -32768;
    SmartPtr<IDataStream> stream = NewXmlStream();
    record.Save(stream.get(), 0);
    EXPECT_EQ(StreamText(stream.get()),
              L"<DATETIME><WeekDay>-32768</WeekDay><Day>-3</Day><Month>0</Month><Year>-1</Year><Hour>0</Hour>"
              L"<Minute>0</Minute><Second>0</Second></DATETIME>");
}

}  // namespace
