// J and Y of orders too large for a recurrence, and of small orders for x far beyond the turning
// point x = order. Everything is expressed by the product of exact differences d = (order -
// x)(order + x) and by s = sqrt|d|, the rate at which a change of x turns the phase or changes the
// exponent. An error of 2^-60 s in phase or exponent is far below the effect of a rounding of x.
//
// Up to 30 units of the exponent or phase from the turning point: Olver's uniform expansion in Airy
// functions (DLMF 10.20.4, 10.20.5). All that it needs there is a power series in (order -
// x)/(order + x), which stays below 1/4. Elsewhere: Debye's expansions (10.19.3 for x below the
// order, 10.19.6 for x above it). Term k is about (k-1)!/(2 pi (2 xi)^k) for the exponent or phase
// xi, so that twenty terms give all digits. In units of s their coefficients become those of
// Hankel's expansion for large x. From x = 2 order on the phase is x - (order/2 + 1/4) pi plus a
// rest, and where x is large the sines and cosines of the two are computed separately: those of x
// and of the multiple of pi lose no digits, however large both are.
#include <algorithm>
#include <cmath>
#include <iterator>

#include "specfun/airy/airy_pair.h"
#include "specfun/bessel/large_order_coefficients.h"
#include "specfun/bessel/oscillating.h"

