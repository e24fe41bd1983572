// Result codes of the "Registry" component.
#pragma once

#include "com_types.h"

namespace kit {

// The registry file breaks the format (or exceeds its size bound).
inline constexpr HRESULT kRegistryMalformed = static_cast<HRESULT>(0x8007000Du);
// The registry file exists but cannot be read (a folder, no permission).
inline constexpr HRESULT kRegistryReadFailed = static_cast<HRESULT>(0x8007001Eu);
// The registry file cannot be written (no location, no permission, disk full).
inline constexpr HRESULT kRegistryWriteFailed = static_cast<HRESULT>(0x8007001Du);
// A write refused because a folder, device node, FIFO or socket stands in the
// file's place (left untouched).
inline constexpr HRESULT kRegistryNotRegularFile = static_cast<HRESULT>(0x800700DEu);
// The path's symbolic links go round in a circle or are too many to follow.
inline constexpr HRESULT kRegistryLinkLoop = static_cast<HRESULT>(0x80070781u);
// The disk or the quota is full.
inline constexpr HRESULT kRegistryDiskFull = static_cast<HRESULT>(0x80070070u);

}  // namespace kit
