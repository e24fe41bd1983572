// Statistics of a sliding window over a stream of doubles, updated in O(1)
// amortised time per value. The window itself lives elsewhere (the
// DblBuffer); the caller reports each value that enters and each that leaves.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace timetool {

enum class Statistic { Count, Sum, Mean, Min, Max, Stddev };

// Parses "mean,min,max" (names from StatisticName, any order, repeats kept);
// empty when a name is unknown or the list is empty.
std::optional<std::vector<Statistic>> ParseStatistics(std::string_view list);
std::string_view StatisticName(Statistic statistic);

class RollingStats {
public:
    // capacity >= 1: the number of values the window holds once full.
    explicit RollingStats(std::int64_t capacity);

    // Adds `entering` to the window. A full window must be given the value
    // that leaves it (its oldest); a window that is not full must not.
    void Push(double entering, std::optional<double> leaving);

    // True when rounding left behind by values that have gone may exceed
    // the allowance (a value far larger than the window holds now has left,
    // or a window's worth of values has passed since the last Refresh).
    // Asked after each Push; amortised, a Refresh reads one value per Push.
    bool WantsWindow() const;
    // Recomputes the running sums from the window, oldest first.
    void Refresh(std::span<const double> window);

    std::int64_t count() const { return count_; }
    // Values of the current window; NaN where a statistic is undefined
    // (an empty window, a NaN in the window, infinities of both signs in a
    // sum). Infinities in the window give infinite sums, means and extremes.
    double Value(Statistic statistic) const;

private:
    void AddFinite(double value);
    void RemoveFinite(double value);
    double Sum() const;
    double Mean() const;
    double Stddev() const;

    std::int64_t capacity_;
    std::int64_t count_ = 0;    // values in the window, [0, capacity_]
    std::int64_t entered_ = 0;  // values pushed so far; the sequence number of the next one
    std::int64_t nans_ = 0;     // NaNs in the window
    std::int64_t positiveInfinities_ = 0;
    std::int64_t negativeInfinities_ = 0;
    // Finite values of the window: their count, a compensated sum, and the
    // Welford mean and sum of squared deviations.
    std::int64_t finite_ = 0;
    double sum_ = 0.0;
    double compensation_ = 0.0;
    double mean_ = 0.0;
    double squares_ = 0.0;
    // The largest finite magnitude added since the sums were last exact, and
    // the number of values pushed since.
    double roundingScale_ = 0.0;
    std::int64_t pushesSinceRefresh_ = 0;
    // Candidates for the extremes as (sequence number, value): values rise
    // from front to back in minima_, fall in maxima_. NaNs are left out.
    std::deque<std::pair<std::int64_t, double>> minima_;
    std::deque<std::pair<std::int64_t, double>> maxima_;
    // Candidates for the largest finite magnitude, falling front to back.
    std::deque<std::pair<std::int64_t, double>> magnitudes_;
};

}  // namespace timetool
