// The subcommands of timetool; each registers its options and its action
// with the command-line parser.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace timetool {

struct ShowOptions {
    std::string when = "now";
    std::string calendar;  // empty: every calendar
    std::string latitude;
    std::string longitude;
    bool json = false;
};

// The default view: `show now` over every calendar.
void RunShow(const ShowOptions& options);

void AddShowCommand(CLI::App& app);
void AddConvertCommand(CLI::App& app);
void AddSunCommand(CLI::App& app);
void AddMoonCommand(CLI::App& app);
void AddMonthCommand(CLI::App& app);
void AddSaveCommand(CLI::App& app);
void AddLoadCommand(CLI::App& app);
void AddWindowCommand(CLI::App& app);

// Help texts shared by the commands.
inline constexpr const char* kWhenHelp =
    "instant: YYYY-MM-DD[THH:MM[:SS]] (UTC; -YYYY for BC, -1 = 1 BC), now, today, "
    "sd:STARDATE, jd:JULIANDATE, @LINUXTIME";
inline constexpr const char* kKindHelp =
    "calendar: gregorian (0), julian (1), western (2), hebrew1 (3), hebrew (4), adam (5), generic (6)";
inline constexpr const char* kLatitudeHelp = "latitude in degrees, north positive or with N/S (default 43.3N)";
inline constexpr const char* kLongitudeHelp = "longitude in degrees, east positive or with E/W (default 83.045W)";

}  // namespace timetool
