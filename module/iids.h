// Interface identifiers of the framework's catalogue, computed once when the
// library is loaded (zero before that).
#pragma once

#include <cstddef>

#include "com_types.h"

// The identifier of an interface name: up to 25 characters, 5 bits each,
// case-insensitive (the same rule as IIDFromName). Exported as a weak symbol,
// weak at the definition only so that references stay strong.
__attribute__((visibility("default"))) IID __IIDOfc(const char* name);

extern IID IID_IBindableObject;
extern IID IID_ICollectionMoniker;
extern IID IID_IComponentCollection;
extern IID IID_IComponentString;
extern IID IID_IContainedObject;
extern IID IID_ICreatableString;
extern IID IID_ICreatableSimpleCollection;
extern IID IID_ICSVStream;
extern IID IID_IDataPersist;
extern IID IID_IDataPersistEx;
extern IID IID_IDataStream;
extern IID IID_IDisconnectableObject;
extern IID IID_IDblVector;
extern IID IID_IEventSource;
extern IID IID_IExtCollection;
extern IID IID_IFileArchive;
extern IID IID_IFileAttributes;
extern IID IID_IFileAttributesDef;
extern IID IID_IFileNameCollection;
extern IID IID_IFileNameCollectionBase;
extern IID IID_IFileInfo;
extern IID IID_IFixedSizeCollection;
extern IID IID_IFolderInfo;
extern IID IID_IFolderArchive;
extern IID IID_IFolderStream;
extern IID IID_IINIFile;
extern IID IID_IINIFileEx;
extern IID IID_IINIStream;
extern IID IID_IInputParameter;
extern IID IID_IInputParameters;
extern IID IID_IParent;
extern IID IID_IRegistry;
extern IID IID_IRegistryEx;
extern IID IID_IRenderableObject;
extern IID IID_IRenderableObjectState;
extern IID IID_INamedCollection;
extern IID IID_IObjectInfo;
extern IID IID_IParameters;
extern IID IID_IParametersCreatable;
extern IID IID_IParametricObject;
extern IID IID_IVKText;
extern IID IID_ISimpleCollection;
extern IID IID_IStackCollection;
extern IID IID_IString;
extern IID IID_ISuperCollection;
extern IID IID_ITABStream;
extern IID IID_IVariant;
extern IID IID_IXMLStream;
extern IID IID_IXMLStreamEx;
extern IID IID_IXMLFile;
extern IID IID_IZipStream;
extern IID IID__ICollectionEvents;
extern IID IID__ICollectionItemEvent;
extern IID IID_IStreamTransform;
extern IID IID_IUIManager;
extern IID IID_IUIPropInterrogate;
extern IID IID_IUIPropInterrogateEx;
extern IID IID_IUIPropertyPageSpecify;
extern IID IID_IUIUtils;
extern IID IID_IStringTable;
extern IID IID_ICalibration;
extern IID IID_IHomogeneousTransform;
extern IID IID_IHomogeneousCalibration;
extern IID IID_ILinearCalibration;
extern IID IID_ILinearTransform;
extern IID IID_IMatrix;
extern IID IID_ITransform;
extern IID IID_IVKSearch;
extern IID IID_IVKRenderStyle;
extern IID IID_IVKRenderer;
extern IID IID_ICANVASGraphics;
extern IID IID_ICANVASClip;
extern IID IID_IArc;
extern IID IID_ICurve;
extern IID IID_ICurveLagrange;
extern IID IID_ICurve2D;
extern IID IID_ICurveSpline;
extern IID IID_IEllipse;
extern IID IID_IFitAndFilter;
extern IID IID_IGeometricAssembly;
extern IID IID_IGeometryCreator;
extern IID IID_IGeometricGrid;
extern IID IID_IGeometricFitting;
extern IID IID_IGeometricProject;
extern IID IID_IGeometry;
extern IID IID_IGeometryFitter;
extern IID IID_IHelicalThread;
extern IID IID_ILineSegment;
extern IID IID_ILineCreatable;
extern IID IID_IPoint;
extern IID IID_IPoints;
extern IID IID_IPointsCollection;
extern IID IID_IPointVector;
extern IID IID_IPolar;
extern IID IID_IPolarEx;
extern IID IID_IPolynomial;
extern IID IID_IPlane;
extern IID IID_IReplicableObject;
extern IID IID_ISprocket;
extern IID IID_ITransformableObject;
extern IID IID_IMetrology;
extern IID IID_IMETRAngle;
extern IID IID_IMETRLength;
extern IID IID_IMETRPointsStats;
extern IID IID_ITime;
extern IID IID__IDblVectorEvent;

struct CatalogueEntry {
    const char* name;
    IID* iid;
};

// The catalogue in the framework's order.
inline constexpr std::size_t kCatalogueSize = 106;
extern const CatalogueEntry kCatalogue[kCatalogueSize];
