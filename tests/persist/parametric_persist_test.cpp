#include <gtest/gtest.h>

#include <vector>

#include "fake_parameters.h"
#include "fake_streams.h"
#include "time_object.h"

namespace {

using namespace persist_test;

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new KitEnvironment);

constexpr HRESULT kFail = static_cast<HRESULT>(0x80004005u);

SmartPtr<IDataPersist> PersistOf(ITime* time) { return Ask<IDataPersist>(time, IID_IDataPersist); }

std::int32_t StreamSize(IDataStream* stream) {
    std::int32_t size = -1;
    stream->GetSize(&size);
    return size;
}

// A fresh Time object with every field zero and star date 0.
SmartPtr<ITime> NewBlankTime() { return NewTime<ITime>(IID_ITime); }

TEST(ParametricSave, XmlStreamRoundTripKeepsTheParameterValues) {
    SmartPtr<ITime> saved = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    EXPECT_EQ(PersistOf(saved.get())->Save(stream.get(), 0), S_OK);
    EXPECT_GT(StreamSize(stream.get()), 0);
    SmartPtr<ITime> loaded = NewSampleTime();
    loaded->SetTime(0, 0, 0.0);
    loaded->SetDate(1, 1, 1990);
    EXPECT_EQ(PersistOf(loaded.get())->Load(stream.get(), 0), S_OK);
    SmartPtr<IParametricObject> parametric = Ask<IParametricObject>(loaded.get(), IID_IParametricObject);
    SmartPtr<INamedCollection> parameters;
    parametric->GetParameters(parameters.put(), 0);
    // Day, hour, minute and second come back; the year lands in the month.
    EXPECT_EQ(DescribeEntries(parameters.get()),
              L"Day=integer:5\nMonth=integer:2024\nYear=integer:1990\nHour=integer:10\nMinute=integer:20\n"
              L"Second=double:30.5\n");
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TEST(ParametricSave, FolderStreamRoundTripIntoAFreshObject) {
    SmartPtr<ITime> saved = NewSampleTime();
    SmartPtr<IDataStream> stream = NewFolderStream();
    EXPECT_EQ(PersistOf(saved.get())->Save(stream.get(), 0), S_OK);
    SmartPtr<ITime> loaded = NewBlankTime();
    EXPECT_EQ(PersistOf(loaded.get())->Load(stream.get(), 0), S_OK);
    const TimeFields fields = ReadFields(loaded.get());
    ExpectFields(fields, 5, 2024, 0, 10, 20, 30.5);
    EXPECT_EQ(fields.starDate, 0.0);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

struct FlagRow {
    std::int32_t given;
    std::int32_t passed;
};

const FlagRow kFlagRows[] = {
    {0, 0x800000}, {5, 0x800005}, {0x800000, 0x800000}, {0x800001, 0x800001}, {-1, -1}, {0x7F000000, 0x7F800000},
};

TEST(ParametricSave, FlagsReachTheCollectionWithBit800000Added) {
    RecordingParameters recorded(true);
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataPersist> persist = PersistOf(time.get());
    SmartPtr<IDataStream> xml = NewXmlStream();
    SmartPtr<IDataStream> folder = NewFolderStream();
    std::vector<std::int32_t> expected;
    {
        ScopedGlobalCollection scope(&watching);
        for (const FlagRow& row : kFlagRows) {
            EXPECT_EQ(persist->Save(xml.get(), row.given), S_OK);
            EXPECT_EQ(persist->Save(folder.get(), row.given), S_OK);
            expected.push_back(row.passed);
            expected.push_back(row.passed);
        }
    }
    EXPECT_EQ(recorded.saves, expected);
    EXPECT_EQ(recorded.added.size(), 6u * 2u * std::size(kFlagRows));
    EXPECT_EQ(recorded.refs, 1);
    EXPECT_EQ(watching.refs, 1);
    EXPECT_EQ(RefCount(xml.get()), 1);
    EXPECT_EQ(RefCount(folder.get()), 1);
}

TEST(ParametricSave, CollectionWithoutPersistenceGetsNothingAndSaveStillSucceeds) {
    RecordingParameters recorded(false);
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Save(stream.get(), 0), S_OK);
    }
    EXPECT_TRUE(recorded.saves.empty());
    EXPECT_EQ(recorded.refs, 1);
    EXPECT_EQ(StreamSize(stream.get()), 0);
}

TEST(ParametricSave, WithoutAParameterComponentSavesNothingAndSucceeds) {
    WatchingCollection watching(Kit());
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Save(stream.get(), 0), S_OK);
    }
    EXPECT_EQ(StreamSize(stream.get()), 0);
    EXPECT_EQ(watching.refs, 1);
}

