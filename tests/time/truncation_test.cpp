#include "time/truncation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

struct TruncationCase {
    double input;
    std::int32_t expected;
};

TEST(TruncateToInt32, TowardZeroInsideRangeAndInt32MinOutside) {
    const TruncationCase cases[] = {
        {0.0, 0},
        {1.9, 1},
        {-1.9, -1},
        {2147483647.9, 2147483647},
        {-2147483648.9, -2147483647 - 1},
        {2147483648.0, -2147483647 - 1},
        {-2147483649.0, -2147483647 - 1},
        {1e300, -2147483647 - 1},
        {std::numeric_limits<double>::infinity(), -2147483647 - 1},
        {std::nan(""), -2147483647 - 1},
    };
    for (const TruncationCase& c : cases) {
        EXPECT_EQ(TruncateToInt32(c.input), c.expected) << c.input;
    }
}
