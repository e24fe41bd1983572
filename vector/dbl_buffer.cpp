#include "vector/dbl_buffer.h"

template <>
const tagREFString IObjectInfoImpl<CDblBuffer>::m_ObjectName{9, L"DblBuffer"};

namespace {

const InterfaceMapEntry<CDblBuffer> kDblBufferInterfaces[] = {
    {&IID_IUnknown, [](CDblBuffer* b) -> IUnknown* { return static_cast<CObject<CDblBuffer>*>(b); }},
    {&IID_IDblVector, [](CDblBuffer* b) -> IUnknown* { return static_cast<IDblVector*>(b); }},
    {&IID_IObjectInfo, [](CDblBuffer* b) -> IUnknown* { return static_cast<IObjectInfo*>(b); }},
    {&IID_IEventSource, [](CDblBuffer* b) -> IUnknown* { return static_cast<IEventSource*>(b); }},
    {&IID_IDataPersist, [](CDblBuffer* b) -> IUnknown* { return static_cast<IDataPersist*>(b); }},
    {&IID_IUIPropertyPageSpecify, [](CDblBuffer* b) -> IUnknown* { return static_cast<IUIPropertyPageSpecify*>(b); }},
};

}  // namespace

HRESULT CDblBuffer::QueryInterface(const IID& iid, void** out) {
    return QueryInterfaceFromMap(this, kDblBufferInterfaces, iid, out);
}

HRESULT CDblBuffer::GetPages(std::int32_t, INamedCollection**, IUnknown**) { return E_NOTIMPL; }
HRESULT CDblBuffer::Save(IDataStream*, std::int32_t) { return E_NOTIMPL; }
HRESULT CDblBuffer::Load(IDataStream*, std::int32_t) { return E_NOTIMPL; }
