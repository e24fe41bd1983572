// IDataPersist for a component that persists itself through its parameter collection.
#pragma once

#include "com_types.h"
#include "module_interfaces.h"

// The IParametricObject side; the component implements GetParameters and SetParameters.
template <class T>
class IParametricImpl : public IParametricObject {
protected:
    ~IParametricImpl() = default;
};

template <class T>
class IDataPersistParametricImpl : public IParametricImpl<T>, public IDataPersist {
public:
    HRESULT Save(IDataStream* /*stream*/, std::int32_t /*flags*/) override { return E_NOTIMPL; }
    HRESULT Load(IDataStream* /*stream*/, std::int32_t /*flags*/) override { return E_NOTIMPL; }

protected:
    ~IDataPersistParametricImpl() = default;
};
