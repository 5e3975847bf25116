// The phase of the Airy functions for arguments so large that two doubles do not hold it.
#pragma once

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// An angle: `quadrant` quarter turns (modulo four) and the rest, of magnitude pi/4 at most but
/// for roundings.
struct ReducedAngle {
    DoubleDouble rest;
    int quadrant = 0;
};

/// 2/3 x^(3/2) + pi/4 for 1 <= x, finite; the error of the rest is below 2^-130 plus 2^-100 of it.
/// A quarter of a microsecond for 1e10, two at the end of the range.
ReducedAngle TurnedPhase(double x);

}  // namespace kalvex::specfun
