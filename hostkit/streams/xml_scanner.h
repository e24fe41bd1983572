// A strict, non-validating XML well-formedness scanner over UTF-8 text. It
// checks the whole input and reports elements and decoded character data to
// an optional handler. Document type declarations are not supported (a file
// holding one is rejected), so only the five predefined entities exist.
#pragma once

#include <string_view>

namespace kit::streams {

enum class XmlScan {
    kOk,
    kTruncated,  // the input ended inside a construct or with elements open
    kCorrupt,    // anything else that is not well-formed
};

enum class XmlMode {
    kDocument,  // exactly one root element, optional declaration, comments, PIs
    kFragment,  // any sequence of elements and text, as a stream's text holds
};

// Receives what the scanner finds, in document order. Names are UTF-8 views
// into the input; text arrives decoded, possibly in several pieces.
class XmlHandler {
public:
    virtual void StartElement(std::string_view name) = 0;
    virtual void EndElement() = 0;
    virtual void Text(std::string_view text) = 0;

protected:
    ~XmlHandler() = default;
};

// handler may be null (a pure well-formedness check).
XmlScan ScanXml(std::string_view text, XmlMode mode, XmlHandler* handler);

}  // namespace kit::streams
