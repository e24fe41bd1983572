// The calendar state loaded from the host kit's XML and folder streams: the
// date record reader shared by the calendar classes and CDateTimer, and the
// Time component's parameter load. The streams are the kit's real ones,
// found by the module as a host would provide them (the kit is loaded from
// "./_binlinux/", so the target runs from the build folder). Checked: both
// loads return their documented codes, and every reference the loads take on
// the stream and on the component is given back.
#include <cstdint>
#include <string>

#include "base/framework_binding.h"
#include "base/iids.h"
#include "calendar/datetime.h"
#include "fuzz/fuzz_input.h"
#include "module/entry.h"
#include "module_interfaces.h"
#include "persist/datetime_stream.h"

namespace {

IComponentCollection* Collection() {
    // One reference held for the process, as a host holds its collection.
    static IComponentCollection* const collection = GLOBALComponents();
    return collection;
}

template <class I, std::size_t N>
I* CreateKitObject(const wchar_t (&name)[N], const IID& iid) {
    void* object = nullptr;
    if (!Collection()) return nullptr;
    Collection()->GetComponent(static_cast<std::int32_t>(N - 1), name, &iid, &object);
    return static_cast<I*>(object);
}

IDataPersist* CreateTimePersist() {
    static const wchar_t kName[] = L"Time";
    CREATEFUNCTION create = nullptr;
    if (CreateFunction(static_cast<std::int32_t>(std::size(kName) - 1), kName, &create) != S_OK || !create) {
        return nullptr;
    }
    void* persist = nullptr;
    if (create(nullptr, &IID_IDataPersist, &persist) != S_OK) return nullptr;
    return static_cast<IDataPersist*>(persist);
}

// Value names the readers look for, and one they do not know.
constexpr const wchar_t* kValueNames[] = {L"Day",    L"Month",  L"Year",          L"Hour",
                                          L"Minute", L"Second", L"Parameter:Day", L"Other"};

// Records of [name selector][size 0 to 8][bytes] written as folder values.
void FillFolder(IFolderStream& folder, fuzz::ByteReader& in) {
    while (!in.empty()) {
        const wchar_t* name = kValueNames[in.Byte() % std::size(kValueNames)];
        const std::string_view data = in.Bytes(in.Byte() % 9);
        IString* text = CreateKitObject<IString>(L"CreatableString", IID_IString);
        if (!text) return;
        text->SetString(static_cast<std::int32_t>(std::wcslen(name)), name);
        folder.WriteValue(text, data.data(), static_cast<std::int32_t>(data.size()), 0);
        text->Release();
    }
}

void FillXml(IDataStream& stream, fuzz::ByteReader& in) {
    IString* text = nullptr;
    if (FAILED(stream.QueryInterface(IID_IString, reinterpret_cast<void**>(&text))) || !text) return;
    const fuzz::ExactWide wide(in.Rest());
    text->SetString(wide.length(), wide.data());
    text->Release();
}

}  // namespace

// Layout: a flags byte (bit 0: folder stream, else XML; bit 1: also load the
// Time component's parameters), then the XML text or the folder records.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::ByteReader in(data, size);
    const std::uint8_t flags = in.Byte();
    const bool folder = flags & 1;
    IDataStream* stream = folder ? CreateKitObject<IDataStream>(L"FolderStream", IID_IDataStream)
                                 : CreateKitObject<IDataStream>(L"XMLStream", IID_IDataStream);
    fuzz::Require(stream != nullptr, "the kit's streams are available");
    if (folder) {
        IFolderStream* values = nullptr;
        fuzz::Require(SUCCEEDED(stream->QueryInterface(IID_IFolderStream, reinterpret_cast<void**>(&values))),
                      "a folder stream answers IFolderStream");
        FillFolder(*values, in);
        values->Release();
    } else {
        FillXml(*stream, in);
    }

    tagDATETIME record;
    record.Day = 11;
    record.Year = 1999;
    fuzz::Require(LoadDateTime(record, stream) == S_OK, "the date record load returns 0");

    if (flags & 2) {
        IDataPersist* time = CreateTimePersist();
        fuzz::Require(time != nullptr, "Time is created");
        const HRESULT hr = time->Load(stream, 0);
        fuzz::Require(hr == S_OK, "the parameter load from a kit stream returns 0");
        fuzz::Require(time->Release() == 0, "the last Release of Time returns 0");
    }
    fuzz::Require(stream->Release() == 0, "the loads give back every stream reference");
    return 0;
}
