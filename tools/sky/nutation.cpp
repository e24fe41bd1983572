#include "nutation.h"

#include <array>

#include "angles.h"
#include "polynomial.h"

namespace timetool::sky {
namespace {

constexpr double kArcsecond = 1.0 / 3600.0;  // degrees

// Mean arguments, degrees against centuries: the longitude of the Moon's
// ascending node, the mean longitudes of the Sun and the Moon.
constexpr std::array<double, 4> kMoonNode{125.04452, -1934.136261, 0.0020708, 1.0 / 450000.0};
constexpr std::array<double, 2> kSunMeanLongitude{280.4665, 36000.7698};
constexpr std::array<double, 2> kMoonMeanLongitude{218.3165, 481267.8813};

// Arcseconds against units of 10000 Julian years: the long-span series,
// whose first two terms are the familiar 23 26' 21.448" and -46.815" per century.
constexpr std::array<double, 11> kObliquity{
    23.0 * 3600.0 + 26.0 * 60.0 + 21.448, -4680.93, -1.55, 1999.25, -51.38, -249.67, -39.05, 7.12, 27.87, 5.79, 2.45};

}  // namespace

Nutation NutationAt(double terrestrialCenturies) noexcept {
    const double node = Polynomial(kMoonNode, terrestrialCenturies);
    const double sun = 2.0 * Polynomial(kSunMeanLongitude, terrestrialCenturies);
    const double moon = 2.0 * Polynomial(kMoonMeanLongitude, terrestrialCenturies);
    return {
        (-17.20 * SinDegrees(node) - 1.32 * SinDegrees(sun) - 0.23 * SinDegrees(moon) + 0.21 * SinDegrees(2.0 * node)) *
            kArcsecond,
        (9.20 * CosDegrees(node) + 0.57 * CosDegrees(sun) + 0.10 * CosDegrees(moon) - 0.09 * CosDegrees(2.0 * node)) *
            kArcsecond,
    };
}

double MeanObliquity(double terrestrialCenturies) noexcept {
    return Polynomial(kObliquity, terrestrialCenturies / 100.0) * kArcsecond;
}

}  // namespace timetool::sky
