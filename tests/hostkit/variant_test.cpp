#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "kit_test_support.h"

namespace {

SmartPtr<IVariant> NewVariant() { return NewKit<IVariant>(L"Variant", "IVariant"); }

TEST(Variant, NewVariantIsEmptyWithOneReference) {
    SmartPtr<IVariant> value = NewVariant();
    ASSERT_TRUE(value);
    EXPECT_EQ(value->GetType(), 0);
    EXPECT_EQ(value->GetDouble(), 0.0);
    EXPECT_EQ(value->GetInteger(), 0);
    EXPECT_EQ(value->IsString(), 0);
    EXPECT_EQ(value->AddRef(), 2);
    EXPECT_EQ(value->Release(), 1);
    EXPECT_EQ(value.detach()->Release(), 0);
}

TEST(Variant, IntegerReadsAsDoubleToo) {
    SmartPtr<IVariant> value = NewVariant();
    EXPECT_EQ(value->SetInteger(-42), S_OK);
    EXPECT_EQ(value->GetType(), 1);
    EXPECT_EQ(value->GetInteger(), -42);
    EXPECT_EQ(value->GetDouble(), -42.0);
    EXPECT_EQ(value->IsString(), 0);
}

struct DoubleCase {
    double value;
    std::int32_t integer;
};

TEST(Variant, DoubleTruncatesTowardZeroAndSaturates) {
    const DoubleCase cases[] = {
        {2.5, 2},
        {2.9999, 2},
        {-2.9, -2},
        {-0.5, 0},
        {2147483647.9, 2147483647},
        {2147483648.0, 2147483647},
        {1e300, 2147483647},
        {-2147483648.0, -2147483647 - 1},
        {-1e300, -2147483647 - 1},
        {std::numeric_limits<double>::infinity(), 2147483647},
        {std::numeric_limits<double>::quiet_NaN(), 0},
    };
    SmartPtr<IVariant> value = NewVariant();
    for (const DoubleCase& c : cases) {
        EXPECT_EQ(value->SetDouble(c.value), S_OK);
        EXPECT_EQ(value->GetType(), 2);
        EXPECT_EQ(value->GetInteger(), c.integer) << c.value;
    }
    value->SetDouble(0.1);
    EXPECT_EQ(value->GetDouble(), 0.1);
}

struct TextCase {
    const wchar_t* text;
    double number;
    std::int32_t integer;
};

TEST(Variant, TextIsParsedForNumbers) {
    const TextCase cases[] = {
        {L"12", 12.0, 12},
        {L"-7.75", -7.75, -7},
        {L"+3.5", 3.5, 3},
        {L"  42", 42.0, 42},
        {L"\t-1", -1.0, -1},
        {L"12abc", 12.0, 12},
        {L"1e3", 1000.0, 1000},
        {L".5", 0.5, 0},
        {L"abc", 0.0, 0},
        {L"", 0.0, 0},
        {L"+-3", 0.0, 0},
        {L"#1F", 0.0, 0},
        {L"99999999999", 99999999999.0, 2147483647},
        {L"1e999", std::numeric_limits<double>::infinity(), 2147483647},
        {L"-1e999", -std::numeric_limits<double>::infinity(), -2147483647 - 1},
        {L"1e-999", 0.0, 0},
    };
    SmartPtr<IVariant> value = NewVariant();
    for (const TextCase& c : cases) {
        const auto length = static_cast<std::int32_t>(std::wcslen(c.text));
        EXPECT_EQ(value->SetText(length, c.text), S_OK);
        EXPECT_EQ(value->GetType(), 3);
        EXPECT_EQ(value->IsString(), 1);
        EXPECT_EQ(value->GetDouble(), c.number) << std::wstring(c.text).size();
        EXPECT_EQ(value->GetInteger(), c.integer);
    }
}

TEST(Variant, TextIsCopiedAndGivenOutAsANewTextObject) {
    SmartPtr<IVariant> value = NewVariant();
    wchar_t source[] = L"12:30";
    EXPECT_EQ(value->SetText(5, source), S_OK);
    source[0] = L'9';
    SmartPtr<IString> first;
    SmartPtr<IString> second;
    EXPECT_EQ(value->GetString(first.put()), S_OK);
    EXPECT_EQ(value->GetString(second.put()), S_OK);
    EXPECT_EQ(TextOf(first.get()), L"12:30");
    EXPECT_NE(first.get(), second.get());
    // The text object is independent of the variant.
    first->SetString(1, L"x");
    EXPECT_EQ(TextOf(second.get()), L"12:30");
    EXPECT_EQ(first->AddRef(), 2);
    EXPECT_EQ(first->Release(), 1);
    EXPECT_EQ(first.detach()->Release(), 0);
}

TEST(Variant, GetStringFailsForEveryTypeButText) {
    SmartPtr<IVariant> value = NewVariant();
    IString* text = reinterpret_cast<IString*>(1);
    EXPECT_EQ(value->GetString(&text), E_FAIL);
    EXPECT_EQ(text, nullptr);
    value->SetInteger(5);
    text = reinterpret_cast<IString*>(1);
    EXPECT_EQ(value->GetString(&text), E_FAIL);
    EXPECT_EQ(text, nullptr);
    value->SetDouble(5.5);
    EXPECT_EQ(value->GetString(&text), E_FAIL);
    EXPECT_EQ(value->GetString(nullptr), E_POINTER);
}

TEST(Variant, ObjectIsHeldWithOneReferenceAndReleasedOnChange) {
    SmartPtr<IString> object = NewText(L"held");
    SmartPtr<IVariant> value = NewVariant();
    EXPECT_EQ(value->SetObject(object.get()), S_OK);
    EXPECT_EQ(value->GetType(), 0);  // objects report the empty code
    EXPECT_EQ(value->IsString(), 0);
    EXPECT_EQ(value->GetDouble(), 0.0);
    EXPECT_EQ(value->GetInteger(), 0);
    EXPECT_EQ(RefsHeld(object.get()), 2);
    IUnknown* got = nullptr;
    EXPECT_EQ(value->GetObject(&got), S_OK);
    EXPECT_EQ(got, static_cast<IUnknown*>(object.get()));
    EXPECT_EQ(got->Release(), 2);
    EXPECT_EQ(value->SetInteger(1), S_OK);
    EXPECT_EQ(RefsHeld(object.get()), 1);
}

TEST(Variant, ObjectIsReleasedWithTheVariant) {
    SmartPtr<IString> object = NewText(L"held");
    SmartPtr<IVariant> value = NewVariant();
    value->SetObject(object.get());
    value->SetObject(object.get());  // the same object again: still one reference
    EXPECT_EQ(RefsHeld(object.get()), 2);
    EXPECT_EQ(value.detach()->Release(), 0);
    EXPECT_EQ(RefsHeld(object.get()), 1);
}

TEST(Variant, NullObjectLeavesTheVariantEmpty) {
    SmartPtr<IVariant> value = NewVariant();
    value->SetInteger(3);
    EXPECT_EQ(value->SetObject(nullptr), S_OK);
    EXPECT_EQ(value->GetType(), 0);
    IUnknown* got = reinterpret_cast<IUnknown*>(1);
    EXPECT_EQ(value->GetObject(&got), E_FAIL);
    EXPECT_EQ(got, nullptr);
    EXPECT_EQ(value->GetObject(nullptr), E_POINTER);
}

TEST(Variant, BadTextArgumentsKeepTheValue) {
    SmartPtr<IVariant> value = NewVariant();
    value->SetInteger(9);
    EXPECT_EQ(value->SetText(-1, L"x"), E_INVALIDARG);
    EXPECT_EQ(value->SetText(2, nullptr), E_POINTER);
    EXPECT_EQ(value->GetType(), 1);
    EXPECT_EQ(value->GetInteger(), 9);
    EXPECT_EQ(value->SetText(0, nullptr), S_OK);
    EXPECT_EQ(value->GetType(), 3);
    SmartPtr<IString> text;
    EXPECT_EQ(value->GetString(text.put()), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"");
}

TEST(Variant, SettingTextFromItsOwnTextObjectWorks) {
    SmartPtr<IVariant> value = NewVariant();
    value->SetText(3, L"abc");
    SmartPtr<IString> text;
    value->GetString(text.put());
    tagREFString ref{};
    text->GetString(&ref);
    EXPECT_EQ(value->SetText(ref.length - 1, ref.string + 1), S_OK);
    SmartPtr<IString> again;
    value->GetString(again.put());
    EXPECT_EQ(TextOf(again.get()), L"bc");
}

}  // namespace
