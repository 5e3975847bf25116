// Interval forms of functions: bounds of all values that a function's evaluation can give for
// arguments within given bounds. functions.inc names the form of each function.
#pragma once

#include <optional>

namespace kalvex {

/// Bounds of computed values, both included.
struct Bounds {
    double low = 0.0;
    double high = 0.0;
};

using MaybeBounds = std::optional<Bounds>;

/// Takes the bounds of the arguments in written order, none of them not-a-number. Gives bounds of
/// every computed value, rounding errors included; nothing where there are no bounds because a
/// value may be not-a-number or undefined.
using FunctionBounds = MaybeBounds (*)(const Bounds* arguments);

/// The form of a function about whose values nothing is known: expressions with it have no bounds.
inline constexpr FunctionBounds kNoBounds = nullptr;

/// Sine and cosine: a little beyond -1 and 1. They have no bounds where an argument may be
/// infinite, because the value is then not-a-number.
[[nodiscard]] MaybeBounds SineBounds(const Bounds* arguments);

/// Functions that stay between -1 and 1, infinite arguments included.
[[nodiscard]] MaybeBounds SigmoidBounds(const Bounds* arguments);

[[nodiscard]] MaybeBounds FloorBounds(const Bounds* arguments);
[[nodiscard]] MaybeBounds MagnitudeBounds(const Bounds* arguments);

}  // namespace kalvex
