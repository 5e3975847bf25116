// Y of orders within 1/2 of 0 for small arguments. The recurrence downward gives all J(part+k) up
// to a common factor, which follows from the expansion of (x/2)^part in these functions (DLMF
// 10.23.15). J(-part) has an expansion in the same functions:
//
// J(-m) = (x/2)^-2m times the sum of (-1)^k (m+2k) Gamma(m+k) (2m)_k / (k! Gamma(k+1-m)) J(m+2k).
//
// Put into the definition of Y, it gives Y without cancellation for every order, integral ones
// included (Goldstein and Thaler, 1959).
#include <cmath>

#include "numbers/truncate.h"
#include "specfun/bessel/oscillating.h"

namespace kalvex::specfun {
namespace {

/// Below this argument the sums equal their first terms.
constexpr double kTiny = 0x1p-60;

/// Sums over the J(part + k) of the recurrence downward, all with the same unknown factor.
struct NeumannSums {
    OrderPair j;          ///< orders part and part + 1, without a power
    DoubleDouble norm;    ///< (x/2)^part / Gamma(1 + part)
    DoubleDouble second;  ///< the expansion of J(-part) from its second term on, over (x/2)^-2part
                          ///< 2 part Gamma(part + 1) / Gamma(1 - part)
    DoubleDouble next;    ///< 3 part / x of it less the same with J' for J
};

/// The number of steps above part at which the recurrence starts, at most 26. From part to there J
/// falls by more than 2^66.
int StartSteps(double x) {
    if (x < 1e-3) return 6;
    return x < 0.1 ? 12 : TruncateToInt32(16 + 4.5 * x);
}

/// The sums so far, and the values of the recurrence at the even step 2m and one step above it.
struct Run {
    DoubleDouble norm;
    DoubleDouble second;
    DoubleDouble slope;
    DoubleDouble above;
    DoubleDouble value;  ///< at the step 2m
};

/// Makes the two steps of the recurrence down from 2m and returns the value at 2m - 1.
DoubleDouble StepDown(Run& run, double part, DoubleDouble scale, int m) {
    const DoubleDouble middle = RecurrenceStep(FactorAt(scale, 2 * m, part), run.value, run.above);
    const DoubleDouble below = RecurrenceStep(FactorAt(scale, 2 * m - 1, part), middle, run.value);
    run.above = middle;
    run.value = below;
    return middle;
}

/// Adds the terms of step 2m while the sums are below 2^-10 of their final values, in plain
/// doubles.
void AddFar(Run& run, double part, DoubleDouble scale, int m) {
    const double weight = part + 2 * m;
    const double quotient = (part + m) / (m + 1);
    const double factor = -quotient * (2 * part + m) / (m + 1 - part);
    const double term = weight * run.value.high;
    const double above = run.above.high;
    const DoubleDouble middle = StepDown(run, part, scale, m);
    run.norm.high = term + quotient * run.norm.high;
    run.second.high = term + factor * run.second.high;
    run.slope.high = weight * (middle.high - above) + factor * run.slope.high;
}

void AddNear(Run& run, double part, DoubleDouble scale, int m) {
    const DoubleDouble weight = TwoSum(2 * m, part);
    const DoubleDouble quotient = LooseQuotient(TwoSum(m, part), static_cast<double>(m + 1));
    const DoubleDouble factor =
        LooseQuotient(-quotient * TwoSum(m, 2 * part), TwoSum(m + 1, -part));
    const DoubleDouble term = weight * run.value;
    const DoubleDouble above = run.above;
    const DoubleDouble middle = StepDown(run, part, scale, m);
    run.norm = LooseSum(term, quotient * run.norm);
    run.second = LooseSum(term, factor * run.second);
    run.slope = LooseSum(weight * LooseDifference(middle, above), factor * run.slope);
}

/// Computes the series as nested products over the even steps 2m: each coefficient is the one below
/// it times a rational function of m.
NeumannSums RecurDownward(double part, double x) {
    constexpr int kNear = 2;
    const DoubleDouble scale = LooseQuotient(DoubleDouble{2}, x);
    Run run{};
    run.value.high = 0x1p-800;
    int m = (StartSteps(x) + 1) / 2;
    for (; m > kNear; --m)
        AddFar(run, part, scale, m);
    for (; m > 0; --m)
        AddNear(run, part, scale, m);
    const DoubleDouble value = TwoSum(run.value.high, run.value.low);
    const DoubleDouble above = TwoSum(run.above.high, run.above.low);
    // The terms with m = 0 have the coefficient 1 in the norm and are left out of the other two
    // sums. In these, m = 1 has the coefficient -1/(1 - part).
    const DoubleDouble down = TwoSum(part, -1);
    const DoubleDouble second = LooseQuotient(run.second, down);
    const DoubleDouble next = LooseDifference(LooseQuotient(TwoProduct(3, part), x) * second,
                                              LooseQuotient(run.slope, 2.0 * down));
    return {{value, above}, LooseSum(run.norm, value), second, next};
}

/// The same for x below kTiny, where J(part + 1) is smaller than J(part) by a factor of about x.
NeumannSums FirstTerms(double part, double x) {
    return {{{1}, LooseQuotient(DoubleDouble{x / 2}, TwoSum(part, 1))}, {1}, {}, {}};
}

}  // namespace

KALVEX_WITH_FMA
OrderPair LowYNear(double part, double x, const Step& step) {
    const NeumannSums sums = x < kTiny ? FirstTerms(part, x) : RecurDownward(part, x);
    const auto [even, odd] = ReciprocalGammaParts(part);
    const DoubleDouble reciprocal = LooseSum(even, part * odd);  // 1/Gamma(1 + part)
    const DoubleDouble opposite = LooseDifference(even, part * odd);
    const DoubleDouble logarithm = LooseDifference(LogOf({x, 0}), kLn2);
    const DoubleDouble exponent = part * logarithm;
    // (x/2)^part, its inverse, and half the difference of the two divided by part.
    const bool flat = std::fabs(exponent.high) < 0.5;
    const Scaled power = flat ? Scaled{} : ExpOf(exponent);
    const DoubleDouble rise = flat ? ExpMinusOneOf(exponent) : DoubleDouble{};
    const DoubleDouble scale =
        flat ? 1 + rise : TimesPower(power.value, std::ldexp(1.0, power.exponent));
    const DoubleDouble inverse = LooseQuotient(1.0, scale);
    const DoubleDouble relative = exponent.high == 0 ? logarithm
                                  : flat ? LooseQuotient(rise, part) * (1 + 0.5 * rise) * inverse
                                         : LooseQuotient(LooseDifference(scale, inverse), 2 * part);
    const auto [cosine, sine] = CosineSinePi({part, 0});
    const DoubleDouble perSine = part == 0 ? LooseQuotient(1.0, kPi) : LooseQuotient(part, sine);
    // J is its sum times scale and `factor`. With power = (x/2)^-2part Gamma(1+part)/Gamma(1-part),
    // bracket is (cos(pi part) - power)/sin(pi part) times scale, and leading has the same power as
    // a factor.
    const DoubleDouble factor = LooseQuotient(reciprocal, sums.norm);
    const DoubleDouble quotient = LooseQuotient(opposite, reciprocal);
    const DoubleDouble bracket = LooseSum(
        LooseQuotient(-sine, 1 + cosine) * scale,
        2.0 * perSine * LooseSum(quotient * relative, LooseQuotient(odd, reciprocal) * scale));
    const DoubleDouble leading = perSine * quotient * inverse * factor;
    const double back = std::ldexp(1.0, -step.exponent);
    return {LooseDifference(bracket * factor * sums.j.at, 2 * leading * sums.second),
            LooseDifference(
                TimesPower(LooseDifference(bracket * factor * sums.j.next, 2 * leading * sums.next),
                           back),
                step.scale * leading * sums.j.at)};
}

}  // namespace kalvex::specfun
