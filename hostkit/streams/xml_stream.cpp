// "XMLStream": XML text built element by element, readable as bytes (UTF-8)
// and as one framework text; its file form is a well-formed XML document.
#include <string>
#include <utility>

#include "framework_interfaces.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/data_stream_base.h"
#include "hostkit/streams/stream_file.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/streams/xml_builder.h"
#include "hostkit/streams/xml_document.h"
#include "hostkit/utf8.h"

namespace kit {

namespace {

class XmlStream final : public streams::DataStreamBase<XmlStream>,
                        public IXMLStream,
                        public IString,
                        public RefCounted {
public:
    XmlStream() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(static_cast<IDataStream*>(this),
                              {{kIID_IDataStream, static_cast<IDataStream*>(this)},
                               {kIID_IXMLStream, static_cast<IXMLStream*>(this)},
                               {kIID_IString, static_cast<IString*>(this)}},
                              iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // IXMLStream. Attribute objects are not supported (null only); flags are
    // ignored.
    HRESULT BeginElement(IString* name, IUnknown* attributes, std::int32_t /*flags*/) override {
        return NoThrow([&] {
            if (attributes) return E_NOTIMPL;
            std::wstring_view tag;
            const HRESULT hr = ReadString(name, &tag);
            if (FAILED(hr)) return hr;
            return Changed(builder_.Begin(store_, tag));
        });
    }
    HRESULT WriteAttribute(IString* name, IString* value) override {
        return NoThrow([&] {
            std::wstring_view attribute;
            HRESULT hr = ReadString(name, &attribute);
            if (FAILED(hr)) return hr;
            std::wstring_view text;
            hr = ReadOptionalString(value, &text);
            if (FAILED(hr)) return hr;
            return Changed(builder_.Attribute(store_, attribute, text));
        });
    }
    HRESULT WriteElement(IString* name, IUnknown* attributes, IString* value, std::int32_t /*flags*/) override {
        return NoThrow([&] {
            if (attributes) return E_NOTIMPL;
            std::wstring_view tag;
            HRESULT hr = ReadString(name, &tag);
            if (FAILED(hr)) return hr;
            std::wstring_view text;
            hr = ReadOptionalString(value, &text);
            if (FAILED(hr)) return hr;
            return Changed(builder_.Element(store_, tag, text));
        });
    }
    HRESULT EndElement() override {
        return NoThrow([&] { return Changed(builder_.End(store_)); });
    }

    // IString: the whole text. The view stays valid until the text changes.
    HRESULT GetString(tagREFString* text) override {
        return NoThrow([&] {
            if (!text) return E_POINTER;
            if (wide_stale_) {
                wide_ = DecodeUtf8Lenient(store_.bytes());
                wide_stale_ = false;
            }
            text->length = static_cast<std::int32_t>(wide_.size());
            text->string = wide_.c_str();
            return S_OK;
        });
    }
    HRESULT SetString(std::int32_t length, const wchar_t* text) override {
        return NoThrow([&] {
            std::string bytes;
            const HRESULT hr = EncodeText(length, text, &bytes);
            if (FAILED(hr)) return hr;
            store_.Assign(std::move(bytes));
            TextReplaced();
            return S_OK;
        });
    }
    HRESULT Append(std::int32_t length, const wchar_t* text) override {
        return NoThrow([&] {
            std::string bytes;
            const HRESULT hr = EncodeText(length, text, &bytes);
            if (FAILED(hr)) return hr;
            return Changed(store_.Append(bytes));
        });
    }

private:
    friend DataStreamBase;

    ~XmlStream() override = default;

    // The data stream operations reach the text's UTF-8 bytes (store_).
    // Writing bytes ends any element building in progress.
    void BytesWritten() { TextReplaced(); }
    HRESULT SaveFile(const std::string& file) {
        std::string document;
        const HRESULT hr = streams::XmlDocumentFromText(store_.bytes(), &document);
        if (FAILED(hr)) return hr;
        return streams::WriteFileAtomically(file, document);
    }
    // A file that is not a well-formed document leaves the stream empty.
    HRESULT LoadFile(const std::string& bytes) {
        std::string text;
        const HRESULT hr = streams::XmlTextFromDocument(bytes, &text);
        store_.Assign(SUCCEEDED(hr) ? std::move(text) : std::string());
        TextReplaced();
        return hr;
    }

    static HRESULT EncodeText(std::int32_t length, const wchar_t* text, std::string* bytes) {
        const HRESULT hr = CheckText(length, text);
        if (FAILED(hr)) return hr;
        return AppendUtf8(TextView(length, text), bytes) ? S_OK : E_INVALIDARG;
    }
    HRESULT Changed(HRESULT hr) {
        if (SUCCEEDED(hr)) wide_stale_ = true;
        return hr;
    }
    void TextReplaced() {
        builder_.Reset();
        wide_stale_ = true;
    }

    streams::XmlBuilder builder_;  // elements opened and not yet ended
    std::wstring wide_;            // the text as handed out by GetString
    bool wide_stale_ = false;      // wide_ no longer matches store_
};

}  // namespace

HRESULT CreateXMLStream(const IID& iid, void** out) { return CreateObject<XmlStream>(iid, out); }

}  // namespace kit
