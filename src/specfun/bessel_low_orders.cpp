// Orders within 1/2 of 0.
//
// Near: the recurrence downward gives all J(part+k) but for a factor, which the expansion of
// (x/2)^part in them fixes (DLMF 10.23.15). The expansion of J(-part) in the same values,
// J(-m) = (x/2)^-2m times the sum of (-1)^k (m+2k) Gamma(m+k) (2m)_k / (k! Gamma(k+1-m)) J(m+2k),
// put into the definition of Y, gives Y without cancellation for every order, integral ones too
// (Goldstein and Thaler, 1959).
//
// Far: H(1) is K of an imaginary argument. Temme (1975) gives K by the vanishing solution of a
// recurrence of confluent hypergeometric functions, recurred downward from an order that depends
// on x alone. The phase x - (part/2 + 1/4) pi is taken apart: sine and cosine of x itself, and of
// the rest from its exact fraction.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/truncate.h"
#include "specfun/bessel_oscillating.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// Sums over the J(part + k) of the recurrence downward, all but for the same factor.
struct NeumannSums {
    OrderPair j;      ///< orders part and part + 1
    Extended higher;  ///< order part + wantedSteps
    Extended norm;    ///< (x/2)^part / Gamma(1 + part)
    Extended second;  ///< the expansion of J(-part) from its second term on, over (x/2)^-2part
                      ///< 2 part Gamma(part + 1) / Gamma(1 - part)
    Extended slope;   ///< the same with J' for J
};

/// The step above part at which to start. From the highest of the wanted values on, but not below
/// the turning point at x, J falls by more than 2^66 to there; for x up to 20.
int StartSteps(Extended x, int steps) {
    const double argument = static_cast<double>(x);
    const int from = std::max(steps, TruncateToInt32(argument));
    return from + (argument < 0.1 ? 12 : TruncateToInt32(22 + 1.25 * argument));
}

/// The sums for J alone or for both. The series run as nested products over the even steps 2m:
/// each coefficient is the one below times a rational factor of m.
template <bool withY>
NeumannSums RecurDownward(Extended part, Extended x, int steps) {
    const Extended scale = 2 / x;
    NeumannSums sums{};
    Extended norm = 0;
    Extended second = 0;
    Extended slope = 0;
    Extended above = 0;
    Extended value = 0x1p-16000L;  // of the step 2m
    for (int m = (StartSteps(x, steps) + 1) / 2; m > 0; --m) {
        const Extended weight = part + 2 * m;
        const Extended middle = scale * weight * value - above;
        if (2 * m == steps) sums.higher = value;
        if (2 * m - 1 == steps) sums.higher = middle;
        const Extended grow = m + 1;
        norm *= (part + m) / grow;
        norm += weight * value;
        if constexpr (withY) {
            const Extended factor = -(part + m) * (2 * part + m) / (grow * (grow - part));
            second = weight * value + factor * second;
            slope = weight * (middle - above) / 2 + factor * slope;
        }
        above = middle;
        value = scale * (weight - 1) * middle - value;
    }
    sums.j = {value, above};
    if (steps == 0) sums.higher = value;
    // The terms m = 0 have the coefficient 1 in the norm, and are left out of the other two, where
    // m = 1 has the coefficient -1/(1 - part).
    sums.norm = norm + value;
    sums.second = second / (part - 1);
    sums.slope = slope / (part - 1);
    return sums;
}

struct Complex {
    Extended real;
    Extended imaginary;
};

Complex Times(Complex a, Complex b) {
    return {a.real * b.real - a.imaginary * b.imaginary,
            a.real * b.imaginary + a.imaginary * b.real};
}

Complex Over(Complex a, Complex b) {
    const Extended size = b.real * b.real + b.imaginary * b.imaginary;
    return {(a.real * b.real + a.imaginary * b.imaginary) / size,
            (a.imaginary * b.real - a.real * b.imaginary) / size};
}

struct ConfluentResult {
    Complex sum;       ///< sqrt(2/(pi x)) exp(i phase) over it is H(1) of the order part
    Complex quotient;  ///< of the order part + 1 over part: (part + 1/2 - i x - quotient)/x
};

