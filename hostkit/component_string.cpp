// "ComponentString": a component descriptor (part 4 library, part 1 class)
// that creates instances of the component it names.
#include "hostkit/component_string.h"

#include <array>
#include <atomic>
#include <string>

#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/module_loader.h"

namespace kit {

namespace {

// Parts 0 to 15 are stored; 1 and 4 carry meaning.
constexpr std::int32_t kPartCount = 16;

class ComponentString final : public IComponentString, public RefCounted {
public:
    ComponentString() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this, {{kIID_IComponentString, static_cast<IComponentString*>(this)}}, iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // The view stays valid until the part is set again; an unset part is empty.
    HRESULT GetPart(std::int32_t part, tagREFString* text) override {
        if (!text) return E_POINTER;
        if (part < 0 || part >= kPartCount) return E_INVALIDARG;
        const std::wstring& value = parts_[static_cast<std::size_t>(part)];
        text->length = static_cast<std::int32_t>(value.size());
        text->string = value.c_str();
        return S_OK;
    }

    HRESULT GetCreateFunction(CREATEFUNCTION* function) override {
        if (!function) return E_POINTER;
        *function = nullptr;
        return Resolve(function);
    }

    HRESULT CreateInstance(const IID& iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        CREATEFUNCTION create = nullptr;
        const HRESULT hr = Resolve(&create);
        if (FAILED(hr)) return hr;
        return NoThrow([&] { return create(nullptr, &iid, out); });
    }

    HRESULT SetPart(std::int32_t part, std::int32_t length, const wchar_t* text) override {
        if (part < 0 || part >= kPartCount) return E_INVALIDARG;
        const HRESULT hr = CheckText(length, text);
        if (FAILED(hr)) return hr;
        return NoThrow([&] {
            parts_[static_cast<std::size_t>(part)].assign(TextView(length, text));
            if (part == kComponentPartClass || part == kComponentPartLibrary) {
                resolved_.store(nullptr, std::memory_order_relaxed);
            }
            return S_OK;
        });
    }

private:
    ~ComponentString() override = default;

    // Resolved once per library and class; creating instances is the hot path.
    HRESULT Resolve(CREATEFUNCTION* create) {
        *create = resolved_.load(std::memory_order_acquire);
        if (*create) return S_OK;
        const HRESULT hr = ResolveCreationFunction(parts_[kComponentPartLibrary], parts_[kComponentPartClass], create);
        if (SUCCEEDED(hr)) resolved_.store(*create, std::memory_order_release);
        return hr;
    }

    std::array<std::wstring, kPartCount> parts_;
    std::atomic<CREATEFUNCTION> resolved_{nullptr};  // null until resolved or after parts 1 or 4 change
};

}  // namespace

HRESULT CreateComponentString(const IID& iid, void** out) { return CreateObject<ComponentString>(iid, out); }

HRESULT NewComponentString(std::wstring_view library, std::wstring_view component, IComponentString** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (library.size() > kMaxTextLength || component.size() > kMaxTextLength) return E_INVALIDARG;
    IComponentString* descriptor = nullptr;
    HRESULT hr = CreateComponentString(kIID_IComponentString, reinterpret_cast<void**>(&descriptor));
    if (FAILED(hr)) return hr;
    hr = descriptor->SetPart(kComponentPartLibrary, static_cast<std::int32_t>(library.size()), library.data());
    if (SUCCEEDED(hr)) {
        hr = descriptor->SetPart(kComponentPartClass, static_cast<std::int32_t>(component.size()), component.data());
    }
    if (FAILED(hr)) {
        descriptor->Release();
        return hr;
    }
    *out = descriptor;
    return S_OK;
}

HRESULT ResolveCreationFunction(std::wstring_view library, std::wstring_view component, CREATEFUNCTION* out) {
    *out = nullptr;
    if (library == kKitLibrary) {
        *out = FindKitCreationFunction(component);
        return *out ? S_OK : E_FAIL;
    }
    return LoadCreationFunction(library, component, out);
}

}  // namespace kit
