// A stand-in framework module for the loader tests. It is built three times:
// with both entry points, without "CreateFunction", without "InitializeModule".
// Both entry points use plain names, as modules of the framework's own kind do.
// It serves one component, "Widget", and records how it was called.
#include <cstdint>

#include "com_types.h"
#include "framework_interfaces.h"

#define FIXTURE_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

int gInitializeCalls = 0;
void* gInitializeReserved = nullptr;
IComponentCollection* gInitializeCollection = nullptr;
int gCreateCalls = 0;
std::int32_t gCreateLength = -1;

HRESULT CreateWidget(void*, const IID*, void** out) {
    if (out) *out = nullptr;
    return E_NOTIMPL;
}

}  // namespace

FIXTURE_EXPORT int FixtureInitializeCalls() { return gInitializeCalls; }
FIXTURE_EXPORT void* FixtureInitializeReserved() { return gInitializeReserved; }
FIXTURE_EXPORT IComponentCollection* FixtureInitializeCollection() { return gInitializeCollection; }
FIXTURE_EXPORT int FixtureCreateCalls() { return gCreateCalls; }
FIXTURE_EXPORT std::int32_t FixtureCreateLength() { return gCreateLength; }
FIXTURE_EXPORT CREATEFUNCTION FixtureWidgetFactory() { return &CreateWidget; }

#ifdef FIXTURE_HAS_INITIALIZE
FIXTURE_EXPORT HRESULT InitializeModule(void* reserved, IComponentCollection* collection) {
    ++gInitializeCalls;
    gInitializeReserved = reserved;
    gInitializeCollection = collection;
    return S_OK;
}
#endif

#ifdef FIXTURE_HAS_CREATE
FIXTURE_EXPORT HRESULT CreateFunction(std::int32_t length, const wchar_t* name, CREATEFUNCTION* out) {
    ++gCreateCalls;
    gCreateLength = length;
    static constexpr wchar_t kWidget[] = L"Widget";
    if (length != 6 || !name || !out) return E_FAIL;
    for (std::int32_t i = 0; i < length; ++i) {
        if (name[i] != kWidget[i]) return E_FAIL;
    }
    *out = &CreateWidget;
    return S_OK;
}
#endif
