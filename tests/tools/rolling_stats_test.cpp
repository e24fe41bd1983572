#include "rolling_stats.h"

#include "direct_statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <random>
#include <vector>

namespace {

using timetool::ParseStatistics;
using timetool::RollingStats;
using timetool::Statistic;

using timetool_test::DirectStatistic;
using timetool_test::kAllStatistics;
using timetool_test::kInf;
using timetool_test::kNaN;
using timetool_test::RandomStream;

// Pushes `stream` through a window of `capacity`, checking every statistic
// after every value against the window recomputed from scratch. `scale` is
// the size of the values, for the rounding allowance.
void ExpectAgreesWithDirect(const std::vector<double>& stream, std::int64_t capacity, double scale) {
    RollingStats rolling(capacity);
    std::deque<double> window;
    for (std::size_t i = 0; i < stream.size(); ++i) {
        std::optional<double> leaving;
        if (static_cast<std::int64_t>(window.size()) == capacity) {
            leaving = window.front();
            window.pop_front();
        }
        window.push_back(stream[i]);
        rolling.Push(stream[i], leaving);
        const std::vector<double> contents(window.begin(), window.end());
        if (rolling.WantsWindow()) rolling.Refresh(contents);
        for (const Statistic statistic : kAllStatistics) {
            const double expected = DirectStatistic(statistic, contents);
            const double got = rolling.Value(statistic);
            if (!std::isfinite(expected)) {
                ASSERT_TRUE(std::isnan(expected) ? std::isnan(got) : got == expected)
                    << timetool::StatisticName(statistic) << " at value " << i << " capacity " << capacity << ": "
                    << got << " instead of " << expected;
            } else {
                ASSERT_NEAR(got, expected, 1e-9 * scale)
                    << timetool::StatisticName(statistic) << " at value " << i << " capacity " << capacity;
            }
        }
    }
}

TEST(RollingStats, WorkedWindowOfThree) {
    RollingStats rolling(3);
    rolling.Push(1.0, std::nullopt);
    rolling.Push(2.0, std::nullopt);
    rolling.Push(3.0, std::nullopt);
    EXPECT_EQ(rolling.Value(Statistic::Count), 3.0);
    EXPECT_EQ(rolling.Value(Statistic::Sum), 6.0);
    EXPECT_EQ(rolling.Value(Statistic::Mean), 2.0);
    EXPECT_EQ(rolling.Value(Statistic::Min), 1.0);
    EXPECT_EQ(rolling.Value(Statistic::Max), 3.0);
    EXPECT_DOUBLE_EQ(rolling.Value(Statistic::Stddev), std::sqrt(2.0 / 3.0));
    rolling.Push(10.0, 1.0);  // window 2, 3, 10
    EXPECT_EQ(rolling.Value(Statistic::Sum), 15.0);
    EXPECT_EQ(rolling.Value(Statistic::Mean), 5.0);
    EXPECT_EQ(rolling.Value(Statistic::Min), 2.0);
    EXPECT_EQ(rolling.Value(Statistic::Max), 10.0);
    EXPECT_DOUBLE_EQ(rolling.Value(Statistic::Stddev), std::sqrt(38.0 / 3.0));
}

TEST(RollingStats, TenthsSumWithoutDrift) {
    // 0.1 + 0.2 is 0.30000000000000004 in doubles; the compensated sum of a
    // window that has seen 0.1, 0.2, 0.3 and dropped 0.1 is 0.5 exactly.
    RollingStats rolling(2);
    rolling.Push(0.1, std::nullopt);
    rolling.Push(0.2, std::nullopt);
    rolling.Push(0.3, 0.1);
    EXPECT_EQ(rolling.Value(Statistic::Sum), 0.5);
    EXPECT_EQ(rolling.Value(Statistic::Mean), 0.25);
}

TEST(RollingStats, EmptyWindowHasNoMeanAndAZeroSum) {
    const RollingStats rolling(4);
    EXPECT_EQ(rolling.Value(Statistic::Count), 0.0);
    EXPECT_EQ(rolling.Value(Statistic::Sum), 0.0);
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Mean)));
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Min)));
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Max)));
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Stddev)));
}

TEST(RollingStats, NaNIsNamedWhileInTheWindowAndForgottenAfter) {
    RollingStats rolling(2);
    rolling.Push(1.0, std::nullopt);
    rolling.Push(kNaN, std::nullopt);
    for (const Statistic statistic :
         {Statistic::Sum, Statistic::Mean, Statistic::Min, Statistic::Max, Statistic::Stddev}) {
        EXPECT_TRUE(std::isnan(rolling.Value(statistic))) << timetool::StatisticName(statistic);
    }
    EXPECT_EQ(rolling.Value(Statistic::Count), 2.0);
    rolling.Push(4.0, 1.0);
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Mean)));
    rolling.Push(6.0, kNaN);  // window 4, 6
    EXPECT_EQ(rolling.Value(Statistic::Sum), 10.0);
    EXPECT_EQ(rolling.Value(Statistic::Mean), 5.0);
    EXPECT_EQ(rolling.Value(Statistic::Min), 4.0);
    EXPECT_EQ(rolling.Value(Statistic::Max), 6.0);
    EXPECT_EQ(rolling.Value(Statistic::Stddev), 1.0);
}

