// The phase of the Airy functions for arguments so large that a double-double cannot hold it.
#pragma once

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// An angle: `quadrant` quarter turns (modulo four) and the rest, whose magnitude is at most pi/4
/// apart from rounding.
struct ReducedAngle {
    DoubleDouble rest;
    int quadrant = 0;
};

/// 2/3 x^(3/2) + pi/4 for finite x of 1 or more. The error of the rest is below 2^-130 plus 2^-100
/// of it. Takes a quarter of a microsecond for 1e10, two at the end of the range.
[[nodiscard]] ReducedAngle TurnedPhase(double x);

}  // namespace kalvex::specfun
