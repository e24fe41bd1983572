// Asking an object for one of its interfaces.
#pragma once

#include "com_types.h"

// The interface with one reference held by the result, or null. A refusal
// carries no reference, whatever the object left in the slot.
template <class I>
SmartPtr<I> Query(IUnknown* object, const IID& iid) {
    SmartPtr<I> result;
    if (!object) return result;
    if (FAILED(object->QueryInterface(iid, result.put_void()))) result.detach();
    return result;
}
