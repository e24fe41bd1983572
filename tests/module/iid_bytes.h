// The 16 bytes of an identifier record, in memory order, for byte-exact checks.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "com_types.h"

using IIDBytes = std::array<std::uint8_t, 16>;

inline IIDBytes BytesOf(const IID& iid) {
    IIDBytes bytes{};
    std::memcpy(bytes.data(), &iid, bytes.size());
    return bytes;
}
