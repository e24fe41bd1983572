// The host kit's XML stream file reader on fuzzed bytes, and its scanner in
// both modes. Checked: the text of an accepted file makes a document again,
// and that document holds the same text.
#include <cstdint>
#include <string>

#include "fuzz/fuzz_input.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/xml_document.h"
#include "hostkit/streams/xml_scanner.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kit::streams;
    const fuzz::ExactBytes file(std::string_view(reinterpret_cast<const char*>(data), size));
    ScanXml(file.view(), XmlMode::kFragment, nullptr);
    ScanXml(file.view(), XmlMode::kDocument, nullptr);

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
