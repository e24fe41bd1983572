#include "module/entry.h"

#include "base/framework_binding.h"
#include "base/object.h"
#include "time/calendar_component.h"
#include "vector/dbl_buffer.h"

namespace {

struct ServedComponent {
    const tagREFString* name;
    CREATEFUNCTION create;
};

// The factory table, tried in this order; hosts rely on "DblBuffer" being
// matched first.
const ServedComponent kServedComponents[] = {
    {&IObjectInfoImpl<CDblBuffer>::m_ObjectName, &CObject<CDblBuffer>::_CreateInstance},
    {&IObjectInfoImpl<CCalendar>::m_ObjectName, &CObject<CCalendar>::_CreateInstance},
};

// Exact, case-sensitive comparison of a counted name with a served name;
// never reads more than `length` characters of `name`.
bool NameMatches(const tagREFString& served, std::int32_t length, const wchar_t* name) {
    if (length != served.length) return false;
    for (std::int32_t i = 0; i < length; ++i) {
        if (name[i] != served.string[i]) return false;
    }
    return true;
}

}  // namespace

HRESULT InitializeModule(void* /*reserved*/, IComponentCollection* collection) {
    // The new reference is taken before the old one is dropped, so passing the
    // collection already held is safe.
    if (collection) collection->AddRef();
    // The slot is empty while the old collection is released, so a release
    // that re-enters the module finds no collection rather than the new one.
    IComponentCollection* previous = gGlobalComponentCollection.detach();
    if (previous) previous->Release();
    gGlobalComponentCollection.reset(collection);
    return S_OK;
}

extern "C" HRESULT CreateFunction(std::int32_t length, const wchar_t* name, CREATEFUNCTION* out) {
    if (!out || (length > 0 && !name)) return E_POINTER;
    for (const ServedComponent& component : kServedComponents) {
        if (NameMatches(*component.name, length, name)) {
            *out = component.create;
            return S_OK;
        }
    }
    return E_FAIL;
}
