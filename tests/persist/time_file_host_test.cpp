#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "persist_support.h"

namespace {

using namespace persist_test;

constexpr HRESULT kFail = static_cast<HRESULT>(0x80004005u);
constexpr char kFileVariable[] = "PERSIST_TEST_TIME_FILE";
constexpr char kStreamVariable[] = "PERSIST_TEST_TIME_STREAM";

template <class I, class From>
SmartPtr<I> Ask(From* object, const char* name) {
    SmartPtr<I> result;
    if (object) object->QueryInterface(IIDFromName(name), result.put_void());
    return result;
}

class TimeFile : public testing::Test {
protected:
    ModuleHost host_;

    // 5 March 2024 10:07:30.5.
    SmartPtr<ITime> NewSampleTime() const {
        SmartPtr<ITime> time = host_.CreateTime<ITime>(HostIID("ITime"));
        if (time) {
            time->SetDate(5, 3, 2024);
            time->SetTime(10, 7, 30.5);
        }
        return time;
    }
    SmartPtr<IDataStream> NewStream(const wchar_t* kind) const {
        return host_.CreateKitComponent<IDataStream>(kind, HostIID("IDataStream"));
    }
};

// Date, time and star date as one line.
std::string Describe(ITime* time) {
    short day = 0, month = 0, year = 0, hour = 0, minute = 0;
    double second = 0.0, star = 0.0;
    time->GetDate(&day, &month, &year);
    time->GetTime(&hour, &minute, &second);
    time->get_StarDate(0, &star);
    char line[200];
    std::snprintf(line, sizeof line, "day=%d month=%d year=%d hour=%d minute=%d second=%.9g star=%.9g", day, month,
                  year, hour, minute, second, star);
    return line;
}

constexpr char kSampleLine[] = "day=5 month=3 year=2024 hour=10 minute=7 second=30.5 star=738952.422";

std::string Hex(HRESULT hr) {
    char text[16];
    std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(hr));
    return text;
}

// Runs this test program again with only the child scenario selected and the
// file named in the environment; returns the scenario's report line.
std::string LoadInAnotherProcess(const std::string& file, const char* streamKind) {
    std::array<char, 4096> self{};
    const ssize_t length = readlink("/proc/self/exe", self.data(), self.size() - 1);
    if (length <= 0) return "<no executable>";
    const std::string command = std::string(kFileVariable) + "='" + file + "' " + kStreamVariable + "=" + streamKind +
                                " '" + std::string(self.data(), static_cast<std::size_t>(length)) +
                                "' --gtest_also_run_disabled_tests"
                                " --gtest_filter=TimeFileChild.DISABLED_LoadsTheNamedFileIntoAFreshObject 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return "<no child>";
    std::string output;
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), pipe)) output += buffer.data();
    const int status = pclose(pipe);
    const std::size_t start = output.find("child: ");
    if (status != 0 || start == std::string::npos) return "<child failed> " + output;
    const std::size_t end = output.find('\n', start);
    return output.substr(start + 7, end == std::string::npos ? std::string::npos : end - start - 7);
}

// The child side: a fresh process, a fresh stream opened from the file and a
// fresh Time object loaded from it. Disabled so that only the parent runs it.
TEST(TimeFileChild, DISABLED_LoadsTheNamedFileIntoAFreshObject) {
    const char* file = std::getenv(kFileVariable);
    const char* kind = std::getenv(kStreamVariable);
    ASSERT_TRUE(file && kind) << "runs only as the child of the TimeFile tests";
    ModuleHost host;
    const std::string kindText(kind);
    const std::wstring kindName(kindText.begin(), kindText.end());
    SmartPtr<IDataStream> stream = host.CreateKitComponent<IDataStream>(kindName.c_str(), HostIID("IDataStream"));
    ASSERT_TRUE(stream);
    const HRESULT opened = LoadStream(stream.get(), file);
    SmartPtr<ITime> time = host.CreateTime<ITime>(HostIID("ITime"));
    ASSERT_TRUE(time);
    const std::string before = Describe(time.get());
    const HRESULT loaded = Ask<IDataPersist>(time.get(), "IDataPersist")->Load(stream.get(), 0);
    std::printf("child: open=%s load=%s before: %s after: %s\n", Hex(opened).c_str(), Hex(loaded).c_str(),
                before.c_str(), Describe(time.get()).c_str());
    std::fflush(stdout);
}

// A fresh object holds zeros and star date 0; the load sets day, hour, minute
// and second, puts the year into the month, and leaves year and star date.
constexpr char kFreshLoadedLine[] =
    "open=00000000 load=00000000 before: day=0 month=0 year=0 hour=0 minute=0 second=0 star=0 "
    "after: day=5 month=2024 year=0 hour=10 minute=7 second=30.5 star=0";

