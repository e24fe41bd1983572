// The module's Time component saved and loaded through the kit's streams: the
// kit's side of the contract the module relies on.
#include <gtest/gtest.h>

#include "kitstreams/kit_streams_support.h"

namespace kitstreams_test {
namespace {

struct Fields {
    short day, month, year, hour, minute;
    double second;
    bool operator==(const Fields&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Fields& f) {
    return out << f.day << '/' << f.month << '/' << f.year << ' ' << f.hour << ':' << f.minute << ':' << f.second;
}

Fields FieldsOf(ITime* time) {
    Fields f{-99, -99, -99, -99, -99, -99.0};
    time->GetDate(&f.day, &f.month, &f.year);
    time->GetTime(&f.hour, &f.minute, &f.second);
    return f;
}

double StarDate(ITime* time) {
    double value = -99.0;
    time->get_StarDate(0, &value);
    return value;
}

class TimeThroughKitStreams : public ::testing::Test {
protected:
    SmartPtr<ITime> NewTime() const { return host_.CreateTime<ITime>(HostIID("ITime")); }
    // 5 March 2024 10:20:30.5.
    SmartPtr<ITime> SavedTime() const {
        SmartPtr<ITime> time = NewTime();
        time->SetDate(5, 3, 2024);
        time->SetTime(10, 20, 30.5);
        return time;
    }
    static SmartPtr<IDataPersist> Persist(IUnknown* object) {
        SmartPtr<IDataPersist> persist;
        object->QueryInterface(HostIID("IDataPersist"), persist.put_void());
        return persist;
    }
    // Loads stream into a fresh Time and checks the documented result: the
    // year lands in the month field, the year and the star date stay.
    void ExpectLoadedYearIntoMonth(IDataStream* stream) const {
        SmartPtr<ITime> loaded = NewTime();
        ASSERT_TRUE(loaded);
        const Fields before = FieldsOf(loaded.get());
        const double star_date = StarDate(loaded.get());
        EXPECT_EQ(Persist(loaded.get())->Load(stream, 0), S_OK);
        EXPECT_EQ(FieldsOf(loaded.get()), (Fields{5, 2024, before.year, 10, 20, 30.5}));
        EXPECT_EQ(StarDate(loaded.get()), star_date);
    }

    ModuleHost host_;
};

TEST_F(TimeThroughKitStreams, XmlTextHoldsTheSixParametersInOrder) {
    SmartPtr<IDataStream> stream = Make<IDataStream>(L"XMLStream", HostIID("IDataStream"));
    ASSERT_EQ(Persist(SavedTime().get())->Save(stream.get(), 0), S_OK);
    EXPECT_EQ(StreamText(stream.get()),
              L"<Parameters>"
              L"<Parameter><Name>Day</Name><Type>integer</Type><Value>5</Value></Parameter>"
              L"<Parameter><Name>Month</Name><Type>integer</Type><Value>3</Value></Parameter>"
              L"<Parameter><Name>Year</Name><Type>integer</Type><Value>2024</Value></Parameter>"
              L"<Parameter><Name>Hour</Name><Type>integer</Type><Value>10</Value></Parameter>"
              L"<Parameter><Name>Minute</Name><Type>integer</Type><Value>20</Value></Parameter>"
              L"<Parameter><Name>Second</Name><Type>double</Type><Value>30.5</Value></Parameter>"
              L"</Parameters>");
}

TEST_F(TimeThroughKitStreams, XmlRoundTripPutsTheYearIntoTheMonth) {
    SmartPtr<IDataStream> stream = Make<IDataStream>(L"XMLStream", HostIID("IDataStream"));
    ASSERT_EQ(Persist(SavedTime().get())->Save(stream.get(), 0), S_OK);
    ExpectLoadedYearIntoMonth(stream.get());
}

TEST_F(TimeThroughKitStreams, FolderRoundTripPutsTheYearIntoTheMonth) {
    SmartPtr<IDataStream> stream = Make<IDataStream>(L"FolderStream", HostIID("IDataStream"));
    ASSERT_EQ(Persist(SavedTime().get())->Save(stream.get(), 0), S_OK);
    ExpectLoadedYearIntoMonth(stream.get());
}

TEST_F(TimeThroughKitStreams, FilesOfBothKindsCarryTheParameters) {
    ScratchFolder scratch;
    const wchar_t* kinds[] = {L"XMLStream", L"FolderStream"};
    for (const wchar_t* kind : kinds) {
        SmartPtr<IDataStream> saved = Make<IDataStream>(kind, HostIID("IDataStream"));
        ASSERT_EQ(Persist(SavedTime().get())->Save(saved.get(), 0), S_OK);
        ASSERT_EQ(SaveStream(saved.get(), scratch.File("time.state")), S_OK);
        SmartPtr<IDataStream> opened = Make<IDataStream>(kind, HostIID("IDataStream"));
        ASSERT_EQ(LoadStream(opened.get(), scratch.File("time.state")), S_OK);
        ExpectLoadedYearIntoMonth(opened.get());
    }
}

TEST_F(TimeThroughKitStreams, PlainDataStreamIsNeitherKind) {
    SmartPtr<IDataStream> stream = Make<IDataStream>(L"DataStream", HostIID("IDataStream"));
    EXPECT_EQ(Persist(SavedTime().get())->Save(stream.get(), 0), S_OK);
    std::int32_t size = -1;
    stream->GetSize(&size);
    EXPECT_EQ(size, 0);
    SmartPtr<ITime> time = NewTime();
    const Fields before = FieldsOf(time.get());
    EXPECT_EQ(Persist(time.get())->Load(stream.get(), 0), E_FAIL);
    EXPECT_EQ(FieldsOf(time.get()), before);
}

}  // namespace
}  // namespace kitstreams_test
