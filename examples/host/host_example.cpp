// A small host of the calendar module: loads the module and the host kit,
// hands the kit's collection to the module, creates a Time and a DblBuffer,
// reads a date in the Hebrew calendar, listens to the buffer's events, saves
// and loads a Time through a kit stream, and releases everything. Each step
// is checked; the exit status is 0 only when every check holds.
#include <stdlib.h>

#include <atomic>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "module_host.h"

namespace {

int gChecks = 0;
int gFailures = 0;

void Check(bool holds, const std::string& what) {
    ++gChecks;
    if (!holds) ++gFailures;
    std::printf("%s %s\n", holds ? "ok    " : "FAILED", what.c_str());
}

// A listener for the DblBuffer's change events. It lives on the heap and
// dies at its last Release, like every framework object.
class EventRecorder final : public _IDblVectorEvent {
public:
    static EventRecorder* Create() { return new EventRecorder(); }
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        if (!out) return E_POINTER;
        if (iid == IID_IUnknown || iid == IIDFromName("_IDblVectorEvent")) {
            *out = static_cast<_IDblVectorEvent*>(this);
            AddRef();
            return S_OK;
        }
        *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return ++references_; }
    std::int32_t Release() override {
        const std::int32_t left = --references_;
        if (left == 0) delete this;
        return left;
    }
    // The module calls these; no exception may travel back into it.
    HRESULT SizeChanged(IDblVector* /*vector*/) override { return Record("SizeChanged"); }
    HRESULT ElementChanged(IDblVector* /*vector*/, std::int32_t index) override {
        return Record("ElementChanged " + std::to_string(index));
    }

    const std::vector<std::string>& events() const { return events_; }

private:
    EventRecorder() = default;
    ~EventRecorder() = default;

    HRESULT Record(std::string event) noexcept {
        try {
            events_.push_back(std::move(event));
        } catch (...) {
            return E_OUTOFMEMORY;
        }
        return S_OK;
    }

    std::atomic<std::int32_t> references_{1};
    std::vector<std::string> events_;
};

// A fresh folder under the system's temporary folder, removed at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "calendar-host-XXXXXX").string();
        if (mkdtemp(pattern.data())) path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

void HebrewDate(const calendar_module::ModuleHost& host) {
    HRESULT hr = E_FAIL;
    SmartPtr<ITime> time = host.CreateTime(&hr);
    Check(hr == S_OK && time, "Time created");
    if (!time) return;
    Check(time->AddRef() == 2 && time->Release() == 1, "a new Time holds one reference, the caller's");

    time->SetDate(21, 6, 2024);
    double starDate = 0.0;
    time->get_StarDate(0, &starDate);
    Check(starDate == 739060.0, "21 June 2024 is day 739060 (1 January AD 1, Julian, is day 1)");
    Check(time->GetDayOfWeek() == 5, "21 June 2024 is a Friday");

    time->put_Calendar(4);  // the Hebrew calendar; months count from Nisan = 1
    short day = 0;
    short month = 0;
    short year = 0;
    time->GetDate(&day, &month, &year);
    std::printf("       21 June 2024 in the Hebrew calendar: day %d, month %d, year %d\n", day, month, year);
    Check(day == 15 && month == 3 && year == 5784, "21 June 2024 is 15 Sivan 5784");

    Check(time.detach()->Release() == 0, "the last Release destroys the Time");
}

void BufferEvents(const calendar_module::ModuleHost& host) {
    SmartPtr<IDblVector> vector = host.CreateDblBuffer();
    Check(static_cast<bool>(vector), "DblBuffer created");
    if (!vector) return;
    SmartPtr<IEventSource> source;
    Check(vector->QueryInterface(IIDFromName("IEventSource"), source.put_void()) == S_OK,
          "DblBuffer answers IEventSource");
    if (!source) return;

    SmartPtr<EventRecorder> recorder(EventRecorder::Create());
    Check(source->Advise(recorder.get(), 1) == S_OK, "listener advised");
    Check(recorder->AddRef() == 3 && recorder->Release() == 2, "the buffer holds one reference to its listener");

    vector->put_Size(3);
    vector->put_Element(-1, 1.5);  // -1 appends
    vector->put_Element(-1, 2.5);
    const std::vector<std::string> expected{"SizeChanged", "ElementChanged -1", "ElementChanged -1"};
    Check(recorder->events() == expected, "events received: SizeChanged, then ElementChanged -1 twice");
    double oldest = 0.0;
    double newest = 0.0;
    vector->get_Element(0, &oldest);
    vector->get_Element(-1, &newest);
    Check(oldest == 1.5 && newest == 2.5, "age 0 reads the oldest value, age -1 the newest");

    Check(source->Advise(recorder.get(), 0) == S_OK, "listener removed");
    Check(recorder->AddRef() == 2 && recorder->Release() == 1, "the buffer gave its listener reference back");
    source.reset();
    Check(vector.detach()->Release() == 0, "the last Release destroys the DblBuffer");
}

