#include "sidereal_time.h"

#include <cmath>

#include "angles.h"
#include "julian_date.h"

namespace timetool::sky {

double GreenwichMeanSiderealTime(double universalJulianDate) noexcept {
    const double days = universalJulianDate - kJulianDateJ2000;
    const double t = days / kDaysPerJulianCentury;
    // Whole turns of the whole days drop out before they can cost precision.
    const double rotation = (kSiderealDegreesPerDay - 360.0) * days + 360.0 * (days - std::floor(days));
    return OneTurn(280.46061837 + rotation + t * t * (0.000387933 - t / 38710000.0));
}

}  // namespace timetool::sky
