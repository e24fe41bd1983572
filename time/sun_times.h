// Sunrise and sunset as a closed-form approximation from a star date.
#pragma once

// Every step of one evaluation, kept so that each can be checked on its own.
// Day counts are relative to noon of 1 January of the current year.
struct SolarEvents {
    double dayCount;           // n*: whole star date less the noon of 1 January
    double dayIndex;           // n: n* truncated toward zero
    double transit;            // J*: mean solar transit of day n
    double meanAnomaly;        // M: whole degrees, (-360, 360)
    double equationOfCentre;   // C: degrees
    double eclipticLongitude;  // lambda: whole degrees, (-360, 360)
    double declination;        // delta: radians
    double hourAngle;          // H: radians; not-a-number in polar day or night
    double sunrise;            // days
    double sunset;             // days
};

// starDate: the instant; newYearNoon: star date of noon on 1 January of the
// current year (Gregorian rules); longitude positive towards the west,
// latitude positive towards the north, both in degrees.
SolarEvents ComputeSolarEvents(double starDate, double newYearNoon, double longitude, double latitude) noexcept;
