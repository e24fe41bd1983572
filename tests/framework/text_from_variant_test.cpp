#include <gtest/gtest.h>

#include <functional>

#include "base/iids.h"
#include "framework/conversions.h"
#include "kit_services.h"
#include "module/entry.h"
#include "module_interfaces.h"

namespace {

// Installs the kit's global collection before any service is used; the
// service caches of this process then hold the kit's descriptors.
class KitCollectionEnvironment : public testing::Environment {
public:
    void SetUp() override {
        SmartPtr<IComponentCollection> collection = CreateKitCollection();
        ASSERT_TRUE(collection);
        InitializeModule(nullptr, collection.get());
    }
};

const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new KitCollectionEnvironment);

SmartPtr<IVariant> NewVariant() { return SmartPtr<IVariant>(CREFString::CreateVariant()); }

SmartPtr<IVariant> Integer(std::int32_t value) {
    SmartPtr<IVariant> variant = NewVariant();
    if (variant) variant->SetInteger(value);
    return variant;
}

SmartPtr<IVariant> Double(double value) {
    SmartPtr<IVariant> variant = NewVariant();
    if (variant) variant->SetDouble(value);
    return variant;
}

SmartPtr<IVariant> Text(const wchar_t* text) {
    SmartPtr<IVariant> variant = NewVariant();
    if (variant) variant->SetText(static_cast<std::int32_t>(std::wcslen(text)), text);
    return variant;
}

SmartPtr<IVariant> Object(IUnknown* object) {
    SmartPtr<IVariant> variant = NewVariant();
    if (variant) variant->SetObject(object);
    return variant;
}

// An object that names itself through IObjectInfo, or one that answers only
// IUnknown.
class NamedObject final : public IObjectInfo {
public:
    explicit NamedObject(bool answersObjectInfo) : answersObjectInfo_(answersObjectInfo) {}
    HRESULT QueryInterface(const IID& iid, void** out) override {
        *out = nullptr;
        if (iid == IID_IUnknown || (answersObjectInfo_ && iid == IID_IObjectInfo)) {
            *out = static_cast<IObjectInfo*>(this);
            AddRef();
            return S_OK;
        }
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return ++references_; }
    std::int32_t Release() override { return --references_; }
    HRESULT GetName(std::int32_t, tagREFString* name) override {
        *name = {4, L"Time"};
        return S_OK;
    }
    std::int32_t references() const { return references_; }

private:
    bool answersObjectInfo_;
    std::int32_t references_ = 1;
};

struct FormatCase {
    const char* what;
    std::function<SmartPtr<IVariant>()> make;
    short format;
    const wchar_t* text;
};

