// Every result of the module's arithmetic against the golden data made from
// the module before its fast paths and layers changed: readable cases at the
// interesting points, and digests of the exhaustive sweeps.
#include <gtest/gtest.h>

#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "golden_cases.h"
#include "golden_sweeps.h"

namespace {

const std::string kFolder = CAL_GOLDEN_DIR;

bool SameValue(double expected, double actual) {
    if (std::isnan(expected)) return std::isnan(actual);
    return std::bit_cast<std::uint64_t>(expected) == std::bit_cast<std::uint64_t>(actual);
}

const golden::Operation* FindOperation(const std::string& name) {
    for (const golden::Operation& op : golden::kOperations)
        if (name == op.name) return &op;
    return nullptr;
}

TEST(GoldenValues, EveryRecordedCaseGivesItsRecordedResults) {
    std::ifstream in(kFolder + "/golden_values.txt");
    ASSERT_TRUE(in) << kFolder;
    std::string line;
    int checked = 0;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string name;
        fields >> name;
        const golden::Operation* op = FindOperation(name);
        ASSERT_NE(op, nullptr) << line;
        golden::Values inputs;
        golden::Values expected;
        bool results = false;
        std::string word;
        while (fields >> word) {
            if (word == "->") {
                results = true;
                continue;
            }
            (results ? expected : inputs).push_back(std::strtod(word.c_str(), nullptr));
        }
        ASSERT_EQ(inputs.size(), op->inputs) << line;
        const golden::Values actual = op->run(inputs);
        ASSERT_EQ(actual.size(), expected.size()) << line;
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_TRUE(SameValue(expected[i], actual[i])) << line << "\n  result " << i << " is " << actual[i];
        ++checked;
    }
    EXPECT_EQ(checked, static_cast<int>(golden::Cases().size()));
}

// The recorded digest and case count of a sweep.
struct Recorded {
    std::uint64_t hash = 0;
    std::int64_t cases = -1;
};

Recorded RecordedDigest(const std::string& sweep) {
    std::ifstream in(kFolder + "/golden_digests.txt");
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        char name[64] = {};
        Recorded r;
        if (std::sscanf(line.c_str(), "%63s %" SCNx64 " %" SCNd64, name, &r.hash, &r.cases) == 3 && sweep == name)
            return r;
    }
    return {};
}

void ExpectRecordedDigest(const char* sweep) {
    const Recorded recorded = RecordedDigest(sweep);
    ASSERT_GE(recorded.cases, 0) << "no digest recorded for " << sweep;
    for (const golden::Sweep& s : golden::kSweeps) {
        if (std::string(s.name) != sweep) continue;
        golden::Digest digest;
        s.run(digest);
        EXPECT_EQ(digest.Cases(), recorded.cases);
        EXPECT_EQ(digest.Hash(), recorded.hash) << "some result of the sweep " << sweep << " changed";
        return;
    }
    FAIL() << "no sweep " << sweep;
}

TEST(GoldenDigests, DateToDayNumberOfEvery16BitYear) { ExpectRecordedDigest("date_to_day_number"); }
TEST(GoldenDigests, DayNumberToDateOfEveryWholeDayInTwelveAndAHalfMillion) {
    ExpectRecordedDigest("day_number_to_date");
}
TEST(GoldenDigests, YearDayInverseOfEveryReachableDay) { ExpectRecordedDigest("year_day_inverse"); }
TEST(GoldenDigests, TimeOfDayBothWays) { ExpectRecordedDigest("time_of_day"); }
TEST(GoldenDigests, CalendarClassesOfEvery16BitYear) { ExpectRecordedDigest("calendar_classes"); }
TEST(GoldenDigests, HebrewYearAndMonthLengthsOfEvery16BitYear) { ExpectRecordedDigest("hebrew_years"); }
TEST(GoldenDigests, HebrewDatesOfEveryTabulatedDayAndBeyond) { ExpectRecordedDigest("hebrew_dates"); }
TEST(GoldenDigests, SunTimesOfEveryDayFrom1900To2100) { ExpectRecordedDigest("sun_times"); }
TEST(GoldenDigests, MoonPhases) { ExpectRecordedDigest("moon_phases"); }

}  // namespace
