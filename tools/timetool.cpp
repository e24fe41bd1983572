// timetool: the command-line host of the Calendar module.
#include <CLI/CLI.hpp>
#include <array>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "commands.h"
#include "tool_error.h"

namespace {

constexpr std::array<std::string_view, 8> kCommands{"show",  "convert", "sun",  "moon",
                                                    "month", "save",    "load", "window"};

bool IsCommand(std::string_view word) {
    for (std::string_view command : kCommands) {
        if (word == command) return true;
    }
    return false;
}

int Run(int argc, char** argv) {
    CLI::App app{
        "timetool: dates in seven calendars, star dates, sunrise, sunset and the moon, "
        "through the Calendar module. Without a command it shows the current instant."};
    app.name("timetool");
    app.footer(timetool::kWhenGrammar);
    app.fallthrough();
    timetool::ShowOptions defaultView;
    std::string fixedNow;
    app.add_flag("--json", defaultView.json, "print the default view as one JSON document");
    app.add_option("--now", fixedNow, "the instant now and today stand for (a WHEN read as Gregorian)");
    app.require_subcommand(0, 1);
    timetool::AddShowCommand(app);
    timetool::AddConvertCommand(app);
    timetool::AddSunCommand(app);
    timetool::AddMoonCommand(app);
    timetool::AddMonthCommand(app);
    timetool::AddSaveCommand(app);
    timetool::AddLoadCommand(app);
    timetool::AddWindowCommand(app);

    if (argc > 1 && argv[1][0] != '-' && !IsCommand(argv[1])) {
        std::cerr << "timetool: unknown command '" << argv[1]
                  << "' (show, convert, sun, moon, month, save, load, window; --help lists them)\n";
        return timetool::kExitBadInput;
    }
    // --now is read before any command runs; the variable stands in when it is absent.
    app.parse_complete_callback([&fixedNow] {
        if (fixedNow.empty()) {
            const char* variable = std::getenv("TIMETOOL_NOW");
            if (variable) fixedNow = variable;
        }
        timetool::SetFixedNow(fixedNow);
    });
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) timetool::RunShow(defaultView);
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) return app.exit(e);
        std::cerr << "timetool: " << e.what() << "\n";
        return timetool::kExitBadInput;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const timetool::ToolError& e) {
        std::cout.flush();
        std::cerr << e.message << "\n";
        return e.status;
    } catch (const std::exception& e) {
        std::cerr << "timetool: " << e.what() << "\n";
        return timetool::kExitModule;
    }
}