TEST(RollingStats, InfinitiesGiveInfiniteSumsAndExtremes) {
    RollingStats rolling(3);
    rolling.Push(kInf, std::nullopt);
    rolling.Push(2.0, std::nullopt);
    EXPECT_EQ(rolling.Value(Statistic::Sum), kInf);
    EXPECT_EQ(rolling.Value(Statistic::Mean), kInf);
    EXPECT_EQ(rolling.Value(Statistic::Min), 2.0);
    EXPECT_EQ(rolling.Value(Statistic::Max), kInf);
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Stddev)));
    rolling.Push(-kInf, std::nullopt);
    EXPECT_TRUE(std::isnan(rolling.Value(Statistic::Sum)));
    EXPECT_EQ(rolling.Value(Statistic::Min), -kInf);
    rolling.Push(5.0, kInf);  // window 2, -inf, 5
    EXPECT_EQ(rolling.Value(Statistic::Sum), -kInf);
    EXPECT_EQ(rolling.Value(Statistic::Max), 5.0);
    rolling.Push(1.0, 2.0);
    rolling.Push(3.0, -kInf);  // window 5, 1, 3
    EXPECT_EQ(rolling.Value(Statistic::Sum), 9.0);
    EXPECT_EQ(rolling.Value(Statistic::Mean), 3.0);
    EXPECT_EQ(rolling.Value(Statistic::Min), 1.0);
    EXPECT_DOUBLE_EQ(rolling.Value(Statistic::Stddev), std::sqrt(8.0 / 3.0));
}

TEST(RollingStats, CapacityOneIsTheLastValue) {
    RollingStats rolling(1);
    rolling.Push(-7.5, std::nullopt);
    rolling.Push(3.25, -7.5);
    EXPECT_EQ(rolling.Value(Statistic::Count), 1.0);
    EXPECT_EQ(rolling.Value(Statistic::Sum), 3.25);
    EXPECT_EQ(rolling.Value(Statistic::Min), 3.25);
    EXPECT_EQ(rolling.Value(Statistic::Max), 3.25);
    EXPECT_EQ(rolling.Value(Statistic::Stddev), 0.0);
}

TEST(RollingStats, ConstantWindowHasZeroDeviationAfterLargeValuesLeave) {
    RollingStats rolling(3);
    const std::vector<double> stream{1e12, -3e11, 7.0, 7.0, 7.0};
    std::deque<double> window;
    for (const double v : stream) {
        std::optional<double> leaving;
        if (window.size() == 3) {
            leaving = window.front();
            window.pop_front();
        }
        window.push_back(v);
        rolling.Push(v, leaving);
        if (rolling.WantsWindow()) rolling.Refresh(std::vector<double>(window.begin(), window.end()));
    }
    EXPECT_EQ(rolling.Value(Statistic::Mean), 7.0);
    EXPECT_EQ(rolling.Value(Statistic::Stddev), 0.0);
}

TEST(RollingStats, WantsTheWindowOnceALargeValueHasLeft) {
    RollingStats rolling(3);
    rolling.Push(1e12, std::nullopt);
    rolling.Push(7.0, std::nullopt);
    EXPECT_FALSE(rolling.WantsWindow());
    rolling.Refresh(std::vector<double>{1e12, 7.0});
    rolling.Push(7.0, std::nullopt);
    EXPECT_FALSE(rolling.WantsWindow());
    rolling.Push(7.0, 1e12);
    EXPECT_TRUE(rolling.WantsWindow());
    rolling.Refresh(std::vector<double>{7.0, 7.0, 7.0});
    EXPECT_FALSE(rolling.WantsWindow());
    EXPECT_EQ(rolling.Value(Statistic::Stddev), 0.0);
}

TEST(RollingStats, WantsTheWindowOncePerCapacityOfValues) {
    RollingStats rolling(4);
    int wanted = 0;
    for (int i = 1; i <= 12; ++i) {
        rolling.Push(i, i > 4 ? std::optional<double>(i - 4) : std::nullopt);
        if (rolling.WantsWindow()) {
            ++wanted;
            std::vector<double> window;
            for (int k = std::max(1, i - 3); k <= i; ++k) window.push_back(k);
            rolling.Refresh(window);
        }
    }
    EXPECT_EQ(wanted, 3);
    EXPECT_EQ(rolling.Value(Statistic::Sum), 9.0 + 10.0 + 11.0 + 12.0);
}

TEST(RollingStats, RandomStreamsAgreeWithTheWindowRecomputed) {
    unsigned seed = 17;
    for (const std::int64_t capacity : {1, 2, 3, 7, 64, 500}) {
        ExpectAgreesWithDirect(RandomStream(3000, 1000.0, 0.0, seed++), capacity, 1000.0 * 500);
        ExpectAgreesWithDirect(RandomStream(3000, 1000.0, 0.02, seed++), capacity, 1000.0 * 500);
    }
}

TEST(RollingStats, StreamShorterThanTheWindow) {
    ExpectAgreesWithDirect(RandomStream(40, 1.0, 0.1, 5), 1000, 1000.0);
    ExpectAgreesWithDirect({}, 10, 1.0);
}

TEST(RollingStats, LongStreamStaysClose) {
    // A hundred thousand slides: the rounding of the running sums does not
    // accumulate beyond the allowance.
    ExpectAgreesWithDirect(RandomStream(100000, 1e6, 0.001, 99), 5, 1e6 * 5);
}

TEST(ParseStatistics, NamesInTheOrderGiven) {
    const auto parsed = ParseStatistics("stddev,mean,count,max,min,sum");
    ASSERT_TRUE(parsed);
    EXPECT_EQ(*parsed, (std::vector<Statistic>{Statistic::Stddev, Statistic::Mean, Statistic::Count, Statistic::Max,
                                               Statistic::Min, Statistic::Sum}));
}

TEST(ParseStatistics, RefusesUnknownAndEmptyNames) {
    EXPECT_FALSE(ParseStatistics(""));
    EXPECT_FALSE(ParseStatistics("mean,"));
    EXPECT_FALSE(ParseStatistics("mean,median"));
    EXPECT_FALSE(ParseStatistics("Mean"));
}

}  // namespace
