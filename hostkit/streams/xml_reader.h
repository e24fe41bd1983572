// Reading XML for the XML stream and the parameter collections: pugixml
// builds the tree, and the kit adds the checks of XML 1.0 well-formedness
// that pugixml leaves out (character and name classes, references, repeated
// attributes, comments, the declaration, the single root of a document).
// Document type declarations are not supported (a text holding one is
// refused), so only the five predefined entities exist.
#pragma once

#include <pugixml.hpp>

#include <string_view>

namespace kit::streams {

enum class XmlCheck {
    kOk,
    kTruncated,  // the input ended inside a construct or with elements open
    kCorrupt,    // anything else that is not well-formed
};

enum class XmlMode {
    kDocument,  // exactly one root element, optional declaration, comments, PIs
    kFragment,  // any sequence of elements and text, as a stream's text holds
};

// Reads text (UTF-8) into *tree. On kOk the tree holds every element, its
// attributes, text and CDATA with references decoded; comments, processing
// instructions and the declaration are left in the tree as read.
XmlCheck ReadXml(std::string_view text, XmlMode mode, pugi::xml_document* tree);

}  // namespace kit::streams
