// Bi(-x) + i Ai(-x) = M exp(i phase) with M = (1 + small)/(sqrt(pi) x^(1/4)) and phase = pi/4 +
// zeta (1 + small), zeta = 2/3 x^(3/2) (DLMF 9.8). Each small part is 1/x^3 times a polynomial in
// 1/x, for which plain doubles suffice; the rest is computed in double-double arithmetic.
#include "specfun/airy/wave.h"

#include <cmath>

#include "numbers/double_double.h"
#include "numbers/truncate.h"
#include "specfun/airy/airy_coefficients.h"
#include "specfun/airy/roots.h"
#include "specfun/airy/turns.h"
#include "specfun/polynomial.h"

namespace kalvex::specfun {
namespace {

constexpr double kLongFrom = 1e10;  // zeta is 7e14: two doubles hold the phase to 2^-55

constexpr DoubleDouble kQuarterPi = {kPi.high / 4, kPi.low / 4};

/// m and p of r = 1/x: the modulus is (1 + r^3 m)/(sqrt(pi) x^(1/4)), the phase
/// pi/4 + zeta (1 + r^3 p).
struct Small {
    double modulus;
    double phase;
};

Small SmallParts(double r) {
    if (r <= 1.0 / 16)
        return {Polynomial(kModulus16, r - kModulus16Middle),
                Polynomial(kPhase16, r - kPhase16Middle)};
    if (r <= 1.0 / 8)
        return {Polynomial(kModulus8, r - kModulus8Middle), Polynomial(kPhase8, r - kPhase8Middle)};
    if (r <= 1.0 / 4)
        return {Polynomial(kModulus4, r - kModulus4Middle), Polynomial(kPhase4, r - kPhase4Middle)};
    return {Polynomial(kModulus2, r - kModulus2Middle), Polynomial(kPhase2, r - kPhase2Middle)};
}

/// zeta + pi/4 for zeta up to 1e15, reduced. The odd multiple of pi/4 next to zeta is subtracted.
/// Its product with pi/4 lies within a factor of two of zeta, so that the difference of the high
/// parts is exact.
ReducedAngle ShortPhase(DoubleDouble zeta) {
    const double quarters = std::floor(zeta.high / kHalfPi.high) + 1;
    const double odd = 2 * quarters - 1;
    const DoubleDouble taken = TwoProduct(odd, kQuarterPi.high);
    const double low = (zeta.low - taken.low) - odd * kQuarterPi.low;
    return {TwoSum(zeta.high - taken.high, low), static_cast<int>(TruncateToInt64(quarters) & 3)};
}

/// sin(t) for |t| up to 0.9. The high part is exact, the low part is the rest.
DoubleDouble Sine(DoubleDouble t) {
    constexpr double kTerms[] = {
        1.0 / 355687428096000, -1.0 / 1307674368000, 1.0 / 6227020800, -1.0 / 39916800,
        1.0 / 362880,          -1.0 / 5040,          1.0 / 120,        -1.0 / 6};
    const double square = t.high * t.high;
    double sum = 0;
    for (const double term : kTerms)
        sum = term + square * sum;
    return {t.high, t.high * (square * sum) + t.low * (1 - square / 2)};
}

/// cos(t) in the same form.
DoubleDouble Cosine(DoubleDouble t) {
    constexpr double kTerms[] = {
        -1.0 / 6402373705728000, 1.0 / 20922789888000, -1.0 / 87178291200, 1.0 / 479001600,
        -1.0 / 3628800,          1.0 / 40320,          -1.0 / 720,         1.0 / 24};
    const DoubleDouble square = TwoProduct(t.high, t.high);
    double sum = 0;
    for (const double term : kTerms)
        sum = term + square.high * sum;
    const DoubleDouble head = QuickTwoSum(1, -square.high / 2);
    const double rest = square.high * square.high * sum;
    return {head.high, rest + ((head.low - square.low / 2) - t.high * t.low)};
}

}  // namespace

KALVEX_WITH_FMA
double AiryWave(double x, int quarters) {
    const Roots roots = RootsOf(x);
    const double r = 1 / x;
    const Small small = SmallParts(r);
    ReducedAngle angle = x < kLongFrom ? ShortPhase(ZetaOf(x, roots)) : TurnedPhase(x);
    const double shift =
        kTwoThirds.high * r * roots.inverse.high * roots.inverse.high * small.phase;
    angle.rest += shift;
    const int quadrant = (angle.quadrant + quarters) & 3;
    const DoubleDouble wave = quadrant % 2 == 0 ? Sine(angle.rest) : Cosine(angle.rest);
    const DoubleDouble amplitude = roots.inverse * kInverseRootOfPi;
    const double low = amplitude.low + amplitude.high * (r * r * r * small.modulus);
    const double value =
        std::fma(amplitude.high, wave.high, low * ToDouble(wave) + amplitude.high * wave.low);
    return quadrant < 2 ? value : -value;
}

}  // namespace kalvex::specfun
