// J and Y of orders within 1/2 of 0 for moderate and large arguments, from H(1) = J + i Y. In both
// methods the part that is not known in closed form is small beside the rest, so that plain doubles
// suffice for it; the rest is computed as double-doubles.
//
// Moderate arguments: Steed's method. H(1) is K of an imaginary argument. The ratio of two
// neighbouring orders is that of the minimal solution of a recurrence of confluent hypergeometric
// functions (Temme, 1975). It is computed by recurrence downward from an order that depends on x
// alone, written for the differences of neighbours so that nothing cancels. The ratio of two J
// comes from the recurrence downward, and the Wronskian fixes the common factor.
//
// Large arguments: H(1) = sqrt(2/(pi x)) exp(i phase) (1 + small), phase = x - (part/2 + 1/4) pi,
// by Hankel's expansion (DLMF 10.17.5), whose smallest term is about exp(-2 x).
#include <algorithm>
#include <cmath>

#include "numbers/truncate.h"
#include "specfun/bessel/oscillating.h"

namespace kalvex::specfun {
namespace {

struct PlainComplex {
    double real;
    double imaginary;
};

PlainComplex Over(PlainComplex a, PlainComplex b) {
    const double size = b.real * b.real + b.imaginary * b.imaginary;
    return {(a.real * b.real + a.imaginary * b.imaginary) / size,
            (a.imaginary * b.real - a.real * b.imaginary) / size};
}

/// The small part q of the ratio (part + 1/2 - i x - q)/x of H(1) at the orders part + 1 and part,
/// by Temme's recurrence for z = -i x. The error falls like exp(-4 sqrt(2 n z)) with the number n
/// of steps.
PlainComplex Confluent(double part, double x) {
    const int last = 10 + TruncateToInt32(90 / x);
    const double factor = (0.5 - part) * (0.5 + part);
    PlainComplex value{1, 0};
    PlainComplex difference = value;  // from the value one higher
    for (int k = last; k > 1; --k) {
        const double n = k;
        const double inverse = 1 / (n * (n - 1) + factor);
        const double scale = n * (n + 1) * inverse;
        const double real = -factor * inverse;
        const double imaginary = 2 * x * n * inverse;
        const PlainComplex common{scale * difference.real + imaginary * value.imaginary,
                                  scale * difference.imaginary - imaginary * value.real};
        difference = {common.real + real * value.real, common.imaginary + real * value.imaginary};
        value = {common.real + (1 + real) * value.real,
                 common.imaginary + (1 + real) * value.imaginary};
    }
    const PlainComplex first{2 * (difference.real + x * value.imaginary),
                             2 * (difference.imaginary - x * value.real)};
    const PlainComplex quotient = Over(value, first);
    return {factor * quotient.real, factor * quotient.imaginary};
}

/// Hankel's expansion of H(1) of the order, without its leading factor and less 1: its first term,
/// which is at most 1/22, and the sum of the others.
struct HankelParts {
    DoubleDouble first;  ///< imaginary
    PlainComplex rest;
};

/// For orders up to 3/2.
HankelParts HankelSum(DoubleDouble order, double x) {
    constexpr double kNegligible = 0x1p-60;
    const double scale = 1 / (2 * x);
    const double square = order.high * order.high;
    const DoubleDouble first = LooseQuotient((order - 0.5) * (0.5 * order + 0.25), x);
    PlainComplex rest{0, 0};
    double term = first.high;
    for (double k = 2; std::fabs(term) > kNegligible; k += 2) {
        const double half = k - 0.5;
        term *= (half * half - square) * (scale / k);
        rest.real += term;
        term *= (square - (half + 1) * (half + 1)) * (scale / (k + 1));
        rest.imaginary += term;
    }
    return {first, rest};
}

/// What the terms of the expansion add to the real and to the imaginary part of a factor.
OrderPair Added(DoubleDouble real, DoubleDouble imaginary, const HankelParts& sum) {
    const auto [first, rest] = sum;
    const double a = real.high * rest.real - imaginary.high * rest.imaginary;
    const double b = imaginary.high * rest.real + real.high * rest.imaginary;
    return {a - imaginary * first, b + real * first};
}

}  // namespace

KALVEX_WITH_FMA
LowOrders LowOrdersMiddle(double part, double x, int steps) {
    // From the wanted order, or from the turning point at x, the ratio J/Y falls by more than 2^66
    // up to this order.
    const int last = std::max(steps, TruncateToInt32(x)) + 12 + TruncateToInt32(3.5 * std::sqrt(x));
    const DoubleDouble scale = LooseQuotient(DoubleDouble{2}, x);
    DoubleDouble higher{0};
    DoubleDouble above{0};
    DoubleDouble j{1};
    for (int k = last; k > 0; --k) {
        if (k == steps) higher = j;
        const DoubleDouble below = RecurrenceStep(FactorAt(scale, k, part), j, above);
        above = j;
        j = below;
    }
    if (steps == 0) higher = j;
    j = TwoSum(j.high, j.low);
    above = TwoSum(above.high, above.low);
    const PlainComplex small = Confluent(part, x);
    const DoubleDouble real = LooseQuotient(TwoSum(part, 0.5) - small.real, x);
    const DoubleDouble imaginary = -1 - LooseQuotient(DoubleDouble{small.imaginary}, x);
    const DoubleDouble y = LooseQuotient(LooseDifference(real * j, above), imaginary);
    const DoubleDouble factor =
        LooseQuotient(1.0, LooseSqrt(kHalfPi * x * -imaginary * LooseSum(j * j, y * y)));
    return {{factor * j, factor * above},
            {factor * y, factor * LooseSum(imaginary * j, real * y)},
            factor * higher};
}

KALVEX_WITH_FMA
LowOrders LowOrdersFar(double part, double x) {
    const auto [c, s] = CosineSineLess(x, TwoSum(part / 2, 0.25));
    // sqrt(2/(pi x)); for the largest x the product pi x would overflow.
    const double unit = x > 0x1p500 ? 0x1p-300 : 1;
    const DoubleDouble root =
        TimesPower(LooseSqrt(LooseQuotient(1.0, kHalfPi * (x * unit * unit))), unit);
    const DoubleDouble real = root * c;
    const DoubleDouble imaginary = root * s;
    const OrderPair at = Added(real, imaginary, HankelSum({part, 0}, x));
    const OrderPair next = Added(imaginary, -real, HankelSum(TwoSum(part, 1), x));
    return {{LooseSum(real, at.at), LooseSum(imaginary, next.at)},
            {LooseSum(imaginary, at.next), LooseSum(-real, next.next)},
            {}};
}

}  // namespace kalvex::specfun
