#include "hostkit/streams/xml_builder.h"

#include "hostkit/streams/xml_chars.h"
#include "hostkit/utf8.h"

namespace kit::streams {

namespace {

// The UTF-8 form of a checked XML name.
bool EncodeName(std::wstring_view name, std::string& out) {
    out.clear();
    return IsXmlName(name) && AppendUtf8(name, &out);
}

}  // namespace

HRESULT XmlBuilder::Begin(ByteStore& store, std::wstring_view name) {
    OpenElement element{{}, 0, {}};
    if (!EncodeName(name, element.name)) return E_INVALIDARG;
    piece_.clear();
    piece_.append("<").append(element.name).append(">");
    element.tag_end = store.bytes().size() + piece_.size() - 1;
    open_.reserve(open_.size() + 1);  // so that the push below cannot fail after the text is written
    const HRESULT hr = store.Append(piece_);
    if (FAILED(hr)) return hr;
    open_.push_back(std::move(element));
    return S_OK;
}

HRESULT XmlBuilder::Attribute(ByteStore& store, std::wstring_view name, std::wstring_view value) {
    if (open_.empty()) return E_FAIL;
    OpenElement& element = open_.back();
    std::string encoded;
    if (!EncodeName(name, encoded)) return E_INVALIDARG;
    for (const std::string& seen : element.attributes) {
        if (seen == encoded) return E_INVALIDARG;
    }
    piece_.clear();
    piece_.append(" ").append(encoded).append("=\"");
    if (!AppendEscaped(value, piece_)) return E_INVALIDARG;
    piece_.append("\"");
    element.attributes.reserve(element.attributes.size() + 1);
    const HRESULT hr = store.Insert(element.tag_end, piece_);
    if (FAILED(hr)) return hr;
    element.tag_end += piece_.size();
    element.attributes.push_back(std::move(encoded));
    return S_OK;
}

HRESULT XmlBuilder::Element(ByteStore& store, std::wstring_view name, std::wstring_view value) {
    std::string encoded;
    if (!EncodeName(name, encoded)) return E_INVALIDARG;
    piece_.clear();
    piece_.append("<").append(encoded).append(">");
    if (!AppendEscaped(value, piece_)) return E_INVALIDARG;
    piece_.append("</").append(encoded).append(">");
    return store.Append(piece_);
}

HRESULT XmlBuilder::End(ByteStore& store) {
    if (open_.empty()) return E_FAIL;
    piece_.clear();
    piece_.append("</").append(open_.back().name).append(">");
    const HRESULT hr = store.Append(piece_);
    if (FAILED(hr)) return hr;
    open_.pop_back();
    return S_OK;
}

}  // namespace kit::streams
