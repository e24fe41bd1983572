// The host kit's XML stream file reader on fuzzed bytes, and its XML reader
// in both modes. Checked: what is a well-formed document is also a
// well-formed fragment, the text of an accepted file makes a document again,
// and that document holds the same text.
#include <cstdint>
#include <string>

#include "fuzz/fuzz_input.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/xml_document.h"
#include "hostkit/streams/xml_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kit::streams;
    const fuzz::ExactBytes file(std::string_view(reinterpret_cast<const char*>(data), size));
    pugi::xml_document fragment;
    const XmlCheck as_fragment = ReadXml(file.view(), XmlMode::kFragment, &fragment);
    pugi::xml_document tree;
    if (ReadXml(file.view(), XmlMode::kDocument, &tree) == XmlCheck::kOk) {
        fuzz::Require(as_fragment == XmlCheck::kOk, "a document is also a fragment");
    }

    std::string text;
    const HRESULT hr = XmlTextFromDocument(file.view(), &text);
    if (hr != S_OK) {
        fuzz::Require(hr == kit::kE_StreamTruncated || hr == kit::kE_StreamCorrupt, "a refused file has its code");
        return 0;
    }
    std::string document;
    fuzz::Require(XmlDocumentFromText(text, &document) == S_OK, "an accepted file's text makes a document");
    std::string textAgain;
    fuzz::Require(XmlTextFromDocument(document, &textAgain) == S_OK, "the document is accepted again");
    fuzz::Require(textAgain == text, "the text survives a round trip");
    return 0;
}
