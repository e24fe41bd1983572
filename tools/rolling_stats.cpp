#include "rolling_stats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace timetool {

namespace {

struct StatisticRow {
    Statistic statistic;
    std::string_view name;
};

constexpr std::array<StatisticRow, 6> kStatistics{{
    {Statistic::Count, "count"},
    {Statistic::Sum, "sum"},
    {Statistic::Mean, "mean"},
    {Statistic::Min, "min"},
    {Statistic::Max, "max"},
    {Statistic::Stddev, "stddev"},
}};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

}  // namespace

std::optional<std::vector<Statistic>> ParseStatistics(std::string_view list) {
    std::vector<Statistic> chosen;
    while (true) {
        const std::size_t comma = list.find(',');
        const std::string_view name = list.substr(0, comma);
        bool known = false;
        for (const StatisticRow& row : kStatistics) {
            if (row.name == name) {
                chosen.push_back(row.statistic);
                known = true;
            }
        }
        if (!known) return std::nullopt;
        if (comma == std::string_view::npos) return chosen;
        list.remove_prefix(comma + 1);
    }
}

std::string_view StatisticName(Statistic statistic) {
    for (const StatisticRow& row : kStatistics) {
        if (row.statistic == statistic) return row.name;
    }
    return "?";
}

RollingStats::RollingStats(std::int64_t capacity) : capacity_(capacity < 1 ? 1 : capacity) {}

void RollingStats::Push(double entering, std::optional<double> leaving) {
    if (leaving && count_ > 0) {
        if (std::isnan(*leaving)) {
            --nans_;
        } else if (*leaving == kInfinity) {
            --positiveInfinities_;
        } else if (*leaving == -kInfinity) {
            --negativeInfinities_;
        } else {
            RemoveFinite(*leaving);
        }
        --count_;
    }
    if (std::isnan(entering)) {
        ++nans_;
    } else if (entering == kInfinity) {
        ++positiveInfinities_;
    } else if (entering == -kInfinity) {
        ++negativeInfinities_;
    } else {
        AddFinite(entering);
    }
    ++count_;

    const std::int64_t sequence = entered_++;
    const std::int64_t oldestKept = entered_ - count_;
    ++pushesSinceRefresh_;
    if (std::isfinite(entering)) {
        const double magnitude = std::fabs(entering);
        while (!magnitudes_.empty() && magnitudes_.back().second <= magnitude) magnitudes_.pop_back();
        magnitudes_.emplace_back(sequence, magnitude);
    }
    if (!std::isnan(entering)) {
        while (!minima_.empty() && minima_.back().second >= entering) minima_.pop_back();
        minima_.emplace_back(sequence, entering);
        while (!maxima_.empty() && maxima_.back().second <= entering) maxima_.pop_back();
        maxima_.emplace_back(sequence, entering);
    }
    while (!minima_.empty() && minima_.front().first < oldestKept) minima_.pop_front();
    while (!maxima_.empty() && maxima_.front().first < oldestKept) maxima_.pop_front();
    while (!magnitudes_.empty() && magnitudes_.front().first < oldestKept) magnitudes_.pop_front();
}

bool RollingStats::WantsWindow() const {
    if (finite_ == 0) return false;
    // 2^20: what is left of a departed value's rounding stays below about
    // 2e-10 of the largest value in the window.
    constexpr double kAllowedRatio = 1048576.0;
    return pushesSinceRefresh_ >= capacity_ || roundingScale_ > kAllowedRatio * magnitudes_.front().second;
}

void RollingStats::Refresh(std::span<const double> window) {
    finite_ = 0;
    sum_ = compensation_ = mean_ = squares_ = 0.0;
    roundingScale_ = 0.0;
    for (const double value : window) {
        if (std::isfinite(value)) AddFinite(value);
    }
    pushesSinceRefresh_ = 0;
}

// Neumaier's compensated sum for the total; Welford's update for the
// deviations, which stays accurate where a plain sum of squares cancels.
void RollingStats::AddFinite(double value) {
    const double total = sum_ + value;
    compensation_ += std::fabs(sum_) >= std::fabs(value) ? (sum_ - total) + value : (value - total) + sum_;
    sum_ = total;
    roundingScale_ = std::max(roundingScale_, std::fabs(value));
    ++finite_;
    const double delta = value - mean_;
    mean_ += delta / static_cast<double>(finite_);
    squares_ += delta * (value - mean_);
}

void RollingStats::RemoveFinite(double value) {
    --finite_;
    if (finite_ == 0) {
        // An empty set of finite values restarts from exact zeros, so rounding
        // left by earlier values never outlives them.
        sum_ = compensation_ = mean_ = squares_ = 0.0;
        roundingScale_ = 0.0;
        return;
    }
    const double total = sum_ - value;
    compensation_ += std::fabs(sum_) >= std::fabs(value) ? (sum_ - total) - value : (-value - total) + sum_;
    sum_ = total;
    const double delta = value - mean_;
    mean_ -= delta / static_cast<double>(finite_);
    squares_ -= delta * (value - mean_);
    if (squares_ < 0.0) squares_ = 0.0;
}

double RollingStats::Sum() const {
    if (nans_ > 0 || (positiveInfinities_ > 0 && negativeInfinities_ > 0)) return kNaN;
    if (positiveInfinities_ > 0) return kInfinity;
    if (negativeInfinities_ > 0) return -kInfinity;
    return sum_ + compensation_;
}

double RollingStats::Mean() const {
    if (count_ == 0) return kNaN;
    const double sum = Sum();
    if (!std::isfinite(sum)) return sum;
    return sum / static_cast<double>(count_);
}

// The population standard deviation: the window is the whole set described.
double RollingStats::Stddev() const {
    if (count_ == 0 || nans_ > 0) return kNaN;
    if (positiveInfinities_ > 0 || negativeInfinities_ > 0) return kNaN;
    return std::sqrt(squares_ / static_cast<double>(count_));
}

double RollingStats::Value(Statistic statistic) const {
    switch (statistic) {
        case Statistic::Count:
            return static_cast<double>(count_);
        case Statistic::Sum:
            return Sum();
        case Statistic::Mean:
            return Mean();
        case Statistic::Min:
            return count_ == 0 || nans_ > 0 ? kNaN : minima_.front().second;
        case Statistic::Max:
            return count_ == 0 || nans_ > 0 ? kNaN : maxima_.front().second;
        case Statistic::Stddev:
            return Stddev();
    }
    return kNaN;
}

}  // namespace timetool
