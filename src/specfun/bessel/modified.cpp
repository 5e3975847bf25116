// K by recurrence upward, stable always, from an order within 1/2 of 0; there Temme's series
// (1975) for x up to 2 and his recurrence of confluent hypergeometric functions beyond. I by its
// power series, all of whose terms are positive, or for larger x by the Wronskian with K and the
// ratio of two neighbouring I, a sum of positive terms too, or for x large against the order by
// Hankel's expansion (DLMF 10.40.1) and a short recurrence upward. Orders above 50 by the uniform
// expansions for large order (Debye; DLMF 10.41). The exponential is applied last.
#include "specfun/bessel/modified.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/truncate.h"
#include "specfun/bessel/large_order_coefficients.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;
/// Up to this x the series for K; beyond it the exponential is carried apart.
constexpr Extended kSeriesEnd = 2;
constexpr Extended kNegligible = 0x1p-68L;

/// 1/(2k+1)!
constexpr auto kSine =
    Coefficients({Extended{1}, Extended{1} / 6, Extended{1} / 120, Extended{1} / 5040,
                  Extended{1} / 362880, Extended{1} / 39916800, Extended{1} / 6227020800});

/// sinh(t)/t, where power = exp(t).
Extended RelativeSine(Extended t, Extended power) {
    return std::fabs(t) > 0.3L ? (power - 1 / power) / (2 * t) : Polynomial(kSine, t * t);
}

/// K at the orders part and part + 1 for x <= kSeriesEnd.
OrderPair SeriesK(Extended part, Extended x) {
    const auto [even, odd] = ReciprocalGammaParts(part);
    const Extended logarithm = -LogOfHalf(static_cast<double>(x));
    const Extended t = part * logarithm;
    const Extended power = part == 0 ? 1 : ExpOf(t);
    const Extended up = even + part * odd;
    const Extended down = even - part * odd;
    // 1/(up down) is pi part / sin(pi part).
    Extended f =
        (even * RelativeSine(t, power) * logarithm - odd * (power + 1 / power) / 2) / (up * down);
    Extended p = power / (2 * up);
    Extended q = 1 / (2 * power * down);
    const Extended quarter = x * x / 4;
    Extended factor = 1;
    OrderPair sum{f, p};
    for (int k = 1; factor > kNegligible; ++k) {
        const Extended inverse = 1 / ((k - part) * (k + part));
        f = (k * f + p + q) * inverse;
        p *= (k + part) * inverse;
        q *= (k - part) * inverse;
        factor *= quarter / k;
        sum.at += factor * f;
        sum.next += factor * (p - k * f);
    }
    return {sum.at, sum.next * 2 / x};
}

/// K exp(x) at the orders part and part + 1 for x > kSeriesEnd. What the recurrence gives is at
/// most 1/(8 x) beside 1 and needs no more than plain doubles. Its solution falls like exp(-2
/// sqrt(2 n x)), which fixes where to start; it runs on the differences of neighbours, a sum of
/// positive terms.
OrderPair ConfluentK(Extended part, Extended x) {
    const double order = static_cast<double>(part);
    // Beyond, what comes out vanishes beside 1, and the powers of x must not overflow.
    const double argument = static_cast<double>(std::min(x, Extended{1e60}));
    const int last = x > 1e6L ? 4 : 10 + TruncateToInt32(180 / argument);
    const double factor = (0.5 - order) * (0.5 + order);
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
    const Extended at = std::sqrt(kPi / (2 * x)) / (1 + Extended{factor * (sum / first)});
    return {at, at * (part + Extended{0.5} + x - factor * (value / first)) / x};
}

/// K exp(x) at the order and the next for x > 2, without the exponential below.
OrderPair ScaledK(double order, Extended x) {
    const SplitOrder split = Split(order);
    OrderPair pair = x <= kSeriesEnd ? SeriesK(split.part, x) : ConfluentK(split.part, x);
    const Extended scale = 2 / x;
    for (int k = 1; k <= split.whole && std::isfinite(pair.next); ++k) {
        const Extended above = scale * (split.part + k) * pair.next + pair.at;
        pair.at = pair.next;
        pair.next = above;
    }
    return pair;
}

/// Above this order the uniform expansions have all digits.
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

/// exp(sign order eta) (1 + z^2)^(-1/4) sum of sign^k U(k)/order^k for x = order z.
Extended Uniform(Extended order, Extended x, int sign) {
    const Extended z = x / order;
    const Extended root = std::sqrt(1 + z * z);
    const Extended p = 1 / root;
    const Extended eta = root + std::log(z / (1 + root));
    const double sum = DebyeSum(sign / static_cast<double>(order), static_cast<double>(p));
    return ExpOf(sign * order * eta) * std::sqrt(p) * (1 + Extended{sum});
}

/// I exp(-x) by the expansion for large argument; |order| <= 3/2, x > 25.
Extended HankelI(Extended order, Extended x) {
    const Extended scale = 1 / (2 * x);
    Extended sum = 1;
    Extended term = 1;
    for (int k = 1; std::fabs(term) > kNegligible; ++k) {
        const Extended half = k - Extended{0.5};
        term *= (half - order) * (half + order) / k * scale;
        sum += term;
    }
    return sum / std::sqrt(2 * kPi * x);
}

/// I exp(-x) for order^2 <= 4 x: upward the recurrence loses a factor exp(order^2 / x) at most.
Extended UpwardI(SplitOrder order, Extended x) {
    Extended at = HankelI(order.part, x);
    if (order.whole == 0) return at;
    Extended next = HankelI(order.part + 1, x);
    const Extended scale = 2 / x;
    for (int k = 1; k < order.whole; ++k) {
        const Extended above = at - scale * (order.part + k) * next;
        at = next;
        next = above;
    }
    return next;
}

/// The product of a scaled value and exp(x), in two steps that do not overflow before it does.
Extended Unscale(Extended value, Extended x) {
    const Extended half = ExpOf(x / 2);
    return value * half * half;
}

}  // namespace

Extended ModifiedK(double order, Extended x) {
    if (order > kUniformOrder) return std::sqrt(kPi / (2 * order)) * Uniform(order, x, -1);
    const Extended value = ScaledK(order, x).at;
    return x > kSeriesEnd ? Unscale(value, -x) : value;
}

Extended ModifiedI(double order, Extended x) {
    const Extended quarter = x * x / 4;
    if (quarter < 100 || quarter <= order + Extended{1}) {
        const Extended factor = LeadingFactor(order, x);
        return factor == 0 ? 0 : factor * PowerSeries(order, quarter);
    }
    if (order > kUniformOrder) return Uniform(order, x, 1) / std::sqrt(2 * kPi * order);
    // Beyond, the value overflows for every order of this branch.
    if (x > 11000) return std::numeric_limits<Extended>::infinity();
    if (x > 25 && order * order <= 4 * x) return Unscale(UpwardI(Split(order), x), x);
    const OrderPair k = ScaledK(order, x);
    return Unscale(1 / (x * (k.next + RatioOfVanishing(order, x, -1) * k.at)), x);
}

}  // namespace kalvex::specfun