TEST_F(TimeFile, XmlFileLoadsInAnotherProcessWithTheYearInTheMonth) {
    SmartPtr<ITime> time = NewSampleTime();
    ASSERT_EQ(Describe(time.get()), kSampleLine);
    SmartPtr<IDataStream> stream = NewStream(L"XMLStream");
    ASSERT_TRUE(stream);
    EXPECT_EQ(Ask<IDataPersist>(time.get(), "IDataPersist")->Save(stream.get(), 0), S_OK);
    ScratchFile file(".xml");
    ASSERT_EQ(SaveStream(stream.get(), file.path()), S_OK);
    pugi::xml_document document;
    EXPECT_TRUE(document.load_file(file.path().c_str()));
    EXPECT_EQ(LoadInAnotherProcess(file.path(), "XMLStream"), kFreshLoadedLine);
}

TEST_F(TimeFile, FolderFileLoadsInAnotherProcessWithTheYearInTheMonth) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewStream(L"FolderStream");
    ASSERT_TRUE(stream);
    EXPECT_EQ(Ask<IDataPersist>(time.get(), "IDataPersist")->Save(stream.get(), 0), S_OK);
    ScratchFile file(".folder");
    ASSERT_EQ(SaveStream(stream.get(), file.path()), S_OK);
    EXPECT_EQ(LoadInAnotherProcess(file.path(), "FolderStream"), kFreshLoadedLine);
}

// Loads the stream from a damaged copy of a saved file and then the Time
// object from the stream.
struct DamagedLoad {
    HRESULT opened = S_OK;
    HRESULT loaded = S_OK;
    std::wstring text;         // the stream's text after opening (XML)
    std::int32_t values = -1;  // the stream's value count after opening (folder)
};

class DamagedTimeFile : public TimeFile {
protected:
    DamagedLoad LoadDamaged(const wchar_t* kind, const std::function<std::string(std::string)>& damage,
                            ITime* target) const {
        SmartPtr<ITime> saved = NewSampleTime();
        SmartPtr<IDataStream> stream = NewStream(kind);
        Ask<IDataPersist>(saved.get(), "IDataPersist")->Save(stream.get(), 0);
        ScratchFile file(".damaged");
        SaveStream(stream.get(), file.path());
        WriteBytes(file.path(), damage(ReadBytes(file.path())));
        SmartPtr<IDataStream> reopened = NewStream(kind);
        DamagedLoad result;
        result.opened = LoadStream(reopened.get(), file.path());
        result.text = StreamText(reopened.get());
        if (SmartPtr<IFolderStream> folder = Ask<IFolderStream>(reopened.get(), "IFolderStream")) {
            folder->GetValueCount(&result.values);
        }
        result.loaded = Ask<IDataPersist>(target, "IDataPersist")->Load(reopened.get(), 0);
        return result;
    }
    SmartPtr<ITime> NewTarget() const {
        SmartPtr<ITime> time = host_.CreateTime<ITime>(HostIID("ITime"));
        time->SetDate(1, 2, 1990);
        time->SetTime(3, 4, 5.0);
        return time;
    }
};

constexpr char kTargetLine[] = "day=1 month=2 year=1990 hour=3 minute=4 second=5 star=726501.128";

std::string FirstHalf(std::string bytes) { return bytes.substr(0, bytes.size() / 2); }
std::string FlipMiddleByte(std::string bytes) {
    if (!bytes.empty()) bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 0x5A);
    return bytes;
}
std::string Garbage(std::string) { return "not a saved stream <<<"; }
std::string Empty(std::string) { return std::string(); }

TEST_F(DamagedTimeFile, TruncatedFolderFileOpensEmptyAndLoadsNothing) {
    SmartPtr<ITime> target = NewTarget();
    ASSERT_EQ(Describe(target.get()), kTargetLine);
    const DamagedLoad result = LoadDamaged(L"FolderStream", FirstHalf, target.get());
    EXPECT_LT(result.opened, 0);
    EXPECT_EQ(result.values, 0);
    EXPECT_EQ(result.loaded, S_OK);
    EXPECT_EQ(Describe(target.get()), kTargetLine);
}

TEST_F(DamagedTimeFile, CorruptedFolderFileOpensEmptyAndLoadsNothing) {
    SmartPtr<ITime> target = NewTarget();
    const DamagedLoad result = LoadDamaged(L"FolderStream", FlipMiddleByte, target.get());
    EXPECT_LT(result.opened, 0);
    EXPECT_EQ(result.values, 0);
    EXPECT_EQ(result.loaded, S_OK);
    EXPECT_EQ(Describe(target.get()), kTargetLine);
}

