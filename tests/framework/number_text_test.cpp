#include <gtest/gtest.h>

#include <cmath>
#include <cwchar>

#include "framework/conversions.h"
#include "view_text.h"

namespace {

struct IntegerCase {
    const wchar_t* text;
    int base;
    int value;
};

TEST(IS2Integer, ReadsSignedDigitsWithoutSkippingSpace) {
    const IntegerCase cases[] = {
        {L"#1f", 10, 31},
        {L"-42abc", 10, -42},
        {L" 42", 10, 0},
        {L"+", 10, 0},
        {L"12", 16, 18},
        {L"", 10, 0},
        {L"-", 10, 0},
        {L"#", 10, 0},
        {L"+7", 10, 7},
        {L"12 3", 10, 12},
        {L"ff", 16, 255},
        {L"FF", 16, 255},
        {L"#FFFFFFFF", 10, -1},
        // Digits are not checked against the base.
        {L"19", 8, 17},
        {L"F", 11, 15},
        // Letters count only for bases 11 to 16.
        {L"f", 10, 0},
        {L"1f", 17, 1},
        {L"1a", 10, 1},
        // Unsigned 32-bit arithmetic wraps.
        {L"4294967295", 10, -1},
        {L"4294967296", 10, 0},
        {L"2147483648", 10, -2147483647 - 1},
        {L"-2147483648", 10, -2147483647 - 1},
        {L"#-1", 10, 0},
        {L"--1", 10, 0},
    };
    for (const IntegerCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "' base " << c.base);
        EXPECT_EQ(_IS2Integer(View(c.text), c.base), c.value);
    }
}

TEST(IS2Integer, NeverReadsPastLength) {
    EXPECT_EQ(_IS2Integer(CREFString(L"123", 2), 10), 12);
    EXPECT_EQ(_IS2Integer(CREFString(L"-9", 1), 10), 0);
}

struct DoubleCase {
    const wchar_t* text;
    double value;
};

TEST(IS2Double, ReadsDecimalOrHexText) {
    const DoubleCase cases[] = {
        {L"-0.25", -0.25},
        {L"3.5.1", 3.5},
        {L"1e5", 1.0},
        {L"#FF", 255.0},
        {L"#ff", 255.0},
        {L"#FFFFFFFF", -1.0},
        {L"#7FFFFFFF", 2147483647.0},
        {L"#", 0.0},
        {L"", 0.0},
        {L"+2.5", 2.5},
        {L".5", 0.5},
        {L" 1", 0.0},
        {L"12", 12.0},
        {L"12x", 12.0},
        {L"7.", 7.0},
        {L"-3", -3.0},
    };
    for (const DoubleCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "'");
        EXPECT_EQ(_IS2Double(View(c.text)), c.value);
    }
}

TEST(IS2Double, LoneMinusGivesNegativeZero) {
    const double value = _IS2Double(View(L"-"));
    EXPECT_EQ(value, 0.0);
    EXPECT_TRUE(std::signbit(value));
    EXPECT_FALSE(std::signbit(_IS2Double(View(L"+"))));
}

TEST(IS2Double, FractionStopsAtEighteenthDigit) {
    EXPECT_DOUBLE_EQ(_IS2Double(View(L"0.1234567890123456789")), 0.123456789012345678);
    EXPECT_DOUBLE_EQ(_IS2Double(View(L"2.0000000000000000019")), 2.0);
    EXPECT_DOUBLE_EQ(_IS2Double(View(L"0.12345678901234567")), 0.12345678901234567);
}

TEST(IS2Double, NeverReadsPastLength) { EXPECT_DOUBLE_EQ(_IS2Double(CREFString(L"1.25", 3)), 1.2); }

TEST(Swprintf, FormatsAndTerminates) {
    wchar_t buffer[16];
    EXPECT_EQ(_swprintf(buffer, 16, L"%d|%ls", 12345, L"ab"), 8);
    EXPECT_STREQ(buffer, L"12345|ab");
    EXPECT_EQ(_swprintf(buffer, 16, L"%%.%df", 3), 4);
    EXPECT_STREQ(buffer, L"%.3f");
    EXPECT_EQ(_swprintf(buffer, 16, L""), 0);
    EXPECT_STREQ(buffer, L"");
}

TEST(Swprintf, OutputBeyondCapacityIsCutAndTerminated) {
    wchar_t buffer[8] = {L'x', L'x', L'x', L'x', L'x', L'x', L'x', L'x'};
    EXPECT_EQ(_swprintf(buffer, 4, L"%ls", L"123456"), 3);
    EXPECT_STREQ(buffer, L"123");
    EXPECT_EQ(buffer[4], L'x');
}

TEST(Swprintf, ZeroCapacityWritesNothing) {
    wchar_t buffer[2] = {L'x', L'x'};
    EXPECT_EQ(_swprintf(buffer, 0, L"%d", 5), 0);
    EXPECT_EQ(buffer[0], L'x');
}

}  // namespace
