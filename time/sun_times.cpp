#include "time/sun_times.h"

#include <cmath>
#include <cstdint>

#include "time/sun_anomaly_terms.h"
#include "time/sun_degrees.h"
#include "time/truncation.h"

namespace {

constexpr double kDegreesPerTurn = 360.0;
// The day count and the sunset sum use offsets that differ by a factor of
// ten; stored results depend on both.
constexpr double kTransitOffset = 0.0009;
constexpr double kSunsetOffset = 0.009;
constexpr double kAnomalyRate = 0.98560028;  // degrees per day
constexpr double kAnomalyAtEpoch = 357.5291;
constexpr double kSinRiseAltitude = -0.014485726138606464;  // sin -0.83 degrees

}  // namespace

SolarEvents ComputeSolarEvents(double starDate, double newYearNoon, double longitude, double latitude) noexcept {
    constexpr double r = kRadiansPerDegree;
    SolarEvents e{};
    const double longitudeTurns = longitude / kDegreesPerTurn;
    e.dayCount = static_cast<double>(TruncateToInt32(starDate)) - newYearNoon - kTransitOffset - longitudeTurns;
    // Truncated, not rounded: results depend on it.
    e.dayIndex = static_cast<double>(TruncateToInt32(e.dayCount));
    e.transit = (longitudeTurns + kTransitOffset) + e.dayIndex;
    // The anomaly counts from 1 January of the current year, not from a fixed epoch.
    const std::int32_t meanAnomaly = WholeDegrees(e.transit * kAnomalyRate + kAnomalyAtEpoch);
    // Everything from the equation of centre to the declination depends on the
    // whole-degree anomaly alone.
    const AnomalyTerms& terms = TabulatedAnomalyTerms(meanAnomaly);
    e.meanAnomaly = meanAnomaly;
    e.equationOfCentre = terms.equationOfCentre;
    e.eclipticLongitude = terms.eclipticLongitude;
    e.declination = terms.declination;
    const double a = terms.transitSinM;
    const double b = terms.transitSin2Lambda;
    const double sinLatitude = std::sin(r * latitude);
    const double cosLatitude = std::cos(r * latitude);
    // Outside [-1, 1] in polar day or night; the not-a-number is passed on.
    e.hourAngle =
        std::acos((kSinRiseAltitude - sinLatitude * terms.sinDeclination) / (cosLatitude * terms.cosDeclination));
    // n* (not n) enters the sunset; stored results depend on it.
    e.sunset = (e.hourAngle * kDegreesPerRadian + longitude) / kDegreesPerTurn + kSunsetOffset + e.dayCount + a - b;
    e.sunrise = e.sunset - (((a + e.transit) - b) - e.dayIndex);
    return e;
}
