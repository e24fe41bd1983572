// The year-start rule of the Hebrew calendar written out independently of
// the module, for building day counts from Hebrew dates in tests.
#pragma once

#include <cstdint>

namespace test_hebrew {

inline std::int64_t TruncDiv(std::int64_t a, std::int64_t b) { return a / b; }
inline std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
    return a / b - ((a % b != 0 && (a < 0) != (b < 0)) ? 1 : 0);
}

inline bool Leap(std::int64_t testYear) {
    const int r = static_cast<int>(static_cast<std::int16_t>(testYear) % 19);
    return r == 0 || r == 3 || r == 6 || r == 8 || r == 11 || r == 14 || r == 17;
}

// Day count (day 1 = the epoch day) of 1 Tishri of `year`.
inline std::int64_t YearStart(std::int64_t year, int flag) {
    const std::int64_t m = TruncDiv((year - 1) * 235 + 1, 19);
    const std::int64_t parts = m * 793 + 204;
    const std::int64_t hours = FloorDiv(parts, 1080) + m * 12 + 5;
    const std::int64_t d = m * 29 + FloorDiv(hours, 24) + 2;
    const std::int64_t h = hours - 24 * FloorDiv(hours, 24);
    const std::int64_t p = parts - 1080 * FloorDiv(parts, 1080);
    const int a = h >= 18 ? 1 : 0;
    const std::int64_t w = (d + a) % 7;
    const int b = (w == 1 || w == 4 || w == 6) ? 1 : 0;
    const bool leap = Leap(flag == 0 ? year : year - 1);
    const bool previousLeap = Leap(flag == 0 ? year - 1 : year - 2);
    const int c = (!leap && d % 7 == 3 && ((h == 9 && p > 203) || (h >= 10 && h < 18))) ? 2 : 0;
    const int e = (previousLeap && d % 7 == 2 && ((h == 15 && p > 588) || (h >= 16 && h < 18))) ? 1 : 0;
    return d + a + b + c + e;
}

// Months of a year from Tishri.
inline constexpr std::int16_t kMonthOrder[13] = {7, 8, 9, 10, 11, 12, 13, 1, 2, 3, 4, 5, 6};

}  // namespace test_hebrew
