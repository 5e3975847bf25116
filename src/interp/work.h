// Progress and cancellation of long computations. A computation counts its operations; only when
// they take more than a few milliseconds is the progress function called.
#pragma once

#include <functional>

namespace kalvex {

/// The work of some methods grows with the square of the points or with points times terms. They
/// refuse a table that would need more operations than this, which take about ten seconds.
inline constexpr double kMostOperations = 5e9;

/// Called from time to time during long work with the part of it that is done, 0 to 1, about a
/// thousand times, or more often when the work takes longer than some ten seconds. Returns false to
/// stop the work. May be empty: then nothing stops it.
using WorkProgress = std::function<bool(double done)>;

/// The state of one computation; operations are counted in units of about a nanosecond.
struct Work {
    const WorkProgress* progress = nullptr;
    double total = 0.0;  ///< an estimate; it only scales the number passed to the progress function
    double done = 0.0;
    double told = 0.0;  ///< `done` at the last call of the progress function
    bool stopped = false;
};

/// Adds operations to `done` and calls the progress function when it is due. Returns false when the
/// work is to stop, and from then on at every call.
[[nodiscard]] bool Spend(Work& work, double operations);

}  // namespace kalvex
