// Reader for one element of XML-like text: no entities, no nesting, no
// validation.
#pragma once

#include "com_types.h"
#include "framework/ref_string.h"

// Finds the first "<tag" in source and hands back the attribute text and the
// element content (views into source). S_OK, also when the closing tag is
// missing (content is then empty); E_FAIL for an empty source or an absent
// opening tag. A non-zero advance moves source past the element.
HRESULT XMLGetTAGGED(CREFString& source, CREFString& tag, CREFString& attributes, CREFString& content, short advance);
