// Window statistics computed from scratch, the reference the rolling ones
// are checked against, and random streams to check them on.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "rolling_stats.h"

namespace timetool_test {

using timetool::Statistic;

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr Statistic kAllStatistics[] = {Statistic::Count, Statistic::Sum, Statistic::Mean,
                                               Statistic::Min,   Statistic::Max, Statistic::Stddev};

// Each statistic of one window computed from scratch, in long double, as a
// reader of the output would check it by hand.
inline double DirectStatistic(Statistic statistic, const std::vector<double>& window) {
    const bool hasNaN = std::any_of(window.begin(), window.end(), [](double v) { return std::isnan(v); });
    const bool hasPlus = std::find(window.begin(), window.end(), kInf) != window.end();
    const bool hasMinus = std::find(window.begin(), window.end(), -kInf) != window.end();
    const auto n = static_cast<long double>(window.size());
    long double sum = 0.0L;
    for (const double v : window) {
        if (std::isfinite(v)) sum += v;
    }
    switch (statistic) {
        case Statistic::Count:
            return static_cast<double>(window.size());
        case Statistic::Sum:
        case Statistic::Mean: {
            if (hasNaN || (hasPlus && hasMinus) || window.empty())
                return window.empty() && statistic == Statistic::Sum ? 0.0 : kNaN;
            if (hasPlus) return kInf;
            if (hasMinus) return -kInf;
            return static_cast<double>(statistic == Statistic::Sum ? sum : sum / n);
        }
        case Statistic::Min:
            if (hasNaN || window.empty()) return kNaN;
            return *std::min_element(window.begin(), window.end());
        case Statistic::Max:
            if (hasNaN || window.empty()) return kNaN;
            return *std::max_element(window.begin(), window.end());
        case Statistic::Stddev: {
            if (hasNaN || hasPlus || hasMinus || window.empty()) return kNaN;
            const long double mean = sum / n;
            long double squares = 0.0L;
            for (const double v : window) squares += (v - mean) * (v - mean);
            return static_cast<double>(std::sqrt(squares / n));
        }
    }
    return kNaN;
}

// `length` values uniform in [-scale, scale]; about `specialShare` of them
// NaN, +inf or -inf in equal parts.
inline std::vector<double> RandomStream(std::size_t length, double scale, double specialShare, unsigned seed) {
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> value(-scale, scale);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    std::vector<double> stream;
    for (std::size_t i = 0; i < length; ++i) {
        const double pick = share(generator);
        if (pick < specialShare / 3) {
            stream.push_back(kNaN);
        } else if (pick < 2 * specialShare / 3) {
            stream.push_back(kInf);
        } else if (pick < specialShare) {
            stream.push_back(-kInf);
        } else {
            stream.push_back(value(generator));
        }
    }
    return stream;
}

}  // namespace timetool_test
