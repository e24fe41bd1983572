// A base for the tests' own global component collections: every slot past
// IUnknown refuses with E_NOTIMPL, so a fake overrides only the slots its test
// watches (usually GetComponent) and its own QueryInterface, AddRef and
// Release.
#pragma once

#include <cstdint>

#include "com_types.h"
#include "framework_interfaces.h"

class FakeComponentCollection : public IComponentCollection {
public:
    HRESULT RegisterComponent(std::int32_t, const wchar_t*, std::int32_t, const wchar_t*) override { return E_NOTIMPL; }
    HRESULT GetComponentCount(std::int32_t*) override { return E_NOTIMPL; }
    HRESULT Unused3() override { return E_NOTIMPL; }
    HRESULT Unused4() override { return E_NOTIMPL; }
    HRESULT Unused5() override { return E_NOTIMPL; }
    HRESULT Unused6() override { return E_NOTIMPL; }
    HRESULT Unused7() override { return E_NOTIMPL; }
    HRESULT Unused8() override { return E_NOTIMPL; }
    HRESULT Unused9() override { return E_NOTIMPL; }
    HRESULT Unused10() override { return E_NOTIMPL; }
    HRESULT Unused11() override { return E_NOTIMPL; }
    HRESULT Unused12() override { return E_NOTIMPL; }
    HRESULT Unused13() override { return E_NOTIMPL; }
    HRESULT GetComponent(std::int32_t, const wchar_t*, const IID*, void**) override { return E_NOTIMPL; }
};