// Saves a Time through an XML stream into a file and loads it into a new Time.
void SaveAndLoad(const calendar_module::ModuleHost& host) {
    const TemporaryFolder folder;
    Check(!folder.path().empty(), "temporary folder made");
    if (folder.path().empty()) return;
    const std::wstring file = (folder.path() / "time.xml").wstring();
    const auto fileLength = static_cast<std::int32_t>(file.size());
    const IID persistIid = IIDFromName("IDataPersist");
    const IID streamIid = IIDFromName("IDataStream");

    SmartPtr<ITime> saved = host.CreateTime();
    SmartPtr<IDataPersist> persist;
    if (!saved || FAILED(saved->QueryInterface(persistIid, persist.put_void()))) {
        Check(false, "Time answers IDataPersist");
        return;
    }
    saved->SetDate(21, 6, 2024);
    saved->SetTime(17, 54, 0.0);
    SmartPtr<IDataStream> out = host.CreateKit<IDataStream>(L"XMLStream", streamIid);
    Check(out && persist->Save(out.get(), 0) == S_OK, "Time saved into an XML stream");
    Check(out && out->SaveToFile(fileLength, file.c_str()) == S_OK, "stream written to time.xml");

    SmartPtr<IDataStream> in = host.CreateKit<IDataStream>(L"XMLStream", streamIid);
    Check(in && in->LoadFromFile(fileLength, file.c_str()) == S_OK, "stream read back from time.xml");
    SmartPtr<ITime> loaded = host.CreateTime();
    SmartPtr<IDataPersist> loader;
    if (!in || !loaded || FAILED(loaded->QueryInterface(persistIid, loader.put_void()))) {
        Check(false, "second Time answers IDataPersist");
        return;
    }
    Check(loader->Load(in.get(), 0) == S_OK, "Time loaded from the stream");
    short day = 0;
    short month = 0;
    short year = 0;
    short hour = 0;
    short minute = 0;
    double second = -1.0;
    loaded->GetDate(&day, &month, &year);
    loaded->GetTime(&hour, &minute, &second);
    std::printf("       loaded: day %d, month %d, year %d, %02d:%02d:%02g\n", day, month, year, hour, minute, second);
    Check(day == 21 && hour == 17 && minute == 54 && second == 0.0, "day and time of day come back as saved");
    // Loading writes the stored Year into the month field and leaves the
    // year alone (a new Time's year is 0); stored data relies on this.
    Check(month == 2024 && year == 0, "the stored Year lands in the month field, the year keeps its value");
}

int Run() {
    const calendar_module::ModuleFolder folder =
        calendar_module::FindModuleFolder(calendar_module::kModuleFolderVariable, {CALENDAR_MODULE_DIR});
    const bool fromEnvironment = folder.source == calendar_module::kModuleFolderVariable;
    std::printf("       module folder %s (%s)\n", folder.path.c_str(),
                fromEnvironment ? "from CALENDAR_MODULE_DIR" : "from the CalendarModule package");
    const calendar_module::ModuleHost host(folder.path);
    if (!host.loaded()) {
        std::fprintf(stderr, "host_example: %s\n", host.failure().Message().c_str());
        return 1;
    }
    Check(host.collection()->AddRef() == 3 && host.collection()->Release() == 2,
          "the module holds one reference to the kit's collection");

    HebrewDate(host);
    BufferEvents(host);
    SaveAndLoad(host);

    if (gFailures == 0) {
        std::printf("host example: all %d checks hold\n", gChecks);
    } else {
        std::printf("host example: %d of %d checks failed\n", gFailures, gChecks);
    }
    return gFailures == 0 ? 0 : 1;
}

}  // namespace

int main() {
    try {
        return Run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "host_example: %s\n", error.what());
        return 1;
    }
}
