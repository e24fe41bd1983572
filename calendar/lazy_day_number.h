// The process-wide day numbers that are computed on first use (SDPopeGregory,
// SDHebrew, SDLinux): plain doubles in which 0.0 means "not computed yet".
#pragma once

#include <atomic>

namespace cal {

// The value held in `slot`, computed and stored first when the slot holds
// 0.0. No lock: threads racing on the first use store the same value.
template <class Compute>
double DayNumberFilledOnFirstUse(double& slot, Compute compute) noexcept {
    std::atomic_ref<double> value(slot);
    double held = value.load(std::memory_order_relaxed);
    if (held == 0.0) {
        held = compute();
        value.store(held, std::memory_order_relaxed);
    }
    return held;
}

}  // namespace cal
