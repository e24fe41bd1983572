// Placeholder until the service lookup lands.
#include "framework/ref_string.h"

ICreatableString* CREFString::CreateString() { return nullptr; }
ISuperCollection* CREFString::CreateCollection() { return nullptr; }
IVariant* CREFString::CreateVariant() { return nullptr; }
