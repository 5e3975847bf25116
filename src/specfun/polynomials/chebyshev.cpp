// Chebyshev polynomials. Low degrees by doubling. The pair (T(m), U(m-1)) is the cosine of m times
// an angle, and the sine of that divided by the sine of the angle, hence (DLMF 18.5.1, 18.5.2)
//
//    T(2m) = 2 T(m)^2 - 1,              U(2m-1) = 2 T(m) U(m-1),
//    T(m+1) = x T(m) - (1-x^2) U(m-1),  U(m) = T(m) + x U(m-1).
//
// The bits of the degree, from the highest one down, say when to double only and when to add one as
// well. Rounding errors grow with the square of the degree, so that everything is computed in
// double-double arithmetic. Above kDoubled the angle itself is multiplied by the degree: the error
// is 2^-103 of the phase, far below the effect of a rounding of x. The angle is measured from the
// middle or from the end of the interval, so that odd polynomials keep their relative accuracy near
// x = 0. Beyond x = 1 hyperbolic functions take the place of the trigonometric ones.
#include <cmath>

#include "numbers/double_double.h"
#include "numbers/truncate.h"
#include "specfun/polynomials/angle.h"
#include "specfun/polynomials/degree.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

struct Pair {
    DoubleDouble t;  // T(m)
    DoubleDouble u;  // U(m-1)
};

Pair Doubled(const Pair& p) {
    const DoubleDouble square = p.t * p.t;
    const DoubleDouble product = p.t * p.u;
    return {DoubleDouble{2 * square.high, 2 * square.low} - 1.0,
            {2 * product.high, 2 * product.low}};
}

Pair Next(const Pair& p, double x, DoubleDouble oneLessSquare) {
    return {p.t * x - oneLessSquare * p.u, p.t + p.u * x};
}

/// The pair of degree m >= 1.
Pair ByDoubling(int m, double x) {
    const DoubleDouble oneLessSquare = TwoSum(1, -x) * TwoSum(1, x);
    int bit = 1;
    while (bit <= m / 2)
        bit *= 2;
    Pair p = {{x, 0}, {1, 0}};
    for (bit /= 2; bit != 0; bit /= 2) {
        p = Doubled(p);
        if ((m & bit) != 0) p = Next(p, x, oneLessSquare);
    }
    return p;
}

/// m, the number of angles: the degree of T, or the degree of U plus one. At least 0.
struct Count {
    DoubleDouble value;  // the low part is -1, 0 or 1
    int quarters;        // modulo 4
};

/// For 0 <= x < 1.
Pair ByAngle(const Count& m, double x) {
    const Angle angle = AngleOf(x);
    const DoubleDouble phase = m.value * angle.rest;
    if (!(std::fabs(phase.high) <= kLargestPhase))
        throw ap::ap_error{"Chebyshev: the degree is too large"};
    const auto [cosine, sine] = CosineSineAt(phase, angle.quarters * m.quarters);
    return {cosine, sine / angle.sine};
}

/// For 1 < x; infinite where the values overflow.
Pair ByHyperbolicAngle(const Count& m, double x) {
    constexpr DoubleDouble kOverflow = {INFINITY, 0};
    constexpr double kLargest = 0x1p100;  // beyond it the values of all degrees from 11 on overflow
    if (x > kLargest) return {kOverflow, kOverflow};
    const auto [angle, sine] = HyperbolicAngleOf(x);
    const DoubleDouble phase = m.value * angle;
    constexpr double kLargestExponent = 1000;  // U is exp(phase) over at most exp(angle) < 2^101
    if (!(phase.high < kLargestExponent)) return {kOverflow, kOverflow};
    if (phase.high < 1) {
        const DoubleDouble rise = ExpMinusOne(phase);
        const DoubleDouble fall = rise / (rise + 1.0);
        const DoubleDouble twiceSine = rise + fall;
        const DoubleDouble twiceCosine = rise - fall + 2.0;
        return {Scale(twiceCosine, -1), Scale(twiceSine, -1) / sine};
    }
    int exponent = 0;
    const DoubleDouble growth = ExpScaled(phase, exponent);
    const DoubleDouble decay = Scale(1.0 / growth, -2 * exponent);
    const DoubleDouble quotient = (growth - decay) / sine;
    return {Scale(growth + decay, exponent - 1), Scale(quotient, exponent - 1)};
}

/// At x = 1/2 the angle is pi/3, the only one besides those of 0 and 1 where values are rational.
Pair AtHalf(const Count& m) {
    constexpr double kFirst[] = {1, 0.5, -0.5, -1, -0.5, 0.5};
    constexpr double kSecond[] = {0, 1, 1, 0, -1, -1};
    const double sixths = std::fmod(m.value.high, 6) + m.value.low + 6;
    const int index = TruncateToInt32(std::fmod(sixths, 6));
    return {{kFirst[index], 0}, {kSecond[index], 0}};
}

constexpr double kDoubled = 16384;  // above it the multiplied angle is as fast

Pair OfMagnitude(const Count& m, double x) {
    if (m.value.high <= kDoubled) return ByDoubling(TruncateToInt32(m.value.high), x);
    if (x == 1) return {{1, 0}, m.value};
    if (x == 0.5) return AtHalf(m);
    return x < 1 ? ByAngle(m, x) : ByHyperbolicAngle(m, x);
}

bool IsTiny(const Count& m, double x) {
    return m.value.high <= 0x1p53 && std::fabs(x) < 0x1p-100;
}

/// A polynomial for |x| so small that its second term vanishes beside the first: 1, or leading x
/// for odd degrees, times a sign.
double OfTiny(int quarters, double leading, double x) {
    const double sign = quarters < 2 ? 1 : -1;
    return sign * (quarters % 2 == 0 ? 1 : leading * x);
}

/// T(n), n >= 0.
double FirstKind(double n, double x) {
    if (n == 0) return 1;
    if (n == 1) return x;
    const Count m = {{n, 0}, QuartersOf(n)};
    if (IsTiny(m, x)) return OfTiny(m.quarters, n, x);
    const double value = ToDouble(OfMagnitude(m, std::fabs(x)).t);
    return x < 0 && m.quarters % 2 == 1 ? -value : value;
}

/// U(m-1).
double SecondKind(const Count& m, double x) {
    const double n = m.value.high - 1;
    if (n == -1) return 0;
    if (n == 0) return 1;
    if (n == 1) return 2 * x;
    if (IsTiny(m, x)) return OfTiny((m.quarters + 3) % 4, m.value.high, x);
    const double value = ToDouble(OfMagnitude(m, std::fabs(x)).u);
    return x < 0 && m.quarters % 2 == 0 ? -value : value;
}

double OfAnyDegree(int kind, double n, double x) {
    if (kind == 1) return FirstKind(std::fabs(n), x);
    if (n >= 0) return SecondKind({TwoSum(n, 1), (QuartersOf(n) + 1) % 4}, x);
    return -SecondKind({TwoSum(-n, -1), (QuartersOf(-n) + 3) % 4}, x);
}

}  // namespace

KALVEX_WITH_FMA
double Chebyshev(int kind, double degree, double x) {
    const double n = IntegralDegree(degree, -INFINITY, "Chebyshev");
    if (kind != 1 && kind != 2) throw ap::ap_error{"Domain error in Chebyshev"};
    if (std::isnan(x)) return x;
    const double value = OfAnyDegree(kind, n, x);
    if (!std::isfinite(value)) throw ap::ap_error{"Overflow in Chebyshev"};
    return value + 0.0;  // a zero without a sign
}

}  // namespace kalvex::specfun