TEST(ISCreateFormat, EveryFormatRow) {
    const FormatCase cases[] = {
        {"2.5 automatic", [] { return Double(2.5); }, -1, L"2.5"},
        {"1/3 automatic", [] { return Double(1.0 / 3.0); }, -1, L"0.333333333"},
        {"-0.5 automatic", [] { return Double(-0.5); }, -1, L"-0.5"},
        {"2.0 automatic", [] { return Double(2.0); }, -1, L"2"},
        {"integer 7 automatic", [] { return Integer(7); }, -1, L"7"},
        {"integer -7 automatic", [] { return Integer(-7); }, -1, L"-7"},
        {"integer 7 format 0", [] { return Integer(7); }, 0, L"7"},
        {"integer 7 format 2", [] { return Integer(7); }, 2, L"7.00"},
        {"2.25 format 3", [] { return Double(2.25); }, 3, L"2.250"},
        {"2.75 format 1", [] { return Double(2.75); }, 1, L"2.8"},
        {"2.75 format 0", [] { return Double(2.75); }, 0, L"3"},
        {"empty automatic", [] { return NewVariant(); }, -1, L"0"},
        {"colour 255", [] { return Integer(255); }, -16, L"#0000FF"},
        {"colour 0xFFFFFF", [] { return Integer(0xFFFFFF); }, -16, L"#FFFFFF"},
        {"colour 0x1000000", [] { return Integer(0x1000000); }, -16, L"#1000000"},
        {"colour -1", [] { return Integer(-1); }, -16, L"#FFFFFFFF"},
        {"binary bits 8-15", [] { return Integer(0x1234); }, -22, L"00010010"},
        {"binary bits 16-23 (-23)", [] { return Integer(0x12345678); }, -23, L"00110100"},
        {"binary bits 16-23 (-32)", [] { return Integer(0x12345678); }, -32, L"00110100"},
        {"binary bits 24-31 (-24)", [] { return Integer(0x12345678); }, -24, L"00010010"},
        {"binary bits 24-31 (-42)", [] { return Integer(0x12345678); }, -42, L"00010010"},
        {"binary bits 0-7 (-2)", [] { return Integer(0x12345678); }, -2, L"01111000"},
        {"binary bits 0-7 (-17)", [] { return Integer(0x12345678); }, -17, L"01111000"},
        {"binary bits 0-7 (-100)", [] { return Integer(0x12345678); }, -100, L"01111000"},
        // Text variants: plain numbers are formatted again, other text passes through.
        {"text 12345678901", [] { return Text(L"12345678901"); }, -1, L"12345678901"},
        {"text '  5'", [] { return Text(L"  5"); }, -1, L"  5"},
        {"text '5 '", [] { return Text(L"5 "); }, -1, L"5"},
        {"text 123456789", [] { return Text(L"123456789"); }, -1, L"123456789"},
        {"text abc", [] { return Text(L"abc"); }, -1, L"abc"},
        {"text empty", [] { return Text(L""); }, -1, L""},
        {"text 2.50", [] { return Text(L"2.50"); }, -1, L"2.5"},
        {"text -7 format 2", [] { return Text(L"-7"); }, 2, L"-7.00"},
        {"text 1.5 format 0", [] { return Text(L"1.25"); }, 0, L"1"},
        {"text 12345678901 format 2", [] { return Text(L"12345678901"); }, 2, L"12345678901"},
    };
    for (const FormatCase& c : cases) {
        SCOPED_TRACE(c.what);
        SmartPtr<IVariant> variant = c.make();
        ASSERT_TRUE(variant);
        SmartPtr<IString> text(ISCreate(variant.get(), c.format));
        EXPECT_EQ(TextOf(text.get()), c.text);
    }
}

TEST(ISCreateFormat, NullVariantGivesNull) {
    EXPECT_EQ(ISCreate(nullptr, -1), nullptr);
    EXPECT_EQ(ISCreate(nullptr, -16), nullptr);
    EXPECT_EQ(ISCreate(static_cast<IVariant*>(nullptr)), nullptr);
}

TEST(ISCreateFormat, ResultCarriesOneReference) {
    SmartPtr<IVariant> variant = Integer(7);
    IString* text = ISCreate(variant.get(), -1);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->AddRef(), 2);
    EXPECT_EQ(text->Release(), 1);
    EXPECT_EQ(text->Release(), 0);
}

TEST(ISCreateValue, TextOfEveryKind) {
    const FormatCase cases[] = {
        {"integer", [] { return Integer(7); }, 0, L"7"},
        {"double", [] { return Double(2.5); }, 0, L"2.5"},
        {"text", [] { return Text(L"abc"); }, 0, L"abc"},
        {"long digit text", [] { return Text(L"12345678901"); }, 0, L"12345678901"},
        {"number text kept as it is", [] { return Text(L"5 "); }, 0, L"5 "},
        {"empty", [] { return NewVariant(); }, 0, L""},
    };
    for (const FormatCase& c : cases) {
        SCOPED_TRACE(c.what);
        SmartPtr<IVariant> variant = c.make();
        ASSERT_TRUE(variant);
        SmartPtr<IString> text(ISCreate(variant.get()));
        EXPECT_EQ(TextOf(text.get()), c.text);
    }
}

