// The named values of a folder stream and their file form. The layout is
// described in FORMATS.md next to this file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "com_types.h"

namespace kit::streams {

// Longest value name in code units, and the most values one file may hold;
// both bound what a reader allocates for a hostile file.
inline constexpr std::size_t kMaxValueNameLength = 4096;
inline constexpr std::uint32_t kMaxValueCount = 1u << 20;

struct FolderValue {
    std::wstring name;  // non-empty, scalar values other than NUL
    std::string data;   // the value's bytes
};

// The folder's content: values in the order first written, plus the bytes
// written through the stream's byte interface.
struct FolderContent {
    std::vector<FolderValue> values;
    std::string raw;
};

// A name a folder value may carry: 1 to kMaxValueNameLength scalar values,
// none of them NUL.
bool IsValueName(std::wstring_view name);

// The file form of content; E_OUTOFMEMORY when it would exceed a stream's size.
HRESULT EncodeFolderFile(const FolderContent& content, std::string* out);

// Reads a whole file. kE_StreamTruncated when the bytes end before the
// structure does, kE_StreamCorrupt for anything else that is invalid; *out is
// written only on success.
HRESULT DecodeFolderFile(std::string_view file, FolderContent* out);

}  // namespace kit::streams
