// Where the Moon is seen from the centre of the Earth: about 10" in
// longitude, 4" in latitude and 1 km in distance near the present, from the
// truncated ELP-2000/82 series.
#pragma once

namespace timetool::sky {

struct LunarPosition {
    double longitude;  // degrees, [0, 360): geometric, on the mean ecliptic and equinox of date
    double latitude;   // degrees, [-5.3, 5.3]
    double distance;   // kilometres between the centres, [356000, 407000]
};

// The arguments are Julian centuries of TT from J2000.
LunarPosition LunarPositionAt(double terrestrialCenturies) noexcept;
// The longitude alone, for searches that need nothing else.
double LunarLongitudeAt(double terrestrialCenturies) noexcept;

}  // namespace timetool::sky
