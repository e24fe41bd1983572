// The reference tables in data/, read once per test binary.
#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>

#include "sky/julian_date.h"

namespace timetool::sky::testing {

// The rows of data/<name>; fails the calling test when the file cannot be read.
const nlohmann::json& ReferenceRows(const std::string& name);

inline constexpr double kSecondsPerDay = 86400.0;

// A UT instant of a proleptic Gregorian date, to the minute.
constexpr double JulianDateAt(std::int64_t year, unsigned month, unsigned day, int hour, int minute) {
    return JulianDateAtMidnight(DaysFromCivil(year, month, day)) + (hour * 60 + minute) / 1440.0;
}

// The series of the Sun and the Moon are fitted near the present, and two
// models of them drift apart away from it: the tests hold them closer in
// these centuries.
constexpr bool NearThePresent(double julianDate) {
    return julianDate >= JulianDateAt(1500, 1, 1, 0, 0) && julianDate < JulianDateAt(2500, 1, 1, 0, 0);
}

}  // namespace timetool::sky::testing
