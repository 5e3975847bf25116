// The logarithm of a complex number, in pairs of doubles.
#include "specfun/hypergeometric/complex_pair.h"

#include <cmath>

namespace kalvex::specfun {
namespace {

/// The angle of a point in the right half-plane. It is halved until six terms of the power
/// series of the arctangent are enough.
DoubleDouble AngleOnTheRight(DoubleDouble cosine, DoubleDouble sine) {
    // Chosen: then t is below tan(pi/2^11) < 2^-9.3, so that the first term left out, t^13/13, is
    // below 2^-115 t, and those in plain arithmetic, from t^5/5 on, are off by 2^-92 t at most.
    constexpr int kHalvings = 9;
    for (int i = 0; i < kHalvings; ++i) {
        cosine = LooseSqrt((cosine + 1.0) * 0.5);
        sine = sine / (cosine * 2);
    }
    const DoubleDouble t = sine / (cosine + 1.0);
    const DoubleDouble square = t * t;
    const double s = square.high;
    // 1/5, 1/7, 1/9 and 1/11 of the series
    const double tail = 0.2 - s * (1.0 / 7 - s * (1.0 / 9 - s / 11));
    const DoubleDouble curve = square * (kThird - square * tail);
    return (t - t * curve) * std::ldexp(2, kHalvings);  // t itself belongs to half the angle
}

}  // namespace

KALVEX_WITH_FMA
ComplexPair LogOf(const ComplexPair& a) {
    const DoubleDouble norm = Norm(a);
    const DoubleDouble size = LooseSqrt(norm);
    const DoubleDouble cosine = a.real / size;
    const DoubleDouble sine = a.imaginary / size;
    const DoubleDouble angle = AngleOnTheRight(cosine.high < 0 ? -cosine : cosine, sine);
    const DoubleDouble half = a.imaginary.high < 0 ? -kPi : kPi;
    return {Log(norm) * 0.5, cosine.high < 0 ? half - angle : angle};
}

}  // namespace kalvex::specfun