namespace kalvex::specfun {
namespace {

/// Debye's expansions from this exponent or phase on.
constexpr double kDebyeFrom = 28;

/// Order, x and s in units of a power of four, so that their squares stay in the range of doubles.
struct Place {
    double order;
    double x;
    double rootUnit;
    DoubleDouble s;
    double square;  ///< order^2 / (order^2 - x^2)
};

double UnitOf(const Place& at) {
    return at.rootUnit * at.rootUnit;
}

Place PlaceOf(double order, double x) {
    constexpr double kLarge = 0x1p500;
    double n = order;
    double root = 1;
    if (n > kLarge || x > kLarge) {
        root = 0x1p300;
        n = n / root / root;
        x = x / root / root;
    }
    const DoubleDouble difference = TwoSum(n, -x) * TwoSum(n, x);
    const DoubleDouble size = difference.high < 0 ? -difference : difference;
    const DoubleDouble s = size.high == 0 ? DoubleDouble{} : LooseSqrt(size);
    return {n, x, root, s, n * n / difference.high};
}

/// Whether the uniform expansion is needed. With t = s/order the exponent over the order is
/// artanh(t) - t, the phase over the order t - atan(t). Both are above t^3/(3 - 1.8 t^2), where t^2
/// stands for a negative number if x is above the order.
bool IsTurning(const Place& at) {
    return !(UnitOf(at) * at.s.high / std::fabs(3 * at.square - 1.8) >= kDebyeFrom);
}

/// A power series in plain doubles.
template <std::size_t count>
double SmallSeries(const double (&series)[count], double t) {
    double sum = 0;
    for (std::size_t i = count; i-- > 0;)
        sum = sum * t + series[i];
    return sum;
}

/// The cube root of a > 0.
DoubleDouble CubeRoot(double a) {
    const double root = std::cbrt(a);
    const DoubleDouble rest = TwoProduct(root, root) * root - a;
    return QuickTwoSum(root, -rest.high / (3 * root * root));
}

/// Olver's expansion with Ai and Ai', or Bi and Bi', at order^(2/3) zeta.
DoubleDouble Turning(double order, double x, AiryPair (&airy)(DoubleDouble)) {
    const DoubleDouble quotient =
        LooseQuotient(TwoSum(order / 2, -x / 2), TwoSum(order / 2, x / 2));
    const DoubleDouble root = Polynomial(kTurningRoot, quotient);
    const DoubleDouble scale = CubeRoot(order / 2);
    const DoubleDouble factor = LooseQuotient(2 * (scale * root * root), 1 + quotient);
    const AiryPair pair = airy(factor * factor * quotient);
    const double y = quotient.high;
    const double r = 1 / order / order;
    const double first = r * (SmallSeries(kTurningA1, y) +
                              r * (SmallSeries(kTurningA2, y) + r * SmallSeries(kTurningA3, y)));
    const double square = scale.high * scale.high;
    const double second = (SmallSeries(kTurningB0, y) +
                           r * (SmallSeries(kTurningB1, y) + r * SmallSeries(kTurningB2, y))) /
                          square / square;
    return LooseQuotient(root, scale) *
           (pair.value + (pair.value.high * first + pair.derivative * second));
}

/// The sum of U(k)/order^k over even k, less 1, and that over odd k. For x above the order the
/// powers of i are left out: then they are the sums of (-1)^j U(2j) and of (-1)^j U(2j+1).
struct DebyeSums {
    double even;
    double odd;
};

DebyeSums DebyeSumsAt(const Place& at) {
    constexpr double kNegligible = 0x1p-64;
    const double r = 1 / UnitOf(at) / at.s.high;
    const double turn = at.order > at.x ? r * r : -r * r;
    double even = 0;
    double odd = 0;
    double power = 1;
    double term = 1;
    for (std::size_t k = 0; k < std::size(kDebye) && std::fabs(term) > kNegligible; k += 2) {
        odd += power * r * DebyePolynomial(k, at.square);
        power *= turn;
        term = power * DebyePolynomial(k + 1, at.square);
        even += term;
    }
    return {even, odd};
}

/// 1/1, 1/3, 1/5 and so on.
constexpr double kOddParts[] = {1.0,      1.0 / 3,  1.0 / 5,  1.0 / 7, 1.0 / 9,
                                1.0 / 11, 1.0 / 13, 1.0 / 15, 1.0 / 17};

/// For s up to this fraction of the order, exponent and phase come from their power series.
constexpr double kFlat = 0.1;

/// artanh(t) - t where `square` = t^2 is positive, t - atan(t) where -t^2 is given; divided by t.
double FlatPart(double square) {
    double sum = 0;
    for (std::size_t k = std::size(kOddParts) - 1; k > 0; --k)
        sum = (sum + kOddParts[k]) * square;
    return std::fabs(sum);
}

/// order alpha - s with cosh(alpha) = order/x, tanh(alpha) = s/order, in units of rootUnit^2.
DoubleDouble Exponent(const Place& at) {
    const double t = at.s.high / at.order;
    if (t < kFlat) return at.s * FlatPart(t * t);
    // A smaller x is as far out of range. With this bound the quotient stays finite for every
    // order.
    constexpr double kLeast = 0x1p-900;
    return LooseDifference(
        at.order * LogOf(LooseQuotient(at.order + at.s, std::max(at.x, kLeast * at.order))), at.s);
}

/// Cosine and sine of s - order beta - pi/4, tan(beta) = s/order.
CosineSine PhaseAt(const Place& at) {
    // Up to here the parts of the phase may be added before the sine is taken.
    constexpr double kTogether = 0x1p30;
    const double n = at.order;
    const double unit = UnitOf(at);
    if (at.x < 2 * n) {
        const double t = at.s.high / n;
        const DoubleDouble phase =
            t < kFlat ? at.s * FlatPart(-t * t) : LooseDifference(at.s, n * AngleOf(at.s, {n, 0}));
        if (phase.high * unit < kTogether)
            return CosineSineOf(LooseDifference(phase * unit, kHalfPi * 0.5));
        return TurnedBack(CosineSineOf(TimesPower(phase, unit)), CosineSinePi({0.25, 0}));
    }
    // beta is pi/2 - arcsin(order/x), and s is x - order^2/(x + s).
    const DoubleDouble rest =
        n * LooseDifference(LooseQuotient(n, at.x + at.s), AngleOf({n, 0}, at.s));
    if (at.x * unit < kTogether)
        return CosineSineOf(LooseDifference(at.x - kPi * TwoSum(n / 2, 0.25), rest));
    const DoubleDouble turns = TwoSum(std::fmod(n * unit, 4.0) / 2, 0.25);
    return TurnedBack(CosineSineLess(at.x * unit, turns), CosineSineOf(TimesPower(rest, unit)));
}

/// exp(sign exponent) times the sums of Debye's expansion and sqrt(factor / s).
Scaled Upright(const Place& at, double sign, DoubleDouble factor) {
    const DebyeSums sums = DebyeSumsAt(at);
    const DoubleDouble root = TimesPower(LooseSqrt(LooseQuotient(factor, at.s)), 1 / at.rootUnit);
    return ExpOf(TimesPower(sign * Exponent(at), UnitOf(at))) *
           (root * (1 + DoubleDouble{sums.even - sign * sums.odd}));
}

/// sqrt(2 / (pi s)).
DoubleDouble ModulusAt(const Place& at) {
    return TimesPower(LooseSqrt(LooseQuotient(1.0, kHalfPi * at.s)), 1 / at.rootUnit);
}

}  // namespace

KALVEX_WITH_FMA
bool IsFarBeyond(double order, double x) {
    return x > order && !IsTurning(PlaceOf(order, x));
}

KALVEX_WITH_FMA
Scaled LargeOrderJ(double order, double x) {
    const Place at = PlaceOf(order, x);
    if (IsTurning(at)) return {Turning(order, x, AiryAiPair)};
    if (order > x) return Upright(at, -1, LooseQuotient(1.0, 2 * kPi));
    const auto [even, odd] = DebyeSumsAt(at);
    const auto [c, s] = PhaseAt(at);
    return {ModulusAt(at) * (c + (c.high * even + s.high * odd))};
}

KALVEX_WITH_FMA
Scaled LargeOrderY(double order, double x) {
    const Place at = PlaceOf(order, x);
    if (IsTurning(at)) return {-Turning(order, x, AiryBiPair)};
    if (order > x) {
        const Scaled value = Upright(at, 1, LooseQuotient(1.0, kHalfPi));
        return {-value.value, value.exponent};
    }
    const auto [even, odd] = DebyeSumsAt(at);
    const auto [c, s] = PhaseAt(at);
    return {ModulusAt(at) * (s + (s.high * even - c.high * odd))};
}

}  // namespace kalvex::specfun
