// The tabulated evaluation of sunrise and sunset against the step-by-step one:
// every field must match bit for bit, not-a-number payloads included.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <set>
#include <string>

#include "tests/time/sun_times_direct.h"
#include "time/sun_anomaly_terms.h"
#include "time/sun_times.h"

namespace {

constexpr double kNewYear2024 = 738888.0;  // star date of 1 January 2024 00:00

// Days from 1 January 1970 in the Gregorian calendar; builds sweep inputs only.
std::int64_t days_from_civil(std::int64_t y, unsigned m, unsigned d) {
    y -= m <= 2 ? 1 : 0;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const auto yoe = static_cast<unsigned>(y - era * 400);                 // [0, 399]
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;  // [0, 365]
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;            // [0, 146096]
    return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

double new_year_star_date(std::int64_t year) {
    return kNewYear2024 + static_cast<double>(days_from_civil(year, 1, 1) - days_from_civil(2024, 1, 1));
}

// Every field is a double, so the bits of the whole struct are the bits of its fields.
template <typename Fields>
bool same_bits(const Fields& a, const Fields& b) {
    using Bits = std::array<std::uint64_t, sizeof(Fields) / sizeof(double)>;
    static_assert(sizeof(Bits) == sizeof(Fields));
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b);
}

std::string describe(double starDate, double newYearNoon, double longitude, double latitude) {
    return "starDate " + std::to_string(starDate) + ", newYearNoon " + std::to_string(newYearNoon) + ", longitude " +
           std::to_string(longitude) + ", latitude " + std::to_string(latitude);
}

// Counts mismatches and keeps the first, so a failure reports one case, not millions.
struct Comparison {
    std::int64_t cases = 0;
    std::int64_t mismatches = 0;
    std::string first;

    void check(double starDate, double newYearNoon, double longitude, double latitude) {
        ++cases;
        const SolarEvents expected = direct::ComputeSolarEvents(starDate, newYearNoon, longitude, latitude);
        const SolarEvents actual = ComputeSolarEvents(starDate, newYearNoon, longitude, latitude);
        if (same_bits(expected, actual)) return;
        if (mismatches++ == 0) first = describe(starDate, newYearNoon, longitude, latitude);
    }
};

constexpr std::array kLongitudes = {83.045, 0.0, -0.0, -179.99, 151.2};
// Polar ones give not-a-number in midsummer and midwinter.
constexpr std::array kLatitudes = {43.3, 0.0, -0.0, 66.56, -66.56, 78.2, -78.2, 89.0, -89.0, 90.0, -90.0};
constexpr std::array kDayFractions = {0.0, 0.25, 0.5, 0.999};

double quiet_nan_with_payload(std::uint64_t payload, bool negative) {
    const std::uint64_t sign = negative ? 0x8000000000000000U : 0U;
    return std::bit_cast<double>(sign | 0x7FF8000000000000U | payload);
}

}  // namespace

TEST(TabulatedAnomalyTerms, EveryWholeDegreeMatchesDirectEvaluation) {
    for (std::int32_t m = -(kMeanAnomalyLimit - 1); m < kMeanAnomalyLimit; ++m) {
        const AnomalyTerms expected = direct::ComputeAnomalyTerms(static_cast<double>(m));
        EXPECT_TRUE(same_bits(expected, ComputeAnomalyTerms(m))) << "mean anomaly " << m;
        EXPECT_TRUE(same_bits(expected, TabulatedAnomalyTerms(m))) << "mean anomaly " << m;
    }
}

TEST(TabulatedAnomalyTerms, EclipticLongitudeIsWholeDegreesBelowOneTurn) {
    for (std::int32_t m = -(kMeanAnomalyLimit - 1); m < kMeanAnomalyLimit; ++m) {
        const double lambda = TabulatedAnomalyTerms(m).eclipticLongitude;
        EXPECT_EQ(lambda, std::trunc(lambda)) << "mean anomaly " << m;
        EXPECT_LT(std::fabs(lambda), 360.0) << "mean anomaly " << m;
    }
}

