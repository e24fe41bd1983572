#include "support/stream_files.h"

#include <cstdint>
#include <fstream>
#include <iterator>

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteBytes(const std::string& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

HRESULT SaveStream(IDataStream* stream, const std::string& path) {
    const std::wstring wide(path.begin(), path.end());
    return stream->SaveToFile(static_cast<std::int32_t>(wide.size()), wide.c_str());
}

HRESULT LoadStream(IDataStream* stream, const std::string& path) {
    const std::wstring wide(path.begin(), path.end());
    return stream->LoadFromFile(static_cast<std::int32_t>(wide.size()), wide.c_str());
}
