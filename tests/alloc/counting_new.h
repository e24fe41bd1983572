// Counts every allocation made through the replaceable global operator new,
// by this executable and by every module it loads.
#pragma once

#include <cstddef>
#include <cstdint>

namespace alloc_count {

struct Totals {
    std::int64_t allocations = 0;  // calls of operator new / new[]
    std::int64_t liveBytes = 0;    // requested bytes not yet deleted
};

Totals Now();

// Allocation counts between construction and Delta().
class Window {
public:
    Window() : start_(Now()) {}
    Totals Delta() const {
        const Totals now = Now();
        return {now.allocations - start_.allocations, now.liveBytes - start_.liveBytes};
    }

private:
    Totals start_;
};

}  // namespace alloc_count