// A variant of type code 0 holding an object, as the framework reports
// object variants; every other operation reads as empty.
class ObjectVariant final : public IVariant {
public:
    explicit ObjectVariant(IUnknown* object) : object_(object) {}
    HRESULT QueryInterface(const IID&, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }
    std::int32_t AddRef() override { return 2; }
    std::int32_t Release() override { return 1; }
    short GetType() override { return kVariantEmpty; }
    double GetDouble() override { return 0.0; }
    std::int32_t GetInteger() override { return 0; }
    HRESULT SetInteger(std::int32_t) override { return E_NOTIMPL; }
    HRESULT SetDouble(double) override { return E_NOTIMPL; }
    HRESULT SetObject(IUnknown*) override { return E_NOTIMPL; }
    HRESULT GetObject(IUnknown** object) override {
        *object = object_;
        if (object_) object_->AddRef();
        return object_ ? S_OK : E_FAIL;
    }
    HRESULT SetText(std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    short IsString() override { return 0; }
    HRESULT GetString(IString** text) override {
        *text = nullptr;
        return E_FAIL;
    }

private:
    IUnknown* object_;
};

TEST(ISCreateValue, ObjectWithoutObjectInfoGivesEmptyText) {
    NamedObject object(false);
    ObjectVariant variant(&object);
    SmartPtr<IString> text(ISCreate(&variant));
    EXPECT_EQ(TextOf(text.get()), L"");
    EXPECT_EQ(object.references(), 1);
}

TEST(ISCreateValue, ObjectWithObjectInfoGivesItsName) {
    NamedObject object(true);
    ObjectVariant variant(&object);
    SmartPtr<IString> text(ISCreate(&variant));
    EXPECT_EQ(TextOf(text.get()), L"Time");
    EXPECT_EQ(object.references(), 1);
}

TEST(ISCreateValue, KitObjectWithoutObjectInfoGivesEmptyText) {
    NamedObject object(false);
    {
        SmartPtr<IVariant> variant = Object(&object);
        ASSERT_TRUE(variant);
        SmartPtr<IString> text(ISCreate(variant.get()));
        EXPECT_EQ(TextOf(text.get()), L"");
    }
    EXPECT_EQ(object.references(), 1);
}

TEST(ISCreateValue, KitObjectWithObjectInfoGivesItsName) {
    NamedObject object(true);
    {
        SmartPtr<IVariant> variant = Object(&object);
        ASSERT_TRUE(variant);
        SmartPtr<IString> text(ISCreate(variant.get()));
        EXPECT_EQ(TextOf(text.get()), L"Time");
    }
    EXPECT_EQ(object.references(), 1);
}

TEST(ISCreateText, CopiesWideCString) {
    wchar_t buffer[] = L"abc";
    SmartPtr<IString> text(ISCreate(buffer));
    buffer[0] = L'x';
    EXPECT_EQ(TextOf(text.get()), L"abc");
    SmartPtr<IString> empty(ISCreate(L""));
    EXPECT_EQ(TextOf(empty.get()), L"");
}

TEST(ISCreateText, NullGivesEmptyText) {
    SmartPtr<IString> text(ISCreate(static_cast<const wchar_t*>(nullptr)));
    ASSERT_TRUE(text);
    EXPECT_EQ(TextOf(text.get()), L"");
}

TEST(ISCreateText, ResultCarriesOneReference) {
    IString* text = ISCreate(L"abc");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->AddRef(), 2);
    EXPECT_EQ(text->Release(), 1);
    EXPECT_EQ(text->Release(), 0);
}

TEST(IVCreate, VariantHoldingInteger) {
    IVariant* variant = IVCreate(-42);
    ASSERT_NE(variant, nullptr);
    EXPECT_EQ(variant->GetType(), kVariantInteger);
    EXPECT_EQ(variant->GetInteger(), -42);
    EXPECT_EQ(variant->AddRef(), 2);
    EXPECT_EQ(variant->Release(), 1);
    EXPECT_EQ(variant->Release(), 0);
}

}  // namespace
