#include "time/sun_anomaly_terms.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "time/sun_degrees.h"

namespace {

constexpr double kCentreSin1 = 1.9148;
constexpr double kCentreSin2 = 0.02;
constexpr double kCentreSin3 = 0.0003;
constexpr double kPerihelion = 102.9372;
constexpr double kHalfTurn = 180.0;
constexpr double kTransitSinM = 0.0053;
constexpr double kTransitSin2Lambda = 0.0069;
constexpr double kSinObliquity = 0.3979486313076104;  // sin 23.45 degrees

constexpr std::size_t kTableSize = 2 * kMeanAnomalyLimit - 1;  // 719

using AnomalyTable = std::array<AnomalyTerms, kTableSize>;

// Filled at run time, never folded at compile time: the values must be the
// library's own, bit for bit.
AnomalyTable FillAnomalyTable() noexcept {
    AnomalyTable table{};
    for (std::size_t i = 0; i < kTableSize; ++i) {
        table[i] = ComputeAnomalyTerms(static_cast<std::int32_t>(i) - (kMeanAnomalyLimit - 1));
    }
    return table;
}

}  // namespace

AnomalyTerms ComputeAnomalyTerms(std::int32_t meanAnomaly) noexcept {
    constexpr double r = kRadiansPerDegree;
    const double M = meanAnomaly;
    AnomalyTerms t{};
    const double sinM = std::sin(M * r);
    t.equationOfCentre =
        sinM * kCentreSin1 + std::sin(M * r + M * r) * kCentreSin2 + std::sin(M * 3.0 * r) * kCentreSin3;
    t.eclipticLongitude = WholeDegrees((t.equationOfCentre + (M + kPerihelion)) + kHalfTurn);
    const double lambda = t.eclipticLongitude;
    t.transitSinM = sinM * kTransitSinM;
    t.transitSin2Lambda = std::sin((lambda + lambda) * r) * kTransitSin2Lambda;
    t.declination = std::asin(std::sin(r * lambda) * kSinObliquity);
    const double declinationRadians = (kDegreesPerRadian * t.declination) * r;
    t.sinDeclination = std::sin(declinationRadians);
    t.cosDeclination = std::cos(declinationRadians);
    return t;
}

const AnomalyTerms& TabulatedAnomalyTerms(std::int32_t meanAnomaly) noexcept {
    static const AnomalyTable table = FillAnomalyTable();
    const std::int32_t index = meanAnomaly + (kMeanAnomalyLimit - 1);  // [0, 718]
    return table[static_cast<std::size_t>(index)];
}
