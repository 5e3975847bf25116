// The angle whose cosine is the argument of a polynomial, and cosines and sines of its multiples:
// they are what a polynomial of high degree is at that argument. Errors are relative to the
// distance of the angle from the middle or from the end of the interval, whichever is nearer,
// because the relative error of the polynomial follows it there.
#pragma once

#include "numbers/double_double.h"

namespace kalvex::specfun {

/// theta = quarters pi/2 + rest, with 0 <= theta <= pi/2.
struct Angle {
    int quarters = 0;   // 0 near the end x = 1, 1 near the middle x = 0
    DoubleDouble rest;  // magnitude below 0.8; relative error below 2^-103
    DoubleDouble sine;  // of theta; relative error below 2^-102
};

/// arccos(x) for 0 <= x <= 1.
[[nodiscard]] Angle AngleOf(double x);

/// A phase beyond this magnitude is refused. Its error would be above 2^-49 and would reach the
/// digits of the polynomial.
inline constexpr double kLargestPhase = 0x1p53;

struct CosineSinePair {
    DoubleDouble cosine;
    DoubleDouble sine;
};

/// Cosine and sine of quarters pi/2 + phase, for |phase| up to kLargestPhase. The error of the
/// reduced angle is 2^-104 of the phase; relative errors beyond that are below 2^-58.
[[nodiscard]] CosineSinePair CosineSineAt(DoubleDouble phase, int quarters);

/// eta = arcosh(x) for 1 <= x <= 2^100 and sinh(eta), with relative errors below 2^-90.
struct HyperbolicAngle {
    DoubleDouble angle;
    DoubleDouble sine;
};
[[nodiscard]] HyperbolicAngle HyperbolicAngleOf(double x);

/// The remainder of n by 4; n integral, from 0.
[[nodiscard]] int QuartersOf(double n);

}  // namespace kalvex::specfun
