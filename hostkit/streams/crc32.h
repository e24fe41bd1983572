// CRC-32 (the reflected 0xEDB88320 polynomial, initial and final value
// 0xFFFFFFFF), the checksum that closes a folder stream file.
#pragma once

#include <cstdint>
#include <string_view>

namespace kit::streams {

std::uint32_t Crc32(std::string_view bytes);

}  // namespace kit::streams
