// Sunrise, sunset and civil twilight at a place, in Universal Time.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "julian_date.h"
#include "known_years.h"

namespace timetool::sky {

struct Place {
    double latitude;   // degrees north, [-90, 90]
    double longitude;  // degrees east, [-180, 180]
};

// Latitude within [-90, 90] and longitude within [-180, 180]; false for NaN.
constexpr bool IsValidPlace(Place place) noexcept {
    return place.latitude >= -90.0 && place.latitude <= 90.0 && place.longitude >= -180.0 && place.longitude <= 180.0;
}

// Why an event has no time.
enum class SunAbsence : std::uint8_t {
    None,          // the event happens
    PolarDay,      // the sun is above the altitude at its culmination and does not cross it going this way
    PolarNight,    // the sun stays below the altitude
    UnknownYears,  // outside the years Earth's rotation is known for (known_years.h)
    InvalidPlace,  // latitude or longitude out of range, or not a number
};

// What a person reads where the time would be.
constexpr std::string_view DescribeAbsence(SunAbsence absence) noexcept {
    switch (absence) {
        case SunAbsence::None:
            return "";
        case SunAbsence::PolarDay:
            return "polar day";
        case SunAbsence::PolarNight:
            return "polar night";
        case SunAbsence::UnknownYears:
            return kUnknownYearsReason;
        case SunAbsence::InvalidPlace:
            return "no such place";
    }
    return "";
}

struct SunEvent {
    double julianDate = std::numeric_limits<double>::quiet_NaN();  // UT; NaN when absent
    SunAbsence absence = SunAbsence::None;

    constexpr bool Happens() const noexcept { return absence == SunAbsence::None; }
};

// The sun crossing one altitude: the first time it goes up through it and
// the first time it goes down through it within a window. Near the polar
// circles the set can come before the rise.
struct SunCrossings {
    SunEvent rise;
    SunEvent set;
};

struct SunDay {
    SunCrossings horizon;  // sunrise and sunset
    SunCrossings civil;    // civil dawn and dusk
};

// The upper limb on the horizon seen through standard refraction: 34' of
// refraction and 16' of semidiameter below the true horizon, for the centre.
inline constexpr double kSunriseAltitude = -0.833;  // degrees
// The centre 6 degrees below the horizon: the limit of civil twilight.
inline constexpr double kCivilTwilightAltitude = -6.0;  // degrees

// The sun at one place during one window of one day, sampled once; the
// crossings of any altitude come from the samples.
class SunPath {
public:
    SunPath(double windowStartJulianDate, Place place) noexcept;

    // The first rise and the first set through the altitude (degrees,
    // [-90, 90]) in [start, start + 1 day). A window whose middle lies
    // outside the known years (known_years.h, both ends included) has none.
    SunCrossings Crossings(double altitude) const noexcept;

private:
    // A quantity through three samples a day apart, as a function of days
    // from the middle one.
    struct Quadratic {
        double middle = 0.0;
        double slope = 0.0;  // per day
        double curve = 0.0;  // per day squared, halved

        static constexpr Quadratic Through(double before, double middle, double after) noexcept {
            return {middle, (after - before) / 2.0, (after + before) / 2.0 - middle};
        }
        constexpr double At(double days) const noexcept { return middle + days * (slope + days * curve); }
    };

    double HourAngle(double julianDate) const noexcept;  // degrees, [-180, 180)
    // The time near the guess when the hour angle is sign * the one where
    // the sun stands at the altitude; NaN when the sun does not reach it then.
    double Solve(double guess, double sign, double sinAltitude) const noexcept;
    // The hour angle (degrees, [0, 180]) where the sun at a declination
    // stands at the altitude; its cosine leaves [-1, 1] where it never does.
    double CosReachingHourAngle(double declination, double sinAltitude) const noexcept;
    double ReachingHourAngle(double declination, double sinAltitude) const noexcept;

    double start_;
    double middle_;
    double sinLatitude_;
    double cosLatitude_;
    double latitude_;
    Quadratic rightAscension_;            // degrees, unwrapped across the window
    Quadratic declination_;               // degrees
    double localSiderealAtMiddle_ = 0.0;  // degrees: apparent sidereal time plus longitude
    double hourAngleRate_ = 0.0;          // degrees per day
    double transit_ = 0.0;                // upper culmination nearest the middle
    SunAbsence invalid_ = SunAbsence::None;
};

// Local mean midnight at the start of the solar day whose local mean noon
// (12:00 UT less longitude / 15 hours) falls on the civil day.
constexpr double SolarDayStart(std::int64_t daysSince1970, double longitude) noexcept {
    return JulianDateAtMidnight(daysSince1970) - longitude / 360.0;
}

// Sunrise, sunset, civil dawn and dusk of the solar day of a civil day.
SunDay SunDayAt(std::int64_t daysSince1970, Place place) noexcept;

}  // namespace timetool::sky
