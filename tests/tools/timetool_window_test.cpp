// timetool window with --stat, and the plain window's number forms.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tool_runner.h"

namespace {

using json = nlohmann::ordered_json;

TEST(TimetoolWindowStat, ChosenStatisticsInTheOrderGiven) {
    const ToolRun run = RunTimetool({"window", "3", "--stat", "max,mean,count,sum,min,stddev"}, "1 2\n3 10\n");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "value=1 max=1 mean=1 count=1 sum=1 min=1 stddev=0\n"
              "value=2 max=2 mean=1.5 count=2 sum=3 min=1 stddev=0.5\n"
              "value=3 max=3 mean=2 count=3 sum=6 min=1 stddev=0.816496580927726\n"
              "value=10 max=10 mean=5 count=3 sum=15 min=2 stddev=3.559026084010437\n");
}

TEST(TimetoolWindowStat, NaNAndInfinitiesAreNamedAndLeaveWithTheirValues) {
    const ToolRun run = RunTimetool({"window", "2", "--stat", "mean,min,max"}, "4 nan 6 8 inf -infinity 1 3");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "value=4 mean=4 min=4 max=4\n"
              "value=nan mean=nan min=nan max=nan\n"
              "value=6 mean=nan min=nan max=nan\n"
              "value=8 mean=7 min=6 max=8\n"
              "value=inf mean=inf min=8 max=inf\n"
              "value=-inf mean=nan min=-inf max=inf\n"
              "value=1 mean=-inf min=-inf max=1\n"
              "value=3 mean=2 min=1 max=3\n");
}

TEST(TimetoolWindowStat, CapacityOneAndAShortStream) {
    const ToolRun one = RunTimetool({"window", "1", "--stat", "sum"}, "5 -2.5");
    EXPECT_EQ(one.out, "value=5 sum=5\nvalue=-2.5 sum=-2.5\n");
    const ToolRun shortStream = RunTimetool({"window", "1000", "--stat", "count,mean"}, "0.1 0.2");
    EXPECT_EQ(shortStream.out, "value=0.1 count=1 mean=0.1\nvalue=0.2 count=2 mean=0.15000000000000002\n");
    const ToolRun empty = RunTimetool({"window", "4", "--stat", "mean"}, "");
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.out, "");
}

TEST(TimetoolWindowStat, JsonCarriesNonFiniteValuesByName) {
    const ToolRun run = RunTimetool({"window", "2", "--stat", "mean,max", "--json"}, "1 nan 3 5");
    ASSERT_EQ(run.status, 0) << run.err;
    const json expected = json::parse(R"({"schema":3,"capacity":2,"statistics":["mean","max"],"steps":[
        {"value":1,"mean":1,"max":1},
        {"value":"nan","mean":"nan","max":"nan"},
        {"value":3,"mean":"nan","max":"nan"},
        {"value":5,"mean":4,"max":5}]})");
    EXPECT_EQ(json::parse(run.out), expected);
}

TEST(TimetoolWindowStat, JsonWithEvents) {
    const ToolRun run = RunTimetool({"window", "1", "--stat", "sum", "--json", "--events"}, "2");
    ASSERT_EQ(run.status, 0) << run.err;
    const json expected = json::parse(R"({"schema":3,"capacity":1,"statistics":["sum"],
        "events":[{"event":"SizeChanged"}],
        "steps":[{"value":2,"sum":2,"events":[{"event":"ElementChanged","index":-1}]}]})");
    EXPECT_EQ(json::parse(run.out), expected);
}

TEST(TimetoolWindowStat, UnknownStatisticIsRefused) {
    const ToolRun run = RunTimetool({"window", "2", "--stat", "mean,median"}, "1");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err,
              "timetool: bad --stat 'mean,median': a comma-separated list of count, sum, mean, min, max, stddev\n");
}

TEST(TimetoolWindowStat, LinesBeforeABadNumberArePrinted) {
    const ToolRun run = RunTimetool({"window", "2", "--stat", "sum"}, "1 2 x 4");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "value=1 sum=1\nvalue=2 sum=3\n");
    EXPECT_EQ(run.err, "timetool: bad number 'x' on standard input\n");
}

TEST(TimetoolWindow, NumbersInTheirShortestExactForm) {
    const ToolRun run = RunTimetool({"window", "3"}, "0.1 1e300 -0 100000000 0.30000000000000004 nan");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              "0.1\n"
              "0.1 1e+300\n"
              "0.1 1e+300 -0\n"
              "1e+300 -0 1e+08\n"
              "-0 1e+08 0.30000000000000004\n"
              "1e+08 0.30000000000000004 nan\n");
}

}  // namespace
