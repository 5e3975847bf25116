// Walks along the contiguous relations of the Gauss hypergeometric function. Internal to the
// special functions.
#pragma once

#include "specfun/hypergeometric/route.h"
#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

inline constexpr double kMostShifts = 40000;

/// Value, slope and their twin, which starts apart by what is known of the error and by the
/// rounding of each step since; all to be multiplied by 2^exponent.
struct Traveller {
    WalkerOf<DoubleDouble, 1> at;
    int exponent = 0;
};

/// At p, with the value and slope given and a twin apart by the error of the point.
Traveller StartOf(const HypergeometricParameters& p, const HypergeometricPoint& point,
                  const Place& place);

/// Puts the twin as far from the direction of value and slope as can be.
void TurnTwin(Traveller& t, const Place& place);

/// How far the twin's direction is from that of value and slope, relative to the slope.
double ApartInDirection(const Traveller& t);

/// Puts the twin where the slope would be with so large a relative error.
void MoveTwin(Traveller& t, double error);

/// By the straight line to other parameters, kMostShifts steps at most. False when nothing is left
/// of the value: rounding has outgrown it.
bool WalkTo(const HypergeometricParameters& to, const Place& place, Traveller& t);

/// What the walk has come to.
HypergeometricPoint PointOf(const Traveller& t);

}  // namespace kalvex::specfun
