// Object base of the host kit's components: one atomic count, one interface
// table walked by one function.
#pragma once

#include <atomic>
#include <cstddef>
#include <initializer_list>
#include <new>

#include "com_types.h"

namespace kit {

// The kit's own copies of the identifiers it answers, computed by the
// framework's name rule.
inline constexpr IID kIID_IComponentCollection = IIDFromName("IComponentCollection");
inline constexpr IID kIID_IComponentString = IIDFromName("IComponentString");
inline constexpr IID kIID_IString = IIDFromName("IString");
inline constexpr IID kIID_ICreatableString = IIDFromName("ICreatableString");
inline constexpr IID kIID_IVariant = IIDFromName("IVariant");
inline constexpr IID kIID_INamedCollection = IIDFromName("INamedCollection");
inline constexpr IID kIID_ISuperCollection = IIDFromName("ISuperCollection");
inline constexpr IID kIID_IParametersCreatable = IIDFromName("IParametersCreatable");
inline constexpr IID kIID_IRegistry = IIDFromName("IRegistry");
inline constexpr IID kIID_IDataStream = IIDFromName("IDataStream");
inline constexpr IID kIID_IXMLStream = IIDFromName("IXMLStream");
inline constexpr IID kIID_IFolderStream = IIDFromName("IFolderStream");
inline constexpr IID kIID_IDataPersist = IIDFromName("IDataPersist");
inline constexpr IID kIID_IObjectInfo = IIDFromName("IObjectInfo");

struct InterfaceEntry {
    const IID& iid;
    IUnknown* subobject;
};

// Answers the first matching row (IID_IUnknown answers the first row's
// sub-object), adding one reference through `self`.
inline HRESULT QueryFromTable(IUnknown* self, std::initializer_list<InterfaceEntry> table, const IID& iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (table.size() == 0) return E_NOINTERFACE;
    if (IsEqualIID(iid, IID_IUnknown)) {
        *out = table.begin()->subobject;
        self->AddRef();
        return S_OK;
    }
    for (const InterfaceEntry& entry : table) {
        if (IsEqualIID(iid, entry.iid)) {
            *out = entry.subobject;
            self->AddRef();
            return S_OK;
        }
    }
    return E_NOINTERFACE;
}

// Reference count shared by all interfaces of one kit object. Kit objects
// touch no global with a destructor, so they may be released at process exit
// in any order.
class RefCounted {
public:
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;

protected:
    RefCounted() = default;
    virtual ~RefCounted() = default;
    std::int32_t AddRefImpl() { return refs_.fetch_add(1, std::memory_order_relaxed) + 1; }
    std::int32_t ReleaseImpl() {
        const std::int32_t count = refs_.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (count == 0) delete this;
        return count;
    }

private:
    std::atomic<std::int32_t> refs_{1};
};

// Runs an operation body, turning any exception into a result code so that
// none crosses an interface.
template <class Body>
HRESULT NoThrow(Body&& body) noexcept {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

// Makes a new T and answers iid; the caller owns the one reference handed out.
template <class T, class... Args>
HRESULT CreateObject(const IID& iid, void** out, Args&&... args) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return NoThrow([&] {
        T* object = new T(static_cast<Args&&>(args)...);
        const HRESULT hr = object->QueryInterface(iid, out);
        object->Release();  // the creation reference; an unanswered iid frees the object here
        return hr;
    });
}

}  // namespace kit
