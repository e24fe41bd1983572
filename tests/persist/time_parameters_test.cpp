#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "fake_parameters.h"
#include "fake_streams.h"
#include "time_object.h"

namespace {

using namespace persist_test;

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new KitEnvironment);

constexpr wchar_t kSampleEntries[] =
    L"Day=integer:5\nMonth=integer:3\nYear=integer:2024\nHour=integer:10\nMinute=integer:20\nSecond=double:30.5\n";

SmartPtr<INamedCollection> ParametersOf(ITime* time, HRESULT* result = nullptr) {
    SmartPtr<IParametricObject> parametric = Ask<IParametricObject>(time, IID_IParametricObject);
    SmartPtr<INamedCollection> parameters;
    const HRESULT hr = parametric->GetParameters(parameters.put(), 0);
    if (result) *result = hr;
    return parameters;
}

HRESULT Apply(ITime* time, INamedCollection* parameters) {
    return Ask<IParametricObject>(time, IID_IParametricObject)->SetParameters(parameters);
}

TEST(TimeGetParameters, SampleInstantGivesSixEntriesInOrder) {
    SmartPtr<ITime> time = NewSampleTime();
    HRESULT hr = E_FAIL;
    SmartPtr<INamedCollection> parameters = ParametersOf(time.get(), &hr);
    EXPECT_EQ(hr, S_OK);
    ASSERT_TRUE(parameters);
    EXPECT_EQ(DescribeEntries(parameters.get()), kSampleEntries);
    EXPECT_TRUE(Ask<IParametersCreatable>(parameters.get(), IID_IParametersCreatable));
    EXPECT_EQ(RefCount(parameters.get()), 1);
}

TEST(TimeGetParameters, NegativeFieldsAreWidenedWithTheirSign) {
    SmartPtr<ITime> time = NewTime<ITime>(IID_ITime);
    time->SetDate(1, 1, -44);
    time->SetTime(0, 0, 0.0);
    EXPECT_EQ(DescribeEntries(ParametersOf(time.get()).get()),
              L"Day=integer:1\nMonth=integer:1\nYear=integer:-44\nHour=integer:0\nMinute=integer:0\n"
              L"Second=double:0\n");
}

TEST(TimeGetParameters, EachCallBuildsANewSetFromTheCurrentFields) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<INamedCollection> first = ParametersOf(time.get());
    time->SetTime(11, 0, 0.0);
    SmartPtr<INamedCollection> second = ParametersOf(time.get());
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(DescribeEntries(first.get()), kSampleEntries);
    EXPECT_EQ(DescribeEntries(second.get()),
              L"Day=integer:5\nMonth=integer:3\nYear=integer:2024\nHour=integer:11\nMinute=integer:0\n"
              L"Second=double:0\n");
}

TEST(TimeGetParameters, SetComesFromTheGlobalCollectionWhichIsReleasedAgain) {
    RecordingParameters recorded(true);
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IParametricObject> parametric = Ask<IParametricObject>(time.get(), IID_IParametricObject);
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(watching.refs, 2);
        INamedCollection* parameters = nullptr;
        EXPECT_EQ(parametric->GetParameters(&parameters, 77), S_OK);
        EXPECT_EQ(parameters, static_cast<INamedCollection*>(&recorded));
        EXPECT_EQ(recorded.refs, 2);  // the caller's reference
        EXPECT_EQ(parameters->Release(), 1);
        EXPECT_EQ(watching.refs, 2);
    }
    EXPECT_EQ(watching.refs, 1);
    EXPECT_EQ(watching.asked, std::vector<std::wstring>{L"ParametersCreatable"});
    EXPECT_EQ(recorded.added, (std::vector<std::wstring>{L"Day", L"Month", L"Year", L"Hour", L"Minute", L"Second"}));
}

TEST(TimeGetParameters, WithoutAParameterComponentFailsWithNullOutput) {
    WatchingCollection watching(Kit());  // serves no "ParametersCreatable"
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IParametricObject> parametric = Ask<IParametricObject>(time.get(), IID_IParametricObject);
    ScopedGlobalCollection scope(&watching);
    ObjectEntries sentinel;
    INamedCollection* parameters = &sentinel;
    EXPECT_EQ(parametric->GetParameters(&parameters, 0), static_cast<HRESULT>(0x80004005u));
    EXPECT_EQ(parameters, nullptr);
    EXPECT_EQ(watching.refs, 2);
}

