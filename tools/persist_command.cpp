#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "calendar_kind.h"
#include "commands.h"
#include "instant_output.h"
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
        {0x8007001Du, "write fault"},
        {0x8007001Eu, "read fault"},
    };
    for (const auto& entry : kCodes) {
        if (static_cast<std::uint32_t>(hr) == entry.code)
            return std::string(entry.text) + " (" + FormatResult(hr) + ")";
    }
    return "stream error " + FormatResult(hr);
}

[[noreturn]] void FileFailure(HRESULT hr, const char* operation, const std::string& message) {
    if (hr == E_NOTIMPL) CheckModule(hr, operation);
    throw ToolError{kExitBadInput, "timetool: " + message + ": " + StreamCodeText(hr)};
}

void LoadStreamFromFile(IDataStream* stream, const std::string& path) {
    const std::wstring wide = WidenUtf8(path);
    const HRESULT hr = stream->LoadFromFile(static_cast<std::int32_t>(wide.size()), wide.c_str());
    if (FAILED(hr)) FileFailure(hr, "IDataStream::LoadFromFile", "cannot read FILE '" + path + "'");
}

void RequireReadable(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) throw ToolError{kExitBadInput, "timetool: cannot read FILE '" + path + "': " + std::strerror(errno)};
    std::fclose(file);
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
        text += name + " " + (value.is_number_float() ? FormatLinuxTime(value.get<double>()) : value.dump());
    }
    return text;
}

// The parameter set stored in the file, read by the kit's own parameter
// collection; empty when the kit cannot read it.
Json StoredParameters(const ModuleSession& session, const std::string& path) {
    try {
        SmartPtr<IDataStream> stream = CreateStream(session, path);
        LoadStreamFromFile(stream.get(), path);
        SmartPtr<IUnknown> parameters =
            session.CreateKit<IUnknown>(L"ParametersCreatable", InterfaceId("IParametersCreatable"));
        CheckModule(PersistOf(parameters.get(), "ParametersCreatable IDataPersist")->Load(stream.get(), 0),
                    "ParametersCreatable IDataPersist::Load");
        SmartPtr<INamedCollection> named;
        CheckModule(parameters->QueryInterface(InterfaceId("INamedCollection"), named.put_void()),
                    "ParametersCreatable INamedCollection");
        std::int32_t count = 0;
        CheckModule(named->GetCount(&count), "INamedCollection::GetCount");
        Json json = Json::object();
        for (std::int32_t i = 0; i < count; ++i) {
            SmartPtr<IString> name;
            SmartPtr<IUnknown> item;
            if (FAILED(named->GetItemName(i, name.put())) || !name) continue;
            tagREFString text{0, nullptr};
            name->GetString(&text);
            const std::string key = NarrowToUtf8(text);
            SmartPtr<IVariant> value;
            if (FAILED(named->GetItem(i, item.put())) || !item ||
                FAILED(item->QueryInterface(InterfaceId("IVariant"), value.put_void()))) {
                json[key] = nullptr;
                continue;
            }
            if (value->GetType() == kVariantDouble) {
                json[key] = value->GetDouble();
            } else {
                json[key] = value->GetInteger();
            }
        }
        return json;
    } catch (const ToolError&) {
        return nullptr;
    }
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
    // WHEN, so no float round trip touches the seconds, else to the second.
    const ExactInstant instant = SplitStarDate(starDate);
    const CivilDate gregorian = GregorianOfDay(instant.day);
    TimeObject time(context.session());
    time.SetKind(0);
    time.SetDate(gregorian.day, gregorian.month, ModuleYear(gregorian.year));
    if (when.form == WhenForm::Civil) {
        time.SetTime(when.civil.hour, when.civil.minute, when.civil.second);
    } else {
        time.SetTime(instant.second / 3600, instant.second / 60 % 60, instant.second % 60);
    }
    SmartPtr<IDataStream> stream = CreateStream(context.session(), options.file);
    CheckModule(PersistOf(time.unknown(), "Time IDataPersist")->Save(stream.get(), 0), "Time IDataPersist::Save");
    const std::wstring wide = WidenUtf8(options.file);
    const HRESULT hr = stream->SaveToFile(static_cast<std::int32_t>(wide.size()), wide.c_str());
    if (FAILED(hr)) FileFailure(hr, "IDataStream::SaveToFile", "cannot write FILE '" + options.file + "'");

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
    RequireReadable(options.file);
    const ModuleSession session;
    SmartPtr<IDataStream> stream = CreateStream(session, options.file);
    LoadStreamFromFile(stream.get(), options.file);
    TimeObject time(session);
    CheckModule(PersistOf(time.unknown(), "Time IDataPersist")->Load(stream.get(), 0), "Time IDataPersist::Load");
    const Json loaded = FieldsJson(time);
    const Json stored = StoredParameters(session, options.file);

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
    if (stored.is_object()) std::cout << "Stored         " << FieldsText(stored) << "\n";
    std::cout << "Loaded         " << FieldsText(loaded) << "\n";
    if (stored.is_object() && stored.contains("Year") && loaded["month"] == stored["Year"]) {
        std::cout << "               (the Time component reads the stored Year into its month field and keeps\n"
                     "               its own year; stored data relies on this)\n";
    }
}

}  // namespace

void AddSaveCommand(CLI::App& app) {
    auto options = std::make_shared<SaveOptions>();
    CLI::App* command = app.add_subcommand(
        "save", "Save a Time object set to WHEN (default now) in FILE: XML for .xml, a folder stream otherwise");
    command->add_option("FILE", options->file, "file to write (replaced atomically)")->required();
    command->add_option("WHEN", options->when, kWhenHelp);
    command->add_option("--from", options->from, kFromHelp);
    command->add_flag("--json", options->json, "print one JSON document");
    command->footer(kWhenGrammar);
    command->callback([options] { RunSave(*options); });
}

void AddLoadCommand(CLI::App& app) {
    auto options = std::make_shared<LoadOptions>();
    CLI::App* command = app.add_subcommand("load", "Load a Time object saved by `save` and show its fields");
    command->add_option("FILE", options->file, "file written by save")->required();
    command->add_flag("--json", options->json, "print one JSON document");
    command->callback([options] { RunLoad(*options); });
}

}  // namespace timetool
