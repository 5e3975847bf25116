// Elementary functions at twice the precision. The exponential takes off a multiple of ln 2 and
// divides the rest by 256: ten terms of the power series of exp(r) - 1 then suffice, of which
// those beyond the fifth need only one double, and eight steps p -> 2p + p^2 undo the division.
// The logarithm corrects the runtime's by one step of Newton's method, whose error is the third
// power of the correction.
#include "specfun/double_double.h"

#include <cmath>
#include <limits>

#include "base/truncate.h"

namespace kalvex::specfun {
namespace {

constexpr int kHalvings = 8;
constexpr double kThirdOfHalfPi = -1.4973849048591698329e-33;  // what kHalfPi leaves
constexpr double kThirdOfLn2 = 5.7077084384162120658e-34;      // what kLn2 leaves

/// exp(r) - 1 for |r| below 0.006.
DoubleDouble ShortExpMinusOne(DoubleDouble r) {
    const double x = r.high;
    const double tail =
        1.0 / 720 + x * (1.0 / 5040 + x * (1.0 / 40320 + x * (1.0 / 362880 + x * (1.0 / 3628800))));
    constexpr DoubleDouble kSixth = {1.0 / 6, 9.25185853854297065662e-18};
    constexpr DoubleDouble kTwentyFourth = {1.0 / 24, 2.31296463463574266416e-18};
    constexpr DoubleDouble k120th = {1.0 / 120, 1.15648231731787138023e-19};
    DoubleDouble sum = Add(k120th, x * tail);
    sum = Add(kTwentyFourth, Multiply(sum, r));
    sum = Add(kSixth, Multiply(sum, r));
    sum = Add(Multiply(sum, r), 0.5);
    return Add(r, Multiply(Multiply(r, r), sum));
}

/// a - k (c + third), for the multiple k of a constant given to three doubles.
DoubleDouble TakeOff(DoubleDouble a, double k, DoubleDouble c, double third) {
    const DoubleDouble first = TwoProduct(k, c.high);
    const DoubleDouble second = TwoProduct(k, c.low);
    return Subtract(Subtract(Subtract(a, first), second), k * third);
}

}  // namespace

DoubleDouble ExpMinusOne(DoubleDouble a) {
    DoubleDouble p = ShortExpMinusOne(Scale(a, -kHalvings));
    for (int i = 0; i < kHalvings; ++i)
        p = Add({2 * p.high, 2 * p.low}, Multiply(p, p));
    return p;
}

DoubleDouble ExpScaled(DoubleDouble a, int& exponent) {
    const double k = std::nearbyint(a.high / kLn2.high);
    exponent = TruncateToInt32(k);
    return Add(ExpMinusOne(TakeOff(a, k, kLn2, kThirdOfLn2)), 1.0);
}

DoubleDouble Exp(DoubleDouble a) {
    if (a.high > 710) return {std::numeric_limits<double>::infinity(), 0};
    if (a.high < -746) return {};
    int exponent = 0;
    const DoubleDouble fraction = ExpScaled(a, exponent);
    return Scale(fraction, exponent);
}

DoubleDouble Log(DoubleDouble a) {
    int exponent = 0;
    std::frexp(a.high, &exponent);
    const DoubleDouble fraction = Scale(a, -exponent);
    const double first = std::log(fraction.high);
    const DoubleDouble inverse = Add(ExpMinusOne({-first, 0}), 1.0);
    const DoubleDouble rest = Subtract(Multiply(fraction, inverse), 1.0);
    const double square = rest.high * rest.high;
    const DoubleDouble fractionLog = Add(Add(rest, -square / 2 + square * rest.high / 3), first);
    const double k = exponent;
    return Add(TakeOff(fractionLog, -k, kLn2, kThirdOfLn2), 0.0);
}

DoubleDouble LogOnePlus(DoubleDouble a) {
    // With y = ln(1 + a) of one double: ln(1 + a) = y + ln(1 + r), r = (a - e) / (1 + e),
    // e = exp(y) - 1.
    const double first = std::log1p(a.high);
    const DoubleDouble e = ExpMinusOne({first, 0});
    const DoubleDouble rest = Divide(Subtract(a, e), Add(e, 1.0));
    return Add(Add(rest, -rest.high * rest.high / 2), first);
}

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

}  // namespace kalvex::specfun
