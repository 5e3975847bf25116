// Elementary functions of double-doubles. The exponential subtracts a multiple of ln 2 and divides
// the rest by 32. Thirteen terms of the power series of exp(r) - 1 then suffice, and from the ninth
// on plain doubles do. Five steps p -> 2p + p^2 undo the division. The logarithm starts from the
// runtime's value and makes one step of Newton's method, whose error is the third power of the
// correction.
#include "numbers/double_double.h"

#include <cmath>
#include <iterator>
#include <limits>

#include "numbers/truncate.h"

namespace kalvex {
namespace {

constexpr int kHalvings = 5;
constexpr double kPart = 1.0 / (1 << kHalvings);

/// 1/k!: for k from 13 down to 9 as doubles, for k from 8 down to 2 as double-doubles.
constexpr double kTailCoefficients[] = {1.0 / 6227020800, 1.0 / 479001600, 1.0 / 39916800,
                                        1.0 / 3628800, 1.0 / 362880};
constexpr DoubleDouble kHeadCoefficients[] = {{2.4801587301587302e-05, 2.1511947866775882e-23},
                                              {0.00019841269841269841, 1.7209558293420705e-22},
                                              {0.0013888888888888889, -5.3005439543735771e-20},
                                              {0.0083333333333333332, 1.1564823173178714e-19},
                                              {0.041666666666666664, 2.3129646346357427e-18},
                                              {0.16666666666666666, 9.2518585385429707e-18},
                                              {0.5, 0}};

constexpr double kThirdOfHalfPi = -1.4973849048591698329e-33;  // pi/2 - kHalfPi
constexpr double kThirdOfLn2 = 5.7077084384162120658e-34;      // ln 2 - kLn2

/// exp(r) - 1 for |r| below 0.04.
DoubleDouble ShortExpMinusOne(DoubleDouble r) {
    const double x = r.high;
    double tail = 0;
    for (const double coefficient : kTailCoefficients)
        tail = coefficient + x * tail;
    DoubleDouble sum = QuickTwoSum(kHeadCoefficients[0].high, kHeadCoefficients[0].low + x * tail);
    for (std::size_t i = 1; i < std::size(kHeadCoefficients); ++i)
        sum = LooseSum(kHeadCoefficients[i], sum * r);
    return LooseSum(r, r * r * sum);
}

/// a - k (c + third), where c + third is a constant to three doubles.
DoubleDouble TakeOff(DoubleDouble a, double k, DoubleDouble c, double third) {
    const DoubleDouble first = TwoProduct(k, c.high);
    const DoubleDouble second = TwoProduct(k, c.low);
    return a - first - DoubleDouble{second.high, second.low + k * third};
}

}  // namespace

KALVEX_WITH_FMA
DoubleDouble ExpMinusOne(DoubleDouble a) {
    DoubleDouble p = ShortExpMinusOne({a.high * kPart, a.low * kPart});
    for (int i = 0; i < kHalvings; ++i)
        p = LooseSum({2 * p.high, 2 * p.low}, p * p);
    return p;
}

KALVEX_WITH_FMA
DoubleDouble ExpScaled(DoubleDouble a, int& exponent) {
    const double k = std::nearbyint(a.high / kLn2.high);
    exponent = TruncateToInt32(k);
    return ExpMinusOne(TakeOff(a, k, kLn2, kThirdOfLn2)) + 1.0;
}

DoubleDouble Exp(DoubleDouble a) {
    if (a.high > 710) return {std::numeric_limits<double>::infinity(), 0};
    if (a.high < -746) return {};
    int exponent = 0;
    const DoubleDouble fraction = ExpScaled(a, exponent);
    return Scale(fraction, exponent);
}

KALVEX_WITH_FMA
DoubleDouble Log(DoubleDouble a) {
    int exponent = 0;
    const double fractionHigh = std::frexp(a.high, &exponent);
    const DoubleDouble fraction = {fractionHigh, std::ldexp(a.low, -exponent)};
    const double first = std::log(fraction.high);
    // fraction exp(-first) - 1. The high part of the product is near 1, so that subtracting 1 is
    // exact.
    const DoubleDouble inverse = LooseSum({1, 0}, ExpMinusOne({-first, 0}));
    const DoubleDouble product = fraction * inverse;
    const DoubleDouble rest = QuickTwoSum(product.high - 1, product.low);
    const double square = rest.high * rest.high;
    const DoubleDouble fractionLog = rest + (-square / 2 + square * rest.high / 3) + first;
    const double k = exponent;
    return k == 0 ? fractionLog : TakeOff(fractionLog, -k, kLn2, kThirdOfLn2);
}

KALVEX_WITH_FMA
DoubleDouble LogOnePlus(DoubleDouble a) {
    // With y = ln(1 + a) as a double and e = exp(y) - 1, ln(1 + a) = y + ln(1 + r) where r = (a -
    // e) / (1 + e).
    const double first = std::log1p(a.high);
    const DoubleDouble e = ExpMinusOne({first, 0});
    const DoubleDouble rest = (a - e) / (e + 1.0);
    return rest - rest.high * rest.high / 2 + first;
}

KALVEX_WITH_FMA
DoubleDouble ReduceByHalfPi(DoubleDouble a, int& quadrant) {
    const double k = std::nearbyint(a.high / kHalfPi.high);
    quadrant = TruncateToInt32(k - 4 * std::floor(k / 4));
    return TakeOff(a, k, kHalfPi, kThirdOfHalfPi);
}

SinCosPair SinCos(DoubleDouble a) {
    int quadrant = 0;
    const DoubleDouble rest = ReduceByHalfPi(a, quadrant);
    const double sine = std::sin(rest.high);
    const double cosine = std::cos(rest.high);
    const double s = sine + rest.low * cosine;
    const double c = cosine - rest.low * sine;
    if (quadrant == 0) return {s, c};
    if (quadrant == 1) return {c, -s};
    if (quadrant == 2) return {-s, -c};
    return {-c, s};
}

}  // namespace kalvex
