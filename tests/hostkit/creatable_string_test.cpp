#include <gtest/gtest.h>

#include "kit_test_support.h"

namespace {

TEST(CreatableString, NewObjectIsEmptyWithOneReference) {
    SmartPtr<ICreatableString> text = NewKit<ICreatableString>(L"CreatableString", "ICreatableString");
    ASSERT_TRUE(text);
    tagREFString ref{-1, nullptr};
    EXPECT_EQ(text->GetString(&ref), S_OK);
    EXPECT_EQ(ref.length, 0);
    ASSERT_NE(ref.string, nullptr);
    EXPECT_EQ(ref.string[0], L'\0');
    EXPECT_EQ(text->AddRef(), 2);
    EXPECT_EQ(text->Release(), 1);
    EXPECT_EQ(text.detach()->Release(), 0);
}

TEST(CreatableString, AnswersBothTextInterfacesAndIUnknownOnOneCount) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    ASSERT_TRUE(text);
    void* creatable = nullptr;
    EXPECT_EQ(text->QueryInterface(HostIID("ICreatableString"), &creatable), S_OK);
    EXPECT_EQ(creatable, static_cast<void*>(text.get()));
    void* unknown = nullptr;
    EXPECT_EQ(text->QueryInterface(IID_IUnknown, &unknown), S_OK);
    EXPECT_EQ(unknown, static_cast<void*>(text.get()));
    EXPECT_EQ(text->Release(), 2);
    EXPECT_EQ(text->Release(), 1);
    void* other = reinterpret_cast<void*>(1);
    EXPECT_EQ(text->QueryInterface(HostIID("IVariant"), &other), E_NOINTERFACE);
    EXPECT_EQ(other, nullptr);
    EXPECT_EQ(text->QueryInterface(HostIID("IString"), nullptr), E_POINTER);
    EXPECT_EQ(text.detach()->Release(), 0);
}

TEST(CreatableString, SetStringCopiesTheText) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    wchar_t source[] = L"Calendar";
    EXPECT_EQ(text->SetString(8, source), S_OK);
    source[0] = L'X';
    EXPECT_EQ(TextOf(text.get()), L"Calendar");
}

TEST(CreatableString, SetStringReadsOnlyTheCountedCharacters) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    EXPECT_EQ(text->SetString(4, L"TimeAndMore"), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"Time");
    tagREFString ref{};
    text->GetString(&ref);
    EXPECT_EQ(ref.string[4], L'\0');  // the view is terminated for callers that need it
}

TEST(CreatableString, SetStringReplacesAndAppendAppends) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    EXPECT_EQ(text->SetString(3, L"abc"), S_OK);
    EXPECT_EQ(text->SetString(2, L"xy"), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"xy");
    EXPECT_EQ(text->Append(3, L"123"), S_OK);
    EXPECT_EQ(text->Append(0, nullptr), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"xy123");
    EXPECT_EQ(text->SetString(0, nullptr), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"");
}

TEST(CreatableString, AppendsAndSetsFromItsOwnText) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    text->SetString(4, L"abcd");
    tagREFString ref{};
    text->GetString(&ref);
    EXPECT_EQ(text->Append(ref.length, ref.string), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"abcdabcd");
    text->GetString(&ref);
    EXPECT_EQ(text->SetString(3, ref.string + 2), S_OK);
    EXPECT_EQ(TextOf(text.get()), L"cda");
}

TEST(CreatableString, BadArgumentsGiveCodesAndKeepTheText) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    text->SetString(2, L"ok");
    EXPECT_EQ(text->GetString(nullptr), E_POINTER);
    EXPECT_EQ(text->SetString(-1, L"x"), E_INVALIDARG);
    EXPECT_EQ(text->SetString(3, nullptr), E_POINTER);
    EXPECT_EQ(text->Append(-5, L"x"), E_INVALIDARG);
    EXPECT_EQ(text->Append(1, nullptr), E_POINTER);
    EXPECT_EQ(TextOf(text.get()), L"ok");
}

TEST(CreatableString, KeepsEmbeddedNulAndNonAsciiUnits) {
    SmartPtr<IString> text = NewKit<IString>(L"CreatableString", "IString");
    const wchar_t source[] = {L'a', L'\0', 0x05D0, 0x1F600};
    EXPECT_EQ(text->SetString(4, source), S_OK);
    EXPECT_EQ(TextOf(text.get()), std::wstring(source, 4));
}

}  // namespace
