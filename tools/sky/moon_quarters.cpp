#include "moon_quarters.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "angles.h"
#include "delta_t.h"
#include "julian_date.h"
#include "known_years.h"
#include "moon_phase.h"

namespace timetool::sky {
namespace {

constexpr double kMeanPhaseRate = 360.0 / 29.530588853;  // degrees per day: one mean synodic month per turn
constexpr double kConverged = 1e-7;                      // days: under a hundredth of a second
constexpr int kMostSteps = 20;

// The phase angle less the target, the shorter way round, at a UT instant.
struct PhaseOffset {
    double target;  // degrees

    double operator()(double universalJulianDate) const noexcept {
        const double t = JulianCenturies(TerrestrialJulianDate(universalJulianDate));
        return HalfTurn(MoonPhaseAngleAtTerrestrial(t) - target);
    }
};

// The root nearest the guess, by secant steps. The phase angle grows by 10
// to 15 degrees a day, so a guess within a few days is always on its root's
// side of the opposite angle.
double RootNear(const PhaseOffset& offset, double guess) noexcept {
    double before = guess;
    double offsetBefore = offset(before);
    double when = before - offsetBefore / kMeanPhaseRate;
    for (int step = 0; step < kMostSteps; ++step) {
        const double offsetNow = offset(when);
        const double rate = (offsetNow - offsetBefore) / (when - before);
        const double move = -offsetNow / (rate > 1.0 ? rate : kMeanPhaseRate);
        before = when;
        offsetBefore = offsetNow;
        when += move;
        if (std::fabs(move) < kConverged) break;
    }
    return when;
}

}  // namespace

double NextMoonQuarter(MoonQuarter quarter, double universalJulianDate) noexcept {
    if (!IsKnownInstant(universalJulianDate)) return std::numeric_limits<double>::quiet_NaN();
    const PhaseOffset offset{PhaseAngleOf(quarter)};
    const double ahead = OneTurn(-offset(universalJulianDate));  // degrees still to go, [0, 360)
    if (ahead == 0.0) return universalJulianDate;
    // The root lies ahead; one found a rounding error before the start is the start.
    const double root = std::max(RootNear(offset, universalJulianDate + ahead / kMeanPhaseRate), universalJulianDate);
    return IsKnownInstant(root) ? root : std::numeric_limits<double>::quiet_NaN();
}

MoonQuarterEvent NextMoonQuarter(double universalJulianDate) noexcept {
    const double angle = MoonPhaseAngle(universalJulianDate);
    if (std::isnan(angle)) return {std::numeric_limits<double>::quiet_NaN(), MoonQuarter::New};
    const auto passed = static_cast<MoonQuarter>(static_cast<int>(angle / 90.0));  // [0, 3]
    const MoonQuarter next = angle == PhaseAngleOf(passed) ? passed : QuarterAfter(passed);
    return {NextMoonQuarter(next, universalJulianDate), next};
}

std::vector<MoonQuarterEvent> MoonQuartersBetween(double fromJulianDate, double toJulianDate) {
    std::vector<MoonQuarterEvent> events;
    // The phase angle only grows, so after one quarter the next comes next.
    for (MoonQuarterEvent event = NextMoonQuarter(fromJulianDate); event.julianDate < toJulianDate;
         event = {NextMoonQuarter(QuarterAfter(event.quarter), event.julianDate), QuarterAfter(event.quarter)}) {
        events.push_back(event);
    }
    return events;
}

}  // namespace timetool::sky
