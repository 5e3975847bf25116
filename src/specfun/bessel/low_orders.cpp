// Y of orders within 1/2 of 0 for small arguments: the recurrence downward gives all J(part+k) but
// for a factor, which the expansion of (x/2)^part in them fixes (DLMF 10.23.15). The expansion of
// J(-part) in the same values,
// J(-m) = (x/2)^-2m times the sum of (-1)^k (m+2k) Gamma(m+k) (2m)_k / (k! Gamma(k+1-m)) J(m+2k),
// put into the definition of Y, gives Y without cancellation for every order, integral ones too
// (Goldstein and Thaler, 1959).
#include <array>
#include <cmath>
#include <numbers>

#include "base/truncate.h"
#include "specfun/bessel/oscillating.h"

namespace kalvex::specfun {
namespace {

constexpr Extended kPi = std::numbers::pi_v<Extended>;

/// 1/k.
constexpr auto kReciprocals = [] {
    std::array<Extended, 16> all{};
    for (std::size_t k = 1; k < all.size(); ++k)
        all[k] = Extended{1} / static_cast<Extended>(k);
    return all;
}();

/// Sums over the J(part + k) of the recurrence downward, all but for the same factor.
struct NeumannSums {
    OrderPair j;      ///< orders part and part + 1
    Extended norm;    ///< (x/2)^part / Gamma(1 + part)
    Extended second;  ///< the expansion of J(-part) from its second term on, over (x/2)^-2part
                      ///< 2 part Gamma(part + 1) / Gamma(1 - part)
    Extended slope;   ///< the same with J' for J
};

/// The step above part at which to start, at most 26: J falls by more than 2^66 to there.
int StartSteps(Extended x) {
    return x < 0.1L ? 12 : TruncateToInt32(16 + 4.5 * static_cast<double>(x));
}

/// The series run as nested products over the even steps 2m: each coefficient is the one below
/// times a rational factor of m.
NeumannSums RecurDownward(Extended part, Extended x) {
    const Extended scale = 2 / x;
    NeumannSums sums{};
    Extended norm = 0;
    Extended second = 0;
    Extended slope = 0;
    Extended above = 0;
    Extended value = 0x1p-8000L;  // of the step 2m
    for (int m = (StartSteps(x) + 1) / 2; m > 0; --m) {
        const int grow = m + 1;
        const Extended weight = part + 2 * m;
        const Extended middle = scale * weight * value - above;
        const Extended quotient = (part + m) * kReciprocals[static_cast<std::size_t>(grow)];
        const Extended factor = -quotient * (2 * part + m) / (grow - part);
        norm = weight * value + quotient * norm;
        second = weight * value + factor * second;
        slope = weight * (middle - above) + factor * slope;
        above = middle;
        value = scale * (weight - 1) * middle - value;
    }
    sums.j = {value, above};
    // The terms m = 0 have the coefficient 1 in the norm, and are left out of the other two, where
    // m = 1 has the coefficient -1/(1 - part).
    sums.norm = norm + value;
    sums.second = second / (part - 1);
    sums.slope = slope / (2 * (part - 1));
    return sums;
}

}  // namespace

OrderPair LowYNear(Extended part, Extended x) {
    const NeumannSums sums = RecurDownward(part, x);
    const auto [even, odd] = ReciprocalGammaParts(part);
    const Extended reciprocal = even + part * odd;  // 1/Gamma(1 + part)
    const Extended logarithm = LogOfHalf(static_cast<double>(x));
    const Extended exponent = part * logarithm;
    // (x/2)^part, and that less 1.
    const bool flat = std::fabs(exponent) < 0.5L;
    const Extended leading = flat ? 0 : ExpOf(exponent);
    const Extended rise = part == 0 ? 0 : flat ? ExpMinusOneOf(exponent) : leading - 1;
    const Extended scale = flat ? 1 + rise : leading;
    const Extended factor = scale * reciprocal / sums.norm;
    const OrderPair j{sums.j.at * factor, sums.j.next * factor};
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
    return {bracket * j.at - series * sums.second,
            bracket * j.next - 2 * perSine / x * power * j.at -
                series * (3 * part / x * sums.second - sums.slope)};
}

}  // namespace kalvex::specfun
