// "DataStream": a memory byte stream; its file form is the raw bytes.
#include <string>
#include <utility>

#include "framework_interfaces.h"
#include "hostkit/kit_components.h"
#include "hostkit/kit_object.h"
#include "hostkit/streams/data_stream_base.h"
#include "hostkit/streams/stream_file.h"

namespace kit {

namespace {

class DataStream final : public streams::DataStreamBase<DataStream>, public RefCounted {
public:
    DataStream() = default;

    HRESULT QueryInterface(const IID& iid, void** out) override {
        return QueryFromTable(this, {{kIID_IDataStream, static_cast<IDataStream*>(this)}}, iid, out);
    }
    std::int32_t AddRef() override { return AddRefImpl(); }
    std::int32_t Release() override { return ReleaseImpl(); }

private:
    friend DataStreamBase;

    ~DataStream() override = default;

    HRESULT SaveFile(const std::string& file) { return streams::WriteFileAtomically(file, store_.bytes()); }
    // Any bytes are a valid raw stream.
    HRESULT LoadFile(std::string&& bytes) {
        store_.Assign(std::move(bytes));
        return S_OK;
    }
};

}  // namespace

HRESULT CreateDataStream(const IID& iid, void** out) { return CreateObject<DataStream>(iid, out); }

}  // namespace kit
