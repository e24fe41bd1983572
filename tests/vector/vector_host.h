// Host-side helpers of the vector tests: the component is reached through
// the loaded module and its interfaces only.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "support/module_host.h"

struct VectorIIDs {
    IID vector = HostIID("IDblVector");
    IID event = HostIID("_IDblVectorEvent");
    IID source = HostIID("IEventSource");
    IID persist = HostIID("IDataPersist");
    IID persistEx = HostIID("IDataPersistEx");
    IID pages = HostIID("IUIPropertyPageSpecify");
    IID info = HostIID("IObjectInfo");
    IID stream = HostIID("IDataStream");
    IID string = HostIID("IString");
    IID superCollection = HostIID("ISuperCollection");
};
const VectorIIDs& Iids();

// A new "DblBuffer" object answering IDblVector (one reference, ours).
SmartPtr<IDblVector> CreateVector();

// Another interface of the same object (one more reference), or null.
template <class I>
SmartPtr<I> QueryAs(IUnknown* object, const IID& iid) {
    SmartPtr<I> result;
    object->QueryInterface(iid, result.put_void());
    return result;
}

// put_Element(-1, v) for each value, expecting S_OK.
void AppendAll(IDblVector* vector, std::initializer_list<double> values);

// get_Element(index) as a pair of result code and value (value untouched
// when the call fails: starts as the sentinel).
struct ElementRead {
    HRESULT hr;
    double value;
};
inline constexpr double kUntouched = -12345.5;
ElementRead ReadAt(IDblVector* vector, std::int32_t index);
