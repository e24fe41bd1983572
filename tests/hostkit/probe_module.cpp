// A minimal foreign framework module for the kit's tests: it serves one
// component, "Probe", that answers only IUnknown and "IProbe".
#include <atomic>
#include <cstdint>
#include <cwchar>

#include "com_types.h"

namespace {

constexpr IID kIID_IProbe = IIDFromName("IProbe");

class Probe final : public IUnknown {
public:
    HRESULT QueryInterface(const IID& iid, void** out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, kIID_IProbe)) return E_NOINTERFACE;
        *out = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    std::int32_t AddRef() override { return ++refs_; }
    std::int32_t Release() override {
        const std::int32_t count = --refs_;
        if (count == 0) delete this;
        return count;
    }

private:
    std::atomic<std::int32_t> refs_{0};
};

HRESULT CreateProbe(void*, const IID* iid, void** out) {
    if (!iid || !out) return E_POINTER;
    Probe* probe = new Probe;
    probe->AddRef();
    const HRESULT hr = probe->QueryInterface(*iid, out);
    probe->Release();
    return hr;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) HRESULT CreateFunction(std::int32_t length, const wchar_t* name,
                                                                         CREATEFUNCTION* out) {
    if (!out || !name || length != 5 || std::wcsncmp(name, L"Probe", 5) != 0) return E_FAIL;
    *out = &CreateProbe;
    return S_OK;
}
