// The stored form of a double vector: a 4-byte capacity header, then the
// values newest first as 8-byte doubles, all in the machine's byte order.
#pragma once

#include <cstdint>

#include "com_types.h"
#include "framework_interfaces.h"
#include "module_interfaces.h"

// Writes `capacity` (not the count) and then every value, newest first,
// through the vector's own get_Size and get_Element. Returns the last
// Write's result, or 0 for an empty vector; stream results are not inspected.
HRESULT SaveDblVector(IDblVector& vector, std::int32_t capacity, IDataStream* stream);

// Reads the header n, calls put_Size(n), then appends (put_Element(-1, ...))
// one value per 8-byte read until n values were read or a read delivers no
// bytes. A header that cannot be read, or a capacity that cannot be
// allocated, returns a failure code with the vector unchanged. Otherwise 0.
HRESULT LoadDblVector(IDblVector& vector, IDataStream* stream);
