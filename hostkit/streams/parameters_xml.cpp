#include "hostkit/streams/parameters_xml.h"

#include <string>

#include "hostkit/creatable_string.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/parameter_values.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/xml_chars.h"
#include "hostkit/streams/xml_reader.h"
#include "hostkit/utf8.h"

namespace kit::streams {

namespace {

constexpr std::string_view kRootElement = "Parameters";
constexpr std::string_view kEntryElement = "Parameter";
// The children of an entry, by field index.
constexpr std::string_view kFieldElements[] = {"Name", "Type", "Value"};
constexpr int kNameField = 0;
constexpr int kTypeField = 1;
constexpr int kValueField = 2;

std::wstring Widen(std::string_view ascii) { return std::wstring(ascii.begin(), ascii.end()); }

bool IsXmlText(std::wstring_view text) {
    for (const wchar_t unit : text) {
        if (!IsXmlChar(static_cast<std::uint32_t>(unit))) return false;
    }
    return true;
}

HRESULT Begin(IXMLStream* stream, std::string_view name) {
    SmartPtr<IString> tag;
    const HRESULT hr = NewString(Widen(name), tag.put());
    if (FAILED(hr)) return hr;
    return stream->BeginElement(tag.get(), nullptr, 0);
}

HRESULT Element(IXMLStream* stream, std::string_view name, std::wstring_view value) {
    SmartPtr<IString> tag;
    HRESULT hr = NewString(Widen(name), tag.put());
    if (FAILED(hr)) return hr;
    SmartPtr<IString> text;
    hr = NewString(value, text.put());
    if (FAILED(hr)) return hr;
    return stream->WriteElement(tag.get(), nullptr, text.get(), 0);
}

HRESULT SaveEntry(const ParameterEntry& entry, IXMLStream* stream) {
    HRESULT hr = Begin(stream, kEntryElement);
    if (SUCCEEDED(hr)) hr = Element(stream, kFieldElements[kNameField], entry.name);
    if (SUCCEEDED(hr)) hr = Element(stream, kFieldElements[kTypeField], Widen(KindName(entry.kind)));
    if (SUCCEEDED(hr)) hr = Element(stream, kFieldElements[kValueField], ValueText(entry));
    if (SUCCEEDED(hr)) hr = stream->EndElement();
    return hr;
}

// The fields of one "Parameter" element: the direct text of each field
// child, and how often each field occurred.
struct RawEntry {
    std::string fields[3];  // by field index, UTF-8
    int seen[3] = {0, 0, 0};
};

int FieldIndex(std::string_view name) {
    for (int field = 0; field < 3; ++field) {
        if (kFieldElements[field] == name) return field;
    }
    return -1;
}

// The text directly inside an element (its text and CDATA children, not
// those of deeper elements).
std::string DirectText(pugi::xml_node element) {
    std::string text;
    for (pugi::xml_node child : element.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) text.append(child.value());
    }
    return text;
}

// The first "Parameters" element in document order, wherever it stands.
pugi::xml_node FindRoot(const pugi::xml_document& tree) {
    return tree.find_node([](pugi::xml_node node) {
        return node.type() == pugi::node_element && std::string_view(node.name()) == kRootElement;
    });
}

RawEntry ReadEntry(pugi::xml_node parameter) {
    RawEntry raw;
    for (pugi::xml_node child : parameter.children()) {
        if (child.type() != pugi::node_element) continue;
        const int field = FieldIndex(child.name());
        if (field < 0) continue;
        ++raw.seen[field];
        raw.fields[field] += DirectText(child);
    }
    return raw;
}

HRESULT EntryFromRaw(const RawEntry& raw, ParameterEntry* entry) {
    for (const int count : raw.seen) {
        if (count != 1) return kE_StreamCorrupt;
    }
    ParameterKind kind = ParameterKind::kEmpty;
    if (!KindFromName(raw.fields[kTypeField], &kind)) return kE_StreamCorrupt;
    entry->name = DecodeUtf8Lenient(raw.fields[kNameField]);
    if (entry->name.empty()) return kE_StreamCorrupt;
    return ValueFromText(kind, DecodeUtf8Lenient(raw.fields[kValueField]), entry) ? S_OK : kE_StreamCorrupt;
}

}  // namespace

HRESULT SaveParametersXml(const ParameterEntries& entries, IXMLStream* stream) {
    if (!stream) return E_POINTER;
    for (const ParameterEntry& entry : entries) {
        if (!IsXmlText(entry.name) || !IsXmlText(entry.text)) return E_INVALIDARG;
    }
    HRESULT hr = Begin(stream, kRootElement);
    for (const ParameterEntry& entry : entries) {
        if (SUCCEEDED(hr)) hr = SaveEntry(entry, stream);
    }
    if (SUCCEEDED(hr)) hr = stream->EndElement();
    return hr;
}

HRESULT LoadParametersXml(std::wstring_view text, ParameterEntries* entries) {
    std::string bytes;
    if (!AppendUtf8(text, &bytes)) return kE_StreamCorrupt;
    pugi::xml_document tree;
    switch (ReadXml(bytes, XmlMode::kFragment, &tree)) {
        case XmlCheck::kOk:
            break;
        case XmlCheck::kTruncated:
            return kE_StreamTruncated;
        case XmlCheck::kCorrupt:
            return kE_StreamCorrupt;
    }
    const pugi::xml_node root = FindRoot(tree);
    if (!root) return kE_NameNotFound;
    ParameterEntries loaded;
    for (pugi::xml_node child : root.children()) {
        if (child.type() != pugi::node_element || std::string_view(child.name()) != kEntryElement) continue;
        ParameterEntry entry;
        const HRESULT hr = EntryFromRaw(ReadEntry(child), &entry);
        if (FAILED(hr)) return hr;
        loaded.push_back(std::move(entry));
    }
    if (HasRepeatedName(loaded)) return kE_StreamCorrupt;
    *entries = std::move(loaded);
    return S_OK;
}

}  // namespace kit::streams