/// Temme's recurrence for z = -i x. The solution falls like exp(-2 sqrt(2 n z)).
ConfluentResult Confluent(Extended part, Extended x) {
    const int last = x > 1e6L ? 4 : 6 + TruncateToInt32(static_cast<double>(440 / x));
    Complex above{0, 0};
    Complex value{1, 0};
    Complex sum{1, 0};
    for (int n = last; n > 1; --n) {
        const Extended half = n - Extended{0.5};
        const Extended scale = n / ((half - part) * (half + part));
        const Complex below{
            scale * (2 * (n * value.real + x * value.imaginary) - (n + 1) * above.real),
            scale * (2 * (n * value.imaginary - x * value.real) - (n + 1) * above.imaginary)};
        above = value;
        value = below;
        sum.real += below.real;
        sum.imaginary += below.imaginary;
    }
    const Complex first{2 * (value.real + x * value.imaginary - above.real),
                        2 * (value.imaginary - x * value.real - above.imaginary)};
    const Extended factor = (Extended{0.5} - part) * (Extended{0.5} + part);
    Complex whole = Over(sum, first);
    whole = {1 + factor * whole.real, factor * whole.imaginary};
    Complex quotient = Over(value, first);
    return {whole, {factor * quotient.real, factor * quotient.imaginary}};
}

void Multiply(OrderPair& pair, Extended factor) {
    pair.at *= factor;
    pair.next *= factor;
}

}  // namespace

LowOrders LowOrdersNear(Extended part, Extended x, int steps) {
    const NeumannSums sums = RecurDownward<true>(part, x, steps);
    const auto [even, odd] = ReciprocalGammaParts(part);
    const Extended reciprocal = even + part * odd;  // 1/Gamma(1 + part)
    const Extended logarithm = std::log(x / 2);
    const Extended exponent = part * logarithm;
    // (x/2)^part, and that less 1.
    const bool flat = std::fabs(exponent) < 0.5L;
    const Extended leading = flat ? 0 : std::exp(exponent);
    const Extended rise = part == 0 ? 0 : flat ? std::expm1(exponent) : leading - 1;
    const Extended scale = flat ? 1 + rise : leading;
    const Extended factor = scale * reciprocal / sums.norm;
    LowOrders result;
    result.j = sums.j;
    Multiply(result.j, factor);
    result.higherJ = sums.higher * factor;
    // power = (x/2)^-2part Gamma(1+part)/Gamma(1-part), bracket = (cos - power)/sin (pi part).
    const Extended quotient = (even - part * odd) / reciprocal;
    const Extended square = 1 / (scale * scale);
    const Extended power = quotient * square;
    const auto [cosine, sine] = CosineSinePi(part);
    const Extended perSine = part == 0 ? 1 / kPi : part / sine;
    // ((x/2)^-2part - 1) / (-2 part)
    const Extended relative = exponent == 0 ? logarithm : rise / part * (1 + rise / 2) * square;
    const Extended bracket =
        -sine / (1 + cosine) + 2 * perSine * (quotient * relative + odd / reciprocal);
    const Extended series = 2 * perSine * power * factor;
    result.y.at = bracket * result.j.at - series * sums.second;
    result.y.next = bracket * result.j.next - 2 * perSine / x * power * result.j.at -
                    series * (3 * part / x * sums.second - sums.slope);
    return result;
}

Extended HigherJNear(Extended part, Extended x, int steps) {
    const NeumannSums sums = RecurDownward<false>(part, x, steps);
    const auto [even, odd] = ReciprocalGammaParts(part);
    const Extended factor = (even + part * odd) * sums.higher / sums.norm;
    return part == 0 ? factor : factor * std::exp(part * std::log(x / 2));
}

LowOrders LowOrdersFar(Extended part, Extended x) {
    const auto [sum, quotient] = Confluent(part, x);
    const Extended size =
        std::sqrt(2 / (kPi * x)) / (sum.real * sum.real + sum.imaginary * sum.imaginary);
    const CosineSine rest = CosineSinePi(part / 2 + Extended{0.25});
    const auto [c, s] = CosineSineOf(x);
    const Complex phase{c * rest.cosine + s * rest.sine, s * rest.cosine - c * rest.sine};
    const Complex at = {size * (phase.real * sum.real + phase.imaginary * sum.imaginary),
                        size * (phase.imaginary * sum.real - phase.real * sum.imaginary)};
    const Complex ratio{(part + Extended{0.5} - quotient.real) / x, -1 - quotient.imaginary / x};
    const Complex next = Times(at, ratio);
    return {{at.real, next.real}, {at.imaginary, next.imaginary}, 0};
}

}  // namespace kalvex::specfun
