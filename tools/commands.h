// The subcommands of timetool; each registers its options and its action
// with the command-line parser.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace timetool {

struct ShowOptions {
    std::string when = "now";
    std::string from = "gregorian";
    std::string calendar;  // empty: every calendar
    std::string latitude;
    std::string longitude;
    bool json = false;
};

// The default view: `show now` over every calendar.
void RunShow(const ShowOptions& options);

// The instant "now" and "today" stand for (--now or TIMETOOL_NOW); empty for
// the system clock.
void SetFixedNow(std::string when);
const std::string& FixedNow();
// The zone --tz names; empty when the option is absent (TZ, else UTC).
void SetZoneOption(std::string zone);
const std::string& ZoneOption();

void AddShowCommand(CLI::App& app);
void AddConvertCommand(CLI::App& app);
void AddSunCommand(CLI::App& app);
void AddMoonCommand(CLI::App& app);
void AddMonthCommand(CLI::App& app);
void AddSaveCommand(CLI::App& app);
void AddLoadCommand(CLI::App& app);
void AddWindowCommand(CLI::App& app);
void AddYearCommand(CLI::App& app);
void AddBetweenCommand(CLI::App& app);

// The calendar of --calendar, or of --from, its synonym (default
// gregorian); throws ToolError (status 2) when they name different ones.
int RequireSameKind(const std::string& calendar, const std::string& from);

// Help texts shared by the commands; the grammar is written out once, in
// kWhenGrammar, which `timetool --help` prints.
inline constexpr const char* kWhenHelp =
    "instant: a date, now, today, sd:, jd: or @, with steps such as +40d (WHEN in timetool --help)";
inline constexpr const char* kFromHelp =
    "calendar WHEN is a date of: gregorian (default), julian, western, hebrew, hebrew1, adam, generic or 0 to 6";
inline constexpr const char* kKindHelp =
    "calendar: gregorian (0), julian (1), western (2), hebrew1 (3), hebrew (4), adam (5), generic (6)";
inline constexpr const char* kLatitudeHelp = "latitude in degrees, north positive or with N/S (default 43.3N)";
inline constexpr const char* kLongitudeHelp = "longitude in degrees, east positive or with E/W (default 83.045W)";

inline constexpr const char* kWhenGrammar = R"(WHEN (every command that takes an instant):
  Y-MM-DD[THH:MM[:SS[.fff]]][Z]  a date of the --from calendar (default gregorian) at a
                                 time of day on the clock of the zone (TIME ZONES below),
                                 of UTC with Z, or at an offset written after it (+02:00,
                                 +0530, -03); a blank may replace T. A date alone names
                                 that civil day, from its 00:00 UTC. Y is 1 to 5
                                 digits with an optional sign, astronomical as in ISO 8601:
                                 0 is 1 BC, -1 is 2 BC, -43 is 44 BC; -32767 to 32767.
                                 Seconds run below 60 (no leap seconds).
  Y-Name-DD[...]                 a Hebrew month by name (hebrew, hebrew1): Nisan, Iyar,
                                 Sivan, Tammuz, Av, Elul, Tishri, Heshvan, Kislev, Tevet,
                                 Shevat, Adar (12-month years), Adar I, Adar II (leap
                                 years); case and blanks do not matter ('5784-Sivan-15').
                                 Hebrew month numbers: 1 = Nisan, 7 = Tishri, 12 = Adar or
                                 Adar I, 13 = Adar II (leap years only).
  now, today                     the current instant, and midnight UTC of its civil day
                                 in the zone; --now WHEN or the variable TIMETOOL_NOW
                                 fixes them
  sd:DAYS                        star date: days, 1.0 = 1 January AD 1 (Julian), 00:00
  jd:DAYS                        Julian Date
  @SECONDS                       Linux time
  WHEN{+|-}N{d|w|m|y}...         steps after any of these, left to right: d days and w
                                 weeks on the day count; m months and y years in the
                                 --from calendar, the day clamped to the month's end
                                 (2024-01-31+1m is 2024-02-29). Hebrew months count in
                                 year order from Tishri with the leap month; a year step
                                 keeps the month, Adar becoming Adar II in a leap year; a
                                 Western date in 5-14 October 1582 becomes 15 October;
                                 hebrew1 steps by days and weeks only. The time of day
                                 is kept ('2024-06-21+40d', 'today-3w'; N up to 8 digits).
A date that does not exist in its calendar is refused, with the reason.

KIND: gregorian (0, proleptic), julian (1, proleptic, its leap rule carried into BC),
western (2: Julian up to 4 October 1582, Gregorian from 15 October 1582), hebrew or
hebrew0 (4: the arithmetic Hebrew calendar from 1 Tishri of year 1). hebrew1 or
hebrew-mean (3), adam (5) and generic (6) are the module's own calendars: their lines
are the module's (Adam and Generic: Gregorian rules counted from the registry epoch).

TIME ZONES: --tz ZONE, else the variable TZ, names a zone of the system's tz database
(America/New_York, Asia/Kathmandu, UTC; TZ may start with ':'); with neither, UTC, never
the machine's own zone. A TZ holding a POSIX rule rather than a zone name, or an unknown
zone, exits 2. A clock time the zone skips when its clocks go forward is refused; one it
passes twice when they go back is read as GNU date reads it.

Output: each calendar line shows the true date; where the module's GetDate or SetDate
gives something else, the line says so in brackets. Clock times are shown in the zone
with its abbreviation and offset (UTC by default); dates are UTC days; ISO dates
and JSON years are astronomical (0 = 1 BC), text dates say BC. Clock times are the star
date to the nearest second.)";

}  // namespace timetool