TEST(TabulatedSolarEvents, DailySweepFrom1900To2100MatchesDirectEvaluation) {
    Comparison comparison;
    for (std::int64_t year = 1900; year <= 2100; ++year) {
        const double newYear = new_year_star_date(year);
        const double nextNewYear = new_year_star_date(year + 1);
        const auto days = static_cast<std::size_t>(nextNewYear - newYear);
        for (std::size_t day = 0; day < days; ++day) {
            const double starDate = newYear + static_cast<double>(day) + kDayFractions[day % kDayFractions.size()];
            for (const double longitude : kLongitudes) {
                for (const double latitude : kLatitudes) comparison.check(starDate, newYear + 0.5, longitude, latitude);
            }
        }
    }
    // 201 years of 365 days and 49 leap days (1900 and 2100 are common years).
    EXPECT_EQ(comparison.cases, 73414 * static_cast<std::int64_t>(kLongitudes.size() * kLatitudes.size()));
    EXPECT_EQ(comparison.mismatches, 0) << "first: " << comparison.first;
}

// Star dates far from the year's start reach negative and large anomalies.
TEST(TabulatedSolarEvents, EveryMeanAnomalyReachedMatchesDirectEvaluation) {
    Comparison comparison;
    std::set<double> anomalies;
    const double newYearNoon = kNewYear2024 + 0.5;
    for (int offset = -1300; offset <= 1000; ++offset) {
        const double starDate = kNewYear2024 + offset;
        for (const double longitude : kLongitudes) {
            for (const double latitude : kLatitudes) comparison.check(starDate, newYearNoon, longitude, latitude);
            anomalies.insert(ComputeSolarEvents(starDate, newYearNoon, longitude, 43.3).meanAnomaly);
        }
    }
    EXPECT_EQ(anomalies.size(), 719U);
    EXPECT_EQ(comparison.mismatches, 0) << "first: " << comparison.first;
}

TEST(TabulatedSolarEvents, NonFiniteAndHugeInputsMatchDirectEvaluation) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::array inputs = {
        std::numeric_limits<double>::quiet_NaN(),
        quiet_nan_with_payload(0x12345, false),
        quiet_nan_with_payload(0x54321, true),
        kInfinity,
        -kInfinity,
        std::numeric_limits<double>::max(),
        std::numeric_limits<double>::lowest(),
        std::numeric_limits<double>::denorm_min(),
        1e300,
        -1e300,
        2147483647.5,
        2147483648.0,
        -2147483648.5,
        -2147483649.0,
        0.0,
        -0.0,
        kNewYear2024 + 172.0,
        kNewYear2024 + 0.5,
        43.3,
        -83.045,
    };
    Comparison comparison;
    for (const double starDate : inputs) {
        for (const double newYearNoon : inputs) {
            for (const double longitude : inputs) {
                for (const double latitude : inputs) comparison.check(starDate, newYearNoon, longitude, latitude);
            }
        }
    }
    EXPECT_EQ(comparison.cases, 160000);
    EXPECT_EQ(comparison.mismatches, 0) << "first: " << comparison.first;
}

// Not-a-number and infinite inputs truncate to INT32_MIN, so the anomaly
// stays a whole number of degrees: -2147483648 % 360 = -128.
TEST(TabulatedSolarEvents, NotANumberLongitudeGivesAnomalyOfInt32Min) {
    const SolarEvents e = ComputeSolarEvents(kNewYear2024 + 172.0, kNewYear2024 + 0.5, std::nan(""), 43.3);
    EXPECT_EQ(e.meanAnomaly, -128.0);
    EXPECT_TRUE(std::isnan(e.sunrise));
    EXPECT_TRUE(std::isnan(e.sunset));
}
