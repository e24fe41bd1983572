// "CreatableString": a framework text object owning a copy of its text.
#include "hostkit/creatable_string.h"

#include <string>

#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"

namespace kit {

namespace {

class CreatableString final : public ICreatableString, public RefCounted {
public:
    CreatableString() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this,
                              {{kIID_ICreatableString, static_cast<ICreatableString*>(this)},
                               {kIID_IString, static_cast<IString*>(this)}},
                              iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // The view stays valid until the next SetString or Append.
    HRESULT GetString(tagREFString* text) override {
        if (!text) return E_POINTER;
        text->length = static_cast<std::int32_t>(text_.size());
        text->string = text_.c_str();
        return S_OK;
    }

    HRESULT SetString(std::int32_t length, const wchar_t* text) override {
        const HRESULT hr = CheckText(length, text);
        if (FAILED(hr)) return hr;
        // assign copes with text pointing into text_ itself
        return NoThrow([&] {
            text_.assign(TextView(length, text));
            return S_OK;
        });
    }

    HRESULT Append(std::int32_t length, const wchar_t* text) override {
        const HRESULT hr = CheckText(length, text);
        if (FAILED(hr)) return hr;
        if (static_cast<std::size_t>(length) > kMaxTextLength - text_.size()) return E_INVALIDARG;
        return NoThrow([&] {
            text_.append(TextView(length, text));
            return S_OK;
        });
    }

private:
    ~CreatableString() override = default;

    std::wstring text_;  // never longer than kMaxTextLength
};

}  // namespace

HRESULT CreateCreatableString(const IID& iid, void** out) { return CreateObject<CreatableString>(iid, out); }

HRESULT NewString(std::wstring_view text, IString** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (text.size() > kMaxTextLength) return E_INVALIDARG;
    IString* string = nullptr;
    HRESULT hr = CreateCreatableString(kIID_IString, reinterpret_cast<void**>(&string));
    if (FAILED(hr)) return hr;
    hr = string->SetString(static_cast<std::int32_t>(text.size()), text.data());
    if (FAILED(hr)) {
        string->Release();
        return hr;
    }
    *out = string;
    return S_OK;
}

}  // namespace kit
