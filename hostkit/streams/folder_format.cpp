#include "hostkit/streams/folder_format.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

#include "hostkit/streams/byte_store.h"
#include "hostkit/streams/stream_results.h"
#include "hostkit/utf8.h"

namespace kit::streams {

namespace {

constexpr std::string_view kMagic{"KFOLDER\x1A", 8};
constexpr std::uint32_t kVersion = 1;
// Smallest record: name length, one name unit, data length.
constexpr std::size_t kMinRecordSize = 12;

// The checksum that closes a file: CRC-32 with the reflected 0xEDB88320
// polynomial, initial and final value 0xFFFFFFFF (zlib's). zlib takes at most
// 4 GiB per call; a stream holds less than 2 GiB.
std::uint32_t Crc32(std::string_view bytes) {
    static_assert(kMaxStreamSize <= std::numeric_limits<uInt>::max());
    return static_cast<std::uint32_t>(
        ::crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

void PutU32(std::uint32_t value, std::string& out) {
    for (int shift = 0; shift < 32; shift += 8) out.push_back(static_cast<char>((value >> shift) & 0xFFu));
}

// Reads the file front to back; running out of bytes is truncation.
class FileReader {
public:
    explicit FileReader(std::string_view bytes) : bytes_(bytes) {}
    std::size_t remaining() const { return bytes_.size() - at_; }
    std::size_t offset() const { return at_; }

    bool Take(std::size_t count, std::string_view* out) {
        if (count > remaining()) return false;
        *out = bytes_.substr(at_, count);
        at_ += count;
        return true;
    }
    bool TakeU32(std::uint32_t* value) {
        std::string_view bytes;
        if (!Take(4, &bytes)) return false;
        *value = 0;
        for (int i = 3; i >= 0; --i)
            *value = (*value << 8) | static_cast<std::uint8_t>(bytes[static_cast<std::size_t>(i)]);
        return true;
    }

private:
    std::string_view bytes_;
    std::size_t at_ = 0;  // [0, bytes_.size()]
};

HRESULT DecodeValue(FileReader& reader, FolderValue* value) {
    std::uint32_t name_length = 0;
    if (!reader.TakeU32(&name_length)) return kE_StreamTruncated;
    if (name_length == 0 || name_length > kMaxValueNameLength) return kE_StreamCorrupt;
    if (name_length > reader.remaining() / 4) return kE_StreamTruncated;
    value->name.resize(name_length);
    for (wchar_t& unit : value->name) {
        std::uint32_t code = 0;
        reader.TakeU32(&code);
        unit = static_cast<wchar_t>(code);
    }
    if (!IsValueName(value->name)) return kE_StreamCorrupt;
    std::uint32_t data_length = 0;
    if (!reader.TakeU32(&data_length)) return kE_StreamTruncated;
    if (data_length > kMaxStreamSize) return kE_StreamCorrupt;
    std::string_view data;
    if (!reader.Take(data_length, &data)) return kE_StreamTruncated;
    value->data.assign(data);
    return S_OK;
}

// Sorted, so that a hostile file with many values costs n log n.
bool HasRepeatedName(const std::vector<FolderValue>& values) {
    std::vector<std::wstring_view> names;
    names.reserve(values.size());
    for (const FolderValue& value : values) names.push_back(value.name);
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) != names.end();
}

}  // namespace

bool IsValueName(std::wstring_view name) {
    if (name.empty() || name.size() > kMaxValueNameLength) return false;
    for (const wchar_t unit : name) {
        const auto code = static_cast<std::uint32_t>(unit);
        if (code == 0 || !IsScalarValue(code)) return false;
    }
    return true;
}

HRESULT EncodeFolderFile(const FolderContent& content, std::string* out) {
    std::size_t size = kMagic.size() + 12 + content.raw.size() + 4;
    for (const FolderValue& value : content.values) size += 8 + 4 * value.name.size() + value.data.size();
    if (size > kMaxStreamSize) return E_OUTOFMEMORY;
    std::string file;
    file.reserve(size);
    file.append(kMagic);
    PutU32(kVersion, file);
    PutU32(static_cast<std::uint32_t>(content.values.size()), file);
    PutU32(static_cast<std::uint32_t>(content.raw.size()), file);
    for (const FolderValue& value : content.values) {
        PutU32(static_cast<std::uint32_t>(value.name.size()), file);
        for (const wchar_t unit : value.name) PutU32(static_cast<std::uint32_t>(unit), file);
        PutU32(static_cast<std::uint32_t>(value.data.size()), file);
        file.append(value.data);
    }
    file.append(content.raw);
    PutU32(Crc32(file), file);
    *out = std::move(file);
    return S_OK;
}

HRESULT DecodeFolderFile(std::string_view file, FolderContent* out) {
    FileReader reader(file);
    std::string_view magic;
    if (!reader.Take(kMagic.size(), &magic)) return kE_StreamTruncated;
    if (magic != kMagic) return kE_StreamCorrupt;
    std::uint32_t version = 0;
    if (!reader.TakeU32(&version)) return kE_StreamTruncated;
    if (version != kVersion) return kE_StreamCorrupt;
    std::uint32_t count = 0;
    if (!reader.TakeU32(&count)) return kE_StreamTruncated;
    if (count > kMaxValueCount) return kE_StreamCorrupt;
    std::uint32_t raw_length = 0;
    if (!reader.TakeU32(&raw_length)) return kE_StreamTruncated;
    if (raw_length > kMaxStreamSize) return kE_StreamCorrupt;

    FolderContent content;
    const std::size_t possible = reader.remaining() / kMinRecordSize;
    content.values.reserve(count < possible ? count : possible);
    for (std::uint32_t i = 0; i < count; ++i) {
        FolderValue value;
        const HRESULT hr = DecodeValue(reader, &value);
        if (FAILED(hr)) return hr;
        content.values.push_back(std::move(value));
    }
    if (HasRepeatedName(content.values)) return kE_StreamCorrupt;
    std::string_view raw;
    if (!reader.Take(raw_length, &raw)) return kE_StreamTruncated;
    content.raw.assign(raw);
    const std::size_t checked = reader.offset();
    std::uint32_t crc = 0;
    if (!reader.TakeU32(&crc)) return kE_StreamTruncated;
    if (reader.remaining() != 0 || crc != Crc32(file.substr(0, checked))) return kE_StreamCorrupt;
    *out = std::move(content);
    return S_OK;
}

}  // namespace kit::streams
