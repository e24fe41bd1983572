#include "solar_position.h"

#include <array>
#include <cmath>

#include "angles.h"
#include "nutation.h"
#include "polynomial.h"

namespace timetool::sky {
namespace {

// Degrees (and eccentricity) against centuries: the Sun's geometric mean
// longitude, its mean anomaly, the eccentricity of the Earth's orbit.
constexpr std::array<double, 3> kMeanLongitude{280.46646, 36000.76983, 0.0003032};
constexpr std::array<double, 3> kMeanAnomaly{357.52911, 35999.05029, -0.0001537};
constexpr std::array<double, 3> kEccentricity{0.016708634, -0.000042037, -0.0000001267};
// The equation of centre: the coefficients of sin M, sin 2M and sin 3M.
constexpr std::array<double, 3> kCentreFirst{1.914602, -0.004817, -0.000014};
constexpr std::array<double, 2> kCentreSecond{0.019993, -0.000101};
constexpr double kCentreThird = 0.000289;
// Ascending node of the Moon's orbit, the argument of the main nutation term.
constexpr std::array<double, 2> kMoonNode{125.04, -1934.136};

}  // namespace

SolarOrbitPoint SolarOrbitPointAt(double terrestrialCenturies) noexcept {
    const double t = terrestrialCenturies;
    const double anomaly = Polynomial(kMeanAnomaly, t) * kRadiansPerDegree;
    const double centre = Polynomial(kCentreFirst, t) * std::sin(anomaly) +
                          Polynomial(kCentreSecond, t) * std::sin(2.0 * anomaly) +
                          kCentreThird * std::sin(3.0 * anomaly);
    const double e = Polynomial(kEccentricity, t);
    return {Polynomial(kMeanLongitude, t) + centre,
            1.000001018 * (1.0 - e * e) / (1.0 + e * std::cos(anomaly + centre * kRadiansPerDegree))};
}

SolarPosition SolarPositionAt(double terrestrialCenturies) noexcept {
    const double t = terrestrialCenturies;
    const auto [trueLongitude, distance] = SolarOrbitPointAt(t);
    const double node = Polynomial(kMoonNode, t) * kRadiansPerDegree;
    const double apparentLongitude = trueLongitude - 0.00569 - 0.00478 * std::sin(node);
    const double obliquity = (MeanObliquity(t) + 0.00256 * std::cos(node)) * kRadiansPerDegree;
    const double lambda = apparentLongitude * kRadiansPerDegree;
    const double sinLambda = std::sin(lambda);
    return {
        OneTurn(trueLongitude),
        OneTurn(apparentLongitude),
        OneTurn(std::atan2(std::cos(obliquity) * sinLambda, std::cos(lambda)) * kDegreesPerRadian),
        std::asin(std::sin(obliquity) * sinLambda) * kDegreesPerRadian,
        distance,
    };
}

}  // namespace timetool::sky
