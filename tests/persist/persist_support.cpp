#include "persist_support.h"

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace persist_test {

SmartPtr<IComponentCollection> NewKitCollection() {
    return LoadModule("CollectionsEx")
        .Create<IComponentCollection>(L"GlobalComponentCollection", HostIID("IComponentCollection"));
}

SmartPtr<IString> NewText(IComponentCollection* collection, std::wstring_view text) {
    SmartPtr<IString> result = NewComponent<IString>(collection, L"CreatableString", HostIID("IString"));
    if (result) result->SetString(static_cast<std::int32_t>(text.size()), text.data());
    return result;
}

SmartPtr<IVariant> NewInteger(IComponentCollection* collection, std::int32_t value) {
    SmartPtr<IVariant> result = NewComponent<IVariant>(collection, L"Variant", HostIID("IVariant"));
    if (result) result->SetInteger(value);
    return result;
}

SmartPtr<IVariant> NewDouble(IComponentCollection* collection, double value) {
    SmartPtr<IVariant> result = NewComponent<IVariant>(collection, L"Variant", HostIID("IVariant"));
    if (result) result->SetDouble(value);
    return result;
}

std::wstring TextOf(IString* text) {
    if (!text) return L"<null>";
    tagREFString view{0, nullptr};
    if (FAILED(text->GetString(&view))) return L"<failed>";
    return view.length > 0 ? std::wstring(view.string, static_cast<std::size_t>(view.length)) : std::wstring();
}

std::wstring StreamText(IUnknown* stream) {
    SmartPtr<IString> text;
    if (!stream || FAILED(stream->QueryInterface(HostIID("IString"), text.put_void())) || !text) {
        return L"<no text>";
    }
    return TextOf(text.get());
}

void SetStreamText(IUnknown* stream, std::wstring_view value) {
    SmartPtr<IString> text;
    if (stream && SUCCEEDED(stream->QueryInterface(HostIID("IString"), text.put_void())) && text) {
        text->SetString(static_cast<std::int32_t>(value.size()), value.data());
    }
}

std::int32_t RefCount(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

std::wstring DescribeEntries(INamedCollection* collection) {
    std::wostringstream out;
    std::int32_t count = 0;
    if (!collection || FAILED(collection->GetCount(&count))) return L"<no collection>";
    for (std::int32_t i = 0; i < count; ++i) {
        SmartPtr<IString> name;
        collection->GetItemName(i, name.put());
        out << TextOf(name.get()) << L'=';
        SmartPtr<IUnknown> item;
        collection->GetItem(i, item.put());
        SmartPtr<IVariant> value;
        if (item) item->QueryInterface(HostIID("IVariant"), value.put_void());
        if (!value) {
            out << L"<not a variant>\n";
            continue;
        }
        const short type = value->GetType();
        if (type == kVariantInteger) {
            out << L"integer:" << value->GetInteger() << L'\n';
        } else if (type == kVariantDouble) {
            out << L"double:" << value->GetDouble() << L'\n';
        } else {
            out << L"type " << type << L'\n';
        }
    }
    return out.str();
}

ScratchFile::ScratchFile(std::string_view suffix) {
    static std::atomic<int> counter{0};
    const char* folder = std::getenv("TMPDIR");
    path_ = std::string(folder && *folder ? folder : "/tmp") + "/persist_test_" + std::to_string(getpid()) + "_" +
            std::to_string(counter++) + std::string(suffix);
}

ScratchFile::~ScratchFile() { std::remove(path_.c_str()); }

}  // namespace persist_test
