// Placeholder until the number parsers land.
#include "framework/conversions.h"

int _IS2Integer(CREFString, int) { return 0; }
double _IS2Double(CREFString) { return 0.0; }
int _swprintf(wchar_t* buffer, unsigned long capacity, const wchar_t*, ...) {
    if (buffer && capacity > 0) buffer[0] = L'\0';
    return 0;
}