TEST(TimeSetParameters, FeedingTheSetBackPutsTheYearIntoTheMonth) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<INamedCollection> parameters = ParametersOf(time.get());
    EXPECT_NEAR(ReadFields(time.get()).starDate, kSampleStarDate, 1e-9);
    EXPECT_EQ(Apply(time.get(), parameters.get()), S_OK);
    const TimeFields fields = ReadFields(time.get());
    ExpectFields(fields, 5, 2024, 2024, 10, 20, 30.5);
    EXPECT_NEAR(fields.starDate, kSampleStarDate, 1e-9);
    EXPECT_EQ(RefCount(parameters.get()), 1);
}

TEST(TimeSetParameters, StarDateAndWeekdayKeepThePreviousInstant) {
    SmartPtr<ITime> time = NewSampleTime();
    const std::int32_t weekDay = time->GetDayOfWeek();
    ObjectEntries entries;
    entries.Add(L"Day", NewInteger(Kit(), 6).get());
    entries.Add(L"Hour", NewInteger(Kit(), 1).get());
    EXPECT_EQ(Apply(time.get(), &entries), S_OK);
    const TimeFields fields = ReadFields(time.get());
    ExpectFields(fields, 6, 3, 2024, 1, 20, 30.5);
    EXPECT_NEAR(fields.starDate, kSampleStarDate, 1e-9);
    EXPECT_EQ(time->GetDayOfWeek(), weekDay);
}

TEST(TimeSetParameters, OnlyMonthChangesOnlyTheMonth) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    entries.Add(L"Month", NewInteger(Kit(), 7).get());
    EXPECT_EQ(Apply(time.get(), &entries), S_OK);
    ExpectFields(ReadFields(time.get()), 5, 7, 2024, 10, 20, 30.5);
    EXPECT_EQ(entries.refs, 1);
    EXPECT_EQ(RefCount(entries.entries[0].second.get()), 1);
}

TEST(TimeSetParameters, OnlyYearGoesIntoTheMonth) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    entries.Add(L"Year", NewInteger(Kit(), 1999).get());
    Apply(time.get(), &entries);
    ExpectFields(ReadFields(time.get()), 5, 1999, 2024, 10, 20, 30.5);
}

TEST(TimeSetParameters, YearWinsOverMonthWhateverTheirOrderInTheSet) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    entries.Add(L"Year", NewInteger(Kit(), 1999).get());
    entries.Add(L"Month", NewInteger(Kit(), 8).get());
    Apply(time.get(), &entries);
    ExpectFields(ReadFields(time.get()), 5, 1999, 2024, 10, 20, 30.5);
}

TEST(TimeSetParameters, IntegersKeepTheirLowSixteenBits) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    entries.Add(L"Day", NewInteger(Kit(), 70000).get());
    entries.Add(L"Minute", NewInteger(Kit(), -65537).get());
    Apply(time.get(), &entries);
    ExpectFields(ReadFields(time.get()), 4464, 3, 2024, 10, -1, 30.5);
}

TEST(TimeSetParameters, IntegerFieldsTakeTheIntegerOfADoubleVariant) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    entries.Add(L"Hour", NewDouble(Kit(), 7.75).get());
    entries.Add(L"Second", NewInteger(Kit(), 12).get());
    Apply(time.get(), &entries);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 7, 20, 12.0);
}

TEST(TimeSetParameters, EntriesThatAreNotVariantsAreSkipped) {
    SmartPtr<ITime> time = NewSampleTime();
    PlainStream notAValue;
    ObjectEntries entries;
    entries.Add(L"Day", &notAValue);
    entries.Add(L"Second", &notAValue);
    entries.Add(L"Minute", NewText(Kit(), L"9").get());
    EXPECT_EQ(Apply(time.get(), &entries), S_OK);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
    EXPECT_EQ(notAValue.refs, 3);  // the two entries' references only
}

struct SecondTextRow {
    const wchar_t* text;
    double second;  // from a previous second of 30.5
};

// White space, control characters and the stray marks 0xFE and 0xEF are
// skipped; the rest is read as a number. Nothing left keeps the second.
const SecondTextRow kSecondTexts[] = {
    {L"  12.25", 12.25}, {L"\t", 30.5},      {L"", 30.5},    {L"\x00FE\x00EF\n7.5", 7.5}, {L"\x0001\x007F 2", 2.0},
    {L"abc", 0.0},       {L"12.5abc", 12.5}, {L"#1E", 30.0}, {L"-0.75", -0.75},
};

TEST(TimeSetParameters, SecondFromATextEntrySkipsBlanksAndMarks) {
    for (const SecondTextRow& row : kSecondTexts) {
        SmartPtr<ITime> time = NewSampleTime();
        ObjectEntries entries;
        entries.Add(L"Second", NewText(Kit(), row.text).get());
        EXPECT_EQ(Apply(time.get(), &entries), S_OK);
        EXPECT_EQ(ReadFields(time.get()).second, row.second) << std::string(row.text, row.text + std::wcslen(row.text));
    }
}