TEST(ParametricSave, StreamOfferingNeitherFormGetsNothing) {
    WatchingCollection watching(Kit());
    PlainStream plain;
    SmartPtr<ITime> time = NewSampleTime();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Save(&plain, 3), S_OK);
    }
    EXPECT_EQ(plain.calls, 0);
    EXPECT_EQ(plain.refs, 1);
    EXPECT_TRUE(watching.asked.empty());  // not even the parameters were made
}

TEST(ParametricSave, NullStreamSucceedsWithNothingDone) {
    WatchingCollection watching(Kit());
    SmartPtr<ITime> time = NewSampleTime();
    ScopedGlobalCollection scope(&watching);
    EXPECT_EQ(PersistOf(time.get())->Save(nullptr, 0), S_OK);
    EXPECT_TRUE(watching.asked.empty());
}

TEST(ParametricLoad, StreamOfferingNeitherFormFailsAndChangesNothing) {
    PlainStream plain;
    SmartPtr<ITime> time = NewSampleTime();
    EXPECT_EQ(PersistOf(time.get())->Load(&plain, 0), kFail);
    const TimeFields fields = ReadFields(time.get());
    ExpectFields(fields, 5, 3, 2024, 10, 20, 30.5);
    EXPECT_NEAR(fields.starDate, kSampleStarDate, 1e-9);
    EXPECT_EQ(plain.calls, 0);
    EXPECT_EQ(plain.refs, 1);
}

TEST(ParametricLoad, NullStreamFailsAndChangesNothing) {
    SmartPtr<ITime> time = NewSampleTime();
    EXPECT_EQ(PersistOf(time.get())->Load(nullptr, 0), kFail);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

TEST(ParametricLoad, FreshCollectionIsLoadedWithFlagsZero) {
    RecordingParameters recorded(true);
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Load(stream.get(), 0x800123), S_OK);
    }
    EXPECT_EQ(recorded.loads, std::vector<std::int32_t>{0});
    EXPECT_EQ(watching.asked, std::vector<std::wstring>{L"ParametersCreatable"});
    EXPECT_EQ(recorded.refs, 1);
    EXPECT_EQ(watching.refs, 1);
    // The recorder holds no entries: every name lookup fails and nothing changes.
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

TEST(ParametricLoad, WithoutAParameterComponentFailsAndChangesNothing) {
    WatchingCollection watching(Kit());
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewFolderStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Load(stream.get(), 0), kFail);
    }
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
    EXPECT_EQ(watching.refs, 1);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TEST(ParametricLoad, CollectionWithoutPersistenceIsNotUsed) {
    RecordingParameters recorded(false);
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Load(stream.get(), 0), kFail);
    }
    EXPECT_EQ(recorded.lookups, 0);
    EXPECT_TRUE(recorded.loads.empty());
    EXPECT_EQ(recorded.refs, 1);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

TEST(ParametricLoad, EmptyXmlStreamSucceedsAndChangesNothing) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    EXPECT_EQ(PersistOf(time.get())->Load(stream.get(), 0), S_OK);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

TEST(ParametricLoad, ResultIsZeroWhateverTheCollectionsLoadReports) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    SetStreamText(stream.get(), L"<Parameters><Parameter><Name>Day</Name>");
    EXPECT_EQ(PersistOf(time.get())->Load(stream.get(), 0), S_OK);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

TEST(ParametricSave, ThrowingCollectionGivesAFailureCodeAndReleasesEverything) {
    RecordingParameters recorded(true);
    recorded.throws = true;
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewXmlStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Save(stream.get(), 1), kFail);
    }
    EXPECT_EQ(recorded.saves, std::vector<std::int32_t>{0x800001});
    EXPECT_EQ(recorded.refs, 1);
    EXPECT_EQ(watching.refs, 1);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TEST(ParametricLoad, ThrowingCollectionGivesAFailureCodeAndChangesNothing) {
    RecordingParameters recorded(true);
    recorded.throws = true;
    WatchingCollection watching(Kit(), &recorded);
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewFolderStream();
    {
        ScopedGlobalCollection scope(&watching);
        EXPECT_EQ(PersistOf(time.get())->Load(stream.get(), 0), kFail);
    }
    EXPECT_EQ(recorded.loads, std::vector<std::int32_t>{0});
    EXPECT_EQ(recorded.lookups, 0);
    EXPECT_EQ(recorded.refs, 1);
    EXPECT_EQ(watching.refs, 1);
    EXPECT_EQ(RefCount(stream.get()), 1);
    ExpectFields(ReadFields(time.get()), 5, 3, 2024, 10, 20, 30.5);
}

}  // namespace
