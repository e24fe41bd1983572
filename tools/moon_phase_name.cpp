#include "moon_phase_name.h"

#include <array>
#include <cmath>

namespace timetool {

namespace {

constexpr MoonPhaseName kUnknown{"unknown", "?"};

constexpr std::array<MoonPhaseName, 4> kQuarters{{
    {"new", "\xF0\x9F\x8C\x91"},
    {"first quarter", "\xF0\x9F\x8C\x93"},
    {"full", "\xF0\x9F\x8C\x95"},
    {"last quarter", "\xF0\x9F\x8C\x97"},
}};

constexpr std::array<MoonPhaseName, 4> kBetweenQuarters{{
    {"waxing crescent", "\xF0\x9F\x8C\x92"},
    {"waxing gibbous", "\xF0\x9F\x8C\x94"},
    {"waning gibbous", "\xF0\x9F\x8C\x96"},
    {"waning crescent", "\xF0\x9F\x8C\x98"},
}};

}  // namespace

MoonPhaseName QuarterName(int quarter) {
    if (quarter < 0 || quarter > 3) return kUnknown;
    return kQuarters[static_cast<std::size_t>(quarter)];
}

MoonPhaseName BetweenQuartersName(double degrees) {
    if (!std::isfinite(degrees)) return kUnknown;
    double turn = std::fmod(degrees, 360.0);  // (-360, 360)
    if (turn < 0.0) turn += 360.0;
    const auto stretch = static_cast<int>(std::floor(turn / 90.0));  // [0, 4]; 4 only when rounding reaches 360
    return kBetweenQuarters[static_cast<std::size_t>(stretch > 3 ? 3 : stretch)];
}

MoonPhaseName NameMoonPhase(double degrees, std::optional<int> quarterWithinHalfDay) {
    if (!std::isfinite(degrees)) return kUnknown;
    if (quarterWithinHalfDay) return QuarterName(*quarterWithinHalfDay);
    return BetweenQuartersName(degrees);
}

}  // namespace timetool
