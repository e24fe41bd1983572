#include "hostkit/variant_number.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

struct ParseCase {
    std::wstring_view text;
    double value;
};

TEST(ParseTextNumber, ReadsTheLongestNumberPrefix) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const ParseCase cases[] = {
        {L"", 0.0},         {L"0", 0.0},           {L"12", 12.0},           {L"-7.75", -7.75}, {L"+3.5", 3.5},
        {L" \t\n42", 42.0}, {L"12abc", 12.0},      {L"1e3", 1000.0},        {L"2.5E-1", 0.25}, {L".5", 0.5},
        {L"5.", 5.0},       {L"abc", 0.0},         {L"+-3", 0.0},           {L"--3", 0.0},     {L"#1F", 0.0},
        {L"0x10", 0.0},     {L"1e999", kInfinity}, {L"-1e999", -kInfinity}, {L"1e-999", 0.0},  {L"inf", kInfinity},
        {L"1\u00A02", 1.0}, {L"\u0661", 0.0},
    };
    for (const ParseCase& c : cases) {
        EXPECT_EQ(kit::ParseTextNumber(c.text), c.value) << std::wstring(c.text).size();
    }
}

TEST(ParseTextNumber, ReadsAtMostTheBoundedPrefix) {
    std::wstring text(kit::kMaxNumberText, L'0');
    text.append(L"7");
    EXPECT_EQ(kit::ParseTextNumber(text), 0.0);
    text = L"1" + std::wstring(kit::kMaxNumberText - 1, L'0') + L"99";
    EXPECT_EQ(kit::ParseTextNumber(text), 1e127);
}

TEST(TruncateToInt32, TowardZeroSaturatingAndNanAsZero) {
    EXPECT_EQ(kit::TruncateToInt32(2.9), 2);
    EXPECT_EQ(kit::TruncateToInt32(-2.9), -2);
    EXPECT_EQ(kit::TruncateToInt32(2147483647.5), 2147483647);
    EXPECT_EQ(kit::TruncateToInt32(2147483648.0), 2147483647);
    EXPECT_EQ(kit::TruncateToInt32(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(kit::TruncateToInt32(-2147483649.0), -2147483647 - 1);
    EXPECT_EQ(kit::TruncateToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(kit::TruncateToInt32(-std::numeric_limits<double>::infinity()), -2147483647 - 1);
}

}  // namespace
