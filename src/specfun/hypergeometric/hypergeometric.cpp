// Gauss hypergeometric function, -1 < x < 1: what is legal, and the parameters next to those where
// the function is simpler, from which its methods (best_value.cpp) would come with too few digits.
#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric/best_value.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/wide_value.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr char kOverflow[] = "Overflow in Hypergeometric2F1";

constexpr double kTiny = 0x1p-75;  // whose square counts for nothing

/// The sum of two values whose slopes have one sign, or one of which has none.
Value Sum(const Value& left, const Value& right) {
    constexpr int kFar = 1000;  // beyond which one of the two counts for nothing
    const bool leads =
        right.fraction.high == 0 || (left.fraction.high != 0 && left.exponent > right.exponent);
    const int exponent = leads ? left.exponent : right.exponent;
    double error = 0;
    double slope = 0;
    const auto part = [&](const Value& of) {
        const int by = std::clamp(of.exponent - exponent, -kFar, kFar);
        const DoubleDouble own = by > -kFar ? Scale(of.fraction, by) : DoubleDouble{};
        const double ownSlope = std::ldexp(of.slope, by);
        error += of.loss * (std::fabs(own.high) + ownSlope);
        slope += ownSlope;
        return own;
    };
    const DoubleDouble first = part(left);
    const DoubleDouble sum = Add(first, part(right));
    const double size = std::fabs(sum.high);
    return {sum, exponent, error / (size + slope), error / size, slope};
}

Value Times(Value value, DoubleDouble factor) {
    int own = 0;
    const double high = std::frexp(factor.high, &own);
    value.fraction = Multiply(value.fraction, {high, std::ldexp(factor.low, -own)});
    value.slope *= std::fabs(high);
    value.exponent += own;
    return value;
}

/// a b x / c factor.
Value FirstTerm(const HypergeometricParameters& p, double x, const Value& factor) {
    int exponent = 0;
    Value term = factor;
    const double inverse = 1 / std::frexp(p.c.high, &exponent);
    term.fraction = Divide(factor.fraction, std::frexp(p.c.high, &exponent));
    term.slope *= std::fabs(inverse);
    term.exponent -= exponent;
    return Times(Times(Times(term, p.a), p.b), {x, 0});
}

constexpr Value One(double relative) {
    return {{1, 0}, 0, relative, relative};
}

/// For x next to 0, where the second term is as nothing beside the first.
bool IsLinear(const HypergeometricParameters& p, double x) {
    constexpr double kNothing = 1e-250;
    constexpr double kMost = 1e60;
    return std::fabs(x) < kNothing && std::fabs(p.a.high) < kMost && std::fabs(p.b.high) < kMost;
}

Value CarefulValue(const HypergeometricParameters& p, double x);

/// A parameter next to 0 with fewer digits: the multiple of the unit next to it, but not less than
/// kTiny.
double Shortened(double a, double unit) {
    const double multiple = std::nearbyint(a / unit) * unit;
    return std::fabs(multiple) < kTiny ? kTiny : multiple;
}

/// For a parameter next to 0, a or b, on which the rise from 1 depends in proportion there: by that
/// of another parameter instead.
Value OfTiny(HypergeometricParameters p, DoubleDouble HypergeometricParameters::*tiny,
             double instead, double x) {
    constexpr double kDigits = 0x1p-100;  // of what a fraction holds
    const DoubleDouble factor = Divide(p.*tiny, instead);
    p.*tiny = {instead, 0};
    const Value rise = Sum(CarefulValue(p, x), {{-1, 0}, 0, kDigits, kDigits});
    return Sum(One(kDigits), Times(rise, factor));
}

/// Whatever it costs.
Value CarefulValue(const HypergeometricParameters& p, double x) {
    constexpr double kProportional = 0x1p-40;
    Value best = BestValue(p, x);
    if (best.loss < kGoodEnough) return best;
    const double unit = ParameterUnit(p);
    for (const auto part : {&HypergeometricParameters::a, &HypergeometricParameters::b}) {
        const double own = (p.*part).high;
        const double instead = Shortened(own, unit);
        if (!(std::fabs(own) < kProportional) || own == instead) continue;
        KeepBetter(best, OfTiny(p, part, instead, x));
        return best;
    }
    KeepBetter(best, WideValue(p, x));
    return best;
}

/// For c next to 0. The function is a b x / c F(a+1,b+1;2;x) and a part that c does not change
/// there, which is told by a larger c: it is all that counts where F(a+1,b+1;2;x) is next to 0.
Value NextToPole(const HypergeometricParameters& p, double x) {
    const double larger = std::copysign(kTiny, p.c.high);
    const HypergeometricParameters there = {p.a, p.b, {larger, 0}};
    const Value pole = CarefulValue({PlusInteger(p.a, 1), PlusInteger(p.b, 1), {2, 0}}, x);
    // what 1/c is more than 1/larger
    const Value rise = Times(FirstTerm(p, x, pole), TwoSum(1, -p.c.high / larger));
    return Sum(CarefulValue(there, x), rise);
}

Value ValueOf(HypergeometricParameters p, double x) {
    if (IsLinear(p, x)) {
        return Sum(One(kGoodEnough / 4), FirstTerm(p, x, One(kGoodEnough / 4)));
    }
    if (p.c.high != 0 && std::fabs(p.c.high) < kTiny) return NextToPole(p, x);
    return CarefulValue(p, x);
}

}  // namespace

double Hypergeometric2F1(double a, double b, double c, double x) {
    if (std::isnan(x)) return x;
    if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(c)) throw ap::ap_error{kOverflow};
    if (!(std::fabs(x) < 1)) throw ap::ap_error{"Domain error in Hypergeometric2F1"};
    HypergeometricParameters p = {{a, 0}, {b, 0}, {c, 0}};
    if (IsNegativeInteger(p.c) && !EndsBefore(p.a, p.c)) {
        std::swap(p.a, p.b);
        if (!EndsBefore(p.a, p.c)) throw ap::ap_error{kOverflow};
    }
    if (a == 0 || b == 0 || x == 0) return 1;
    const Value value = ValueOf(p, x);
    if (!(value.loss < kBearable)) throw ap::ap_error{kOverflow};
    const double result = std::ldexp(ToDouble(value.fraction), value.exponent);
    if (!std::isfinite(result)) throw ap::ap_error{kOverflow};
    return result;
}

}  // namespace kalvex::specfun
