// Builds XML text into a stream's bytes, element by element, as the XML
// stream's operations ask: "<Name>" on begin, "<Name>value</Name>" for a
// whole element, "</Name>" on end, attributes inserted into the start tag of
// the element still open. No white space is added between elements.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hostkit/streams/byte_store.h"

namespace kit::streams {

class XmlBuilder {
public:
    // Each operation writes all or nothing. A name that is not an XML name or
    // a value holding a character XML cannot carry is E_INVALIDARG; Attribute
    // and End without an open element are E_FAIL; a repeated attribute name
    // on one element is E_INVALIDARG.
    HRESULT Begin(ByteStore& store, std::wstring_view name);
    HRESULT Attribute(ByteStore& store, std::wstring_view name, std::wstring_view value);
    HRESULT Element(ByteStore& store, std::wstring_view name, std::wstring_view value);
    HRESULT End(ByteStore& store);

    // Forgets the open elements; called whenever the text is replaced or
    // written through the byte interface, since their offsets no longer hold.
    void Reset() { open_.clear(); }
    std::size_t depth() const { return open_.size(); }

private:
    struct OpenElement {
        std::string name;                     // UTF-8
        std::size_t tag_end;                  // offset of the start tag's '>'
        std::vector<std::string> attributes;  // names already written, UTF-8
    };
    std::vector<OpenElement> open_;
    std::string piece_;  // the text being added, kept to reuse its storage
};

}  // namespace kit::streams
