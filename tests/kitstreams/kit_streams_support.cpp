#include "kitstreams/kit_streams_support.h"

namespace kitstreams_test {

const LoadedModule& Kit() { return LoadModule("CollectionsEx"); }

SmartPtr<IString> Text(std::wstring_view text) {
    SmartPtr<IString> string = Make<IString>(L"CreatableString", HostIID("IString"));
    if (string) string->SetString(static_cast<std::int32_t>(text.size()), text.data());
    return string;
}

std::wstring TextOf(IString* string) {
    if (!string) return {};
    tagREFString ref{0, nullptr};
    if (FAILED(string->GetString(&ref)) || ref.length <= 0) return {};
    return std::wstring(ref.string, static_cast<std::size_t>(ref.length));
}

std::wstring StreamText(IUnknown* stream) {
    SmartPtr<IString> text;
    stream->QueryInterface(HostIID("IString"), text.put_void());
    return TextOf(text.get());
}

SmartPtr<IVariant> IntegerVariant(std::int32_t value) {
    SmartPtr<IVariant> variant = Make<IVariant>(L"Variant", HostIID("IVariant"));
    if (variant) variant->SetInteger(value);
    return variant;
}

SmartPtr<IVariant> DoubleVariant(double value) {
    SmartPtr<IVariant> variant = Make<IVariant>(L"Variant", HostIID("IVariant"));
    if (variant) variant->SetDouble(value);
    return variant;
}

SmartPtr<IVariant> TextVariant(std::wstring_view value) {
    SmartPtr<IVariant> variant = Make<IVariant>(L"Variant", HostIID("IVariant"));
    if (variant) variant->SetText(static_cast<std::int32_t>(value.size()), value.data());
    return variant;
}

std::int32_t RefCount(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

std::wstring Wide(std::string_view ascii) { return std::wstring(ascii.begin(), ascii.end()); }

std::string ReadAll(IDataStream* stream) {
    stream->Rewind();
    std::string bytes;
    char buffer[7];  // odd size, so reads end mid-buffer
    for (;;) {
        std::int32_t done = sizeof buffer;
        if (FAILED(stream->Read(buffer, sizeof buffer, &done)) || done == 0) break;
        bytes.append(buffer, static_cast<std::size_t>(done));
    }
    return bytes;
}

}  // namespace kitstreams_test