TEST_F(DamagedTimeFile, GarbageAndEmptyFolderFilesLoadNothing) {
    for (auto damage : {Garbage, Empty}) {
        SmartPtr<ITime> target = NewTarget();
        const DamagedLoad result = LoadDamaged(L"FolderStream", damage, target.get());
        EXPECT_LT(result.opened, 0);
        EXPECT_EQ(result.values, 0);
        EXPECT_EQ(result.loaded, S_OK);
        EXPECT_EQ(Describe(target.get()), kTargetLine);
    }
}

TEST_F(DamagedTimeFile, TruncatedXmlFileOpensEmptyAndLoadsNothing) {
    SmartPtr<ITime> target = NewTarget();
    const DamagedLoad result = LoadDamaged(L"XMLStream", FirstHalf, target.get());
    EXPECT_LT(result.opened, 0);
    EXPECT_EQ(result.text, L"");
    EXPECT_EQ(result.loaded, S_OK);
    EXPECT_EQ(Describe(target.get()), kTargetLine);
}

TEST_F(DamagedTimeFile, GarbageXmlFileOpensEmptyAndLoadsNothing) {
    SmartPtr<ITime> target = NewTarget();
    const DamagedLoad result = LoadDamaged(L"XMLStream", Garbage, target.get());
    EXPECT_LT(result.opened, 0);
    EXPECT_EQ(result.text, L"");
    EXPECT_EQ(result.loaded, S_OK);
    EXPECT_EQ(Describe(target.get()), kTargetLine);
}

TEST_F(TimeFile, MissingFileLeavesTheStreamEmptyAndLoadsNothing) {
    SmartPtr<ITime> target = host_.CreateTime<ITime>(HostIID("ITime"));
    target->SetDate(1, 2, 1990);
    target->SetTime(3, 4, 5.0);
    SmartPtr<IDataStream> stream = NewStream(L"XMLStream");
    ScratchFile file(".missing");
    EXPECT_LT(LoadStream(stream.get(), file.path()), 0);
    EXPECT_EQ(Ask<IDataPersist>(target.get(), "IDataPersist")->Load(stream.get(), 0), S_OK);
    EXPECT_EQ(Describe(target.get()), kTargetLine);
}

TEST_F(TimeFile, PlainDataStreamIsNeitherWrittenNorRead) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataStream> stream = NewStream(L"DataStream");
    ASSERT_TRUE(stream);
    SmartPtr<IDataPersist> persist = Ask<IDataPersist>(time.get(), "IDataPersist");
    EXPECT_EQ(persist->Save(stream.get(), 0), S_OK);
    std::int32_t size = -1;
    stream->GetSize(&size);
    EXPECT_EQ(size, 0);
    EXPECT_EQ(persist->Load(stream.get(), 0), kFail);
    EXPECT_EQ(Describe(time.get()), kSampleLine);
    EXPECT_EQ(RefCount(stream.get()), 1);
}

TEST_F(TimeFile, NullStreamSavesNothingAndRefusesToLoad) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<IDataPersist> persist = Ask<IDataPersist>(time.get(), "IDataPersist");
    EXPECT_EQ(persist->Save(nullptr, 0), S_OK);
    EXPECT_EQ(persist->Load(nullptr, 0), kFail);
    EXPECT_EQ(Describe(time.get()), kSampleLine);
}

TEST_F(TimeFile, ParametersAndPagesThroughTheHostInterfaces) {
    SmartPtr<ITime> time = NewSampleTime();
    SmartPtr<INamedCollection> parameters;
    EXPECT_EQ(Ask<IParametricObject>(time.get(), "IParametricObject")->GetParameters(parameters.put(), 0), S_OK);
    EXPECT_EQ(DescribeEntries(parameters.get()),
              L"Day=integer:5\nMonth=integer:3\nYear=integer:2024\nHour=integer:10\nMinute=integer:7\n"
              L"Second=double:30.5\n");
    EXPECT_EQ(RefCount(parameters.get()), 1);
    EXPECT_EQ(Ask<IParametricObject>(time.get(), "IParametricObject")->SetParameters(parameters.get()), S_OK);
    EXPECT_EQ(Describe(time.get()), "day=5 month=2024 year=2024 hour=10 minute=7 second=30.5 star=738952.422");
    SmartPtr<INamedCollection> pages;
    EXPECT_EQ(Ask<IUIPropertyPageSpecify>(time.get(), "IUIPropertyPageSpecify")->GetPages(0, pages.put(), nullptr),
              S_OK);
    SmartPtr<IUnknown> page;
    ASSERT_TRUE(pages);
    pages->GetItem(0, page.put());
    EXPECT_EQ(TextOf(Ask<IString>(page.get(), "IString").get()), L"UIPropPages.UIParametricObjectPropPage");
}

}  // namespace
