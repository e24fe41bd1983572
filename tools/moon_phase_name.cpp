#include "moon_phase_name.h"

#include <array>
#include <cmath>

namespace timetool {

namespace {

constexpr std::array<MoonPhaseName, 8> kSectors{{
    {"new", "\xF0\x9F\x8C\x91"},
    {"waxing crescent", "\xF0\x9F\x8C\x92"},
    {"first quarter", "\xF0\x9F\x8C\x93"},
    {"waxing gibbous", "\xF0\x9F\x8C\x94"},
    {"full", "\xF0\x9F\x8C\x95"},
    {"waning gibbous", "\xF0\x9F\x8C\x96"},
    {"last quarter", "\xF0\x9F\x8C\x97"},
    {"waning crescent", "\xF0\x9F\x8C\x98"},
}};

}  // namespace

MoonPhaseName NameMoonPhase(double degrees) {
    if (!std::isfinite(degrees)) return {"unknown", "?"};
    double turn = std::fmod(degrees, 360.0);  // (-360, 360)
    if (turn < 0.0) turn += 360.0;
    const auto sector = static_cast<int>(std::floor((turn + 22.5) / 45.0));  // [0, 8]
    return kSectors[static_cast<std::size_t>(sector == 8 ? 0 : sector)];
}

}  // namespace timetool
