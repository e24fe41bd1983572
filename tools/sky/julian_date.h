// The time base of the sky computations. Instants are Julian Dates in
// Universal Time (UT) unless a name says Terrestrial Time (TT); civil days are
// counted from 1970-01-01 in the proleptic Gregorian calendar with
// astronomical year numbering (year 0 is 1 BC, year -1 is 2 BC).
#pragma once

#include <cstdint>

namespace timetool::sky {

// The module's star date is the Julian Date less this: star date 1.0 is
// 00:00 of 1 January AD 1 of the Julian calendar, 730122.0 is 2000-01-01 00:00.
inline constexpr double kJulianDateAtStarDateZero = 1721422.5;
inline constexpr double kJulianDate1970 = 2440587.5;   // 1970-01-01 00:00 UT
inline constexpr double kJulianDateJ2000 = 2451545.0;  // 2000-01-01 12:00 TT, the epoch of the series
inline constexpr double kDaysPerJulianCentury = 36525.0;
inline constexpr double kSecondsPerDay = 86400.0;

constexpr double StarDateFromJulianDate(double julianDate) noexcept { return julianDate - kJulianDateAtStarDateZero; }
constexpr double JulianDateFromStarDate(double starDate) noexcept { return starDate + kJulianDateAtStarDateZero; }

// Days from 1970-01-01 to a proleptic Gregorian date (month 1 to 12, day 1
// to 31; the day is not checked against the month).
constexpr std::int64_t DaysFromCivil(std::int64_t year, unsigned month, unsigned day) noexcept {
    const std::int64_t shifted = month <= 2 ? year - 1 : year;                                 // years start on 1 March
    const std::int64_t era = (shifted >= 0 ? shifted : shifted - 399) / 400;                   // 400-year cycles
    const auto yearOfEra = static_cast<unsigned>(shifted - era * 400);                         // [0, 399]
    const unsigned dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;  // [0, 365]
    const unsigned dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;   // [0, 146096]
    return era * 146097 + static_cast<std::int64_t>(dayOfEra) - 719468;
}

constexpr double JulianDateAtMidnight(std::int64_t daysSince1970) noexcept {
    return kJulianDate1970 + static_cast<double>(daysSince1970);
}

// Julian centuries from J2000.0, the time argument of every series.
constexpr double JulianCenturies(double julianDate) noexcept {
    return (julianDate - kJulianDateJ2000) / kDaysPerJulianCentury;
}

// Gregorian year with its fraction, within a day of the calendar over the
// years the sky computations cover; for quantities that change slowly.
constexpr double DecimalYear(double julianDate) noexcept {
    constexpr double kJulianDate2000Start = 2451544.5;  // 2000-01-01 00:00
    constexpr double kGregorianYear = 365.2425;
    return 2000.0 + (julianDate - kJulianDate2000Start) / kGregorianYear;
}

}  // namespace timetool::sky
