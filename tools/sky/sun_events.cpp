#include "sun_events.h"

#include <algorithm>
#include <cmath>

#include "angles.h"
#include "delta_t.h"
#include "known_years.h"
#include "nutation.h"
#include "sidereal_time.h"
#include "solar_position.h"

namespace timetool::sky {
namespace {

constexpr double kConverged = 1e-7;  // days: under a hundredth of a second
constexpr int kMostSteps = 12;       // a grazing sun converges slowly; its time then is as good as it gets
// A cycle's event lies within half a solar day and this much of its transit.
constexpr double kCycleMargin = 0.01;  // days

SunEvent Absent(SunAbsence why) noexcept { return {std::numeric_limits<double>::quiet_NaN(), why}; }

}  // namespace

SunPath::SunPath(double windowStartJulianDate, Place place) noexcept
    : start_(windowStartJulianDate),
      middle_(windowStartJulianDate + 0.5),
      sinLatitude_(SinDegrees(place.latitude)),
      cosLatitude_(CosDegrees(place.latitude)),
      latitude_(place.latitude) {
    if (!IsValidPlace(place)) {
        invalid_ = SunAbsence::InvalidPlace;
        return;
    }
    // Both ends included: the solar day of the last known civil day at 180
    // degrees west has its middle at the instant the known years end.
    if (!(middle_ >= JulianDateAtMidnight(kFirstKnownDay) && middle_ <= JulianDateAtMidnight(kEndKnownDay))) {
        invalid_ = SunAbsence::UnknownYears;
        return;
    }
    // Samples a day apart around the middle: every candidate event of the
    // window lies between them, where a parabola follows the sun to well
    // under a second of arc.
    const double terrestrialOffset = TerrestrialJulianDate(middle_) - middle_;
    SolarPosition samples[3];
    for (int i = 0; i < 3; ++i) {
        samples[i] = SolarPositionAt(JulianCenturies(middle_ + (i - 1) + terrestrialOffset));
    }
    const double raBefore = samples[1].rightAscension + HalfTurn(samples[0].rightAscension - samples[1].rightAscension);
    const double raAfter = samples[1].rightAscension + HalfTurn(samples[2].rightAscension - samples[1].rightAscension);
    rightAscension_ = Quadratic::Through(raBefore, samples[1].rightAscension, raAfter);
    declination_ = Quadratic::Through(samples[0].declination, samples[1].declination, samples[2].declination);

    const double t = JulianCenturies(middle_ + terrestrialOffset);
    const double equinoxShift = NutationAt(t).longitude * CosDegrees(MeanObliquity(t));
    localSiderealAtMiddle_ = GreenwichMeanSiderealTime(middle_) + equinoxShift + place.longitude;
    hourAngleRate_ = kSiderealDegreesPerDay - rightAscension_.slope;

    transit_ = middle_ - HourAngle(middle_) / hourAngleRate_;
    transit_ -= HourAngle(transit_) / hourAngleRate_;
}

double SunPath::HourAngle(double julianDate) const noexcept {
    const double days = julianDate - middle_;
    return HalfTurn(localSiderealAtMiddle_ + kSiderealDegreesPerDay * days - rightAscension_.At(days));
}

double SunPath::CosReachingHourAngle(double declination, double sinAltitude) const noexcept {
    return (sinAltitude - sinLatitude_ * SinDegrees(declination)) / (cosLatitude_ * CosDegrees(declination));
}

double SunPath::ReachingHourAngle(double declination, double sinAltitude) const noexcept {
    return std::acos(std::clamp(CosReachingHourAngle(declination, sinAltitude), -1.0, 1.0)) * kDegreesPerRadian;
}

double SunPath::Solve(double guess, double sign, double sinAltitude) const noexcept {
    double when = guess;
    for (int step = 0; step < kMostSteps; ++step) {
        const double target = sign * ReachingHourAngle(declination_.At(when - middle_), sinAltitude);
        const double move = HalfTurn(target - HourAngle(when)) / hourAngleRate_;
        when += move;
        if (std::fabs(move) < kConverged) break;
    }
    // Where the sun does not reach the altitude the search settles on a
    // culmination; whether it reaches it there decides.
    const bool reaches = std::fabs(CosReachingHourAngle(declination_.At(when - middle_), sinAltitude)) <= 1.0;
    return reaches ? when : std::numeric_limits<double>::quiet_NaN();
}

SunCrossings SunPath::Crossings(double altitude) const noexcept {
    if (invalid_ != SunAbsence::None) return {Absent(invalid_), Absent(invalid_)};
    const double sinAltitude = SinDegrees(altitude);
    const double end = start_ + 1.0;
    const double culmination = 90.0 - std::fabs(latitude_ - declination_.At(transit_ - middle_));  // degrees
    const SunAbsence missing = culmination > altitude ? SunAbsence::PolarDay : SunAbsence::PolarNight;
    const double halfArc = ReachingHourAngle(declination_.At(transit_ - middle_), sinAltitude) / hourAngleRate_;
    const double solarDay = 360.0 / hourAngleRate_;
    const auto within = [&](double when) { return when >= start_ && when < end; };  // false for NaN

    // The rise of this transit's cycle, or failing that the next cycle's,
    // which lies half a day or more after the transit.
    SunCrossings result{Absent(missing), Absent(missing)};
    double rise = Solve(transit_ - halfArc, -1.0, sinAltitude);
    if (!within(rise) && transit_ + solarDay / 2.0 - kCycleMargin < end) {
        rise = Solve(transit_ + solarDay - halfArc, -1.0, sinAltitude);
    }
    if (within(rise)) result.rise = {rise, SunAbsence::None};

    // The set of the previous cycle, half a day or more before the transit,
    // comes first when it falls in the window; else this cycle's.
    double set = std::numeric_limits<double>::quiet_NaN();
    if (transit_ - solarDay / 2.0 + kCycleMargin >= start_)
        set = Solve(transit_ - solarDay + halfArc, 1.0, sinAltitude);
    if (!within(set)) set = Solve(transit_ + halfArc, 1.0, sinAltitude);
    if (within(set)) result.set = {set, SunAbsence::None};
    return result;
}

SunDay SunDayAt(std::int64_t daysSince1970, Place place) noexcept {
    if (IsValidPlace(place) && !IsKnownDay(daysSince1970)) {
        const SunEvent unknown = Absent(SunAbsence::UnknownYears);
        return {{unknown, unknown}, {unknown, unknown}};
    }
    const SunPath path(SolarDayStart(daysSince1970, place.longitude), place);
    return {path.Crossings(kSunriseAltitude), path.Crossings(kCivilTwilightAltitude)};
}

}  // namespace timetool::sky
