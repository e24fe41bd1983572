// Result codes of the kit's streams and parameter collections beyond the
// framework's common ones. Values follow the framework's convention of
// wrapping a system error number (0x8007xxxx), so hosts can print them.
#pragma once

#include "com_types.h"

namespace kit {

// A file ended before its structure was complete (also every strict prefix of
// a valid stream file).
inline constexpr HRESULT kE_StreamTruncated = static_cast<HRESULT>(0x80070026u);
// A file or text whose structure is invalid: bad header, bad length, checksum
// mismatch, XML that is not well-formed.
inline constexpr HRESULT kE_StreamCorrupt = static_cast<HRESULT>(0x8007000Du);
// No value or entry under the given name.
inline constexpr HRESULT kE_NameNotFound = static_cast<HRESULT>(0x80070490u);
// A value exists under the name but with another size.
inline constexpr HRESULT kE_SizeMismatch = static_cast<HRESULT>(0x80070018u);
// File system failures of SaveToFile and LoadFromFile.
inline constexpr HRESULT kE_FileNotFound = static_cast<HRESULT>(0x80070002u);
inline constexpr HRESULT kE_AccessDenied = static_cast<HRESULT>(0x80070005u);
inline constexpr HRESULT kE_WriteFault = static_cast<HRESULT>(0x8007001Du);
inline constexpr HRESULT kE_ReadFault = static_cast<HRESULT>(0x8007001Eu);
// A save refused because a device node, FIFO or socket stands at the path
// (left untouched).
inline constexpr HRESULT kE_NotRegularFile = static_cast<HRESULT>(0x800700DEu);
// The path's symbolic links go round in a circle or are too many to follow.
inline constexpr HRESULT kE_LinkLoop = static_cast<HRESULT>(0x80070781u);
// The disk or the quota is full.
inline constexpr HRESULT kE_DiskFull = static_cast<HRESULT>(0x80070070u);

}  // namespace kit
