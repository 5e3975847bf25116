// One step of 1 in a parameter of the Gauss hypergeometric function (DLMF 15.5.11 to 15.5.22, the
// contiguous relations): a linear map of the value and of z times the derivative. Internal to the
// special functions.
#pragma once

#include <cstddef>

#include "specfun/hypergeometric_parts.h"

namespace kalvex::specfun {

inline DoubleDouble Reciprocal(DoubleDouble a) {
    const double high = 1 / a.high;
    const double rest = std::fma(-high, a.high, 1) - high * a.low;
    return {high, rest * high};
}

/// a b + c d; what is lost is measured against the greater product.
inline DoubleDouble SumOfProducts(DoubleDouble a, DoubleDouble b, DoubleDouble c, DoubleDouble d) {
    DoubleDouble sum = LooseProduct(a, b);
    const DoubleDouble other = LooseProduct(c, d);
    Accumulate(sum, other.high, other.low);
    return sum;
}

inline DoubleDouble QuickAdd(DoubleDouble a, DoubleDouble b) {
    Accumulate(a, b.high, b.low);
    return a;
}

inline DoubleDouble Difference(DoubleDouble a, DoubleDouble b) {
    const DoubleDouble highs = TwoSum(a.high, -b.high);
    return QuickTwoSum(highs.high, highs.low + (a.low - b.low));
}

/// The point and what depends on it alone.
struct Place {
    DoubleDouble z;
    DoubleDouble w;
    DoubleDouble odds;      // z/w
    DoubleDouble evens;     // w/z
    DoubleDouble inverse;   // 1/w
    DoubleDouble inverseZ;  // 1/z
};

inline Place PlaceAt(DoubleDouble z, DoubleDouble w) {
    return {z, w, Divide(z, w), Divide(w, z), Divide({1, 0}, w), Divide({1, 0}, z)};
}

struct Walker {
    HypergeometricParameters p;
    DoubleDouble value;
    DoubleDouble slope;
    // A solution that starts at right angles to the one wanted, in plain arithmetic: it shows how
    // much what was rounded has grown since.
    double companion = 0;
    double companionSlope = 0;
    bool collapsed = false;  // the last step left one solution only
    int exponent = 0;        // of two, of value and slope
};

/// a + 1 in place of a.
inline void Raise(Walker& at, DoubleDouble& a, DoubleDouble b, const Place& place) {
    const DoubleDouble inverse = Reciprocal(a);
    const DoubleDouble next = PlusInteger(a, 1);
    const DoubleDouble ofRise = LooseProduct(Difference(next, at.p.c), place.inverse);
    const DoubleDouble ofValue = LooseProduct(b, place.odds);
    const DoubleDouble rise = LooseProduct(at.slope, inverse);
    at.value = QuickAdd(at.value, rise);
    at.slope = SumOfProducts(ofRise, rise, ofValue, at.value);
    const double companionRise = at.companionSlope * inverse.high;
    at.companion += companionRise;
    at.companionSlope = ofRise.high * companionRise + ofValue.high * at.companion;
    at.collapsed = ofRise.high == 0;
    a = next;
}

/// a - 1 in place of a.
inline void Lower(Walker& at, DoubleDouble& a, DoubleDouble b, const Place& place) {
    const DoubleDouble inverse = Reciprocal(Difference(at.p.c, a));
    const DoubleDouble ofSlope = LooseProduct(place.w, inverse);
    const DoubleDouble ofValue = LooseProduct(LooseProduct(Negate(b), place.z), inverse);
    const DoubleDouble before = PlusInteger(Negate(a), 1);
    const DoubleDouble rise = SumOfProducts(ofSlope, at.slope, ofValue, at.value);
    at.value = QuickAdd(at.value, rise);
    at.slope = LooseProduct(before, rise);
    const double companionRise = ofSlope.high * at.companionSlope + ofValue.high * at.companion;
    at.companion += companionRise;
    at.companionSlope = before.high * companionRise;
    at.collapsed = before.high == 0;
    a = PlusInteger(a, -1);
}

/// c + 1 in place of c.
inline void RaiseThird(Walker& at, const Place& place) {
    const DoubleDouble fromA = Difference(at.p.c, at.p.a);
    const DoubleDouble fromB = Difference(at.p.c, at.p.b);
    const DoubleDouble factor = LooseProduct(at.p.c, Reciprocal(LooseProduct(fromA, fromB)));
    const DoubleDouble ofSlope = LooseProduct(factor, place.evens);
    const DoubleDouble ofValue = LooseProduct(factor, Difference(fromA, at.p.b));
    const DoubleDouble value = SumOfProducts(ofSlope, at.slope, ofValue, at.value);
    at.slope = LooseProduct(at.p.c, QuickAdd(at.value, Negate(value)));
    at.value = value;
    const double companion = ofSlope.high * at.companionSlope + ofValue.high * at.companion;
    at.companionSlope = at.p.c.high * (at.companion - companion);
    at.companion = companion;
    at.p.c = PlusInteger(at.p.c, 1);
}

/// c - 1 in place of c.
inline void LowerThird(Walker& at, const Place& place) {
    const DoubleDouble c = PlusInteger(at.p.c, -1);
    const DoubleDouble inverse = Reciprocal(c);
    const DoubleDouble fromA = Difference(c, at.p.a);
    const DoubleDouble fromB = Difference(c, at.p.b);
    const DoubleDouble ofBefore =
        LooseProduct(LooseProduct(LooseProduct(fromA, fromB), inverse), place.odds);
    const DoubleDouble ofValue = LooseProduct(Difference(at.p.b, fromA), place.odds);
    const DoubleDouble value = QuickAdd(at.value, LooseProduct(at.slope, inverse));
    at.slope = SumOfProducts(ofBefore, at.value, ofValue, value);
    at.value = value;
    const double companion = at.companion + at.companionSlope * inverse.high;
    at.companionSlope = ofBefore.high * at.companion + ofValue.high * companion;
    at.companion = companion;
    at.collapsed = ofBefore.high == 0;
    at.p.c = c;
}

inline void TakeStep(Walker& at, std::size_t track, bool raises, const Place& place) {
    DoubleDouble& own = track == 0 ? at.p.a : at.p.b;
    const DoubleDouble other = track == 0 ? at.p.b : at.p.a;
    if (track == 2) {
        raises ? RaiseThird(at, place) : LowerThird(at, place);
    } else if (raises) {
        Lower(at, own, other, place);
    } else {
        Raise(at, own, other, place);
    }
}

/// Parameters of the same fractions next to 0, c-a-b between -1/2 and 1/2, c, c-a and c-b positive.
HypergeometricParameters GeneralStart(const HypergeometricParameters& p);

/// For an integer a from 0 down: where the polynomial has three terms at most, c-b has the sign it
/// will have if it is an integer, and c-a-b is not below -1/2.
HypergeometricParameters PolynomialStart(const HypergeometricParameters& p);

/// Value and slope at such parameters.
HypergeometricPoint AtStart(const HypergeometricParameters& p, const Place& place);

}  // namespace kalvex::specfun
