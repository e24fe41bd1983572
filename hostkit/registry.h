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

}  // namespace kit
