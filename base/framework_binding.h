// The module's binding to the framework: the global component collection and
// the loading of other framework modules. The service locator of every layer
// above; it knows no component of this module.
#pragma once

#include "com_types.h"
#include "framework_interfaces.h"

// The host's global component collection; one reference, held for the
// module's whole life.
extern SmartPtr<IComponentCollection> gGlobalComponentCollection;

// Exported as a weak symbol; the weak binding is given at the definition only,
// so that references from the module's own code stay strong and a static link
// of that code always includes the definition.
__attribute__((visibility("default"))) CREATEFUNCTION MODULECreateFunction(tagREFString module, tagREFString component);

// The global collection with one reference added for the caller, created
// from "CollectionsEx" when the host has not provided one; null on failure.
IComponentCollection* GLOBALComponents();

// Opens "./_binlinux/<module>.so" (relative to the current directory) with
// immediate binding, printing "Module not available ..." when it cannot be
// loaded. Returns the library handle or null; the handle is never closed.
void* OpenFrameworkModule(tagREFString module);

// The creation function of `component` from the framework module `module`:
// the module is opened, initialised with the global collection when it
// exports the plain name "InitializeModule" and a collection is held, and
// asked for the component. Null when the module cannot be loaded, has no
// "CreateFunction" or does not serve the component.
CREATEFUNCTION LoadComponentCreator(tagREFString module, tagREFString component);
