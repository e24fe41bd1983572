// The instants of new moon, first quarter, full moon and last quarter,
// found on the true phase angle.
#pragma once

#include <cstdint>
#include <vector>

namespace timetool::sky {

enum class MoonQuarter : std::uint8_t { New, FirstQuarter, Full, LastQuarter };

// 0, 90, 180 or 270 degrees.
constexpr double PhaseAngleOf(MoonQuarter quarter) noexcept { return 90.0 * static_cast<double>(quarter); }
constexpr MoonQuarter QuarterAfter(MoonQuarter quarter) noexcept {
    return static_cast<MoonQuarter>((static_cast<int>(quarter) + 1) % 4);
}

struct MoonQuarterEvent {
    double julianDate;  // UT
    MoonQuarter quarter;
};

// The first instant at or after a UT Julian Date when the phase angle
// reaches the quarter's, within a hundredth of a second of the angle's own
// root; NaN when either instant is outside the known years (known_years.h).
double NextMoonQuarter(MoonQuarter quarter, double universalJulianDate) noexcept;
// The first of the four quarters at or after a UT Julian Date.
MoonQuarterEvent NextMoonQuarter(double universalJulianDate) noexcept;
// Every quarter in [from, to), in order, as far as the known years reach.
std::vector<MoonQuarterEvent> MoonQuartersBetween(double fromJulianDate, double toJulianDate);

}  // namespace timetool::sky
