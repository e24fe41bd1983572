// Placeholder until the variant formatting lands.
#include "framework/conversions.h"

IString* ISCreate(const wchar_t*) { return nullptr; }
IString* ISCreate(IVariant*, short) { return nullptr; }
IString* ISCreate(IVariant*) { return nullptr; }
IVariant* IVCreate(int) { return nullptr; }
