// Geographic coordinates as typed on the command line.
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

}  // namespace timetool
