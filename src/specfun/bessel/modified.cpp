// K by recurrence upward, which is always stable, from an order within 1/2 of 0. There K comes from
// Temme's series (1975) for x up to 2 and from his recurrence of confluent hypergeometric functions
// beyond. I comes from its power series, whose terms are all positive. For larger x it comes from
// the Wronskian with K and the ratio of two neighbouring I, again a sum of positive terms; where x
// is large against the order, from Hankel's expansion (DLMF 10.40.1) and a short recurrence upward.
// Orders above 50: the uniform expansions for large order (Debye; DLMF 10.41). The exponential is
// applied last.
#include "specfun/bessel/modified.h"

#include <algorithm>
#include <cmath>

#include "numbers/truncate.h"
#include "specfun/bessel/large_order_coefficients.h"

namespace kalvex::specfun {
namespace {

/// Up to this x K is computed by the series; beyond it the factor exp(-x) is kept separate.
constexpr double kSeriesEnd = 2;
constexpr double kNegligible = 0x1p-66;

/// 1/(2k+1)!
constexpr PowerCoefficients<4> kSine = {
    {{1, 0},
     {0.16666666666666666, 9.25185853854297e-18},
     {0.008333333333333333, 1.1564823173178714e-19}},
    {1.0 / 5040, 1.0 / 362880, 1.0 / 39916800, 1.0 / 6227020800}};

/// A term of the series: the factor (x^2/4)^k / k!, the other factor f for the order part, and p
/// and q, from which the next f and the term for the order part + 1 are made.
struct SeriesTerm {
    double f;
    double p;
    double q;
    double factor;
};

/// The sums of the terms from number k on; `before` is the term before it.
struct PlainSums {
    double at;
    double next;
};
PlainSums PlainTerms(int k, double part, double x, SeriesTerm before) {
    auto [f, p, q, factor] = before;
    PlainSums sum{0, 0};
    for (; factor > kNegligible; ++k) {
        const double inverse = 1 / ((k - part) * (k + part));
        f = (k * f + p + q) * inverse;
        p *= (k + part) * inverse;
        q *= (k - part) * inverse;
        factor *= x * x / 4 / k;
        sum.at += factor * f;
        sum.next += factor * (p - k * f);
    }
    return sum;
}

/// K at the orders part and part + 1 for x <= kSeriesEnd.
OrderPair SeriesK(double part, double x, const Step& step) {
    // From this term on the terms are small beside the sums.
    constexpr int kHead = 5;
    const auto [even, odd] = ReciprocalGammaParts(part);
    const DoubleDouble logarithm = LooseDifference(kLn2, LogOf({x, 0}));
    const DoubleDouble t = part * logarithm;
    const Scaled scaled = part == 0 ? Scaled{{1}} : ExpOf(t);
    const DoubleDouble power = TimesPower(scaled.value, std::ldexp(1.0, scaled.exponent));
    const DoubleDouble inverse = part == 0 ? power : LooseQuotient(1.0, power);
    const DoubleDouble up = LooseSum(even, part * odd);
    const DoubleDouble down = LooseDifference(even, part * odd);
    const DoubleDouble sine = std::fabs(t.high) > 0.3
                                  ? LooseQuotient(LooseDifference(power, inverse), 2 * t)
                                  : Polynomial(kSine, t * t);
    // 1/(up down) is pi part / sin(pi part).
    DoubleDouble f = LooseQuotient(
        LooseDifference(even * sine * logarithm, odd * LooseSum(power, inverse) * 0.5),
        (up * down));
    DoubleDouble p = LooseQuotient(power, 2 * up);
    DoubleDouble q = LooseQuotient(inverse, 2 * down);
    const DoubleDouble quarter = TwoProduct(x / 2, x / 2);
    DoubleDouble factor{1};
    OrderPair sum{f, p};
    for (int k = 1; k < kHead && factor.high > kNegligible; ++k) {
        const DoubleDouble lower = TwoSum(k, -part);
        const DoubleDouble higher = TwoSum(k, part);
        const DoubleDouble product = LooseQuotient(1.0, lower * higher);
        f = LooseSum(LooseSum(k * f, p), q) * product;
        p *= higher * product;
        q *= lower * product;
        factor = LooseQuotient(factor * quarter, k);
        sum.at = LooseSum(sum.at, factor * f);
        sum.next = LooseSum(sum.next, factor * LooseDifference(p, k * f));
    }
    const PlainSums rest = PlainTerms(kHead, part, x, {f.high, p.high, q.high, factor.high});
    return {sum.at + rest.at, (sum.next + rest.next) * step.scale};
}

/// K exp(x) at the orders part and part + 1 for x > kSeriesEnd. What the recurrence contributes is
/// at most 1/(8 x) beside 1, so that plain doubles suffice for it. Its minimal solution falls like
/// exp(-2 sqrt(2 n x)), which determines where to start. The recurrence is written for the
/// differences of neighbours, as a sum of positive terms.
OrderPair ConfluentK(double part, double x) {
    // Beyond this x the contribution vanishes beside 1, and the powers of x must not overflow.
    const double argument = std::min(x, 1e60);
    const int last = x > 1e6 ? 4 : 10 + TruncateToInt32(180 / argument);
    const double factor = (0.5 - part) * (0.5 + part);
    double value = 1;
    double sum = 1;
    double difference = 1;  // from the value one higher
    for (int k = last; k > 1; --k) {
        const double n = k;
        const double inverse = 1 / (n * (n - 1) + factor);
        const double common = n * (n + 1) * inverse * difference;
        const double rise = (2 * argument * n - factor) * inverse;
        difference = common + rise * value;
        value = common + (1 + rise) * value;
        sum += value;
    }
    const double first = 2 * (difference + argument * value);
    const DoubleDouble at = LooseQuotient(LooseSqrt(LooseQuotient(kHalfPi, x)),
                                          (1 + DoubleDouble{factor * (sum / first)}));
    const DoubleDouble ratio = TwoSum(part, 0.5) - factor * (value / first);
    return {at, LooseSum(at, LooseQuotient(at * ratio, x))};
}

/// K at the order and the next one: times exp(x) for x > 2, as it is below. They have the powers of
/// two of the step.
OrderPair ScaledK(SplitOrder order, double x, const Step& step) {
    const OrderPair pair =
        x <= kSeriesEnd ? SeriesK(order.part, x, step) : ConfluentK(order.part, x);
    return Upward(pair, order, step, -1);
}

/// Above this order the uniform expansions give all digits.
constexpr double kUniformOrder = 50;

/// The sum of (sign/order)^k U(k)(p) from k = 1 on; its terms fall like (k-1)!/(pi order)^k.
double DebyeSum(double r, double p) {
    const double square = p * p;
    const double step = r * p;
    double sum = 0;
    double power = 1;
    double term = 1;
    double before = 1;
    for (std::size_t k = 0; std::fabs(term) + std::fabs(before) > 0x1p-66; ++k) {
        power *= step;
        before = term;
        term = power * DebyePolynomial(k, square);
        sum += term;
    }
    return sum;
}

/// exp(sign order eta) (1 + z^2)^(-1/4) times the sum of sign^k U(k)/order^k, for x = order z.
Scaled Uniform(double order, double x, double sign) {
    // Beyond these bounds the exponential is out of the range of doubles in any case.
    constexpr double kMost = 1e100;
    constexpr double kLeast = 1e-280;
    const DoubleDouble z = LooseQuotient(DoubleDouble{std::min(x, kMost)}, order);
    if (z.high < kLeast) return {{1}, sign > 0 ? -30000 : 30000};
    const DoubleDouble root = LooseSqrt(1 + z * z);
    const DoubleDouble p = LooseQuotient(1.0, root);
    const DoubleDouble eta = LooseSum(root, LogOf(LooseQuotient(z, 1 + root)));
    const double sum = DebyeSum(sign / order, p.high);
    return ExpOf(sign * (order * eta)) * (LooseSqrt(p) * (1 + DoubleDouble{sum}));
}

/// I exp(-x) by the expansion for large argument; |order| <= 3/2, x > 25.
DoubleDouble HankelI(double order, double x) {
    // From here on the terms are below 2^-12 of the sum.
    constexpr int kHead = 4;
    const DoubleDouble scale = LooseQuotient(DoubleDouble{0.5}, x);
    DoubleDouble sum{1};
    DoubleDouble term{1};
    for (int k = 1; k < kHead; ++k) {
        term = term * LooseQuotient(TwoSum(k - 0.5, -order) * TwoSum(k - 0.5, order) * scale, k);
        sum = LooseSum(sum, term);
    }
    double rest = 0;
    double small = term.high;
    for (double k = kHead; std::fabs(small) > kNegligible; ++k) {
        small *= (k - 0.5 - order) * (k - 0.5 + order) * (scale.high / k);
        rest += small;
    }
    return LooseQuotient(sum + rest, LooseSqrt(2 * kPi * x));
}

/// I exp(-x) for order^2 <= 4 x. The recurrence upward loses a factor exp(order^2 / x) at most.
DoubleDouble UpwardI(SplitOrder order, double x) {
    const DoubleDouble at = HankelI(order.part, x);
    if (order.whole == 0) return at;
    DoubleDouble before = at;
    DoubleDouble next = HankelI(order.part + 1, x);
    const DoubleDouble scale = LooseQuotient(DoubleDouble{2}, x);
    for (int k = 1; k < order.whole; ++k) {
        const DoubleDouble above = RecurrenceStep(-FactorAt(scale, k, order.part), next, -before);
        before = next;
        next = above;
    }
    return TwoSum(next.high, next.low);
}

}  // namespace

KALVEX_WITH_FMA
Scaled ModifiedK(double order, double x) {
    if (order > kUniformOrder)
        return Uniform(order, x, -1) * LooseSqrt(LooseQuotient(kHalfPi, order));
    const SplitOrder split = Split(order);
    const Step step = StepOf(x);
    const DoubleDouble value = ScaledK(split, x, step).at;
    return x > kSeriesEnd ? ExpOf({-x, 0}) * value : Scaled{value, step.exponent * split.whole};
}

KALVEX_WITH_FMA
Scaled ModifiedI(double order, double x) {
    const double quarter = x / 2 * (x / 2);
    if (order <= 1000 && (quarter < 100 || quarter <= order + 1))
        return LeadingFactor(order, x) * PowerSeries(order, TwoProduct(x / 2, x / 2));
    if (order > kUniformOrder)
        return Uniform(order, x, 1) * LooseQuotient(1.0, LooseSqrt(2 * kPi * order));
    // Beyond this x the value overflows for every order that comes here.
    if (x > 11000) return {{1}, 30000};
    const SplitOrder split = Split(order);
    if (x > 25 && order * order <= 4 * x) return ExpOf({x, 0}) * UpwardI(split, x);
    const OrderPair k = ScaledK(split, x, StepOf(x));
    return ExpOf({x, 0}) *
           LooseQuotient(1.0, x * LooseSum(k.next, RatioOfVanishing(order, x, -1) * k.at));
}

}  // namespace kalvex::specfun