TEST(TimeSetParameters, SecondIsNarrowedToFloat) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    entries.Add(L"Second", NewDouble(Kit(), 0.1).get());
    Apply(time.get(), &entries);
    EXPECT_EQ(ReadFields(time.get()).second, static_cast<double>(0.1f));
}

TEST(TimeSetParameters, EmptySetChangesNothing) {
    SmartPtr<ITime> time = NewSampleTime();
    ObjectEntries entries;
    EXPECT_EQ(Apply(time.get(), &entries), S_OK);
    const TimeFields fields = ReadFields(time.get());
    ExpectFields(fields, 5, 3, 2024, 10, 20, 30.5);
    EXPECT_NEAR(fields.starDate, kSampleStarDate, 1e-9);
}

TEST(TimeSetParameters, NullSetIsAPointerError) {
    SmartPtr<ITime> time = NewSampleTime();
    EXPECT_EQ(Apply(time.get(), nullptr), E_POINTER);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

// A variant whose integer getter throws.
class ThrowingVariant final : public IVariant {
public:
    std::int32_t refs = 1;
    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, HostIID("IVariant"))) return E_NOINTERFACE;
        *out = static_cast<IVariant*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs; }
    std::int32_t Release() override { return --refs; }
    short GetType() override { return kVariantInteger; }
    double GetDouble() override { return 0.0; }
    std::int32_t GetInteger() override { throw std::runtime_error("variant failure"); }
    HRESULT SetInteger(std::int32_t) override { return E_NOTIMPL; }
    HRESULT SetDouble(double) override { return E_NOTIMPL; }
    HRESULT SetObject(IUnknown*) override { return E_NOTIMPL; }
    HRESULT GetObject(IUnknown**) override { return E_NOTIMPL; }
    HRESULT SetText(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    short IsString() override { return 0; }
    HRESULT GetString(IString**) override { return E_NOTIMPL; }
};

TEST(TimeSetParameters, ThrowingEntryGivesAFailureCodeAndKeepsEarlierFields) {
    SmartPtr<ITime> time = NewSampleTime();
    ThrowingVariant throwing;
    ObjectEntries entries;
    entries.Add(L"Day", NewInteger(Kit(), 9).get());
    entries.Add(L"Hour", &throwing);
    entries.Add(L"Minute", NewInteger(Kit(), 1).get());
    EXPECT_EQ(Apply(time.get(), &entries), static_cast<HRESULT>(0x80004005u));
    ExpectFields(ReadFields(time.get()), 9, 3, 2024, 10, 20, 30.5);
    EXPECT_EQ(throwing.refs, 2);  // the entry's own reference only
    EXPECT_EQ(entries.refs, 1);
}

TEST(TimeGetPages, OneParametricPageKeyedByTheObjectName) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IUIPropertyPageSpecify> specify = Ask<IUIPropertyPageSpecify>(time.get(), IID_IUIPropertyPageSpecify);
    ASSERT_TRUE(specify);
    PlainStream sentinel;
    IUnknown* site = &sentinel;
    SmartPtr<INamedCollection> pages;
    EXPECT_EQ(specify->GetPages(5, pages.put(), &site), S_OK);
    EXPECT_EQ(site, static_cast<IUnknown*>(&sentinel));
    EXPECT_EQ(sentinel.refs, 1);
    ASSERT_TRUE(pages);
    EXPECT_EQ(RefCount(pages.get()), 1);
    std::int32_t count = 0;
    pages->GetCount(&count);
    EXPECT_EQ(count, 1);
    SmartPtr<IString> key;
    pages->GetItemName(0, key.put());
    EXPECT_EQ(TextOf(key.get()), L"Time");
    SmartPtr<IUnknown> value;
    pages->GetItem(0, value.put());
    EXPECT_EQ(TextOf(Ask<IString>(value.get(), IID_IString).get()), L"UIPropPages.UIParametricObjectPropPage");
    SmartPtr<ISuperCollection> super = Ask<ISuperCollection>(pages.get(), HostIID("ISuperCollection"));
    ASSERT_TRUE(super);
    SmartPtr<IString> third;
    super->GetItemExtra(0, third.put());
    EXPECT_EQ(TextOf(third.get()), L"Time");
    std::int32_t flags = -1;
    super->GetItemFlags(0, &flags);
    EXPECT_EQ(flags, 0);
}

TEST(TimeGetPages, NullOutputIsAPointerError) {
    SmartPtr<IUIPropertyPageSpecify> specify = NewTime<IUIPropertyPageSpecify>(IID_IUIPropertyPageSpecify);
    EXPECT_EQ(specify->GetPages(0, nullptr, nullptr), E_POINTER);
}

}  // namespace
