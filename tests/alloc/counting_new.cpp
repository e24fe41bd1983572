#include "counting_new.h"

#include <atomic>
#include <cstdlib>
#include <new>

// The replacement operators must be visible to the dlopen'ed modules, which
// bind operator new to the executable's definition; the build hides symbols
// by default.
#define ALLOC_EXPORT __attribute__((visibility("default")))

namespace alloc_count {
namespace {

std::atomic<std::int64_t> gAllocations{0};
std::atomic<std::int64_t> gLiveBytes{0};

// Each block carries its requested size in a header of one max_align_t, so
// the pointer handed out keeps the alignment malloc gives.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* Allocate(std::size_t size) noexcept {
    void* block = std::malloc(size + kHeader);
    if (!block) return nullptr;
    *static_cast<std::size_t*>(block) = size;
    gAllocations.fetch_add(1, std::memory_order_relaxed);
    gLiveBytes.fetch_add(static_cast<std::int64_t>(size), std::memory_order_relaxed);
    return static_cast<char*>(block) + kHeader;
}

void Free(void* pointer) noexcept {
    if (!pointer) return;
    void* block = static_cast<char*>(pointer) - kHeader;
    gLiveBytes.fetch_sub(static_cast<std::int64_t>(*static_cast<std::size_t*>(block)), std::memory_order_relaxed);
    std::free(block);
}

void* AllocateOrThrow(std::size_t size) {
    if (void* p = Allocate(size)) return p;
    throw std::bad_alloc();
}

}  // namespace

Totals Now() { return {gAllocations.load(), gLiveBytes.load()}; }

}  // namespace alloc_count

ALLOC_EXPORT void* operator new(std::size_t size) { return alloc_count::AllocateOrThrow(size); }
ALLOC_EXPORT void* operator new[](std::size_t size) { return alloc_count::AllocateOrThrow(size); }
ALLOC_EXPORT void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return alloc_count::Allocate(size);
}
ALLOC_EXPORT void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return alloc_count::Allocate(size);
}
ALLOC_EXPORT void operator delete(void* p) noexcept { alloc_count::Free(p); }
ALLOC_EXPORT void operator delete[](void* p) noexcept { alloc_count::Free(p); }
ALLOC_EXPORT void operator delete(void* p, std::size_t) noexcept { alloc_count::Free(p); }
ALLOC_EXPORT void operator delete[](void* p, std::size_t) noexcept { alloc_count::Free(p); }
ALLOC_EXPORT void operator delete(void* p, const std::nothrow_t&) noexcept { alloc_count::Free(p); }
ALLOC_EXPORT void operator delete[](void* p, const std::nothrow_t&) noexcept { alloc_count::Free(p); }
