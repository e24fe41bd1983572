#include "calendar/registry_decimal.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace {

struct Row {
    const wchar_t* text;
    double expected;
};

const Row kRows[] = {
    {L"1", 1.0},   {L"+12.5abc", 12.5}, {L"-3", -3.0},
    {L"", 0.0},    {L"abc", 0.0},       {L"-", 0.0},
    {L".5", 0.5},  {L"2.25.5", 2.25},   {L"-1721422.5", -1721422.5},
    {L"7 8", 7.0}, {L" 7", 0.0},        {L"0.1234567890123456789", 0.123456789012345678},
    {L"1.", 1.0},
};

TEST(ReadRegistryDecimal, Table) {
    for (const auto& row : kRows) {
        EXPECT_EQ(cal::ReadRegistryDecimal(row.text, static_cast<int>(std::wcslen(row.text))), row.expected)
            << static_cast<const void*>(row.text);
    }
}

TEST(ReadRegistryDecimal, ReadsOnlyCountedCharacters) {
    EXPECT_EQ(cal::ReadRegistryDecimal(L"12345", 2), 12.0);
    EXPECT_EQ(cal::ReadRegistryDecimal(L"12345", 0), 0.0);
    EXPECT_EQ(cal::ReadRegistryDecimal(L"12345", -3), 0.0);
}

}  // namespace
