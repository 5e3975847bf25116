// The evaluation of many samples in pieces, between which it can be watched and stopped.
#pragma once

#include <cstddef>
#include <functional>

#include "base/interruption.h"
#include "interp/work.h"

namespace kalvex {

/// How the sampling of one curve is watched; by default not at all.
struct CurveWork {
    WorkProgress progress;                 ///< told the part that is done; false stops the curve
    Interruption* interruption = nullptr;  ///< may be null
};

/// Evaluates the samples first .. first + count - 1.
using EvaluatePiece = std::function<void(std::size_t first, std::size_t count)>;

/// Evaluates `count` samples in pieces, small ones as long as a sample is slow. Returns how many
/// samples from the first on are complete; fewer than `count` when the work was stopped.
[[nodiscard]] std::size_t EvaluateInPieces(std::size_t count, const CurveWork& work,
                                           const EvaluatePiece& piece);

}  // namespace kalvex
