// The file form of an XML stream: its text as a well-formed document, led by
// the kit's declaration line unless the text brings its own declaration or
// starts with a byte order mark.
#pragma once

#include <string>
#include <string_view>

#include "com_types.h"

namespace kit::streams {

inline constexpr std::string_view kXmlDeclarationLine = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

// The document to save for a stream's text; kE_StreamCorrupt (nothing
// produced) when the result would not be a well-formed document (no element,
// several root elements, an element still open, text written as raw bytes
// that is not XML).
HRESULT XmlDocumentFromText(std::string_view text, std::string* document);

// The stream text held by a file: the file without the kit's declaration line
// when it starts with exactly that line, else the whole file.
// kE_StreamTruncated or kE_StreamCorrupt when the file is not a well-formed
// document.
HRESULT XmlTextFromDocument(std::string_view file, std::string* text);

}  // namespace kit::streams
