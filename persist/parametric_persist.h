// IDataPersist for a component that persists itself through its parameter
// collection: the collection saves itself, and a loaded collection is handed
// back to the component's SetParameters.
#pragma once

#include "base/no_throw.h"
#include "com_types.h"
#include "module_interfaces.h"

// Saves the object's parameter collection into an XML or folder stream, with
// bit 0x800000 added to the flags. S_OK also for a null or unsuitable stream,
// which gets nothing.
HRESULT SaveThroughParameters(IParametricObject& object, IDataStream* stream, std::int32_t flags);
// Loads a fresh parameter collection from an XML or folder stream (flags 0)
// and hands it to SetParameters; S_OK whatever the load and SetParameters
// report. E_FAIL for a null or unsuitable stream and when the collection
// cannot be created or does not answer IDataPersist; the object is then not
// touched.
HRESULT LoadThroughParameters(IParametricObject& object, IDataStream* stream);

// The IParametricObject side; the component implements GetParameters and SetParameters.
template <class T>
class IParametricImpl : public IParametricObject {
protected:
    ~IParametricImpl() = default;
};

template <class T>
class IDataPersistParametricImpl : public IParametricImpl<T>, public IDataPersist {
public:
    HRESULT Save(IDataStream* stream, std::int32_t flags) override {
        return NoThrow([&] { return SaveThroughParameters(*this, stream, flags); });
    }
    // The caller's flags are deliberately not passed on.
    HRESULT Load(IDataStream* stream, std::int32_t /*flags*/) override {
        return NoThrow([&] { return LoadThroughParameters(*this, stream); });
    }

protected:
    ~IDataPersistParametricImpl() = default;
};
