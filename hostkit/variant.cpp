// "Variant": one value that is empty, an integer, a double, a text (owned
// copy) or an object (one reference held).
#include <string>
#include <utility>

#include "hostkit/creatable_string.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/variant_number.h"

namespace kit {

namespace {

// Storage tag of a held object; reported to callers as the empty code.
constexpr short kStoredObject = 4;

class Variant final : public IVariant, public RefCounted {
public:
    Variant() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this, {{kIID_IVariant, static_cast<IVariant*>(this)}}, iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    short GetType() override { return type_ == kStoredObject ? kVariantEmpty : type_; }

    // Empty and object variants read as 0.
    double GetDouble() override {
        switch (type_) {
            case kVariantInteger:
                return static_cast<double>(integer_);
            case kVariantDouble:
                return double_;
            case kVariantText:
                return ParseTextNumber(text_);
            default:
                return 0.0;
        }
    }

    std::int32_t GetInteger() override {
        switch (type_) {
            case kVariantInteger:
                return integer_;
            case kVariantDouble:
                return TruncateToInt32(double_);
            case kVariantText:
                return TruncateToInt32(ParseTextNumber(text_));
            default:
                return 0;
        }
    }

    HRESULT SetInteger(std::int32_t value) override {
        IUnknown* old = Reset(kVariantInteger);
        integer_ = value;
        return Finish(old);
    }

    HRESULT SetDouble(double value) override {
        IUnknown* old = Reset(kVariantDouble);
        double_ = value;
        return Finish(old);
    }

    // A null object leaves the variant empty.
    HRESULT SetObject(IUnknown* object) override {
        if (object) object->AddRef();
        IUnknown* old = Reset(object ? kStoredObject : kVariantEmpty);
        object_ = object;
        return Finish(old);
    }

    HRESULT GetObject(IUnknown** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (type_ != kStoredObject) return E_FAIL;
        object_->AddRef();
        *object = object_;
        return S_OK;
    }

    HRESULT SetText(std::int32_t length, const wchar_t* text) override {
        const HRESULT hr = CheckText(length, text);
        if (FAILED(hr)) return hr;
        return NoThrow([&] {
            // Copied first: text may point into text_, and a failed copy leaves the variant as it was.
            std::wstring copy(TextView(length, text));
            IUnknown* old = Reset(kVariantText);
            text_ = std::move(copy);
            return Finish(old);
        });
    }

    short IsString() override { return type_ == kVariantText ? 1 : 0; }

    // A new text object on each call, holding a copy of the text.
    HRESULT GetString(IString** text) override {
        if (!text) return E_POINTER;
        *text = nullptr;
        if (type_ != kVariantText) return E_FAIL;
        return NewString(text_, text);
    }

private:
    ~Variant() override {
        if (object_) object_->Release();
    }

    // Clears the old value and sets the new type; returns the object reference
    // to drop once the variant is consistent again.
    IUnknown* Reset(short type) {
        IUnknown* old = std::exchange(object_, nullptr);
        text_.clear();
        integer_ = 0;
        double_ = 0.0;
        type_ = type;
        return old;
    }
    // The old object is released last, so a release that re-enters sees the new value.
    static HRESULT Finish(IUnknown* old) {
        if (old) old->Release();
        return S_OK;
    }

    short type_ = kVariantEmpty;
    std::int32_t integer_ = 0;    // kVariantInteger
    double double_ = 0.0;         // kVariantDouble
    std::wstring text_;           // kVariantText
    IUnknown* object_ = nullptr;  // kStoredObject; one reference held
};

}  // namespace

HRESULT CreateVariant(const IID& iid, void** out) { return CreateObject<Variant>(iid, out); }

}  // namespace kit
