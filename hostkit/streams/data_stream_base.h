// The IDataStream operations shared by the kit's streams: reading and writing
// go to a ByteStore; the stream itself gives its file form.
#pragma once

#include <string>
#include <utility>

#include "framework_interfaces.h"
#include "hostkit/kit_object.h"
#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/stream_file.h"

namespace kit::streams {

// Stream supplies, reached statically so the byte operations stay direct calls:
//   HRESULT SaveFile(const std::string& file): writes the file form;
//   HRESULT LoadFile(bytes): takes a whole file that was read, handed over as
//     an rvalue string (a file that cannot be read never gets here: the
//     stream stays as it was);
//   void BytesWritten() (optional): after a Write that stored bytes.
template <class Stream>
class DataStreamBase : public IDataStream {
public:
    HRESULT Rewind() override {
        store_.Rewind();
        return S_OK;
    }
    HRESULT GetSize(std::int32_t* size) override { return StreamGetSize(store_, size); }
    HRESULT GetPosition(std::int32_t* position) override { return StreamGetPosition(store_, position); }
    HRESULT Read(void* buffer, std::int32_t size, std::int32_t* done) override {
        return StreamRead(store_, buffer, size, done);
    }
    HRESULT Write(const void* buffer, std::int32_t size, std::int32_t* done) override {
        return NoThrow([&] {
            const HRESULT hr = StreamWrite(store_, buffer, size, done);
            if (SUCCEEDED(hr) && size > 0) self().BytesWritten();
            return hr;
        });
    }
    HRESULT SaveToFile(std::int32_t length, const wchar_t* path) override {
        return NoThrow([&] {
            std::string file;
            const HRESULT hr = PathFromWide(length, path, &file);
            return FAILED(hr) ? hr : self().SaveFile(file);
        });
    }
    HRESULT LoadFromFile(std::int32_t length, const wchar_t* path) override {
        return NoThrow([&] {
            std::string file;
            HRESULT hr = PathFromWide(length, path, &file);
            if (FAILED(hr)) return hr;
            std::string bytes;
            hr = ReadWholeFile(file, &bytes);
            return FAILED(hr) ? hr : self().LoadFile(std::move(bytes));
        });
    }

protected:
    DataStreamBase() = default;
    ~DataStreamBase() = default;

    void BytesWritten() {}

    ByteStore store_;  // the bytes the data stream operations reach

private:
    Stream& self() { return static_cast<Stream&>(*this); }
};

}  // namespace kit::streams
