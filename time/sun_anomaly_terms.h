// Terms of the sun's position that depend on the mean anomaly alone.
#pragma once

#include <cstdint>

// The mean anomaly is a whole number of degrees in (-360, 360), so every term
// here takes one of 719 values.
struct AnomalyTerms {
    double equationOfCentre;   // C: degrees
    double eclipticLongitude;  // lambda: whole degrees, (-360, 360)
    double declination;        // delta: radians
    double sinDeclination;     // sine of delta after its round trip through degrees
    double cosDeclination;     // cosine of the same
    double transitSinM;        // the sin M term of the transit
    double transitSin2Lambda;  // the sin 2 lambda term of the transit
};

inline constexpr std::int32_t kMeanAnomalyLimit = 360;  // exclusive, either sign

// meanAnomaly in (-360, 360).
AnomalyTerms ComputeAnomalyTerms(std::int32_t meanAnomaly) noexcept;

// The same values, computed once per mean anomaly at first use (with the same
// library functions, so every bit matches ComputeAnomalyTerms).
// meanAnomaly in (-360, 360).
const AnomalyTerms& TabulatedAnomalyTerms(std::int32_t meanAnomaly) noexcept;
