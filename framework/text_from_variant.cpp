// Text objects from wide C strings and from variants, and variants from
// integers, made through the framework's services.
#include <cwchar>

#include "base/iids.h"
#include "base/no_throw.h"
#include "base/query.h"
#include "framework/conversions.h"
#include "framework/variant_format.h"
#include "module_interfaces.h"

namespace {

constexpr int kFormatBufferSize = 256;

// A new text object holding a copy of the characters; null when no string
// service is available.
IString* NewText(std::int32_t length, const wchar_t* text) {
    SmartPtr<ICreatableString> created(CREFString::CreateString());
    if (!created) return nullptr;
    created->SetString(length, text);
    return created.detach();
}

IString* FormatColourOrBinary(IVariant* value, short format) {
    wchar_t buffer[kFormatBufferSize];
    const auto bits = static_cast<std::uint32_t>(value->GetInteger());
    int written = 0;
    if (format == -16) {
        written = _swprintf(buffer, kFormatBufferSize, bits <= 0xFFFFFFu ? L"#%06X" : L"#%X", bits);
    } else {
        written = WriteBinaryByte(buffer, bits, BinaryFormatShift(format));
    }
    return NewText(written, buffer);
}

// kind 1 (integer) with format 0 or below is written as an integer; anything
// else as a number with `format` decimals, or automatic ones for -1.
IString* FormatNumber(IVariant* value, short kind, short format) {
    wchar_t buffer[kFormatBufferSize];
    int written = 0;
    if (kind == kVariantInteger && format <= 0) {
        written = _swprintf(buffer, kFormatBufferSize, L"%d", value->GetInteger());
    } else {
        const double number = value->GetDouble();
        const int decimals = format >= 0 ? format : AutomaticDecimals(number);
        wchar_t numberFormat[16];
        _swprintf(numberFormat, 16, L"%%.%df", decimals);
        written = _swprintf(buffer, kFormatBufferSize, numberFormat, number);
    }
    return NewText(written, buffer);
}

// The variant's own text object; a new empty one when it has none.
IString* OwnText(IVariant* value) {
    IString* text = nullptr;
    value->GetString(&text);
    return text ? text : NewText(0, L"");
}

IString* FormatVariant(IVariant* value, short format) {
    if (format < -1) return FormatColourOrBinary(value, format);
    short kind = 0;
    if (value->IsString() != 0) {
        SmartPtr<IString> text;
        value->GetString(text.put());
        tagREFString view{0, L""};
        if (text) text->GetString(&view);
        const NumberText number = ClassifyNumberText(view);
        if (number == NumberText::kNone) return text ? text.detach() : NewText(0, L"");
        kind = number == NumberText::kInteger ? kVariantInteger : kVariantDouble;
    } else {
        kind = value->GetType();
    }
    return FormatNumber(value, kind, format);
}

// The component name of the variant's object, or an empty text.
IString* ObjectName(IVariant* value) {
    SmartPtr<IUnknown> object;
    value->GetObject(object.put());
    SmartPtr<IObjectInfo> info = Query<IObjectInfo>(object.get(), IID_IObjectInfo);
    tagREFString name{0, L""};
    if (info) info->GetName(0, &name);
    return NewText(name.length, name.string);
}

}  // namespace

// A failing framework call gives null; whatever was made so far is released.
IString* ISCreate(const wchar_t* text) {
    return NoThrow([&] { return NewText(text ? static_cast<std::int32_t>(std::wcslen(text)) : 0, text ? text : L""); });
}

IString* ISCreate(IVariant* value, short format) {
    if (!value) return nullptr;
    return NoThrow([&] { return FormatVariant(value, format); });
}

IString* ISCreate(IVariant* value) {
    if (!value) return nullptr;
    return NoThrow([&] {
        if (value->IsString() != 0) return OwnText(value);
        if (value->GetType() != kVariantEmpty) return FormatVariant(value, -1);
        return ObjectName(value);
    });
}

IVariant* IVCreate(int value) {
    return NoThrow([&] {
        SmartPtr<IVariant> created(CREFString::CreateVariant());
        if (created) created->SetInteger(value);
        return created.detach();
    });
}
