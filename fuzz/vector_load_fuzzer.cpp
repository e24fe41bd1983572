// IDblVector::Load of the "DblBuffer" component from fuzzed bytes, then a
// Save. Checked: the load returns 0 once it has a header, the count never exceeds the capacity the
// header asked for, a save writes the header and exactly one value per count,
// the stream's references are all given back and the last Release of the
// vector returns 0.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "base/iids.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/memory_stream.h"
#include "module/entry.h"
#include "module_interfaces.h"

namespace {

// Capacities above this are allocations of the caller's choosing, not
// parsing: the header is folded into range so runs stay within memory.
constexpr std::int32_t kLargestCapacity = 1 << 16;

IDblVector* CreateVector() {
    static const wchar_t kName[] = L"DblBuffer";
    CREATEFUNCTION create = nullptr;
    if (CreateFunction(static_cast<std::int32_t>(std::size(kName) - 1), kName, &create) != S_OK || !create) {
        return nullptr;
    }
    void* vector = nullptr;
    if (create(nullptr, &IID_IDblVector, &vector) != S_OK) return nullptr;
    return static_cast<IDblVector*>(vector);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    std::int32_t header = 0;
    if (bytes.size() >= 4) {
        std::memcpy(&header, bytes.data(), 4);
        header %= kLargestCapacity + 1;
        std::memcpy(bytes.data(), &header, 4);
    }
    const fuzz::ExactBytes exact(bytes);
    IDblVector* vector = CreateVector();
    fuzz::Require(vector != nullptr, "DblBuffer is created");

    fuzz::MemoryStream input(exact.view());
    const HRESULT loaded = vector->Load(&input);
    fuzz::Require(loaded == S_OK || (bytes.size() < 4 && loaded == E_FAIL), "Load returns 0 once a header is read");
    fuzz::Require(input.references() == 1, "Load gives back every stream reference");
    std::int32_t count = -1;
    vector->get_Size(&count);
    const std::int32_t capacity = bytes.size() >= 4 && header > 0 ? header : 0;
    fuzz::Require(count >= 0 && count <= capacity, "the count stays within the loaded capacity");
    // A short read at the end still appends a value; reading stops at the
    // capacity only while the 16-bit counter can reach it.
    if (bytes.size() >= 4) {
        const std::size_t offered = (bytes.size() - 4 + 7) / 8;
        const std::size_t expected = std::min(offered, static_cast<std::size_t>(capacity));
        fuzz::Require(count == static_cast<std::int32_t>(expected), "every offered value up to the capacity is loaded");
    }

    fuzz::MemoryStream output("");
    vector->Save(&output);
    fuzz::Require(output.references() == 1, "Save gives back every stream reference");
    fuzz::Require(output.written().size() == 4 + 8 * static_cast<std::size_t>(count),
                  "Save writes the header and one value per count");
    fuzz::Require(vector->Release() == 0, "the last Release returns 0");
    return 0;
}
