// The framework's parameter collection, "ParametersCreatable", created by name
// through the global component collection.
#pragma once

#include "framework_interfaces.h"

// A new, empty parameter collection with one reference for the caller; null
// when there is no global collection or it cannot create the component.
IParametersCreatable* CreateParameterSet();
