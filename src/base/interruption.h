// How a long computation on the only thread is interrupted from time to time, and stopped.
#pragma once

#include <atomic>
#include <functional>

namespace kalvex {

/// Shared by a computation and whoever started it. From time to time `due` is set from outside the
/// computation: by another thread or by a signal handler. The computation looks at it between any
/// two steps that could take a millisecond, which costs it next to nothing.
struct Interruption {
    std::atomic<bool> due = false;
    /// Called by the computation, on its own thread, when `due` was set. False stops the
    /// computation. When it is empty, nothing stops it.
    std::function<bool()> goOn;
    bool stopped = false;  ///< from the first false on; the results are incomplete then
};

/// Interrupts the computation when that is due. Whether it is to stop. Never without an
/// interruption.
[[nodiscard]] inline bool IsStopped(Interruption* interruption) {
    if (interruption == nullptr) return false;
    if (interruption->stopped || !interruption->due.load(std::memory_order_relaxed))
        return interruption->stopped;
    interruption->due.store(false, std::memory_order_relaxed);
    interruption->stopped = interruption->goOn && !interruption->goOn();
    return interruption->stopped;
}

}  // namespace kalvex
