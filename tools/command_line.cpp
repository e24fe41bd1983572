#include "command_line.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "calendar_module_version.h"
#include "commands.h"
#include "module_session.h"
#include "output_charset.h"
#include "quoted_text.h"
#include "tool_error.h"

namespace timetool {

namespace {

constexpr std::array<std::string_view, 10> kCommands{"show", "convert", "sun",  "moon", "month",
                                                     "year", "between", "save", "load", "window"};

// Parser messages may echo whole arguments; they are shown escaped and cut
// like every echoed argument, with room for the parser's own words.
constexpr std::size_t kShownParserMessageLength = 2 * kShownArgumentLength + 80;

constexpr std::string_view kStatusHelp = R"(

Numbers (--days, --lat, --lon, N) are decimal: a leading zero never means octal (010 is ten).
Exit status: 0 done; 2 bad input, with one line on standard error naming the argument;
1 the module cannot be loaded or fails, or output cannot be written. A registry file that
cannot be read or holds a malformed line or value gets one warning when a run uses Adam or
Generic.)";

constexpr std::string_view kExamples = R"(

Examples:
  timetool                                    now in every calendar, with sun and moon
  timetool convert 2024-06-21 --to hebrew     a Gregorian date in the Hebrew calendar
  timetool convert 5784-Sivan-15 --from hebrew
  timetool show 1582-10-04 --from julian --calendar western
  timetool sun 2024-06-21 --lat 51.48N --lon 0.0E --days 7
  timetool month 2024-02
  timetool save day.xml 2024-06-21T12:00 && timetool load day.xml
  seq 1 5 | timetool window 3

The module folder: CALENDAR_MODULE_DIR, else _binlinux beside timetool (build
tree), else the installed one; --version says which is used.)";

// "timetool 1.0.0 (commit 1a2b3c4)" and the module folder with the rule that chose it.
std::string VersionText() {
    std::string text = std::string("timetool ") + kCalendarModuleVersion;
    if (kCalendarModuleCommit[0] != '\0') text += std::string(" (commit ") + kCalendarModuleCommit + ")";
    const ModuleFolderChoice folder = ChooseModuleFolder();
    text += "\nmodule folder: " + folder.path + " (" + folder.reason + ")";
    return text;
}

bool IsCommand(std::string_view word) {
    for (std::string_view command : kCommands) {
        if (word == command) return true;
    }
    return false;
}

// An option given with an empty value ("--lat ''", "--calendar=") is a
// mistake, never a request for the default.
void RefuseEmptyValues(const CLI::App& app) {
    for (const CLI::Option* option : app.get_options()) {
        if (!option->nonpositional() || option->get_type_size() == 0 || option->count() == 0) continue;
        for (const std::string& value : option->results()) {
            if (value.empty()) {
                throw ToolError{kExitBadInput,
                                "timetool: empty " + option->get_name() + ": give a value or leave the option out"};
            }
        }
    }
    for (const CLI::App* command : app.get_subcommands()) RefuseEmptyValues(*command);
}

// True when `name` is a long option of the program or of one of its commands.
bool IsLongOption(const CLI::App& app, const std::string& name) {
    if (app.get_option_no_throw(name) != nullptr) return true;
    for (const CLI::App* command : app.get_subcommands({})) {
        if (IsLongOption(*command, name)) return true;
    }
    return false;
}

// "--lat=" gives the option an empty value. The parser would take the next
// argument as the value instead ("--tz= show" would read "show" as a zone),
// so it is refused here, before parsing, as an empty value is everywhere.
void RefuseEmptyJoinedValues(const CLI::App& app, int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        if (arg == "--") return;
        if (arg.size() < 4 || !arg.starts_with("--") || !arg.ends_with("=")) continue;
        const std::string name(arg.substr(0, arg.size() - 1));
        if (name.find('=') != std::string::npos || !IsLongOption(app, name)) continue;
        throw ToolError{kExitBadInput, "timetool: empty " + name + ": give a value or leave the option out"};
    }
}

// The parser's own words for an option given last without its value name
// the value's type ("--days: 1 required TEXT missing"); this says it as the
// other refusals do. An empty message means the error is another one.
std::string MissingValueMessage(const CLI::ParseError& error) {
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) == nullptr) return {};
    const std::string text = error.what();
    const std::size_t colon = text.find(": ");
    if (colon == std::string::npos || text.find(" required ", colon) == std::string::npos ||
        !text.ends_with(" missing")) {
        return {};
    }
    return "timetool: " + text.substr(0, colon) + " needs a value";
}

int Run(int argc, char** argv) {
    CLI::App app{
        "timetool: dates in seven calendars, star dates, sunrise, sunset and the moon, "
        "through the Calendar module. Without a command it shows the current instant."};
    app.name("timetool");
    app.footer(std::string(kWhenGrammar) + std::string(kStatusHelp) + std::string(kExamples));
    app.fallthrough();
    app.set_version_flag("--version", VersionText, "print the version and the module folder used, and exit");
    ShowOptions defaultView;
    std::string fixedNow;
    bool ascii = false;
    std::string zone;
    app.add_flag("--json", defaultView.json, "print the default view as one JSON document");
    app.add_option("--now", fixedNow, "the instant now and today stand for (a WHEN read as Gregorian)");
    app.add_option("--tz", zone,
                   "time zone of the tz database (America/New_York) for clock times shown and read; "
                   "default: the variable TZ, else UTC");
    app.add_flag("--ascii", ascii,
                 "write text in ASCII (degree sign, moon glyphs), as outside a UTF-8 locale; JSON stays UTF-8");
    app.require_subcommand(0, 1);
    AddShowCommand(app);
    AddConvertCommand(app);
    AddSunCommand(app);
    AddMoonCommand(app);
    AddMonthCommand(app);
    AddYearCommand(app);
    AddBetweenCommand(app);
    AddSaveCommand(app);
    AddLoadCommand(app);
    AddWindowCommand(app);

    if (argc > 1 && argv[1][0] != '-' && !IsCommand(argv[1])) {
        std::cerr << "timetool: unknown command " << QuoteArgument(argv[1])
                  << " (show, convert, sun, moon, month, year, between, save, load, window; --help lists them)\n";
        return kExitBadInput;
    }
    // --now is read before any command runs; the variable stands in when it is absent.
    SetFixedNow({});
    SetZoneOption({});
    app.parse_complete_callback([&app, &fixedNow, &ascii, &zone] {
        RefuseEmptyValues(app);
        SetOutputCharset(ascii ? Charset::Ascii : EnvironmentCharset());
        SetZoneOption(zone);
        if (fixedNow.empty()) {
            const char* variable = std::getenv("TIMETOOL_NOW");
            if (variable) fixedNow = variable;
        }
        SetFixedNow(fixedNow);
    });
    RefuseEmptyJoinedValues(app, argc, argv);
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) RunShow(defaultView);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) return app.exit(e);
        const std::string missing = MissingValueMessage(e);
        if (!missing.empty()) {
            std::cerr << EscapeText(missing, kShownParserMessageLength) << "\n";
            return kExitBadInput;
        }
        std::cerr << "timetool: " << EscapeText(e.what(), kShownParserMessageLength) << "\n";
        return kExitBadInput;
    }
    return 0;
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const ToolError& e) {
        std::cout.flush();
        std::cerr << e.message << "\n";
        return e.status;
    } catch (const std::exception& e) {
        std::cerr << "timetool: " << EscapeText(e.what(), kShownParserMessageLength) << "\n";
        return kExitModule;
    } catch (...) {
        std::cerr << "timetool: unexpected failure\n";
        return kExitModule;
    }
}

}  // namespace timetool
