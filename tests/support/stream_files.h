// Files for the stream tests: raw bytes in and out, and a stream saved to or
// loaded from a narrow path.
#pragma once

#include <string>
#include <string_view>

#include "com_types.h"
#include "framework_interfaces.h"

// The whole content of a file; empty when it cannot be read.
std::string ReadBytes(const std::string& path);
// Replaces the content of a file.
void WriteBytes(const std::string& path, std::string_view bytes);

// SaveToFile and LoadFromFile with a narrow path.
HRESULT SaveStream(IDataStream* stream, const std::string& path);
HRESULT LoadStream(IDataStream* stream, const std::string& path);
