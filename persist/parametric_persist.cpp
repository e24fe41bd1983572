#include "persist/parametric_persist.h"

#include "base/iids.h"
#include "base/query.h"
#include "persist/parameter_set.h"

namespace {

// Marks a save made on behalf of a component's parameter collection.
constexpr std::int32_t kParametricSaveFlag = 0x800000;

bool IsXmlOrFolderStream(IDataStream* stream) {
    if (!stream) return false;
    return Query<IXMLStream>(stream, IID_IXMLStream) || Query<IFolderStream>(stream, IID_IFolderStream);
}

}  // namespace

HRESULT SaveThroughParameters(IParametricObject& object, IDataStream* stream, std::int32_t flags) {
    if (!IsXmlOrFolderStream(stream)) return S_OK;
    SmartPtr<INamedCollection> parameters;
    object.GetParameters(parameters.put(), 0);
    if (!parameters) return S_OK;
    if (SmartPtr<IDataPersist> persist = Query<IDataPersist>(parameters.get(), IID_IDataPersist)) {
        persist->Save(stream, flags | kParametricSaveFlag);
    }
    return S_OK;
}

HRESULT LoadThroughParameters(IParametricObject& object, IDataStream* stream) {
    if (!IsXmlOrFolderStream(stream)) return E_FAIL;
    SmartPtr<IParametersCreatable> parameters(CreateParameterSet());
    if (!parameters) return E_FAIL;
    SmartPtr<IDataPersist> persist = Query<IDataPersist>(parameters.get(), IID_IDataPersist);
    if (!persist) return E_FAIL;
    persist->Load(stream, 0);
    // What the collection's Load and SetParameters report does not change the result.
    object.SetParameters(parameters.get());
    return S_OK;
}
