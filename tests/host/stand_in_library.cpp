// A stand-in framework library for the host helper's failure paths. It is
// built three times: with no entry point at all, with a "CreateFunction" that
// serves nothing, and with one whose "GlobalComponentCollection" fails to
// create with E_OUTOFMEMORY.
#include <cstdint>

#include "com_types.h"

#if defined(STAND_IN_SERVES_NOTHING) || defined(STAND_IN_COLLECTION_FAILS)

namespace {

HRESULT FailingCollection(void* /*outer*/, const IID* /*iid*/, void** out) {
    if (out) *out = nullptr;
    return E_OUTOFMEMORY;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) HRESULT CreateFunction(std::int32_t /*length*/,
                                                                         const wchar_t* /*name*/, CREATEFUNCTION* out) {
#ifdef STAND_IN_COLLECTION_FAILS
    *out = &FailingCollection;
    return S_OK;
#else
    (void)out;
    (void)&FailingCollection;
    return E_FAIL;
#endif
}

#else

extern "C" __attribute__((visibility("default"))) int StandInHasNoEntryPoint() { return 0; }

#endif
