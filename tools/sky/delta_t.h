// Delta T: Terrestrial Time minus Universal Time, the drift of Earth's
// rotation against a uniform clock.
#pragma once

namespace timetool::sky {

// Seconds, from the Espenak-Meeus polynomials published with the NASA
// eclipse canon, fitted to the years -1999 to 3000; outside them the long-term
// parabola of the end pieces goes on, growing uncertain by hours.
double DeltaTSeconds(double decimalYear) noexcept;

// The Terrestrial Time Julian Date of a Universal Time one.
double TerrestrialJulianDate(double universalJulianDate) noexcept;

}  // namespace timetool::sky
