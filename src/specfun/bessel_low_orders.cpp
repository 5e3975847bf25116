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
    Extended wanted;  ///< order part + wantedSteps
    Extended norm;    ///< (x/2)^part / Gamma(1 + part)
    Extended second;  ///< the expansion of J(-part) from its second term on, over (x/2)^-2part
                      ///< 2 part Gamma(part + 1) / Gamma(1 - part)
    Extended slope;   ///< the same with J' for J
};

/// How far above part the recurrence must start: the solution that grows with the order has
/// outgrown the largest of the wanted values by the precision.
int StartSteps(Extended part, Extended x, int from) {
    constexpr Extended kEnough = 0x1p66L;
    const Extended scale = 2 / x;
    Extended before = 0;
    Extended current = 1;
    int k = from + 1;
    for (; current < kEnough; ++k) {
        const Extended next = scale * (part + k) * current - before;
        before = current;
        current = next;
    }
    return k;
}

/// Adds the even step k = 2m > 0 to the sums. They run as nested products: each coefficient is
/// the one below times a rational factor of m.
void AddEven(NeumannSums& sums, Extended part, int k, Extended value, Extended slope) {
    const Extended m = k / 2;
    const Extended weight = part + k;
    const Extended grow = m + 1;
    sums.norm = weight * value + (part + m) / grow * sums.norm;
    const Extended factor = -(part + m) * (2 * part + m) / (grow * (grow - part));
    sums.second = weight * value + factor * sums.second;
    sums.slope = weight * slope + factor * sums.slope;
}

NeumannSums RecurDownward(Extended part, Extended x, int wantedSteps) {
    const int from = std::max(wantedSteps, TruncateToInt32(static_cast<double>(x)));
    const Extended scale = 2 / x;
    NeumannSums sums{};
    Extended above = 0;
    Extended value = 0x1p-16000L;
    for (int k = StartSteps(part, x, from); k > 0; --k) {
        if (k == wantedSteps) sums.wanted = value;
        const Extended below = scale * (part + k) * value - above;
        if (k % 2 == 0) AddEven(sums, part, k, value, (below - above) / 2);
        above = value;
        value = below;
    }
    sums.j = {value, above};
    if (wantedSteps == 0) sums.wanted = value;
    // The terms k = 0 have the coefficients 1 of the norm, and are left out of the other two, where
    // m = 1 has the coefficient -1/(1 - part).
    sums.norm += value;
    sums.second /= part - 1;
    sums.slope /= part - 1;
    return sums;
}

/// (e^t - 1)/t.
Extended RelativeExponential(Extended t) {
    return t == 0 ? 1 : std::expm1(t) / t;
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
    const int last = x > 1e6L ? 4 : 6 + TruncateToInt32(static_cast<double>(480 / x));
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

LowOrders LowOrdersNear(Extended part, Extended x, int wantedSteps, Extended* wanted) {
    const NeumannSums sums = RecurDownward(part, x, wantedSteps);
    const auto [even, odd] = ReciprocalGammaParts(part);
    const Extended reciprocal = even + part * odd;  // 1/Gamma(1 + part)
    const Extended logarithm = std::log(x / 2);
    const Extended factor = (part == 0 ? 1 : std::exp(part * logarithm)) * reciprocal / sums.norm;
    LowOrders result;
    result.j = sums.j;
    Multiply(result.j, factor);
    if (wanted != nullptr) {
        *wanted = sums.wanted * factor;
        return result;
    }
    // power = (x/2)^-2part Gamma(1+part)/Gamma(1-part), and bracket = (cos - power)/sin (pi part).
    const Extended quotient = (even - part * odd) / reciprocal;
    const Extended t = -2 * part * logarithm;
    const Extended power = quotient * (part == 0 ? 1 : std::exp(t));
    const Extended sine = part == 0 ? 1 / kPi : part / std::sin(kPi * part);
    const Extended bracket =
        -std::tan(kPi * part / 2) +
        2 * sine * (quotient * RelativeExponential(t) * logarithm + odd / reciprocal);
    const Extended series = 2 * sine * power * factor;
    result.y.at = bracket * result.j.at - series * sums.second;
    result.y.next = bracket * result.j.next - 2 * sine / x * power * result.j.at -
                    series * (3 * part / x * sums.second - sums.slope);
    return result;
}

LowOrders LowOrdersFar(Extended part, Extended x) {
    const auto [sum, quotient] = Confluent(part, x);
    const Extended size =
        std::sqrt(2 / (kPi * x)) / (sum.real * sum.real + sum.imaginary * sum.imaginary);
    const CosineSine rest = CosineSinePi(part / 2 + Extended{0.25});
    const Extended c = std::cos(x);
    const Extended s = std::sin(x);
    const Complex phase{c * rest.cosine + s * rest.sine, s * rest.cosine - c * rest.sine};
    const Complex at = {size * (phase.real * sum.real + phase.imaginary * sum.imaginary),
                        size * (phase.imaginary * sum.real - phase.real * sum.imaginary)};
    const Complex ratio{(part + Extended{0.5} - quotient.real) / x, -1 - quotient.imaginary / x};
    const Complex next = Times(at, ratio);
    return {{at.real, next.real}, {at.imaginary, next.imaginary}};
}

}  // namespace kalvex::specfun
