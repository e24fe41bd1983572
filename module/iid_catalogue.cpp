#include "module/iids.h"

#include "module/entry.h"

#include <cstring>

// Defined first so that the one static initialiser below finds it already null
// and its release is registered with the exit handlers before any identifier
// is computed.
SmartPtr<IComponentCollection> gGlobalComponentCollection;

IID IID_IBindableObject;
IID IID_ICollectionMoniker;
IID IID_IComponentCollection;
IID IID_IComponentString;
IID IID_IContainedObject;
IID IID_ICreatableString;
IID IID_ICreatableSimpleCollection;
IID IID_ICSVStream;
IID IID_IDataPersist;
IID IID_IDataPersistEx;
IID IID_IDataStream;
IID IID_IDisconnectableObject;
IID IID_IDblVector;
IID IID_IEventSource;
IID IID_IExtCollection;
IID IID_IFileArchive;
IID IID_IFileAttributes;
IID IID_IFileAttributesDef;
IID IID_IFileNameCollection;
IID IID_IFileNameCollectionBase;
IID IID_IFileInfo;
IID IID_IFixedSizeCollection;
IID IID_IFolderInfo;
IID IID_IFolderArchive;
IID IID_IFolderStream;
IID IID_IINIFile;
IID IID_IINIFileEx;
IID IID_IINIStream;
IID IID_IInputParameter;
IID IID_IInputParameters;
IID IID_IParent;
IID IID_IRegistry;
IID IID_IRegistryEx;
IID IID_IRenderableObject;
IID IID_IRenderableObjectState;
IID IID_INamedCollection;
IID IID_IObjectInfo;
IID IID_IParameters;
IID IID_IParametersCreatable;
IID IID_IParametricObject;
IID IID_IVKText;
IID IID_ISimpleCollection;
IID IID_IStackCollection;
IID IID_IString;
IID IID_ISuperCollection;
IID IID_ITABStream;
IID IID_IVariant;
IID IID_IXMLStream;
IID IID_IXMLStreamEx;
IID IID_IXMLFile;
IID IID_IZipStream;
IID IID__ICollectionEvents;
IID IID__ICollectionItemEvent;
IID IID_IStreamTransform;
IID IID_IUIManager;
IID IID_IUIPropInterrogate;
IID IID_IUIPropInterrogateEx;
IID IID_IUIPropertyPageSpecify;
IID IID_IUIUtils;
IID IID_IStringTable;
IID IID_ICalibration;
IID IID_IHomogeneousTransform;
IID IID_IHomogeneousCalibration;
IID IID_ILinearCalibration;
IID IID_ILinearTransform;
IID IID_IMatrix;
IID IID_ITransform;
IID IID_IVKSearch;
IID IID_IVKRenderStyle;
IID IID_IVKRenderer;
IID IID_ICANVASGraphics;
IID IID_ICANVASClip;
IID IID_IArc;
IID IID_ICurve;
IID IID_ICurveLagrange;
IID IID_ICurve2D;
IID IID_ICurveSpline;
IID IID_IEllipse;
IID IID_IFitAndFilter;
IID IID_IGeometricAssembly;
IID IID_IGeometryCreator;
IID IID_IGeometricGrid;
IID IID_IGeometricFitting;
IID IID_IGeometricProject;
IID IID_IGeometry;
IID IID_IGeometryFitter;
IID IID_IHelicalThread;
IID IID_ILineSegment;
IID IID_ILineCreatable;
IID IID_IPoint;
IID IID_IPoints;
IID IID_IPointsCollection;
IID IID_IPointVector;
IID IID_IPolar;
IID IID_IPolarEx;
IID IID_IPolynomial;
IID IID_IPlane;
IID IID_IReplicableObject;
IID IID_ISprocket;
IID IID_ITransformableObject;
IID IID_IMetrology;
IID IID_IMETRAngle;
IID IID_IMETRLength;
IID IID_IMETRPointsStats;
IID IID_ITime;
IID IID__IDblVectorEvent;

