// How long work is watched and stopped. Only what may take more than a moment is counted, so a
// short curve never asks.
#pragma once

#include <functional>

namespace kalvex {

/// Methods whose work grows with a square or a product of two large numbers refuse more than this
/// many operations, some ten seconds of work.
inline constexpr double kMostOperations = 5e9;

/// Told now and then during long work which part of it is done, 0 to 1, at most about a thousand
/// times; false stops the work. May be an empty function: then nothing stops it.
using WorkProgress = std::function<bool(double done)>;

/// The account of one piece of work, in operations of about a nanosecond.
struct Work {
    const WorkProgress* progress = nullptr;
    double total = 0.0;  ///< planned; may be wrong, it only scales what is told
    double done = 0.0;
    double told = 0.0;  ///< `done` when the progress was last told
    bool stopped = false;
};

/// Adds operations that are done. False when the work is to stop, from then on always.
bool Spend(Work& work, double operations);

}  // namespace kalvex
