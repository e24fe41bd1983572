// The tilt of Earth's axis: the mean obliquity of the ecliptic and the
// nutation that wobbles the true equator and equinox around the mean ones.
#pragma once

namespace timetool::sky {

struct Nutation {
    double longitude;  // degrees, within 0.0053 either way: shift of the equinox along the ecliptic
    double obliquity;  // degrees, within 0.0028 either way: change of the tilt
};

// The four largest terms of the nutation series, good to 0.5" in longitude
// and 0.1" in obliquity. The argument is Julian centuries of TT from J2000.
Nutation NutationAt(double terrestrialCenturies) noexcept;

// Mean obliquity in degrees (about 23.44 today), good to 0.01" over 1000
// years from 2000 and to a few seconds of arc over 10000.
double MeanObliquity(double terrestrialCenturies) noexcept;

}  // namespace timetool::sky
