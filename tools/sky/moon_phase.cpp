#include "moon_phase.h"

#include <cmath>
#include <limits>

#include "angles.h"
#include "delta_t.h"
#include "julian_date.h"
#include "known_years.h"
#include "lunar_position.h"
#include "solar_position.h"

namespace timetool::sky {
namespace {

constexpr double kKilometresPerAstronomicalUnit = 149597870.7;

// The Sun's apparent longitude without nutation: nutation moves both
// apparent longitudes alike and drops out of the phase angle.
double SunLongitudeWithoutNutation(const SolarOrbitPoint& sun) noexcept {
    return sun.trueLongitude + SolarAberration(sun.distance);
}

}  // namespace

double MoonPhaseAngleAtTerrestrial(double terrestrialCenturies) noexcept {
    return OneTurn(LunarLongitudeAt(terrestrialCenturies) -
                   SunLongitudeWithoutNutation(SolarOrbitPointAt(terrestrialCenturies)));
}

double MoonPhaseAngle(double universalJulianDate) noexcept {
    if (!IsKnownInstant(universalJulianDate)) return std::numeric_limits<double>::quiet_NaN();
    return MoonPhaseAngleAtTerrestrial(JulianCenturies(TerrestrialJulianDate(universalJulianDate)));
}

MoonPhase MoonPhaseAt(double universalJulianDate) noexcept {
    if (!IsKnownInstant(universalJulianDate)) {
        return {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
    }
    const double t = JulianCenturies(TerrestrialJulianDate(universalJulianDate));
    const SolarOrbitPoint sun = SolarOrbitPointAt(t);
    const LunarPosition moon = LunarPositionAt(t);
    const double longitudeApart = moon.longitude - SunLongitudeWithoutNutation(sun);
    const double elongation = std::acos(CosDegrees(moon.latitude) * CosDegrees(longitudeApart)) * kDegreesPerRadian;
    return {OneTurn(longitudeApart),
            IlluminatedFraction(elongation, sun.distance * kKilometresPerAstronomicalUnit, moon.distance)};
}

double IlluminatedFraction(double elongation, double sunDistance, double moonDistance) noexcept {
    // The angle Sun-Moon-Earth, from the triangle of the three bodies.
    const double psi = elongation * kRadiansPerDegree;
    const double phaseAngle = std::atan2(sunDistance * std::sin(psi), moonDistance - sunDistance * std::cos(psi));
    return (1.0 + std::cos(phaseAngle)) / 2.0;
}

}  // namespace timetool::sky
