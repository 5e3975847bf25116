// Where the walks of shifts.cpp start.
#include "specfun/hypergeometric/start.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

// Steps divide by a, b, c, c-a and c-b. At the start none of these is below 1/4 in magnitude, which
// is chosen so that the first steps multiply errors by some units only.
constexpr double kLeastDistance = 0.25;

/// The number of the same fraction between 1/4 and 5/4.
DoubleDouble NextToZero(DoubleDouble a) {
    return a - std::floor(a.high - kLeastDistance);
}

/// For a negative integer c, which a and b keep away from all the way.
HypergeometricParameters StartAtPole(const HypergeometricParameters& p) {
    constexpr double kThree = 3;  // chosen: c, c-a and c-b are that far from 0 at least
    HypergeometricParameters start = {{0, 0}, NextToZero(p.b), {-kThree, 0}};
    if (IsNegativeInteger(p.b)) start.b = {p.b.high < p.c.high ? -2 * kThree : 0, 0};
    return start;
}

bool IsNextToNegativeInteger(double a) {
    constexpr double kNear = 0x1p-6;  // chosen: nearer, a step past the integer costs over 6 bits
    const double integer = std::nearbyint(a);
    return integer <= 0 && std::fabs(a - integer) < kNear;
}

bool IsClose(DoubleDouble a, DoubleDouble b) {
    return std::fabs((a - b).high) < kLeastDistance;
}

}  // namespace

HypergeometricParameters GeneralStart(const HypergeometricParameters& p) {
    HypergeometricParameters start = {NextToZero(p.a), NextToZero(p.b), p.c};
    const DoubleDouble s = p.c - start.a - start.b;
    start.c = p.c - std::nearbyint(s.high);
    // c is 1/4 + 1/4 - 1/2 = 0 at least but for rounding, so that one is enough; two for safety
    for (int i = 0; i < 2 && start.c.high < kLeastDistance; ++i) {
        start.a += 1;
        start.c += 1;
    }
    if (IsClose(start.c, start.a)) {
        start.b += 1;
        start.c += 1;
    }
    if (IsClose(start.c, start.b)) {
        start.a += 1;
        start.c += 1;
    }
    return start;
}

HypergeometricParameters PolynomialStart(const HypergeometricParameters& p) {
    constexpr double kTwo = 2;  // chosen: the degree of a polynomial of three terms
    if (IsNegativeInteger(p.c)) return StartAtPole(p);
    HypergeometricParameters start = {{0, 0}, NextToZero(p.b), NextToZero(p.c)};
    if (IsNextToNegativeInteger((p.c - p.b).high) && p.a.high <= -kTwo) {
        start.a = {-kTwo, 0};
        start.b = p.b + (kTwo + std::nearbyint((start.c - p.b).high));
    } else if (IsClose(start.c, start.b) || start.c.high < start.b.high) {
        start.c += 1;
    }
    return start;
}

}  // namespace kalvex::specfun
