// The power series of J and I (DLMF 10.2.2, 10.25.2), with its leading factor by a product or by
// Stirling's series (5.11.1). The ratio of neighbouring orders by Olver's algorithm: the recurrence
// upward shows how far to go until the truncation no longer matters; the recurrence downward from
// there is stable. Taylor coefficients of 1/Gamma by scripts/make-bessel-coefficients.
#include "specfun/bessel/common.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "numbers/truncate.h"

namespace kalvex::specfun {
namespace {

/// Taylor coefficients of 1/Gamma(1 + t): those of the even powers of t, then those of the odd
/// ones.
constexpr PowerCoefficients<10> kEven = {
    {{1.0, 0.0},
     {-0.6558780715202539, 2.137185197068536e-17},
     {0.16653861138229148, 1.0189144546842026e-17}},
    {-0.009621971527876973, -0.0011651675918590652, 0.0001280502823881162, -1.2504934821426706e-06,
     -2.056338416977607e-07, 5.002007644469223e-09, 1.0434267116911005e-10, -3.696805618642206e-12,
     -2.0583260535665066e-14, 1.2267786282382608e-15}};
constexpr PowerCoefficients<10> kOdd = {
    {{0.5772156649015329, -4.942915152430645e-18},
     {-0.04200263503409524, 1.4920306285650505e-18},
     {-0.04219773455554433, -3.3579992682480134e-18}},
    {0.0072189432466631, -0.00021524167411495098, -2.013485478078824e-05, 1.133027231981696e-06,
     6.116095104481416e-09, -1.18127457048702e-09, 7.782263439905071e-12, 5.100370287454476e-13,
     -5.348122539423018e-15, -1.1812593016974588e-16}};

/// ln(Gamma(n+1) / (sqrt(2 pi n) (n/e)^n)) in odd powers of 1/n, for n from 16 on.
constexpr double kStirling[] = {1.0 / 12,   -1.0 / 360,      1.0 / 1260, -1.0 / 1680,
                                1.0 / 1188, -691.0 / 360360, 1.0 / 156,  -3617.0 / 122400};
constexpr double kStirlingFrom = 16;

Scaled StirlingFactor(double order, double x) {
    const double r = 1 / order;
    double rest = 0;
    for (std::size_t i = std::size(kStirling); i-- > 0;)
        rest = rest * (r * r) + kStirling[i];
    // x/(2 order) without the exponent of x, since x may be denormal.
    int exponent = 0;
    const double fraction = std::frexp(x, &exponent);
    const DoubleDouble quotient = LooseQuotient(DoubleDouble{fraction}, 2 * order);
    const DoubleDouble logarithm = LooseSum(LogOf(quotient), kLn2 * static_cast<double>(exponent));
    const Scaled power = ExpOf(order * (logarithm + 1.0) - rest * r);
    return power * LooseQuotient(1.0, LooseSqrt(2 * kPi * order));
}

/// x^n for n below kStirlingFrom.
DoubleDouble IntegerPower(double x, int n) {
    DoubleDouble power{1};
    for (int k = 0; k < n; ++k) {
        const DoubleDouble product = TwoProduct(power.high, x);
        power = {product.high, product.low + power.low * x};
    }
    return TwoSum(power.high, power.low);
}

}  // namespace

SplitOrder Split(double order) {
    const double below = std::floor(order);
    const double whole = order - below > 0.5 ? below + 1 : below;
    // A smaller part does not change a digit of any value.
    constexpr double kLeast = 0x1p-200;
    const double part = order - whole;
    return {TruncateToInt32(whole), std::fabs(part) < kLeast ? 0 : part};
}

Step StepOf(double x) {
    int exponent = 0;
    const double fraction = std::frexp(x, &exponent);
    const int step = std::max(0, 2 - exponent);
    return {LooseQuotient(DoubleDouble{2}, std::ldexp(fraction, exponent + step)), step,
            std::ldexp(1.0, -2 * step)};
}

KALVEX_WITH_FMA
OrderPair Upward(OrderPair pair, SplitOrder order, const Step& step, double sign) {
    const double back = sign * step.back;
    for (int k = 1; k <= order.whole; ++k) {
        const DoubleDouble factor = FactorAt(step.scale, k, order.part);
        const DoubleDouble above = RecurrenceStep(factor, pair.next, TimesPower(pair.at, back));
        pair.at = pair.next;
        pair.next = above;
    }
    return {TwoSum(pair.at.high, pair.at.low), TwoSum(pair.next.high, pair.next.low)};
}

ReciprocalGamma ReciprocalGammaParts(double part) {
    const DoubleDouble square = TwoProduct(part, part);
    return {Polynomial(kEven, square), Polynomial(kOdd, square)};
}

KALVEX_WITH_FMA
Scaled LeadingFactor(double order, double x) {
    if (order >= kStirlingFrom) return StirlingFactor(order, x);
    const auto [whole, part] = Split(order);
    const auto [even, odd] = ReciprocalGammaParts(part);
    DoubleDouble gamma{1};
    for (int k = 1; k <= whole; ++k)
        gamma = FactorAt(gamma, k, part);
    int exponent = 0;
    const double fraction = std::frexp(x, &exponent);
    const DoubleDouble power = LooseQuotient(
        IntegerPower(fraction, whole) * LooseSum(even, part * odd), TwoSum(gamma.high, gamma.low));
    const int half = exponent - 1;
    if (part == 0) return {power, half * whole};
    const DoubleDouble logarithm = LooseSum(LogOf({fraction, 0}), kLn2 * static_cast<double>(half));
    const Scaled rest = ExpOf(part * logarithm);
    return {power * rest.value, half * whole + rest.exponent};
}

KALVEX_WITH_FMA
DoubleDouble PowerSeries(double order, DoubleDouble q) {
    // Below this fraction of the sum plain doubles suffice for a term.
    constexpr double kSmall = 0x1p-11;
    constexpr double kNegligible = 0x1p-66;
    DoubleDouble sum{1};
    DoubleDouble term{1};
    double k = 1;
    for (; std::fabs(term.high) > kSmall * sum.high; ++k) {
        const DoubleDouble next = TwoSum(order, k);
        const double divisor = k * next.high;
        const double lower = std::fma(k, next.high, -divisor) + k * next.low;
        const double inverse = 1 / divisor;
        const double ratio = q.high * inverse;
        const double rest = (std::fma(-ratio, divisor, q.high) + (q.low - ratio * lower)) * inverse;
        const DoubleDouble product = TwoProduct(term.high, ratio);
        term = {product.high, (product.low + term.high * rest) + term.low * ratio};
        const DoubleDouble total = TwoSum(sum.high, term.high);
        sum = {total.high, sum.low + (total.low + term.low)};
    }
    double tail = 0;
    for (double small = term.high; std::fabs(small) > kNegligible * sum.high; ++k) {
        small *= q.high / (k * (order + k));
        tail += small;
    }
    return TwoSum(sum.high, sum.low + tail);
}

KALVEX_WITH_FMA
DoubleDouble RatioOfVanishing(double order, double x, double sign) {
    // The error of the ratio is the sum of 1/(p(k) p(k+1)) over the k that are left out, where p is
    // the growing solution.
    constexpr double kEnough = 0x1p35;
    const DoubleDouble scale = LooseQuotient(DoubleDouble{2}, x);
    double before = 0;
    double current = 1;
    int last = 1;
    for (; current < kEnough; ++last) {
        const double next = scale.high * (order + last) * current - sign * before;
        before = current;
        current = next;
    }
    DoubleDouble above{0};
    DoubleDouble value{1};
    for (int k = last; k > 0; --k) {
        const DoubleDouble below =
            RecurrenceStep(FactorAt(scale, k, order), value, TimesPower(above, sign));
        above = value;
        value = below;
    }
    return LooseQuotient(TwoSum(above.high, above.low), TwoSum(value.high, value.low));
}

}  // namespace kalvex::specfun
