// Sunrise and sunset evaluated step by step with a library call for every
// sine, the reference the tabulated evaluation must match bit for bit.
#pragma once

#include <cmath>

#include "time/sun_anomaly_terms.h"
#include "time/sun_times.h"
#include "time/truncation.h"

namespace direct {

inline constexpr double kRadiansPerDegree = 0.017453292519943295;
inline constexpr double kDegreesPerRadian = 57.29577951308232;
inline constexpr double kDegreesPerTurn = 360.0;
inline constexpr double kTransitOffset = 0.0009;
inline constexpr double kSunsetOffset = 0.009;
inline constexpr double kAnomalyRate = 0.98560028;
inline constexpr double kAnomalyAtEpoch = 357.5291;
inline constexpr double kCentreSin1 = 1.9148;
inline constexpr double kCentreSin2 = 0.02;
inline constexpr double kCentreSin3 = 0.0003;
inline constexpr double kPerihelion = 102.9372;
inline constexpr double kHalfTurn = 180.0;
inline constexpr double kTransitSinM = 0.0053;
inline constexpr double kTransitSin2Lambda = 0.0069;
inline constexpr double kSinObliquity = 0.3979486313076104;
inline constexpr double kSinRiseAltitude = -0.014485726138606464;

inline double whole_degrees(double degrees) noexcept { return static_cast<double>(truncate_to_int32(degrees) % 360); }

inline SolarEvents ComputeSolarEvents(double starDate, double newYearNoon, double longitude, double latitude) noexcept {
    constexpr double r = kRadiansPerDegree;
    SolarEvents e{};
    const double longitudeTurns = longitude / kDegreesPerTurn;
    e.dayCount = static_cast<double>(truncate_to_int32(starDate)) - newYearNoon - kTransitOffset - longitudeTurns;
    e.dayIndex = static_cast<double>(truncate_to_int32(e.dayCount));
    e.transit = (longitudeTurns + kTransitOffset) + e.dayIndex;
    e.meanAnomaly = whole_degrees(e.transit * kAnomalyRate + kAnomalyAtEpoch);
    const double M = e.meanAnomaly;
    const double sinM = std::sin(M * r);
    e.equationOfCentre =
        sinM * kCentreSin1 + std::sin(M * r + M * r) * kCentreSin2 + std::sin(M * 3.0 * r) * kCentreSin3;
    e.eclipticLongitude = whole_degrees((e.equationOfCentre + (M + kPerihelion)) + kHalfTurn);
    const double lambda = e.eclipticLongitude;
    const double a = sinM * kTransitSinM;
    const double b = std::sin((lambda + lambda) * r) * kTransitSin2Lambda;
    e.declination = std::asin(std::sin(r * lambda) * kSinObliquity);
    const double sinLatitude = std::sin(r * latitude);
    const double cosLatitude = std::cos(r * latitude);
    const double declinationRadians = (kDegreesPerRadian * e.declination) * r;
    const double sinDeclination = std::sin(declinationRadians);
    const double cosDeclination = std::cos(declinationRadians);
    e.hourAngle = std::acos((kSinRiseAltitude - sinLatitude * sinDeclination) / (cosLatitude * cosDeclination));
    e.sunset = (e.hourAngle * kDegreesPerRadian + longitude) / kDegreesPerTurn + kSunsetOffset + e.dayCount + a - b;
    e.sunrise = e.sunset - (((a + e.transit) - b) - e.dayIndex);
    return e;
}

// The anomaly-only terms, written with the same expressions as above.
inline AnomalyTerms ComputeAnomalyTerms(double M) noexcept {
    constexpr double r = kRadiansPerDegree;
    AnomalyTerms t{};
    const double sinM = std::sin(M * r);
    t.equationOfCentre =
        sinM * kCentreSin1 + std::sin(M * r + M * r) * kCentreSin2 + std::sin(M * 3.0 * r) * kCentreSin3;
    t.eclipticLongitude = whole_degrees((t.equationOfCentre + (M + kPerihelion)) + kHalfTurn);
    const double lambda = t.eclipticLongitude;
    t.transitSinM = sinM * kTransitSinM;
    t.transitSin2Lambda = std::sin((lambda + lambda) * r) * kTransitSin2Lambda;
    t.declination = std::asin(std::sin(r * lambda) * kSinObliquity);
    const double declinationRadians = (kDegreesPerRadian * t.declination) * r;
    t.sinDeclination = std::sin(declinationRadians);
    t.cosDeclination = std::cos(declinationRadians);
    return t;
}

}  // namespace direct
