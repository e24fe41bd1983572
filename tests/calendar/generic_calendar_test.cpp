// The "SDAdam" and "SDGeneric" calendars against the host kit's registry,
// installed as the module's global collection. The registry is a temporary
// file named through CALENDAR_REGISTRY.
#include "time/conversions.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <random>
#include <string>

#include "base/iids.h"
#include "date_fields.h"
#include "framework/conversions.h"
#include "module/entry.h"
#include "support/fake_component_collection.h"
#include "support/module_host.h"
#include "time/calendar_classes.h"
#include "time/generic_calendar.h"

namespace {

class GenericCalendarTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        char pattern[] = "/tmp/calendar_generic_XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        folder_ = pattern;
        file_ = folder_ + "/registry.ini";
        setenv("CALENDAR_REGISTRY", file_.c_str(), 1);
        collection_ = LoadModule("CollectionsEx")
                          .Create<IComponentCollection>(L"GlobalComponentCollection", HostIID("IComponentCollection"));
        ASSERT_TRUE(collection_);
        InitializeModule(nullptr, collection_.get());
    }
    static void TearDownTestSuite() {
        InitializeModule(nullptr, nullptr);
        collection_.reset();
        std::remove(file_.c_str());
        rmdir(folder_.c_str());
        unsetenv("CALENDAR_REGISTRY");
    }
    void SetUp() override { std::remove(file_.c_str()); }

    // Stores value under [Calendar] key; null removes the key.
    static void Store(const wchar_t* key, const wchar_t* value) {
        SmartPtr<IRegistry> registry;
        ASSERT_EQ(collection_->GetComponent(8, L"Registry", &IID_IRegistry, registry.put_void()), S_OK);
        SmartPtr<IString> section(ISCreate(L"Calendar"));
        SmartPtr<IString> name(ISCreate(key));
        SmartPtr<IString> text(value ? ISCreate(value) : nullptr);
        ASSERT_EQ(registry->SetValue(section.get(), name.get(), text.get()), S_OK);
    }
    static void WriteRawFile(const char* content) {
        FILE* f = std::fopen(file_.c_str(), "w");
        ASSERT_NE(f, nullptr);
        std::fputs(content, f);
        std::fclose(f);
    }
    static double OffsetOf(const wchar_t* name) {
        SmartPtr<IString> text(ISCreate(name));
        CGenericCalendar calendar(text.get());
        return calendar.EpochOffset();
    }

    static inline std::string folder_;
    static inline std::string file_;
    static inline SmartPtr<IComponentCollection> collection_;
};

struct ValueRow {
    const char* name;
    const wchar_t* value;  // null: no value stored
    double offset;
    double dayNumberOf1Jan2000;
};

// 1 January 2000 has the Gregorian elapsed count 730120.
const ValueRow kValues[] = {
    {"one", L"1", 0.0, 730120.0},          {"none", nullptr, -1.0, 730119.0},
    {"empty", L"", -1.0, 730119.0},        {"sign, fraction and trailing text", L"+12.5abc", 11.5, 730131.5},
    {"negative", L"-3", -4.0, 730116.0},   {"hash integer", L"#1F", 30.0, 730150.0},
    {"no digits", L"abc", -1.0, 730119.0},
};

TEST_F(GenericCalendarTest, EpochOffsetFromRegistryValue) {
    for (const auto& row : kValues) {
        for (const wchar_t* key : {L"SDAdam", L"SDGeneric"}) {
            Store(key, row.value);
            EXPECT_EQ(OffsetOf(key), row.offset) << row.name;
        }
    }
}

TEST_F(GenericCalendarTest, AdamAndGenericDayNumbers) {
    const tagDATETIME date = MakeDate(2000, 1, 1, 18, 30, 5.0f);
    for (const auto& row : kValues) {
        Store(L"SDAdam", row.value);
        Store(L"SDGeneric", row.value);
        EXPECT_EQ(AdamToJDN(&date), row.dayNumberOf1Jan2000) << row.name;
        EXPECT_EQ(GenericToJDN(&date), row.dayNumberOf1Jan2000) << row.name;

        tagDATETIME out = MakeDate(7, 7, 7, 1, 2, 3.0f);
        EXPECT_EQ(JDNtoAdam(row.dayNumberOf1Jan2000, &out), S_OK);
        EXPECT_EQ(DateOf(out), (Ymd{2000, 1, 1})) << row.name;
        EXPECT_EQ(out.Hour, 1);
        out = MakeDate(7, 7, 7, 1, 2, 3.0f);
        EXPECT_EQ(JDNtoGeneric(row.dayNumberOf1Jan2000, &out), S_OK);
        EXPECT_EQ(DateOf(out), (Ymd{2000, 1, 1})) << row.name;
        EXPECT_EQ(out.Minute, 2);
    }
}

TEST_F(GenericCalendarTest, ValueOneGivesGregorianElapsedDays) {
    Store(L"SDGeneric", L"1");
    const tagDATETIME date = MakeDate(2000, 1, 1);
    EXPECT_EQ(GenericToJDN(&date), 730120.0);
    tagDATETIME out;
    JDNtoGeneric(693960.0, &out);
    EXPECT_EQ(DateOf(out), (Ymd{1900, 13, 1}));
}

TEST_F(GenericCalendarTest, EachConversionReadsTheRegistryAgain) {
    const tagDATETIME date = MakeDate(2000, 1, 1);
    Store(L"SDAdam", L"1");
    EXPECT_EQ(AdamToJDN(&date), 730120.0);
    Store(L"SDAdam", L"101");
    EXPECT_EQ(AdamToJDN(&date), 730220.0);
    Store(L"SDAdam", nullptr);
    EXPECT_EQ(AdamToJDN(&date), 730119.0);
}

