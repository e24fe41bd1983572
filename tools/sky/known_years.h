// The years over which the sky is given in Universal Time. Clock times of
// sky events hang on Delta T, which is measured from eclipse records back to
// about -1000 and extrapolated beyond 3000; outside, an error of hours makes
// a clock time meaningless.
#pragma once

#include <cstdint>
#include <string_view>

#include "julian_date.h"

namespace timetool::sky {

inline constexpr std::int64_t kFirstKnownYear = -1000;  // astronomical numbering: 1001 BC
inline constexpr std::int64_t kLastKnownYear = 3000;

inline constexpr std::int64_t kFirstKnownDay = DaysFromCivil(kFirstKnownYear, 1, 1);   // days since 1970-01-01
inline constexpr std::int64_t kEndKnownDay = DaysFromCivil(kLastKnownYear + 1, 1, 1);  // the first day after

inline constexpr std::string_view kUnknownYearsReason =
    "Earth's rotation is not known well enough outside the years -1000 to 3000";

constexpr bool IsKnownDay(std::int64_t daysSince1970) noexcept {
    return daysSince1970 >= kFirstKnownDay && daysSince1970 < kEndKnownDay;
}

// False for NaN.
constexpr bool IsKnownInstant(double universalJulianDate) noexcept {
    return universalJulianDate >= JulianDateAtMidnight(kFirstKnownDay) &&
           universalJulianDate < JulianDateAtMidnight(kEndKnownDay);
}

}  // namespace timetool::sky
