// A stand-in framework module for the loader tests. It is built three times:
// with both entry points, without "CreateFunction", without "InitializeModule".
// Both entry points use plain names, as modules of the framework's own kind do.
// It serves "Widget" (a factory that makes nothing) and
// "GlobalComponentCollection" (one counting collection), and records how it
// was called.
#include <cstdint>

#include "com_types.h"
#include "counting_collection.h"
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

// What the collection factory does: 0 leaves the slot alone and fails, 1 hands
// out the collection, 2 hands it out but reports failure.
int gCollectionMode = 1;
int gCollectionRequests = 0;
void* gCollectionOuter = nullptr;
IID gCollectionIID{};
CountingCollection gCollection(0);  // no reference until handed out

HRESULT CreateCollection(void* outer, const IID* iid, void** out) {
    ++gCollectionRequests;
    gCollectionOuter = outer;
    gCollectionIID = iid ? *iid : IID_NULL;
    if (gCollectionMode == 0 || !out) return E_FAIL;
    gCollection.AddRef();
    *out = static_cast<IComponentCollection*>(&gCollection);
    return gCollectionMode == 1 ? S_OK : E_FAIL;
}

struct ServedComponent {
    std::int32_t length;
    const wchar_t* name;
    CREATEFUNCTION create;
};
const ServedComponent kServed[] = {
    {6, L"Widget", &CreateWidget},
    {25, L"GlobalComponentCollection", &CreateCollection},
};

}  // namespace

FIXTURE_EXPORT int FixtureInitializeCalls() { return gInitializeCalls; }
FIXTURE_EXPORT void* FixtureInitializeReserved() { return gInitializeReserved; }
FIXTURE_EXPORT IComponentCollection* FixtureInitializeCollection() { return gInitializeCollection; }
FIXTURE_EXPORT int FixtureCreateCalls() { return gCreateCalls; }
FIXTURE_EXPORT std::int32_t FixtureCreateLength() { return gCreateLength; }
FIXTURE_EXPORT CREATEFUNCTION FixtureWidgetFactory() { return &CreateWidget; }
FIXTURE_EXPORT void FixtureSetCollectionMode(int mode) { gCollectionMode = mode; }
FIXTURE_EXPORT int FixtureCollectionRequests() { return gCollectionRequests; }
FIXTURE_EXPORT void* FixtureCollectionOuter() { return gCollectionOuter; }
FIXTURE_EXPORT IID FixtureCollectionIID() { return gCollectionIID; }
FIXTURE_EXPORT CountingCollection* FixtureCollection() { return &gCollection; }

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
    if (!name || !out) return E_FAIL;
    for (const ServedComponent& served : kServed) {
        if (length != served.length) continue;
        std::int32_t i = 0;
        while (i < length && name[i] == served.name[i]) ++i;
        if (i == length) {
            *out = served.create;
            return S_OK;
        }
    }
    return E_FAIL;
}
#endif
