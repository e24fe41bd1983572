// Placeholder until the tagged text reader lands.
#include "framework/tagged_text.h"

HRESULT XMLGetTAGGED(CREFString&, CREFString&, CREFString&, CREFString&, short) { return E_FAIL; }
