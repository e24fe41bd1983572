// Common names and glyphs of the moon's phase angle.
#pragma once

#include <string_view>

namespace timetool {

struct MoonPhaseName {
    std::string_view name;   // "new", "waxing crescent", ... "waning crescent"
    std::string_view glyph;  // one UTF-8 moon symbol, two columns wide on a terminal
};

// The phase angle (0 new, 180 full, below 360) falls into one of eight equal
// sectors of 45 degrees centred on 0, 45, ..., 315. Angles outside [0, 360)
// are reduced first; a non-finite angle is "unknown".
MoonPhaseName NameMoonPhase(double degrees);

}  // namespace timetool
