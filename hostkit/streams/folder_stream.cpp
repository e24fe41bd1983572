// "FolderStream": named binary values, plus a byte area reached through the
// data stream operations; both go to the file (layout in FORMATS.md).
#include <string>
#include <utility>
#include <vector>

#include "framework_interfaces.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/named_entries.h"
#include "hostkit/streams/data_stream_base.h"
#include "hostkit/streams/folder_format.h"
#include "hostkit/streams/stream_file.h"
#include "hostkit/streams/stream_results.h"

namespace kit {

namespace {

class FolderStream final : public streams::DataStreamBase<FolderStream>, public IFolderStream, public RefCounted {
public:
    FolderStream() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(static_cast<IDataStream*>(this),
                              {{kIID_IDataStream, static_cast<IDataStream*>(this)},
                               {kIID_IFolderStream, static_cast<IFolderStream*>(this)}},
                              iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    // IFolderStream; flags are ignored.
    HRESULT WriteValue(IString* name, const void* data, std::int32_t size, std::int32_t /*flags*/) override {
        return NoThrow([&] {
            std::wstring_view key;
            const HRESULT hr = ValueName(name, &key);
            if (FAILED(hr)) return hr;
            if (size < 0) return E_INVALIDARG;
            if (size > 0 && !data) return E_POINTER;
            const std::string_view bytes(static_cast<const char*>(data), static_cast<std::size_t>(size));
            if (streams::FolderValue* value = Find(key)) {
                value->data.assign(bytes);
            } else {
                values_.push_back({std::wstring(key), std::string(bytes)});
            }
            return S_OK;
        });
    }
    HRESULT GetValueSize(IString* name, std::int32_t* size) override {
        return NoThrow([&] {
            if (!size) return E_POINTER;
            const streams::FolderValue* value = nullptr;
            const HRESULT hr = Lookup(name, &value);
            if (FAILED(hr)) return hr;
            *size = static_cast<std::int32_t>(value->data.size());
            return S_OK;
        });
    }
    HRESULT GetValueCount(std::int32_t* count) override { return ReportCount(values_.size(), count); }
    HRESULT GetValueName(std::int32_t index, IString** name) override {
        return EntryName(values_, &streams::FolderValue::name, index, name);
    }
    HRESULT RemoveValue(IString* name) override {
        return NoThrow([&] {
            const streams::FolderValue* value = nullptr;
            const HRESULT hr = Lookup(name, &value);
            if (FAILED(hr)) return hr;
            values_.erase(values_.begin() + (value - values_.data()));
            return S_OK;
        });
    }
    // Reads exactly size bytes; the destination is untouched on any failure.
    HRESULT ReadValue(IString* name, void* data, std::int32_t size, std::int32_t /*flags*/) override {
        return NoThrow([&] {
            if (size < 0) return E_INVALIDARG;
            if (size > 0 && !data) return E_POINTER;
            const streams::FolderValue* value = nullptr;
            const HRESULT hr = Lookup(name, &value);
            if (FAILED(hr)) return hr;
            if (value->data.size() != static_cast<std::size_t>(size)) return kE_SizeMismatch;
            if (size > 0) value->data.copy(static_cast<char*>(data), value->data.size());
            return S_OK;
        });
    }

private:
    friend DataStreamBase;

    ~FolderStream() override = default;

    // The data stream operations' bytes (store_) go to the file with the values.
    HRESULT SaveFile(const std::string& file) {
        streams::FolderContent content{values_, std::string(store_.bytes())};
        std::string bytes;
        const HRESULT hr = streams::EncodeFolderFile(content, &bytes);
        if (FAILED(hr)) return hr;
        return streams::WriteFileAtomically(file, bytes);
    }
    // A truncated or corrupted file leaves the stream empty.
    HRESULT LoadFile(const std::string& bytes) {
        streams::FolderContent content;
        const HRESULT hr = streams::DecodeFolderFile(bytes, &content);
        values_ = std::move(content.values);
        store_.Assign(std::move(content.raw));
        return hr;
    }

    static HRESULT ValueName(IString* name, std::wstring_view* key) {
        const HRESULT hr = ReadString(name, key);
        if (FAILED(hr)) return hr;
        return streams::IsValueName(*key) ? S_OK : E_INVALIDARG;
    }
    streams::FolderValue* Find(std::wstring_view key) {
        const std::ptrdiff_t found = FindEntry(values_, &streams::FolderValue::name, key);
        return found < 0 ? nullptr : &values_[static_cast<std::size_t>(found)];
    }
    HRESULT Lookup(IString* name, const streams::FolderValue** value) {
        std::wstring_view key;
        const HRESULT hr = ValueName(name, &key);
        if (FAILED(hr)) return hr;
        *value = Find(key);
        return *value ? S_OK : kE_NameNotFound;
    }

    std::vector<streams::FolderValue> values_;  // in the order first written; names unique
};

}  // namespace

HRESULT CreateFolderStream(const IID& iid, void** out) { return CreateObject<FolderStream>(iid, out); }

}  // namespace kit
