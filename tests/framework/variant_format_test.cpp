#include <gtest/gtest.h>

#include "framework/variant_format.h"
#include "view_text.h"

namespace {

struct ClassifyCase {
    const wchar_t* text;
    NumberText kind;
};

TEST(ClassifyNumberText, PlainNumbersOnly) {
    const ClassifyCase cases[] = {
        {L"5", NumberText::kInteger},
        {L"-5", NumberText::kInteger},
        {L"5 ", NumberText::kInteger},
        {L"5 x.y", NumberText::kInteger},
        {L"123456789", NumberText::kInteger},
        {L"-12345678", NumberText::kInteger},
        // Nine characters at most, sign and trailing text included.
        {L"-123456789", NumberText::kNone},
        {L"12345678 x", NumberText::kNone},
        {L"12345678901", NumberText::kNone},
        {L"2.5", NumberText::kDecimal},
        {L".5", NumberText::kDecimal},
        {L"5.", NumberText::kDecimal},
        {L"-0.25 ", NumberText::kDecimal},
        {L"12345678901.5", NumberText::kDecimal},
        {L"", NumberText::kNone},
        {L"  5", NumberText::kNone},
        {L"-", NumberText::kNone},
        {L".", NumberText::kNone},
        {L"- 5", NumberText::kNone},
        {L"1.2.3", NumberText::kNone},
        {L"+5", NumberText::kNone},
        {L"5x", NumberText::kNone},
        {L"1e5", NumberText::kNone},
    };
    for (const ClassifyCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "text '" << c.text << "'");
        EXPECT_EQ(ClassifyNumberText(View(c.text)), c.kind);
    }
}

struct DecimalsCase {
    double value;
    int decimals;
};

TEST(AutomaticDecimals, GrowsUntilNoFractionRemainsCappedAtNine) {
    const DecimalsCase cases[] = {
        {2.5, 1}, {-2.5, 1},      {7.0, 0},       {0.0, 0},  {0.125, 3},
        {0.1, 1}, {1.0 / 3.0, 9}, {2.0 / 3.0, 9}, {1e-9, 0}, {3.14159, 5},
    };
    for (const DecimalsCase& c : cases) {
        SCOPED_TRACE(testing::Message() << "value " << c.value);
        EXPECT_EQ(AutomaticDecimals(c.value), c.decimals);
    }
}

TEST(BinaryFormatShift, ByteChosenByFormat) {
    const struct {
        short format;
        int shift;
    } cases[] = {{-22, 8}, {-23, 16}, {-32, 16}, {-24, 24}, {-42, 24}, {-2, 0}, {-21, 0}, {-100, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "format " << c.format);
        EXPECT_EQ(BinaryFormatShift(c.format), c.shift);
    }
}

TEST(WriteBinaryByte, MostSignificantBitFirst) {
    wchar_t buffer[9];
    EXPECT_EQ(WriteBinaryByte(buffer, 0x1234u, 8), 8);
    EXPECT_STREQ(buffer, L"00010010");
    WriteBinaryByte(buffer, 0x1234u, 0);
    EXPECT_STREQ(buffer, L"00110100");
    WriteBinaryByte(buffer, 0x80FF0000u, 24);
    EXPECT_STREQ(buffer, L"10000000");
    WriteBinaryByte(buffer, 0x80FF0000u, 16);
    EXPECT_STREQ(buffer, L"11111111");
}

}  // namespace
