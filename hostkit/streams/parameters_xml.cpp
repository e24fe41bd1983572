#include "hostkit/streams/parameters_xml.h"

#include <string>

#include "hostkit/creatable_string.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/parameter_values.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/text_codec.h"
#include "hostkit/streams/xml_chars.h"
#include "hostkit/streams/xml_scanner.h"

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

// Collects the fields of each "Parameter" child of the first "Parameters"
// element; other elements and their text are passed over.
class ParametersReader final : public XmlHandler {
public:
    struct RawEntry {
        std::string fields[3];    // by field index, UTF-8
        int seen[3] = {0, 0, 0};  // how often each field element occurred
    };

    void StartElement(std::string_view name) override {
        ++depth_;
        if (root_depth_ == 0) {
            if (!found_ && name == kRootElement) root_depth_ = depth_;
            return;
        }
        if (depth_ == root_depth_ + 1 && name == kEntryElement) {
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
        for (int field = 0; field < 3; ++field) {
            if (kFieldElements[field] == name) return field;
        }
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
    if (!KindFromName(raw.fields[kTypeField], &kind)) return kE_StreamCorrupt;
    DecodeUtf8Lenient(raw.fields[kNameField], entry->name);
    if (entry->name.empty()) return kE_StreamCorrupt;
    std::wstring value;
    DecodeUtf8Lenient(raw.fields[kValueField], value);
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
        case XmlScan::kOk:
            break;
        case XmlScan::kTruncated:
            return kE_StreamTruncated;
        case XmlScan::kCorrupt:
            return kE_StreamCorrupt;
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
