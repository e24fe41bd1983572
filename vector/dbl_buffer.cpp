#include "vector/dbl_buffer.h"

#include "base/counted_text.h"
#include "vector/lock_hand_over.h"

template <>
const tagREFString IObjectInfoImpl<CDblBuffer>::m_ObjectName = CountedText(L"DblBuffer");

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

// A capacity that cannot be allocated changes nothing and is not announced.
HRESULT CDblBuffer::put_Size(std::int32_t size) {
    return ChangeThenNotify(
        m_lock, [&] { return ResizeStorage(size); }, [&] { Fire_SizeChanged(this); });
}

// Listeners are told even when nothing was stored (capacity 0), and run
// unlocked (lock_hand_over.h).
HRESULT CDblBuffer::put_Element(std::int32_t index, double value) {
    return ChangeAndNotifyUnderLock(
        m_lock, [&] { return WriteElement(index, value); }, [&] { Fire_ElementChanged(this, index); });
}

HRESULT CDblBuffer::get_Element(std::int32_t index, double* value) {
    if (!value) return E_POINTER;
    const CResourceLock::ThreadIdentity self = CResourceLock::CallingThread();
    m_lock.LockAs(self);
    const HRESULT hr = ReadElement(index, value);
    m_lock.UnlockAs(self);
    return hr;
}

HRESULT CDblBuffer::Save(IDataStream* stream, std::int32_t /*flags*/) { return Save(stream); }
HRESULT CDblBuffer::Load(IDataStream* stream, std::int32_t /*flags*/) { return Load(stream); }
