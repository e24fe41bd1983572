// "DataStream": a memory byte stream; its file form is the raw bytes.
#include "framework_interfaces.h"
#include "hostkit/creatable_string.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/kit_text.h"
#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/stream_file.h"

namespace kit {

namespace {

class DataStream final : public IDataStream, public RefCounted {
public:
    DataStream() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this, {{kIID_IDataStream, static_cast<IDataStream*>(this)}}, iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

    HRESULT Rewind() override {
        store_.Rewind();
        return S_OK;
    }
    HRESULT GetSize(std::int32_t* size) override { return streams::StreamGetSize(store_, size); }
    HRESULT GetPosition(std::int32_t* position) override { return streams::StreamGetPosition(store_, position); }
    HRESULT Read(void* buffer, std::int32_t size, std::int32_t* done) override {
        return streams::StreamRead(store_, buffer, size, done);
    }
    HRESULT Write(const void* buffer, std::int32_t size, std::int32_t* done) override {
        return NoThrow([&] { return streams::StreamWrite(store_, buffer, size, done); });
    }
    HRESULT SaveToFile(std::int32_t length, const wchar_t* path) override {
        return NoThrow([&] {
            std::string file;
            const HRESULT hr = streams::PathFromWide(length, path, &file);
            if (FAILED(hr)) return hr;
            return streams::WriteFileAtomically(file, store_.bytes());
        });
    }
    // Any bytes are a valid raw stream; a file that cannot be read leaves
    // the stream as it was.
    HRESULT LoadFromFile(std::int32_t length, const wchar_t* path) override {
        return NoThrow([&] {
            std::string file;
            HRESULT hr = streams::PathFromWide(length, path, &file);
            if (FAILED(hr)) return hr;
            std::string bytes;
            hr = streams::ReadWholeFile(file, &bytes);
            if (FAILED(hr)) return hr;
            store_.Assign(std::move(bytes));
            return S_OK;
        });
    }

private:
    ~DataStream() override = default;

    streams::ByteStore store_;
};

}  // namespace

HRESULT CreateDataStream(const IID& iid, void** out) { return CreateObject<DataStream>(iid, out); }

}  // namespace kit
