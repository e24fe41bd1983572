// The module's DblBuffer as timetool's window: what leaves it is what the
// rolling statistics drop, and the statistics describe the module's window.
#include "module_window.h"

#include <gtest/gtest.h>

#include <vector>

#include "direct_statistics.h"
#include "module_session.h"
#include "rolling_stats.h"

namespace {

constexpr const char* kModuleFolder = CAL_BUILD_DIR "/_binlinux";

using timetool::ModuleWindow;
using timetool::RollingStats;
using timetool::Statistic;
using timetool_test::kAllStatistics;

void ExpectSameValue(double got, double expected, Statistic statistic, std::size_t step) {
    if (std::isnan(expected)) {
        EXPECT_TRUE(std::isnan(got)) << timetool::StatisticName(statistic) << " at " << step;
    } else if (!std::isfinite(expected)) {
        EXPECT_EQ(got, expected) << timetool::StatisticName(statistic) << " at " << step;
    } else {
        EXPECT_NEAR(got, expected, 1e-6) << timetool::StatisticName(statistic) << " at " << step;
    }
}

class ModuleWindowTest : public ::testing::Test {
protected:
    ModuleWindow NewWindow(std::int32_t capacity) {
        return ModuleWindow(session_.Create<IDblVector>(L"DblBuffer", timetool::InterfaceId("IDblVector")), capacity);
    }

    timetool::ModuleSession session_{kModuleFolder};
};

TEST_F(ModuleWindowTest, LeavingValueIsTheOldestOnceFull) {
    ModuleWindow window = NewWindow(3);
    EXPECT_EQ(window.Push(1.0), std::nullopt);
    EXPECT_EQ(window.Push(2.0), std::nullopt);
    EXPECT_EQ(window.Push(3.0), std::nullopt);
    EXPECT_EQ(window.Push(4.0), std::optional<double>(1.0));
    EXPECT_EQ(window.Push(5.0), std::optional<double>(2.0));
    std::vector<double> contents;
    window.ReadInto(contents);
    EXPECT_EQ(contents, (std::vector<double>{3.0, 4.0, 5.0}));
    EXPECT_EQ(window.Size(), 3);
}

TEST_F(ModuleWindowTest, StatisticsDescribeTheModulesWindow) {
    unsigned seed = 3;
    for (const std::int32_t capacity : {1, 4, 33}) {
        ModuleWindow window = NewWindow(capacity);
        RollingStats rolling(capacity);
        const std::vector<double> stream = timetool_test::RandomStream(400, 50.0, 0.05, seed++);
        std::vector<double> contents;
        for (std::size_t step = 0; step < stream.size(); ++step) {
            rolling.Push(stream[step], window.Push(stream[step]));
            window.ReadInto(contents);
            if (rolling.WantsWindow()) rolling.Refresh(contents);
            ASSERT_EQ(rolling.count(), static_cast<std::int64_t>(contents.size()));
            for (const Statistic statistic : kAllStatistics) {
                ExpectSameValue(rolling.Value(statistic), timetool_test::DirectStatistic(statistic, contents),
                                statistic, step);
            }
        }
    }
}

}  // namespace
