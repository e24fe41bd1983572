#include "hostkit/streams/parameters_xml.h"

#include <string>

#include "hostkit/streams/parameter_values.h"
#include "hostkit/creatable_string.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/text_codec.h"
#include "hostkit/streams/xml_chars.h"
#include "hostkit/streams/xml_scanner.h"

namespace kit::streams {

namespace {

constexpr std::wstring_view kRootElement = L"Parameters";
constexpr std::wstring_view kEntryElement = L"Parameter";
constexpr std::wstring_view kNameElement = L"Name";
constexpr std::wstring_view kTypeElement = L"Type";
constexpr std::wstring_view kValueElement = L"Value";

bool IsXmlText(std::wstring_view text) {
    for (const wchar_t unit : text) {
        if (!IsXmlChar(static_cast<std::uint32_t>(unit))) return false;
    }
    return true;
}

HRESULT Begin(IXMLStream* stream, std::wstring_view name) {
    SmartPtr<IString> tag;
    const HRESULT hr = NewString(name, tag.put());
    if (FAILED(hr)) return hr;
    return stream->BeginElement(tag.get(), nullptr, 0);
}

HRESULT Element(IXMLStream* stream, std::wstring_view name, std::wstring_view value) {
    SmartPtr<IString> tag;
    HRESULT hr = NewString(name, tag.put());
    if (FAILED(hr)) return hr;
    SmartPtr<IString> text;
    hr = NewString(value, text.put());
    if (FAILED(hr)) return hr;
    return stream->WriteElement(tag.get(), nullptr, text.get(), 0);
}

HRESULT SaveEntry(const ParameterEntry& entry, IXMLStream* stream) {
    HRESULT hr = Begin(stream, kEntryElement);
    if (SUCCEEDED(hr)) hr = Element(stream, kNameElement, entry.name);
    if (SUCCEEDED(hr)) {
        const std::string_view kind = KindName(entry.kind);
        hr = Element(stream, kTypeElement, std::wstring(kind.begin(), kind.end()));
    }
    if (SUCCEEDED(hr)) hr = Element(stream, kValueElement, ValueText(entry));
    if (SUCCEEDED(hr)) hr = stream->EndElement();
    return hr;
}

// Collects the fields of each "Parameter" child of the first "Parameters"
// element; other elements and their text are passed over.
class ParametersReader final : public XmlHandler {
public:
    struct RawEntry {
        std::string fields[3];  // name, type, value as UTF-8
        int seen[3] = {0, 0, 0};
    };

    void StartElement(std::string_view name) override {
        ++depth_;
        if (root_depth_ == 0) {
            if (!found_ && name == "Parameters") root_depth_ = depth_;
            return;
        }
        if (depth_ == root_depth_ + 1 && name == "Parameter") {
            entries_.emplace_back();
        } else if (depth_ == root_depth_ + 2 && !entries_.empty()) {
            field_ = FieldIndex(name);
            if (field_ >= 0) ++entries_.back().seen[field_];
        }
    }
    void EndElement() override {
        if (depth_ == root_depth_ + 2) field_ = -1;
        if (depth_ == root_depth_ && root_depth_ != 0) {
            root_depth_ = 0;
            found_ = true;
        }
        --depth_;
    }
    void Text(std::string_view text) override {
        if (root_depth_ != 0 && depth_ == root_depth_ + 2 && field_ >= 0 && !entries_.empty()) {
            entries_.back().fields[field_].append(text);
        }
    }

    bool found() const { return found_; }
    const std::vector<RawEntry>& entries() const { return entries_; }

private:
    static int FieldIndex(std::string_view name) {
        if (name == "Name") return 0;
        if (name == "Type") return 1;
        if (name == "Value") return 2;
        return -1;
    }

    int depth_ = 0;
    int root_depth_ = 0;  // depth of the open "Parameters" element, 0 outside it
    int field_ = -1;      // field being read inside the current entry
    bool found_ = false;  // the first "Parameters" element has ended
    std::vector<RawEntry> entries_;
};

HRESULT EntryFromRaw(const ParametersReader::RawEntry& raw, ParameterEntry* entry) {
    for (const int count : raw.seen) {
        if (count != 1) return kE_StreamCorrupt;
    }
    ParameterKind kind = ParameterKind::kEmpty;
    if (!KindFromName(raw.fields[1], &kind)) return kE_StreamCorrupt;
    DecodeUtf8Lenient(raw.fields[0], entry->name);
    if (entry->name.empty()) return kE_StreamCorrupt;
    std::wstring value;
    DecodeUtf8Lenient(raw.fields[2], value);
    return ValueFromText(kind, value, entry) ? S_OK : kE_StreamCorrupt;
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
    if (!AppendUtf8(text, bytes)) return kE_StreamCorrupt;
    ParametersReader reader;
    switch (ScanXml(bytes, XmlMode::kFragment, &reader)) {
        case XmlScan::kOk: break;
        case XmlScan::kTruncated: return kE_StreamTruncated;
        case XmlScan::kCorrupt: return kE_StreamCorrupt;
    }
    if (!reader.found()) return kE_NameNotFound;
    ParameterEntries loaded(reader.entries().size());
    for (std::size_t i = 0; i < loaded.size(); ++i) {
        const HRESULT hr = EntryFromRaw(reader.entries()[i], &loaded[i]);
        if (FAILED(hr)) return hr;
    }
    if (HasRepeatedName(loaded)) return kE_StreamCorrupt;
    *entries = std::move(loaded);
    return S_OK;
}

}  // namespace kit::streams
