// Sums in numbers of 192 to 2048 bits: the precision is what plain arithmetic says that the series
// loses, and is raised until the bound of the error, which follows from the magnitudes of the
// terms, is small enough. Up to x = 0.9, and where its terms fall fast beyond, the form of the
// power series that costs least (DLMF 15.8.1). Else the function is a combination of the solutions
// at 1, with w = 1-x and s = c-a-b,
//   y1 = F(a,b;1-s;w),  y2 = w^s g,  g = F(c-a,c-b;1+s;w)  (DLMF 15.10.13, 15.10.14),
// both matched with the series at 0 at the point 1/2 by their Wronskian s w^(s-1) (1-w)^(-c). Where
// s is integral the two do not differ, and a is moved by 2^-200, which the value does not notice.
#include "specfun/hypergeometric/wide_value.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "numbers/wide_functions.h"
#include "specfun/hypergeometric/foreseen.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/wide_sum.h"

namespace kalvex::specfun {
namespace {

// Bits of a value that must be right: kGoodEnough and 12 more, chosen for where the value is
// smaller than its slope by as much.
constexpr double kEnough = 70;
// x up to which only the power series are summed, chosen: there 90 bits take 600 terms, of the five
// sums at 1/2 90 each, but with the bits that the two solutions lose.
constexpr double kFarthest = 0.9;
// z up to which a power series is looked at at all. To lose 90 bits takes 1500 terms there, 6000 at
// 0.99, where kMostWideTerms ends; chosen between them.
constexpr double kFarthestAtAll = 0.96;
// Beyond, a series serves if its terms fall with a large power of k even at z = 1. Chosen: with the
// 30th they have lost 90 bits when k has grown by a factor of 8.
constexpr double kFastDecay = 30;
// a is moved by 2^-200, chosen: the bound of what the value changes, kNoticed, is then 2^-80.
constexpr double kMove = 200;

WideParameters Widened(const HypergeometricParameters& p) {
    const auto widened = [](DoubleDouble a) { return Add(WideOf<6>(a.high), WideOf<6>(a.low)); };
    return {widened(p.a), widened(p.b), widened(p.c)};
}

/// The i-th of FormsOf, exactly.
WideParameters WideForm(const WideParameters& p, std::size_t i) {
    const Exact fromA = Subtract(p.c, p.a);
    const Exact fromB = Subtract(p.c, p.b);
    return {i % 2 == 1 ? fromA : p.a, i == 1 || i == 2 ? fromB : p.b, p.c};
}

template <std::size_t limbs>
HypergeometricPoint PointOf(const Bounded<limbs>& sum) {
    constexpr double kMostExponent = 1e8;  // chosen: an int has room for it and for what is added
    HypergeometricPoint point;
    const double exponent = SizeOf(sum.value);
    point.failed = !(std::fabs(exponent) < kMostExponent) || !std::isfinite(sum.error);
    if (point.failed) return point;
    point.value = FractionOf(sum.value);
    point.exponent = static_cast<int>(exponent);
    point.error = PowerOfTwo(sum.error - exponent) + kPairError;
    return point;
}

constexpr HypergeometricPoint kLong = {{}, {}, INFINITY, true};  // too many terms at any precision

template <std::size_t limbs>
HypergeometricPoint BySum(const HypergeometricParameters& p, std::size_t i, double most, double x) {
    const Exact own = WideOf<6>(x);
    const Exact one = WideOf<6>(1);
    const WideArgument z = {own, i < 2 ? one : Subtract(own, one)};
    // three limbs of a denominator hold 128 bits for certain, more than the 90 that are wanted
    const WideSum<limbs> sum = SumWide<limbs, false, 3>(WideForm(Widened(p), i), z, kWanted, most);
    if (sum.isLong) return kLong;
    return PointOf(sum.failed ? Bounded<limbs>{{}, INFINITY} : sum.value);
}

/// The solutions at 1 and their exponents.
struct AtOne {
    WideParameters first;
    WideParameters second;
    Exact s;
};

/// From the values at 1/2, of the function as `middle`, to x; without the factor 2^-c.
template <std::size_t limbs>
Bounded<limbs> Joined(const WideSum<limbs>& middle, const AtOne& p, double x) {
    const WideArgument half = {WideOf<6>(0.5)};
    const WideArgument w = {Subtract(WideOf<6>(1), WideOf<6>(x))};
    const double all = LimbNumber<limbs>::kBits;
    const WideSum<limbs> one = SumWide<limbs, true>(p.first, half, all);
    const WideSum<limbs> other = SumWide<limbs, true>(p.second, half, all);
    const WideSum<limbs> oneThere = SumWide<limbs, false>(p.first, w, all);
    const WideSum<limbs> otherThere = SumWide<limbs, false>(p.second, w, all);
    if (one.failed || other.failed || oneThere.failed || otherThere.failed) return {{}, INFINITY};
    const Bounded<limbs> s = {WideOf<limbs>(p.s), SizeOf(p.s) - Wide<limbs>::kBits};
    const Bounded<limbs> rise = Add(Multiply(s, other.value), other.slope);
    const Bounded<limbs> ofOne =
        Add(Multiply(middle.value, rise), Multiply(middle.slope, other.value));
    const Bounded<limbs> ofOther =
        Add(Multiply(one.value, middle.slope), Multiply(one.slope, middle.value));
    const Wide<limbs> exponent = Multiply(s.value, Log(WideOf<limbs>(Scale(w.z, 1))));
    constexpr double kLost = 24;  // bits by Log and Exp, chosen: they lose far fewer
    const Wide<limbs> power = Exp(exponent);
    const double known = kLost + std::max(0.0, SizeOf(exponent)) + 1 - Wide<limbs>::kBits;
    const Bounded<limbs> factor = {Negate(power), SizeOf(power) + known};
    const Bounded<limbs> sum =
        Add(Multiply(ofOne, oneThere.value), Multiply(Multiply(ofOther, otherThere.value), factor));
    // 3: 1 as s may be half of its bound, the rest for its own error and that of the division
    return {Divide(sum.value, s.value), sum.error - SizeOf(s.value) + 3};
}

template <std::size_t limbs>
HypergeometricPoint ByJoining(const HypergeometricParameters& p, bool moves, double x) {
    // The value changes by at most 2^120 times the move, relative to itself: that is 2^-80.
    constexpr double kNoticed = 120;
    WideParameters wide = Widened(p);
    if (moves) wide.a = Add(wide.a, Scale(WideOf<6>(1), static_cast<int>(-kMove)));
    const Exact one = WideOf<6>(1);
    const WideParameters euler = WideForm(wide, 1);
    const Exact s = Subtract(euler.a, wide.b);
    const WideSum<limbs> middle =
        SumWide<limbs, true>(wide, {WideOf<6>(0.5)}, LimbNumber<limbs>::kBits);
    if (middle.failed) return PointOf(Bounded<limbs>{{}, INFINITY});
    const AtOne solutions = {
        {wide.a, wide.b, Subtract(one, s)}, {euler.a, euler.b, Add(one, s)}, s};
    Bounded<limbs> value = Joined<limbs>(middle, solutions, x);
    if (moves) value.error = std::max(value.error, SizeOf(value.value) + kNoticed - kMove) + 1;
    return PointOf(value);
}

/// The bits to try next: those that are missing, if at least the sign of the value is known, else
/// 1.4 times as many.
double MoreBits(const HypergeometricPoint& point, double bits) {
    constexpr double kMargin = 8;     // chosen: the bits lost are known to some units
    constexpr double kSignKnown = 4;  // chosen: an error below 1/16 of the value
    constexpr double kTimes = 1.4;    // chosen: nothing is known of what cancels
    if (point.error == INFINITY) return INFINITY;
    const double known = point.failed ? 0 : -std::log2(point.error);
    return known > kSignKnown ? bits + kEnough + kMargin - known : kTimes * bits;
}

/// The first of the numbers of limbs from `bits` to `most` bits that is enough.
template <typename Function>
HypergeometricPoint WithBits(double bits, double most, const Function& function) {
    HypergeometricPoint point;
    point.failed = true;
    const auto attempt = [&]<std::size_t limbs>() {
        constexpr double kBits = LimbNumber<limbs>::kBits;  // that are certain
        const bool known = !point.failed && point.error < PowerOfTwo(-kEnough);
        if (known || bits > kBits || kBits > most) return;
        point = function.template operator()<limbs>();
        bits = MoreBits(point, kBits);
        if (kBits < most && bits < INFINITY) bits = std::min(bits, most);
    };
    [&]<std::size_t... limbs>(std::index_sequence<limbs...>) {
        (attempt.template operator()<limbs>(), ...);
    }
    // Chosen: 192 to 2048 bits, from one to the next a third more at most; each is code of its own.
    (std::index_sequence<4, 5, 6, 7, 9, 11, 13, 15, 17, 20, 24, 28, 33>{});
    point.failed = point.failed || !(point.error < PowerOfTwo(-kEnough));
    return point;
}

/// The bits that the solutions at 1 are likely to take at first.
struct JoiningPlan {
    bool moves = false;
    double bits = INFINITY;
};

JoiningPlan PlanOfJoining(const HypergeometricParameters& p) {
    constexpr double kMargin = 40;  // bits, chosen: some sums in plain arithmetic are estimates
    constexpr double kMostTerms = 3000;  // chosen: five sums of so many cost more than is allowed
    const DoubleDouble s = p.c - p.a - p.b;
    const HypergeometricParameters first = {p.a, p.b, 1 - s};
    const HypergeometricParameters second = {p.c - p.a, p.c - p.b, s + 1};
    double largest = 0;  // of what is to cancel
    const std::array<HypergeometricParameters, 3> parts = {p, first, second};
    for (const HypergeometricParameters& part : parts) {
        if (IsNegativeInteger(part.c)) continue;          // the solution moves instead
        const Foreseen foreseen = ForeseenOf(part, 0.5);  // where they are matched
        if (!(foreseen.terms < kMostTerms)) return {};
        if (&part != parts.data()) largest = std::max(largest, foreseen.largest);
    }
    const DoubleDouble left = s - std::nearbyint(s.high);
    const bool moves = left.high == 0;
    const double lost = moves ? kMove : -std::log2(std::fabs(left.high));
    return {moves, std::max(lost, largest) + kWanted + kMargin};
}

Value Joining(const HypergeometricParameters& p, const JoiningPlan& plan, double x) {
    // Chosen: a joining with 24 limbs takes a millisecond, more than any other value.
    constexpr double kMostBits = LimbNumber<24>::kBits;
    if (!(plan.bits < INFINITY)) return {};
    const HypergeometricPoint point =
        WithBits(std::min(plan.bits, kMostBits), kMostBits,
                 [&]<std::size_t limbs>() { return ByJoining<limbs>(p, plan.moves, x); });
    Value value = ValueOf({p, {}, false, 0}, point, x);
    if (point.failed) return value;
    int more = 0;
    const DoubleDouble factor = ExpScaled(-(kLn2 * p.c), more);
    value.fraction *= factor;
    value.slope *= factor.high;
    value.exponent += more;
    return value;
}

/// In terms times limbs, as a form's: five sums of about a bit for each term.
double CostOfJoining(double bits) {
    constexpr double kSums = 5;  // at 1/2 of the series and both solutions, at x of the solutions
    return kSums * bits * (1 + bits / 64);
}

/// A form and the bits that it is likely to take.
struct Choice {
    std::size_t form = 0;
    double bits = INFINITY;
    double terms = INFINITY;
    double cost = INFINITY;
};

/// All forms are the same function but for known factors. The least of their bounds of its size
/// tells what each of them loses by cancellation.
Choice Cheapest(const std::array<Form, 4>& forms, double x) {
    constexpr double kMargin = 30;      // chosen: half a limb, for what plain arithmetic overlooks
    constexpr double kUnmeasured = 40;  // ForeseenOf sees no more bits cancel
    // The bits to start with where nothing is known but the greatest term, as a part of its bits.
    // Chosen: most of them cancel as a rule.
    constexpr double kOfUnknown = 0.75;
    std::array<Foreseen, 4> foreseen;
    double value = INFINITY;
    const bool atPole = IsNegativeInteger(forms[0].p.c);
    for (std::size_t i = 0; i < (atPole ? 1 : forms.size()); ++i) {
        const double z = forms[i].pfaff ? x / (x - 1) : x;
        const HypergeometricParameters& own = forms[i].p;
        const double decay = own.c.high - own.a.high - own.b.high;
        const bool isLong =
            std::fabs(z) > kFarthestAtAll && !(std::fabs(z) < 1 && decay > kFastDecay);
        if (isLong && !atPole && DegreeOf(own) == INFINITY) continue;
        foreseen[i] = ForeseenOf(own, z);
        const double size = foreseen[i].sum + forms[i].power.high * std::log2(1 - x);
        value = std::min(value, size - (foreseen[i].measured ? 0 : kUnmeasured));
    }
    Choice best;
    for (std::size_t i = 0; i < forms.size(); ++i) {
        if (!(foreseen[i].terms < INFINITY)) continue;
        const double sum = value - forms[i].power.high * std::log2(1 - x);
        const double guess = foreseen[i].measured ? 0 : kOfUnknown * foreseen[i].largest;
        const double bits = std::max({0.0, foreseen[i].largest - sum, guess}) + kWanted + kMargin;
        const double cost = foreseen[i].terms * (1 + bits / 64);
        if (cost < best.cost) best = {i, bits, foreseen[i].terms, cost};
    }
    return best;
}

/// The sum of the form chosen, if it costs at most `most` terms times limbs.
Value Summed(const std::array<Form, 4>& forms, const Choice& choice, double most, double x) {
    // Terms are foreseen for a sum as large as plain arithmetic sees it. More cancels, more terms.
    constexpr double kTimes = 4;   // chosen: as many as are foreseen
    constexpr double kMore = 200;  // chosen: and so many, for short sums
    if (!(choice.cost < most)) return {};
    const double terms = std::min<double>(kTimes * choice.terms + kMore, kMostWideTerms);
    const HypergeometricPoint point = WithBits(
        choice.bits, 64 * most / choice.terms,
        [&]<std::size_t limbs>() { return BySum<limbs>(forms[0].p, choice.form, terms, x); });
    return ValueOf(forms[choice.form], point, x);
}

}  // namespace

Value WideValue(const HypergeometricParameters& p, double x) {
    constexpr double kMostCost = 30000;       // terms times limbs, chosen: half a millisecond
    constexpr double kAlwaysWorthIt = 10000;  // five sums of 250 bits: joining costs no less
    const std::array<Form, 4> forms = FormsOf(p);
    const bool ends = DegreeOf(p) < INFINITY || DegreeOf(forms[1].p) < INFINITY;
    const Choice choice = Cheapest(forms, x);
    if (!(x > kFarthest) || ends) return Summed(forms, choice, kMostCost, x);
    const JoiningPlan plan = PlanOfJoining(p);
    // what a form loses, the solutions at 1 are likely to lose, too
    // (chosen where no form is foreseen: 1e9 bits, which make a joining dear)
    const double joining = CostOfJoining(std::max(plan.bits, std::min(choice.bits, 1e9)));
    const bool sumsFirst = choice.cost < std::max(kAlwaysWorthIt, joining);
    if (sumsFirst) {
        // twice what is foreseen, chosen: the bits may have to be raised
        const Value value = Summed(forms, choice, 2 * std::max(kAlwaysWorthIt, choice.cost), x);
        if (value.loss < kGoodEnough) return value;
    }
    const Value value = Joining(p, plan, x);
    return value.loss < kGoodEnough ? value : Summed(forms, choice, kMostCost, x);
}

}  // namespace kalvex::specfun