TEST_F(GenericCalendarTest, FailedQueryGivesZeroOffset) {
    WriteRawFile("this line is neither a section nor an entry\n");
    EXPECT_EQ(OffsetOf(L"SDGeneric"), 0.0);
    const tagDATETIME date = MakeDate(2000, 1, 1);
    EXPECT_EQ(GenericToJDN(&date), 730120.0);
}

TEST_F(GenericCalendarTest, NullNameBehavesAsFailedQuery) {
    Store(L"SDGeneric", L"-3");
    CGenericCalendar calendar(nullptr);
    EXPECT_EQ(calendar.EpochOffset(), 0.0);
}

TEST_F(GenericCalendarTest, HoldsOneReferenceOnItsName) {
    IString* name = ISCreate(L"SDGeneric");
    ASSERT_NE(name, nullptr);
    {
        CGenericCalendar calendar(name);
        EXPECT_EQ(name->AddRef(), 3);
        EXPECT_EQ(name->Release(), 2);
    }
    EXPECT_EQ(name->AddRef(), 2);
    EXPECT_EQ(name->Release(), 1);
    EXPECT_EQ(name->Release(), 0);
}

TEST_F(GenericCalendarTest, SetYearDayPassesOwnYearToInnerCalendar) {
    Store(L"SDGeneric", L"1");
    SmartPtr<IString> name(ISCreate(L"SDGeneric"));
    CGenericCalendar calendar(name.get());
    calendar.Year = 2001;
    calendar.SetYearDay(100);
    // The inner calendar (year 0, 366 days) takes year-day 2001: 1635 days
    // past its end are 54 whole 30-day months and 15 days; its year 0 is
    // copied back over the own year.
    EXPECT_EQ(DateOf(calendar), (Ymd{0, 67, 15}));
    EXPECT_EQ(DateOf(*calendar.Inner()), (Ymd{0, 67, 15}));
}

TEST_F(GenericCalendarTest, OperationsGoToTheInnerCalendar) {
    Store(L"SDGeneric", L"+12.5");
    SmartPtr<IString> name(ISCreate(L"SDGeneric"));
    CGenericCalendar calendar(name.get());
    static_cast<tagDATETIME&>(*calendar.Inner()) = MakeDate(2000, 3, 1);
    calendar.Year = 2001;
    calendar.Month = 12;
    calendar.Day = 31;
    EXPECT_EQ(calendar.GetYearDay(), 61);
    EXPECT_EQ(calendar.DaysInMonth(2), 29);
    EXPECT_EQ(calendar.DaysInYear(), 366);
    EXPECT_EQ(calendar.GetEllapsedDays(), 730180.0 + 11.5);
    calendar.SetEllapsedDays(1.0 + 11.5);
    EXPECT_EQ(DateOf(calendar), (Ymd{1, 1, 1}));
}

TEST_F(GenericCalendarTest, AdDatesRoundTripWithFractionalOffset) {
    Store(L"SDAdam", L"+12.5abc");
    Store(L"SDGeneric", L"#1F");
    std::mt19937 random(20240108);
    std::uniform_int_distribution<int> years(1, 32767);
    std::uniform_int_distribution<int> months(1, 12);
    std::uniform_int_distribution<int> days(1, 28);
    for (int i = 0; i < 2000; ++i) {
        const tagDATETIME date = MakeDate(years(random), months(random), days(random));
        tagDATETIME out;
        JDNtoAdam(AdamToJDN(&date), &out);
        ASSERT_EQ(DateOf(out), DateOf(date));
        JDNtoGeneric(GenericToJDN(&date), &out);
        ASSERT_EQ(DateOf(out), DateOf(date));
    }
    // BC dates come back one year-day early, as in the Gregorian calendar.
    const tagDATETIME bc = MakeDate(-44, 3, 15);
    tagDATETIME out;
    JDNtoAdam(AdamToJDN(&bc), &out);
    EXPECT_EQ(DateOf(out), (Ymd{-44, 3, 14}));
}

// A collection that serves no "Registry": either it refuses, or it claims
// success without an object.
class CollectionWithoutRegistry : public FakeComponentCollection {
public:
    explicit CollectionWithoutRegistry(HRESULT answer) : answer_(answer) {}
    HRESULT QueryInterface(const IID&, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return ++references_; }
    std::int32_t Release() override { return --references_; }
    HRESULT GetComponentCount(std::int32_t* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT GetComponent(std::int32_t, const wchar_t*, const IID*, void** out) override {
        ++lookups_;
        *out = nullptr;
        return answer_;
    }
    int lookups_ = 0;

private:
    HRESULT answer_;
    std::int32_t references_ = 1;
};

TEST_F(GenericCalendarTest, NoRegistryComponentGivesZeroOffset) {
    Store(L"SDGeneric", L"-3");
    SmartPtr<IString> name(ISCreate(L"SDGeneric"));
    for (HRESULT answer : {E_FAIL, S_OK}) {
        CollectionWithoutRegistry collection(answer);
        InitializeModule(nullptr, &collection);
        {
            CGenericCalendar calendar(name.get());
            EXPECT_EQ(calendar.EpochOffset(), 0.0);
        }
        const tagDATETIME date = MakeDate(2000, 1, 1);
        EXPECT_EQ(GenericToJDN(&date), 730120.0);
        EXPECT_EQ(collection.lookups_, 2);
        InitializeModule(nullptr, collection_.get());
        EXPECT_EQ(collection.AddRef(), 2);
    }
    EXPECT_EQ(OffsetOf(L"SDGeneric"), -4.0);
}

}  // namespace
