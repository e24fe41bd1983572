// Which stored parameter sets a Time object takes exactly as stored. The
// limits are those of the Time object's fields: 16-bit day, month, year,
// hour and minute, a 32-bit float second.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "stored_parameters.h"

namespace {

using timetool::CheckStoredTime;
using timetool::StoredKind;
using timetool::StoredNumberText;
using timetool::StoredParameter;

std::vector<StoredParameter> SolsticeSet() {
    return {{"Day", StoredKind::Integer, 21},    {"Month", StoredKind::Integer, 6},
            {"Year", StoredKind::Integer, 2024}, {"Hour", StoredKind::Integer, 17},
            {"Minute", StoredKind::Integer, 54}, {"Second", StoredKind::Double, 30.5}};
}

std::vector<StoredParameter> With(const std::string& name, StoredKind kind, double number) {
    std::vector<StoredParameter> set = SolsticeSet();
    for (StoredParameter& parameter : set) {
        if (parameter.name == name) parameter = {name, kind, number};
    }
    return set;
}

std::vector<StoredParameter> Without(const std::vector<std::string>& names) {
    std::vector<StoredParameter> set;
    for (const StoredParameter& parameter : SolsticeSet()) {
        bool dropped = false;
        for (const std::string& name : names) dropped = dropped || parameter.name == name;
        if (!dropped) set.push_back(parameter);
    }
    return set;
}

TEST(CheckStoredTime, ASavedTimeIsTakenAsItIs) {
    EXPECT_EQ(CheckStoredTime(SolsticeSet()), "");
    // Order and extra entries do not matter; values outside a calendar's
    // ranges are the Time object's to carry, as it always has.
    const std::vector<StoredParameter> set = SolsticeSet();
    std::vector<StoredParameter> shuffled(set.rbegin(), set.rend());
    shuffled.push_back({"Note", StoredKind::Text, 0});
    EXPECT_EQ(CheckStoredTime(shuffled), "");
    EXPECT_EQ(CheckStoredTime(With("Day", StoredKind::Integer, 40)), "");
    EXPECT_EQ(CheckStoredTime(With("Second", StoredKind::Double, 75.25)), "");
    EXPECT_EQ(CheckStoredTime(With("Year", StoredKind::Double, -44.0)), "");
}

TEST(CheckStoredTime, NoTimeParameterSet) {
    EXPECT_EQ(CheckStoredTime({}), "it holds no Time parameter set");
    EXPECT_EQ(CheckStoredTime({{"Capacity", StoredKind::Integer, 3}}), "it holds no Time parameter set");
}

TEST(CheckStoredTime, MissingParametersAreNamed) {
    EXPECT_EQ(CheckStoredTime(Without({"Second"})), "its Time parameter set lacks Second");
    EXPECT_EQ(CheckStoredTime(Without({"Hour", "Minute"})), "its Time parameter set lacks Hour and Minute");
    EXPECT_EQ(CheckStoredTime(Without({"Day", "Month", "Second"})),
              "its Time parameter set lacks Day, Month and Second");
    EXPECT_EQ(CheckStoredTime({{"Year", StoredKind::Integer, 2024}}),
              "its Time parameter set lacks Day, Month, Hour, Minute and Second");
}

TEST(CheckStoredTime, SixteenBitFieldsTakeMinus32768To32767) {
    EXPECT_EQ(CheckStoredTime(With("Year", StoredKind::Integer, 32767)), "");
    EXPECT_EQ(CheckStoredTime(With("Year", StoredKind::Integer, -32768)), "");
    EXPECT_EQ(CheckStoredTime(With("Year", StoredKind::Integer, 32768)),
              "Year 32768 does not fit the Time object's 16-bit field (-32768 to 32767)");
    EXPECT_EQ(CheckStoredTime(With("Minute", StoredKind::Integer, -32769)),
              "Minute -32769 does not fit the Time object's 16-bit field (-32768 to 32767)");
    EXPECT_EQ(CheckStoredTime(With("Day", StoredKind::Double, 70000.0)),
              "Day 70000 does not fit the Time object's 16-bit field (-32768 to 32767)");
    EXPECT_EQ(CheckStoredTime(With("Hour", StoredKind::Double, 17.5)), "Hour 17.5 is not a whole number");
}

TEST(CheckStoredTime, ValuesMustBeFiniteNumbers) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(CheckStoredTime(With("Second", StoredKind::Double, nan)), "Second nan is not a finite number");
    EXPECT_EQ(CheckStoredTime(With("Second", StoredKind::Double, -inf)), "Second -inf is not a finite number");
    EXPECT_EQ(CheckStoredTime(With("Month", StoredKind::Double, inf)), "Month inf is not a finite number");
    EXPECT_EQ(CheckStoredTime(With("Day", StoredKind::Text, 0)), "Day is text, not a number");
    EXPECT_EQ(CheckStoredTime(With("Hour", StoredKind::Empty, 0)), "Hour is empty, not a number");
    EXPECT_EQ(CheckStoredTime(With("Minute", StoredKind::Other, 0)), "Minute is not a plain value, not a number");
}

TEST(CheckStoredTime, TheSecondTakesTheRangeOfA32BitFloat) {
    // 3.4028234663852886e38 is the largest float.
    EXPECT_EQ(CheckStoredTime(With("Second", StoredKind::Double, 3.4028234663852886e38)), "");
    EXPECT_EQ(CheckStoredTime(With("Second", StoredKind::Double, 1e39)),
              "Second 1e+39 does not fit the Time object's second (a 32-bit float)");
    EXPECT_EQ(CheckStoredTime(With("Second", StoredKind::Double, -1e39)),
              "Second -1e+39 does not fit the Time object's second (a 32-bit float)");
}

TEST(CheckStoredTime, TheFirstProblemInTheObjectsOrderIsNamed) {
    std::vector<StoredParameter> set = With("Second", StoredKind::Double, 1e39);
    set[0] = {"Day", StoredKind::Integer, 99999};
    EXPECT_EQ(CheckStoredTime(set), "Day 99999 does not fit the Time object's 16-bit field (-32768 to 32767)");
}

TEST(StoredNumberText, ShortestTextThatReadsBack) {
    EXPECT_EQ(StoredNumberText(21), "21");
    EXPECT_EQ(StoredNumberText(30.5), "30.5");
    EXPECT_EQ(StoredNumberText(0.1), "0.1");
    EXPECT_EQ(StoredNumberText(0.30000000000000004), "0.30000000000000004");
    EXPECT_EQ(StoredNumberText(-32769), "-32769");
    EXPECT_EQ(StoredNumberText(std::nan("")), "nan");
}

}  // namespace
