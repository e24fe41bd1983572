// Common names and glyphs of the moon's phase.
#pragma once

#include <optional>
#include <string_view>

namespace timetool {

struct MoonPhaseName {
    std::string_view name;   // "new", "waxing crescent", ... "waning crescent"
    std::string_view glyph;  // one UTF-8 moon symbol, two columns wide on a terminal
};

// "new", "first quarter", "full" or "last quarter" for quarter 0 to 3;
// "unknown" otherwise.
MoonPhaseName QuarterName(int quarter);

// The stretch between two quarters that a phase angle (degrees, 0 new, 90
// first quarter, 180 full, 270 last quarter) lies in: waxing crescent in
// [0, 90), waxing gibbous in [90, 180), waning gibbous in [180, 270),
// waning crescent in [270, 360). Angles outside [0, 360) are reduced first;
// a non-finite angle is "unknown".
MoonPhaseName BetweenQuartersName(double degrees);

// The name a person expects for an instant: the quarter's own name when one
// of the four quarters falls within half a day of the instant (so "full"
// holds for the day around the full moon, not for days of a nearly round
// disc), otherwise the stretch the angle lies in.
MoonPhaseName NameMoonPhase(double degrees, std::optional<int> quarterWithinHalfDay);

}  // namespace timetool
