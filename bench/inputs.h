// Precomputed inputs shared by every benchmark: 4096 instants spread over
// years 1 to 3000 (dates) and 1900 to 2100 (sun and moon), each in the form
// every library takes, so module and peers convert the same instants.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace bench {

inline constexpr std::size_t kInputCount = 4096;  // power of two: index & kInputMask cycles
inline constexpr std::size_t kInputMask = kInputCount - 1;

struct CivilDate {
    std::int16_t day;
    std::int16_t month;
    std::int16_t year;
};

struct DateInputs {
    std::array<double, kInputCount> starDate;               // whole days; 0001-01-01 Julian is 1.0
    std::array<std::int32_t, kInputCount> daysSince1970;    // the same day for date.h
    std::array<std::int32_t, kInputCount> julianDayNumber;  // the same day for libhdate
    std::array<CivilDate, kInputCount> gregorian;
    std::array<CivilDate, kInputCount> julian;
    std::array<CivilDate, kInputCount> hebrewModule;  // the module's own Hebrew expression (kind 4)
    std::array<CivilDate, kInputCount> hebrewHdate;   // libhdate's Hebrew expression
};

// Dates over years 1 to 3000.
const DateInputs& Dates();
// Dates over years 1900 to 2100, for the sun and moon rows.
const DateInputs& SkyDates();

// Star date of 1970-01-01 (Gregorian).
inline constexpr double kStarDate1970 = 719165.0;
// Julian Day Number minus star date at 00:00 of the same civil day.
inline constexpr std::int32_t kJdnMinusStarDate = 1721423;

}  // namespace bench
