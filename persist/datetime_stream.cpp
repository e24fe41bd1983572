#include "persist/datetime_stream.h"

#include <cwchar>
#include <limits>

#include "base/iids.h"
#include "base/query.h"
#include "framework/conversions.h"
#include "framework/ref_string.h"
#include "framework/tagged_text.h"
#include "persist/datetime_fields.h"

// A second read from text or a stream is narrowed from double; with IEEE
// floats that narrowing is defined for every value (out of range gives inf).
static_assert(std::numeric_limits<float>::is_iec559);

namespace {

constexpr std::int32_t kIntegerFieldSize = sizeof(std::int16_t);  // 2
constexpr std::int32_t kSecondFieldSize = sizeof(float);          // 4

SmartPtr<IString> NameText(const wchar_t* name) { return SmartPtr<IString>(ISCreate(name)); }

CREFString NameView(const wchar_t* name) { return CREFString(name, static_cast<int>(std::wcslen(name))); }

void WriteElements(const tagDATETIME& record, IXMLStream& xml) {
    xml.BeginElement(NameText(kDateTimeElementName).get(), nullptr, 0);
    for (const DateTimeIntegerField& entry : kDateTimeTextFields) {
        SmartPtr<IVariant> value(IVCreate(record.*entry.field));
        SmartPtr<IString> text(ISCreate(value.get()));
        xml.WriteElement(NameText(entry.name).get(), nullptr, text.get(), 0);
    }
    SmartPtr<IVariant> second(CREFString::CreateVariant());
    if (second) second->SetDouble(static_cast<double>(record.Second));
    SmartPtr<IString> text(ISCreate(second.get()));
    xml.WriteElement(NameText(kDateTimeSecondName).get(), nullptr, text.get(), 0);
    xml.EndElement();
}

void WriteValues(const tagDATETIME& record, IFolderStream& folder) {
    for (const DateTimeIntegerField& entry : kDateTimeBinaryFields) {
        folder.WriteValue(NameText(entry.name).get(), &(record.*entry.field), kIntegerFieldSize, 0);
    }
    folder.WriteValue(NameText(kDateTimeSecondName).get(), &record.Second, kSecondFieldSize, 0);
}

// Every element is searched from the start of the text, so order and
// surrounding elements do not matter. A found element with unreadable or
// missing content sets its field to 0; stored data relies on that.
void ReadElements(tagDATETIME& record, IDataStream* stream) {
    SmartPtr<IString> whole = Query<IString>(stream, IID_IString);
    CREFString source;
    tagREFString view{0, nullptr};
    if (whole && SUCCEEDED(whole->GetString(&view)) && view.length > 0 && view.string) source = CREFString(view);

    CREFString attributes;
    CREFString content;
    for (const DateTimeIntegerField& entry : kDateTimeTextFields) {
        CREFString tag = NameView(entry.name);
        if (XMLGetTAGGED(source, tag, attributes, content, 0) == S_OK) {
            record.*entry.field = static_cast<std::int16_t>(_IS2Integer(content, 10));
        }
    }
    CREFString tag = NameView(kDateTimeSecondName);
    if (XMLGetTAGGED(source, tag, attributes, content, 0) == S_OK) {
        record.Second = static_cast<float>(_IS2Double(content));
    }
}

// The weekday has no binary value and keeps what the record held.
void ReadValues(tagDATETIME& record, IFolderStream& folder) {
    for (const DateTimeIntegerField& entry : kDateTimeBinaryFields) {
        folder.ReadValue(NameText(entry.name).get(), &(record.*entry.field), kIntegerFieldSize, 0);
    }
    folder.ReadValue(NameText(kDateTimeSecondName).get(), &record.Second, kSecondFieldSize, 0);
}

}  // namespace

HRESULT SaveDateTime(const tagDATETIME& record, IDataStream* stream) {
    if (!stream) return S_OK;
    // Only one form is written, even to a stream that offers both.
    if (SmartPtr<IXMLStream> xml = Query<IXMLStream>(stream, IID_IXMLStream)) {
        WriteElements(record, *xml.get());
    } else if (SmartPtr<IFolderStream> folder = Query<IFolderStream>(stream, IID_IFolderStream)) {
        WriteValues(record, *folder.get());
    }
    return S_OK;
}

HRESULT LoadDateTime(tagDATETIME& record, IDataStream* stream) {
    if (!stream) return S_OK;
    // Both forms are read when the stream offers both; the binary values win.
    if (Query<IXMLStream>(stream, IID_IXMLStream)) ReadElements(record, stream);
    if (SmartPtr<IFolderStream> folder = Query<IFolderStream>(stream, IID_IFolderStream)) {
        ReadValues(record, *folder.get());
    }
    return S_OK;
}
