#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"
#include "output_charset.h"
#include "quoted_text.h"
#include "stored_parameters.h"
#include "tool_context.h"
#include "tool_error.h"
#include "wide_text.h"

namespace timetool {

namespace {

struct SaveOptions {
    std::string file;
    std::string when = "now";
    std::string from = "gregorian";
    bool json = false;
};

struct LoadOptions {
    std::string file;
    bool json = false;
};

bool IsXmlPath(const std::string& path) {
    if (path.size() < 4) return false;
    std::string suffix = path.substr(path.size() - 4);
    for (char& c : suffix) c = static_cast<char>(c | 0x20);
    return suffix == ".xml";
}

const char* FormName(const std::string& path) { return IsXmlPath(path) ? "xml" : "folder"; }

// The kit stream matching the file's form: XML for ".xml", folder otherwise.
SmartPtr<IDataStream> CreateStream(const ModuleSession& session, const std::string& path) {
    return session.CreateKit<IDataStream>(IsXmlPath(path) ? L"XMLStream" : L"FolderStream", InterfaceId("IDataStream"));
}

SmartPtr<IDataPersist> PersistOf(IUnknown* object, const char* what) {
    SmartPtr<IDataPersist> persist;
    CheckModule(object->QueryInterface(InterfaceId("IDataPersist"), persist.put_void()), what);
    return persist;
}

// What the kit's stream codes mean for the user.
std::string StreamCodeText(HRESULT hr) {
    static const struct {
        std::uint32_t code;
        const char* text;
    } kCodes[] = {
        {0x80070026u, "the file is cut short"},
        {0x8007000Du, "the file is not a saved stream of this form"},
        {0x80070002u, "no such file or folder"},
        {0x80070005u, "access denied"},
        {0x800700DEu, "not a regular file (left as it is)"},
        {0x80070781u, "too many symbolic links, or a circle of them"},
        {0x80070070u, "the disk is full"},
        {0x8007001Du, "write fault"},
        {0x8007001Eu, "read fault"},
    };
    for (const auto& entry : kCodes) {
        if (static_cast<std::uint32_t>(hr) == entry.code)
            return std::string(entry.text) + " (" + FormatResult(hr) + ")";
    }
    return "stream error " + FormatResult(hr);
}

// The kit's answer when a stream holds no parameter set.
constexpr std::uint32_t kNameNotFound = 0x80070490u;

[[noreturn]] void FileFailure(HRESULT hr, const char* operation, const std::string& message) {
    if (hr == E_NOTIMPL) CheckModule(hr, operation);
    throw ToolError{kExitBadInput, "timetool: " + message + ": " + StreamCodeText(hr)};
}

[[noreturn]] void RefuseFile(const std::string& path, const std::string& why) {
    throw ToolError{kExitBadInput, "timetool: bad FILE " + QuoteArgument(path) + ": " + why};
}

void LoadStreamFromFile(IDataStream* stream, const std::string& path) {
    const std::wstring wide = WidenUtf8(path);
    const HRESULT hr = stream->LoadFromFile(static_cast<std::int32_t>(wide.size()), wide.c_str());
    if (FAILED(hr)) FileFailure(hr, "IDataStream::LoadFromFile", "cannot read FILE " + QuoteArgument(path));
}

// A saved Time is a regular file; anything else at the path (a folder, a
// FIFO that would block, a device) is refused before it is opened.
void RequireRegularFile(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        throw ToolError{kExitBadInput,
                        "timetool: cannot read FILE " + QuoteArgument(path) + ": " + std::strerror(errno)};
    }
    if (S_ISDIR(status.st_mode)) RefuseFile(path, "a folder, not a file");
    if (!S_ISREG(status.st_mode)) RefuseFile(path, "not a regular file");
}

Json FieldsJson(const TimeObject& time) {
    const DateFields date = time.Date();
    int hour = 0;
    int minute = 0;
    double second = 0.0;
    time.Time(&hour, &minute, &second);
    return Json{{"day", date.day}, {"month", date.month}, {"year", date.year},
                {"hour", hour},    {"minute", minute},    {"second", second}};
}

std::string FieldsText(const Json& fields) {
    std::string text;
    for (const auto& [name, value] : fields.items()) {
        if (!text.empty()) text += ", ";
        text += PlainText(name) + " " + (value.is_number_float() ? FormatLinuxTime(value.get<double>()) : value.dump());
    }
    return text;
}

StoredKind KindOf(short type) {
    switch (type) {
        case kVariantEmpty:
            return StoredKind::Empty;
        case kVariantInteger:
            return StoredKind::Integer;
        case kVariantDouble:
            return StoredKind::Double;
        case kVariantText:
            return StoredKind::Text;
        default:
            return StoredKind::Other;
    }
}

// The parameter set stored in the stream, read by the kit's own parameter
// collection as the Time object's load will read it.
std::vector<StoredParameter> StoredParameters(const ModuleSession& session, IDataStream* stream,
                                              const std::string& path) {
    SmartPtr<IUnknown> parameters =
        session.CreateKit<IUnknown>(L"ParametersCreatable", InterfaceId("IParametersCreatable"));
    const HRESULT hr = PersistOf(parameters.get(), "ParametersCreatable IDataPersist")->Load(stream, 0);
    if (static_cast<std::uint32_t>(hr) == kNameNotFound) RefuseFile(path, "it holds no Time parameter set");
    if (FAILED(hr))
        FileFailure(hr, "ParametersCreatable IDataPersist::Load", "cannot read FILE " + QuoteArgument(path));
    SmartPtr<INamedCollection> named;
    CheckModule(parameters->QueryInterface(InterfaceId("INamedCollection"), named.put_void()),
                "ParametersCreatable INamedCollection");
    std::int32_t count = 0;
    CheckModule(named->GetCount(&count), "INamedCollection::GetCount");
    std::vector<StoredParameter> stored;
    for (std::int32_t i = 0; i < count; ++i) {
        SmartPtr<IString> name;
        SmartPtr<IUnknown> item;
        CheckModule(named->GetItemName(i, name.put()), "INamedCollection::GetItemName");
        if (!name) CheckModule(E_FAIL, "INamedCollection::GetItemName");
        tagREFString text{0, nullptr};
        name->GetString(&text);
        StoredParameter parameter;
        parameter.name = NarrowToUtf8(text);
        parameter.kind = StoredKind::Other;
        SmartPtr<IVariant> value;
        if (SUCCEEDED(named->GetItem(i, item.put())) && item &&
            SUCCEEDED(item->QueryInterface(InterfaceId("IVariant"), value.put_void()))) {
            parameter.kind = KindOf(value->GetType());
            if (parameter.kind == StoredKind::Integer) parameter.number = value->GetInteger();
            if (parameter.kind == StoredKind::Double) parameter.number = value->GetDouble();
        }
        stored.push_back(parameter);
    }
    return stored;
}

// The stored set as JSON: numbers as stored, anything else null.
Json StoredJson(const std::vector<StoredParameter>& stored) {
    Json json = Json::object();
    for (const StoredParameter& parameter : stored) {
        if (parameter.kind == StoredKind::Integer) {
            json[parameter.name] = static_cast<std::int32_t>(parameter.number);
        } else if (parameter.kind == StoredKind::Double) {
            json[parameter.name] = parameter.number;
        } else {
            json[parameter.name] = nullptr;
        }
    }
    return json;
}

void RunSave(const SaveOptions& options) {
    const int from = RequireKind("--from", options.from);
    ToolContext context;
    const WhenParse parsed = ParseWhen(options.when);
    if (!parsed.when) RefuseWhen(options.when, parsed.error);
    const When& when = *parsed.when;
    const double starDate = context.reader().StarDate(options.when, when, from);

    // The Time object holds the proleptic Gregorian date of the day named
    // (in its own year numbering) and the time of day: as typed for a civil
    // WHEN read on the UTC clock, so no float round trip touches the seconds, else
    // to the second.
    const ExactInstant instant = SplitStarDate(starDate);
    const CivilDate gregorian = GregorianOfDay(instant.day);
    TimeObject time(context.session());
    time.SetKind(0);
    time.SetDate(gregorian.day, gregorian.month, ModuleYear(gregorian.year));
    if (when.form == WhenForm::Civil && context.reader().ReadsAsUtc(when)) {
        time.SetTime(when.civil.hour, when.civil.minute, when.civil.second);
    } else {
        time.SetTime(instant.second / 3600, instant.second / 60 % 60, instant.second % 60);
    }
    SmartPtr<IDataStream> stream = CreateStream(context.session(), options.file);
    CheckModule(PersistOf(time.unknown(), "Time IDataPersist")->Save(stream.get(), 0), "Time IDataPersist::Save");
    const std::wstring wide = WidenUtf8(options.file);
    const HRESULT hr = stream->SaveToFile(static_cast<std::int32_t>(wide.size()), wide.c_str());
    if (FAILED(hr)) FileFailure(hr, "IDataStream::SaveToFile", "cannot write FILE " + QuoteArgument(options.file));

    const Json fields = FieldsJson(time);
    const CalendarLine named = DescribeCalendarDay(context.dates(), from, instant.day);
    if (options.json) {
        Json json = JsonDocument();
        json["file"] = options.file;
        json["form"] = FormName(options.file);
        json["star_date"] = starDate;
        json["saved"] = fields;
        json["date"] = CalendarJson(named);
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::string text = "File           " + options.file + " (" + FormName(options.file) + " stream)\n" +
                       "Saved          " + FieldsText(fields) + "\n";
    if (gregorian.year <= 0) {
        text += "               (the Time object counts 1 BC as year -1: year " +
                std::to_string(ModuleYear(gregorian.year)) + " is " + FormatYearText(gregorian.year) + ")\n";
    }
    if (from != 0) text += LabelledLine(CalendarKindInfo(from).title, CalendarLineText(named));
    std::cout << text;
}

void RunLoad(const LoadOptions& options) {
    RequireRegularFile(options.file);
    const ModuleSession session;
    SmartPtr<IDataStream> stream = CreateStream(session, options.file);
    LoadStreamFromFile(stream.get(), options.file);
    // The Time object applies whatever it finds and wraps what does not fit
    // its fields, so the stored set is checked before it is trusted.
    const std::vector<StoredParameter> parameters = StoredParameters(session, stream.get(), options.file);
    const std::string problem = CheckStoredTime(parameters);
    if (!problem.empty()) RefuseFile(options.file, problem);
    TimeObject time(session);
    CheckModule(PersistOf(time.unknown(), "Time IDataPersist")->Load(stream.get(), 0), "Time IDataPersist::Load");
    const Json loaded = FieldsJson(time);
    const Json stored = StoredJson(parameters);

    if (options.json) {
        Json json = JsonDocument();
        json["file"] = options.file;
        json["form"] = FormName(options.file);
        json["stored"] = stored;
        json["loaded"] = loaded;
        std::cout << json.dump(2) << "\n";
        return;
    }
    std::cout << "File           " << options.file << " (" << FormName(options.file) << " stream)\n";
    std::cout << "Stored         " << FieldsText(stored) << "\n";
    std::cout << "Loaded         " << FieldsText(loaded) << "\n";
    if (loaded["month"] == stored["Year"]) {
        std::cout << "               (the Time component reads the stored Year into its month field and keeps\n"
                     "               its own year; stored data relies on this)\n";
    }
}

}  // namespace

void AddSaveCommand(CLI::App& app) {
    auto options = std::make_shared<SaveOptions>();
    CLI::App* command = app.add_subcommand(
        "save", "Save a Time object set to WHEN (default now) in FILE: XML for .xml, a folder stream otherwise");
    command
        ->add_option("FILE", options->file,
                     "file to write, replaced atomically (through its links, keeping its mode); a folder, FIFO or "
                     "device is refused")
        ->required();
    command->add_option("WHEN", options->when, kWhenHelp);
    command->add_option("--from", options->from, kFromHelp);
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunSave(*options); });
}

void AddLoadCommand(CLI::App& app) {
    auto options = std::make_shared<LoadOptions>();
    CLI::App* command = app.add_subcommand("load", "Load a Time object saved by `save` and show its fields");
    command
        ->add_option("FILE", options->file,
                     "file written by save; refused unless it holds Day, Month, Year, Hour, Minute and Second, each "
                     "finite and fitting the object")
        ->required();
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunLoad(*options); });
}

}  // namespace timetool
