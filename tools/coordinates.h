// Geographic coordinates as typed on the command line, and how to read a
// sunrise the module cannot give.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace timetool {

struct CoordinateParse {
    std::optional<double> degrees;  // north- or east-positive
    std::string error;              // empty on success
};

// Decimal degrees, north-positive, optionally with a trailing N or S:
// "43.3", "-33.9", "43.3N", "33.9S". Range -90 to 90.
CoordinateParse ParseLatitude(std::string_view text);
// Decimal degrees, east-positive, optionally with a trailing E or W:
// "-83.045", "83.045W", "2.35E". Range -180 to 180.
CoordinateParse ParseLongitude(std::string_view text);

enum class SunAbsence { PolarDay, PolarNight };

// When the module reports no sunrise (not-a-number), the sun either stays up
// or stays down all day: up when the sun's declination at the star date lies
// on the same side of the equator as the place.
SunAbsence ClassifySunAbsence(double latitudeNorth, double starDate);

}  // namespace timetool