const CatalogueEntry kCatalogue[kCatalogueSize] = {
    {"IBindableObject", &IID_IBindableObject},
    {"ICollectionMoniker", &IID_ICollectionMoniker},
    {"IComponentCollection", &IID_IComponentCollection},
    {"IComponentString", &IID_IComponentString},
    {"IContainedObject", &IID_IContainedObject},
    {"ICreatableString", &IID_ICreatableString},
    {"ICreatableSimpleCollection", &IID_ICreatableSimpleCollection},
    {"ICSVStream", &IID_ICSVStream},
    {"IDataPersist", &IID_IDataPersist},
    {"IDataPersistEx", &IID_IDataPersistEx},
    {"IDataStream", &IID_IDataStream},
    {"IDisconnectableObject", &IID_IDisconnectableObject},
    {"IDblVector", &IID_IDblVector},
    {"IEventSource", &IID_IEventSource},
    {"IExtCollection", &IID_IExtCollection},
    {"IFileArchive", &IID_IFileArchive},
    {"IFileAttributes", &IID_IFileAttributes},
    {"IFileAttributesDef", &IID_IFileAttributesDef},
    {"IFileNameCollection", &IID_IFileNameCollection},
    {"IFileNameCollectionBase", &IID_IFileNameCollectionBase},
    {"IFileInfo", &IID_IFileInfo},
    {"IFixedSizeCollection", &IID_IFixedSizeCollection},
    {"IFolderInfo", &IID_IFolderInfo},
    {"IFolderArchive", &IID_IFolderArchive},
    {"IFolderStream", &IID_IFolderStream},
    {"IINIFile", &IID_IINIFile},
    {"IINIFileEx", &IID_IINIFileEx},
    {"IINIStream", &IID_IINIStream},
    {"IInputParameter", &IID_IInputParameter},
    {"IInputParameters", &IID_IInputParameters},
    {"IParent", &IID_IParent},
    {"IRegistry", &IID_IRegistry},
    {"IRegistryEx", &IID_IRegistryEx},
    {"IRenderableObject", &IID_IRenderableObject},
    {"IRenderableObjectState", &IID_IRenderableObjectState},
    {"INamedCollection", &IID_INamedCollection},
    {"IObjectInfo", &IID_IObjectInfo},
    {"IParameters", &IID_IParameters},
    {"IParametersCreatable", &IID_IParametersCreatable},
    {"IParametricObject", &IID_IParametricObject},
    {"IVKText", &IID_IVKText},
    {"ISimpleCollection", &IID_ISimpleCollection},
    {"IStackCollection", &IID_IStackCollection},
    {"IString", &IID_IString},
    {"ISuperCollection", &IID_ISuperCollection},
    {"ITABStream", &IID_ITABStream},
    {"IVariant", &IID_IVariant},
    {"IXMLStream", &IID_IXMLStream},
    {"IXMLStreamEx", &IID_IXMLStreamEx},
    {"IXMLFile", &IID_IXMLFile},
    {"IZipStream", &IID_IZipStream},
    {"_ICollectionEvents", &IID__ICollectionEvents},
    {"_ICollectionItemEvent", &IID__ICollectionItemEvent},
    {"IStreamTransform", &IID_IStreamTransform},
    {"IUIManager", &IID_IUIManager},
    {"IUIPropInterrogate", &IID_IUIPropInterrogate},
    {"IUIPropInterrogateEx", &IID_IUIPropInterrogateEx},
    {"IUIPropertyPageSpecify", &IID_IUIPropertyPageSpecify},
    {"IUIUtils", &IID_IUIUtils},
    {"IStringTable", &IID_IStringTable},
    {"ICalibration", &IID_ICalibration},
    {"IHomogeneousTransform", &IID_IHomogeneousTransform},
    {"IHomogeneousCalibration", &IID_IHomogeneousCalibration},
    {"ILinearCalibration", &IID_ILinearCalibration},
    {"ILinearTransform", &IID_ILinearTransform},
    {"IMatrix", &IID_IMatrix},
    {"ITransform", &IID_ITransform},
    {"IVKSearch", &IID_IVKSearch},
    {"IVKRenderStyle", &IID_IVKRenderStyle},
    {"IVKRenderer", &IID_IVKRenderer},
    {"ICANVASGraphics", &IID_ICANVASGraphics},
    {"ICANVASClip", &IID_ICANVASClip},
    {"IArc", &IID_IArc},
    {"ICurve", &IID_ICurve},
    {"ICurveLagrange", &IID_ICurveLagrange},
    {"ICurve2D", &IID_ICurve2D},
    {"ICurveSpline", &IID_ICurveSpline},
    {"IEllipse", &IID_IEllipse},
    {"IFitAndFilter", &IID_IFitAndFilter},
    {"IGeometricAssembly", &IID_IGeometricAssembly},
    {"IGeometryCreator", &IID_IGeometryCreator},
    {"IGeometricGrid", &IID_IGeometricGrid},
    {"IGeometricFitting", &IID_IGeometricFitting},
    {"IGeometricProject", &IID_IGeometricProject},
    {"IGeometry", &IID_IGeometry},
    {"IGeometryFitter", &IID_IGeometryFitter},
    {"IHelicalThread", &IID_IHelicalThread},
    {"ILineSegment", &IID_ILineSegment},
    {"ILineCreatable", &IID_ILineCreatable},
    {"IPoint", &IID_IPoint},
    {"IPoints", &IID_IPoints},
    {"IPointsCollection", &IID_IPointsCollection},
    {"IPointVector", &IID_IPointVector},
    {"IPolar", &IID_IPolar},
    {"IPolarEx", &IID_IPolarEx},
    {"IPolynomial", &IID_IPolynomial},
    {"IPlane", &IID_IPlane},
    {"IReplicableObject", &IID_IReplicableObject},
    {"ISprocket", &IID_ISprocket},
    {"ITransformableObject", &IID_ITransformableObject},
    {"IMetrology", &IID_IMetrology},
    {"IMETRAngle", &IID_IMETRAngle},
    {"IMETRLength", &IID_IMETRLength},
    {"IMETRPointsStats", &IID_IMETRPointsStats},
    {"ITime", &IID_ITime},
    {"_IDblVectorEvent", &IID__IDblVectorEvent},
};

__attribute__((weak)) IID __IIDOfc(const char* name) {
    if (!name) return IID_NULL;
    return IIDFromName(std::string_view(name, std::strlen(name)));
}

namespace {

// The module's one static initialiser.
struct CatalogueInitialiser {
    CatalogueInitialiser() noexcept {
        for (const CatalogueEntry& entry : kCatalogue) *entry.iid = __IIDOfc(entry.name);
    }
};
const CatalogueInitialiser gCatalogueInitialiser;

}  // namespace
