// The Adam and Generic calendar kinds, whose epochs come from the host's
// registry (section "Calendar", keys "SDAdam" and "SDGeneric").
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "time_host.h"

class TimeRegistryKinds : public TimeHostTest {
protected:
    // One file per process: CTest runs the tests of this suite in parallel.
    static void SetUpTestSuite() {
        path_ = new std::string(std::string(CAL_BUILD_DIR) + "/time_registry_kinds_test." + std::to_string(getpid()) +
                                ".registry");
        setenv("CALENDAR_REGISTRY", path_->c_str(), 1);
    }
    static void TearDownTestSuite() {
        std::remove(path_->c_str());
        delete path_;
        path_ = nullptr;
    }
    void SetUp() override {
        std::remove(path_->c_str());
        TimeHostTest::SetUp();
    }

    SmartPtr<IString> Text(const wchar_t* text) const {
        auto string = host_.CreateKitComponent<IString>(L"CreatableString", HostIID("ICreatableString"));
        EXPECT_TRUE(string);
        if (string) string->SetString(static_cast<std::int32_t>(std::wcslen(text)), text);
        return string;
    }

    // A null value removes the key.
    void SetEpoch(const wchar_t* key, const wchar_t* value) const {
        auto registry = host_.CreateKitComponent<IRegistry>(L"Registry", HostIID("IRegistry"));
        ASSERT_TRUE(registry);
        SmartPtr<IString> text = value ? Text(value) : SmartPtr<IString>();
        ASSERT_EQ(registry->SetValue(Text(L"Calendar").get(), Text(key).get(), text.get()), S_OK);
    }

    static std::string* path_;
};

std::string* TimeRegistryKinds::path_ = nullptr;

TEST_F(TimeRegistryKinds, GenericEpochOneGivesGregorianElapsedDays) {
    SetEpoch(L"SDGeneric", L"1");
    SetKind(6);
    SetDate(1, 1, 2000);
    EXPECT_EQ(StarDate(), 730120.0);
    SetStarDate(730120.0);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
}

TEST_F(TimeRegistryKinds, AdamWithoutValueIsOneDayBeforeElapsedDays) {
    SetKind(5);
    SetDate(1, 1, 2000);
    EXPECT_EQ(StarDate(), 730119.0);
    SetStarDate(730119.0);
    EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
}

struct EpochCase {
    const wchar_t* value;
    double starDateOfNewYear2000;
};

TEST_F(TimeRegistryKinds, EpochTextsOfBothKinds) {
    const EpochCase cases[] = {
        {L"1", 730120.0}, {L"+12.5abc", 730131.5}, {L"-3", 730116.0},
        {L"", 730119.0},  {L"abc", 730119.0},      {L"#1F", 730150.0},
    };
    for (const EpochCase& c : cases) {
        for (std::int32_t kind : {5, 6}) {
            SCOPED_TRACE(kind);
            SetEpoch(kind == 5 ? L"SDAdam" : L"SDGeneric", c.value);
            SetKind(kind);
            SetDate(1, 1, 2000);
            EXPECT_EQ(StarDate(), c.starDateOfNewYear2000) << static_cast<const void*>(c.value);
            SetStarDate(c.starDateOfNewYear2000);
            EXPECT_EQ(Date(), (ShortDate{1, 1, 2000}));
        }
    }
}

TEST_F(TimeRegistryKinds, TimeOfDayIsNotCounted) {
    SetEpoch(L"SDGeneric", L"1");
    SetKind(6);
    SetDate(1, 1, 2000);
    ASSERT_EQ(time()->SetTime(12, 0, 0.0), S_OK);
    EXPECT_EQ(StarDate(), 730120.0);
}

TEST_F(TimeRegistryKinds, ChangedValueTakesEffectOnNextConversion) {
    SetEpoch(L"SDGeneric", L"1");
    SetKind(6);
    SetDate(1, 1, 2000);
    EXPECT_EQ(StarDate(), 730120.0);
    SetEpoch(L"SDGeneric", L"11");
    EXPECT_EQ(time()->UpdateStarDate(), S_OK);
    EXPECT_EQ(StarDate(), 730130.0);
    SetEpoch(L"SDGeneric", nullptr);
    EXPECT_EQ(time()->UpdateStarDate(), S_OK);
    EXPECT_EQ(StarDate(), 730119.0);
}

TEST_F(TimeRegistryKinds, LengthsAndCalendarDaysAreGregorian) {
    SetEpoch(L"SDAdam", L"100");
    SetEpoch(L"SDGeneric", L"100");
    for (std::int32_t kind : {5, 6}) {
        SCOPED_TRACE(kind);
        SetKind(kind);
        SetDate(1, 2, 1900);
        short dim = 0, miy = 0, diy = 0, adjust = -9;
        EXPECT_EQ(time()->GetInfo(&dim, &miy, &diy, &adjust), S_OK);
        EXPECT_EQ(dim, 28);
        EXPECT_EQ(miy, 12);
        EXPECT_EQ(diy, 365);
        EXPECT_EQ(adjust, 0);
        SetDate(1, 1, 2000);
        EXPECT_EQ(time()->GetCalendarDays(), 730120.0);
        EXPECT_EQ(StarDate(), 730219.0);
    }
}

TEST_F(TimeRegistryKinds, RoundTripAcrossTheEra) {
    SetEpoch(L"SDAdam", L"1");
    SetEpoch(L"SDGeneric", L"-5000");
    for (std::int32_t kind : {5, 6}) {
        SetKind(kind);
        const double offset = kind == 5 ? 0.0 : -5001.0;
        for (double elapsed = 1.0; elapsed < 800000.0; elapsed += 4001.0) {
            SetStarDate(elapsed + offset);
            const ShortDate d = Date();
            if (d.month == 13) continue;
            SetDate(d.day, d.month, d.year);
            ASSERT_EQ(StarDate(), elapsed + offset) << kind << ' ' << d;
        }
    }
}
