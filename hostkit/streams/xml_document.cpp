#include "hostkit/streams/xml_document.h"

#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/xml_reader.h"

namespace kit::streams {

namespace {

HRESULT CheckDocument(std::string_view bytes) {
    pugi::xml_document tree;
    switch (ReadXml(bytes, XmlMode::kDocument, &tree)) {
        case XmlCheck::kOk:
            return S_OK;
        case XmlCheck::kTruncated:
            return kE_StreamTruncated;
        case XmlCheck::kCorrupt:
            return kE_StreamCorrupt;
    }
    return kE_StreamCorrupt;
}

}  // namespace

HRESULT XmlDocumentFromText(std::string_view text, std::string* document) {
    std::string result;
    // A text that opens with its own declaration (or a byte order mark, which
    // must stay first) is written as it is.
    if (!text.starts_with("<?xml") && !text.starts_with("\xEF\xBB\xBF")) result.append(kXmlDeclarationLine);
    result.append(text);
    // A text that is merely incomplete (an element still open) cannot be
    // saved either; the caller sees one code for both.
    if (FAILED(CheckDocument(result))) return kE_StreamCorrupt;
    *document = std::move(result);
    return S_OK;
}

HRESULT XmlTextFromDocument(std::string_view file, std::string* text) {
    const HRESULT hr = CheckDocument(file);
    if (FAILED(hr)) return hr;
    if (file.starts_with(kXmlDeclarationLine)) file.remove_prefix(kXmlDeclarationLine.size());
    text->assign(file);
    return S_OK;
}

}  // namespace kit::streams
