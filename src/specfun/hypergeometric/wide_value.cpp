// Sums in numbers of 256 to 2048 bits: the precision is what plain arithmetic says that the series
// loses, and is doubled until the bound of the error, which follows from the greatest term, is
// small enough. Up to x = 0.9 the form of the power series that loses least (DLMF 15.8.1). Beyond,
// the function is a combination of the solutions at 1, with w = 1-x and s = c-a-b,
//   y1 = F(a,b;1-s;w),  y2 = w^s g,  g = F(c-a,c-b;1+s;w)  (DLMF 15.10.13, 15.10.14),
// both matched with the series at 0 at the point 1/2 by their Wronskian s w^(s-1) (1-w)^(-c). Where
// s is integral the two do not differ, and a is moved by 2^-200, which the value does not notice.
#include "specfun/hypergeometric/wide_value.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/wide_sum.h"
#include "specfun/precision/wide_functions.h"

namespace kalvex::specfun {
namespace {

constexpr double kWanted = 90;     // bits of a value
constexpr double kEnough = 70;     // of them known to be right
constexpr double kFarthest = 0.9;  // where sums are the quicker way
constexpr double kFarthestAtAll = 0.96;
constexpr double kMove = 200;

/// 2^exponent, for what is far from the ends of the range.
double PowerOfTwo(double exponent) {
    constexpr double kEnd = 1000;
    return std::exp2(std::clamp(exponent, -kEnd, kEnd));
}

/// What a sum is going to be like: the greatest term and the sum, as logarithms to base 2. Of a sum
/// that cancels too much for plain arithmetic only a bound is known.
struct Foreseen {
    double largest = INFINITY;
    double sum = INFINITY;
    double terms = INFINITY;
    bool measured = false;
};

/// By the terms in plain arithmetic, scaled down where they grow.
Foreseen ForeseenOf(const HypergeometricParameters& p, double z) {
    constexpr int kMost = 6000;
    constexpr int kScale = 300;
    constexpr double kMeasured = 40;
    const double large = std::ldexp(1, kScale);
    const double settled = -std::min({p.a.high, p.b.high, p.c.high});
    if (settled > kMost && DegreeOf(p) > kMost) return {};
    double term = 1;
    double sum = 1;
    double greatest = 1;
    double scale = 0;
    for (int k = 0; k < kMost; ++k) {
        const double numerator = (p.a.high + k + p.a.low) * (p.b.high + k + p.b.low) * z;
        const double ratio = numerator / ((p.c.high + k + p.c.low) * (k + 1.0));
        term *= ratio;
        sum += term;
        greatest = std::max(greatest, std::fabs(term));
        if (greatest > large) {
            for (double* part : {&term, &sum, &greatest})
                *part = std::ldexp(*part, -kScale);
            scale += kScale;
        }
        const bool settles = k > settled && std::fabs(ratio) < 1;
        const bool isSmall = std::fabs(term) * PowerOfTwo(kWanted) < std::fabs(sum);
        if (numerator != 0 && !(settles && isSmall)) continue;
        const double largest = std::log2(greatest);
        const double own = std::log2(std::fabs(sum));
        const bool measured = own > largest - kMeasured;
        return {largest + scale, (measured ? own : largest) + scale, k + 1.0, measured};
    }
    return {};
}

template <std::size_t limbs>
WideParameters<limbs> Widened(const HypergeometricParameters& p) {
    const auto widened = [](DoubleDouble a) {
        return Add(WideOf<limbs>(a.high), WideOf<limbs>(a.low));
    };
    return {widened(p.a), widened(p.b), widened(p.c)};
}

/// The i-th of FormsOf, exactly.
template <std::size_t limbs>
WideParameters<limbs> WideForm(const WideParameters<limbs>& p, std::size_t i) {
    const Wide<limbs> fromA = Subtract(p.c, p.a);
    const Wide<limbs> fromB = Subtract(p.c, p.b);
    return {i % 2 == 1 ? fromA : p.a, i == 1 || i == 2 ? fromB : p.b, p.c};
}

template <std::size_t limbs>
HypergeometricPoint PointOf(const Bounded<limbs>& sum) {
    constexpr double kMostExponent = 1e8;
    HypergeometricPoint point;
    const double exponent = SizeOf(sum.value);
    point.failed = !(std::fabs(exponent) < kMostExponent) || !std::isfinite(sum.error);
    if (point.failed) return point;
    point.value = FractionOf(sum.value);
    point.exponent = static_cast<int>(exponent);
    point.error = PowerOfTwo(sum.error - exponent) + 0x1p-100;
    return point;
}

template <std::size_t limbs>
HypergeometricPoint BySum(const HypergeometricParameters& p, std::size_t i, double x) {
    const Wide<limbs> own = WideOf<limbs>(x);
    const Wide<limbs> z = i < 2 ? own : Divide(own, Subtract(own, WideOf<limbs>(1)));
    const WideSum<limbs> sum = SumWide(WideForm(Widened<limbs>(p), i), z, kWanted);
    return PointOf(sum.failed ? Bounded<limbs>{{}, INFINITY} : sum.value);
}

/// From the values at 1/2, of the function as `middle`, to x; without the factor 2^-c.
template <std::size_t limbs>
Bounded<limbs> Joined(const WideSum<limbs>& middle, const WideParameters<limbs>& first,
                      const WideParameters<limbs>& second, const Bounded<limbs>& s, double x) {
    const Wide<limbs> half = WideOf<limbs>(0.5);
    const Wide<limbs> w = Subtract(WideOf<limbs>(1), WideOf<limbs>(x));
    const double all = Wide<limbs>::kBits;
    const WideSum<limbs> one = SumWide(first, half, all);
    const WideSum<limbs> other = SumWide(second, half, all);
    const WideSum<limbs> oneThere = SumWide(first, w, all);
    const WideSum<limbs> otherThere = SumWide(second, w, all);
    if (one.failed || other.failed || oneThere.failed || otherThere.failed) return {{}, INFINITY};
    const Bounded<limbs> rise = Add(Multiply(s, other.value), other.slope);
    const Bounded<limbs> ofOne =
        Add(Multiply(middle.value, rise), Multiply(middle.slope, other.value));
    const Bounded<limbs> ofOther =
        Add(Multiply(one.value, middle.slope), Multiply(one.slope, middle.value));
    const Wide<limbs> exponent = Multiply(s.value, Log(Scale(w, 1)));
    constexpr double kLost = 24;  // by the exponential
    const Wide<limbs> power = Exp(exponent);
    const double known = kLost + std::max(0.0, SizeOf(exponent)) + 1 - all;
    const Bounded<limbs> factor = {Negate(power), SizeOf(power) + known};
    const Bounded<limbs> sum =
        Add(Multiply(ofOne, oneThere.value), Multiply(Multiply(ofOther, otherThere.value), factor));
    return {Divide(sum.value, s.value), sum.error - SizeOf(s.value) + 2};
}

template <std::size_t limbs>
HypergeometricPoint ByJoining(const HypergeometricParameters& p, bool moves, double x) {
    constexpr double kNoticed = 120;  // of the move, at most, beside a value
    WideParameters<limbs> wide = Widened<limbs>(p);
    if (moves) wide.a = Add(wide.a, Scale(WideOf<limbs>(1), static_cast<int>(-kMove)));
    const Wide<limbs> one = WideOf<limbs>(1);
    const WideParameters<limbs> euler = WideForm(wide, 1);
    const Wide<limbs> s = Subtract(euler.a, wide.b);
    const WideSum<limbs> middle =
        SumWide(wide, WideOf<limbs>(0.5), static_cast<double>(Wide<limbs>::kBits));
    if (middle.failed) return PointOf(Bounded<limbs>{{}, INFINITY});
    Bounded<limbs> value = Joined<limbs>(middle, {wide.a, wide.b, Subtract(one, s)},
                                         {euler.a, euler.b, Add(one, s)}, {s}, x);
    if (moves) value.error = std::max(value.error, SizeOf(value.value) + kNoticed - kMove) + 1;
    return PointOf(value);
}

/// The first of the numbers of limbs from `bits` to `most` bits that is enough.
template <typename Function>
HypergeometricPoint WithBits(double bits, double most, const Function& function) {
    HypergeometricPoint point;
    point.failed = true;
    const auto attempt = [&]<std::size_t limbs>() {
        const bool known = !point.failed && point.error < PowerOfTwo(-kEnough);
        if (!known && bits <= Wide<limbs>::kBits && Wide<limbs>::kBits <= most) {
            point = function.template operator()<limbs>();
        }
    };
    attempt.template operator()<4>();
    attempt.template operator()<8>();
    attempt.template operator()<16>();
    attempt.template operator()<32>();
    point.failed = point.failed || !(point.error < PowerOfTwo(-kEnough));
    return point;
}

Value Joining(const HypergeometricParameters& p, double x) {
    constexpr double kMargin = 40;
    constexpr double kMostTerms = 3000;
    constexpr double kMostBits = 1024;
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const HypergeometricParameters first = {p.a, p.b, PlusInteger(Negate(s), 1)};
    const HypergeometricParameters second = {Subtract(p.c, p.a), Subtract(p.c, p.b),
                                             PlusInteger(s, 1)};
    for (const HypergeometricParameters& part : {p, first, second}) {
        const bool ends = IsNegativeInteger(part.c);  // the solution moves instead
        if (!ends && !(ForeseenOf(part, 0.5).terms < kMostTerms)) return {};
    }
    const DoubleDouble left = Subtract(s, std::nearbyint(s.high));
    const bool moves = left.high == 0;
    const double lost = moves ? kMove : -std::log2(std::fabs(left.high));
    const HypergeometricPoint point =
        WithBits(lost + kWanted + kMargin, kMostBits,
                 [&]<std::size_t limbs>() { return ByJoining<limbs>(p, moves, x); });
    Value value = ValueOf({p, {}, false, 0}, point, x);
    if (point.failed) return value;
    int more = 0;
    const DoubleDouble factor = ExpScaled(Negate(Multiply(kLn2, p.c)), more);
    value.fraction = Multiply(value.fraction, factor);
    value.slope *= factor.high;
    value.exponent += more;
    return value;
}

/// A form and the bits that it is likely to take.
struct Choice {
    std::size_t form = 0;
    double bits = INFINITY;
    double terms = INFINITY;
    double cost = INFINITY;
};

/// The forms differ by known factors, so that the least of their bounds of the function tells what
/// each of them loses.
Choice Cheapest(const std::array<Form, 4>& forms, double x) {
    constexpr double kMargin = 30;
    constexpr double kUnmeasured = 40;
    std::array<Foreseen, 4> foreseen;
    double value = INFINITY;
    const bool atPole = IsNegativeInteger(forms[0].p.c);
    for (std::size_t i = 0; i < (atPole ? 1 : forms.size()); ++i) {
        const double z = forms[i].pfaff ? x / (x - 1) : x;
        if (std::fabs(z) > kFarthestAtAll && !atPole && DegreeOf(forms[i].p) == INFINITY) continue;
        foreseen[i] = ForeseenOf(forms[i].p, z);
        const double own = foreseen[i].sum + forms[i].power.high * std::log2(1 - x);
        value = std::min(value, own - (foreseen[i].measured ? 0 : kUnmeasured));
    }
    Choice best;
    for (std::size_t i = 0; i < forms.size(); ++i) {
        if (!(foreseen[i].terms < INFINITY)) continue;
        const double sum = value - forms[i].power.high * std::log2(1 - x);
        const double bits = std::max(0.0, foreseen[i].largest - sum) + kWanted + kMargin;
        const double cost = foreseen[i].terms * (1 + bits / 64);
        if (cost < best.cost) best = {i, bits, foreseen[i].terms, cost};
    }
    return best;
}

}  // namespace

Value WideValue(const HypergeometricParameters& p, double x) {
    constexpr double kMostCost = 30000;  // terms times limbs
    const std::array<Form, 4> forms = FormsOf(p);
    const bool ends = DegreeOf(p) < INFINITY || DegreeOf(forms[1].p) < INFINITY;
    if (x > kFarthest && !ends) {
        const Value joined = Joining(p, x);
        if (joined.loss < kGoodEnough) return joined;
    }
    const Choice choice = Cheapest(forms, x);
    if (!(choice.cost < kMostCost)) return {};
    const HypergeometricPoint point =
        WithBits(choice.bits, 64 * kMostCost / choice.terms,
                 [&]<std::size_t limbs>() { return BySum<limbs>(p, choice.form, x); });
    return ValueOf(forms[choice.form], point, x);
}

}  // namespace kalvex::specfun
