// Gauss hypergeometric function, -1 < x < 1: what is legal, and the parameters next to those where
// the function is simpler, from which its methods (best_value.cpp) would come with too few digits.
#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric/best_value.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr char kOverflow[] = "Overflow in Hypergeometric2F1";

/// 1 + rise 2^exponent.
Value OnePlus(DoubleDouble rise, int exponent, double error) {
    const DoubleDouble part = Scale(rise, exponent);
    const DoubleDouble sum = Add(part, 1.0);
    const double relative = error * (1 + std::fabs(part.high)) / std::fabs(sum.high);
    return {sum, 0, relative, relative};
}

/// 1 + a b x / c factor.
Value OnePlusFirstTerm(const HypergeometricParameters& p, double x, const Value& factor) {
    int exponent = 0;
    DoubleDouble rise = Divide(factor.fraction, std::frexp(p.c.high, &exponent));
    exponent = factor.exponent - exponent;
    for (const double part : {p.a.high, p.b.high, x}) {
        int own = 0;
        rise = Multiply(rise, std::frexp(part, &own));
        exponent += own;
    }
    return OnePlus(rise, exponent, factor.relative);
}

/// For c next to 0, where only its reciprocal counts: 1 + a b x / c F(a+1,b+1;2;x).
Value NextToPole(const HypergeometricParameters& p, double x) {
    return OnePlusFirstTerm(p, x, BestValue({PlusInteger(p.a, 1), PlusInteger(p.b, 1), {2, 0}}, x));
}

/// For x next to 0, where the second term is as nothing beside the first.
bool IsLinear(const HypergeometricParameters& p, double x) {
    constexpr double kNothing = 1e-250;
    constexpr double kMost = 1e60;
    return std::fabs(x) < kNothing && std::fabs(p.a.high) < kMost && std::fabs(p.b.high) < kMost;
}

/// For a next to 0, on which the function depends linearly there: its rise from a = 0 to a larger
/// one tells.
Value OfTiny(HypergeometricParameters p, double x) {
    constexpr double kLarger = 0x1p-40;
    constexpr double kCurvature = 0x1p8;  // the second derivative by the first, with a margin
    const double factor = p.a.high / kLarger;
    p.a = {kLarger, 0};
    const Value larger = BestValue(p, x);
    const DoubleDouble rise = Subtract(Scale(larger.fraction, larger.exponent), 1.0);
    Value value = OnePlus(Multiply(rise, factor), 0, larger.relative * std::fabs(factor));
    value.loss += std::fabs(Subtract(value.fraction, 1.0).high) * kLarger * kCurvature;
    return value;
}

/// What is left of an integral c-a = 0, -1, -2, ... by rounding, or 0: there the function is w^s
/// times a polynomial and a part in proportion to what is left, which may be all that counts and of
/// which a walk past the integer keeps too little.
DoubleDouble BesideInteger(const HypergeometricParameters& p) {
    constexpr double kFar = 0x1p-38;
    const DoubleDouble apart = Subtract(p.c, p.a);
    const double integer = std::nearbyint(apart.high);
    const DoubleDouble left = Subtract(apart, integer);
    return integer <= 0 && std::fabs(left.high) < kFar ? Negate(left) : DoubleDouble{};
}

/// By the value where c-a is integral and two derivatives in a there, from values farther off.
Value FromInteger(HypergeometricParameters p, DoubleDouble left, double x) {
    constexpr double kApart = 0x1p-25;
    constexpr double kOfDifferences = 0x1p-62;
    p.a = Subtract(p.a, left);
    const DoubleDouble middle = p.a;
    const Value centre = BestValue(p, x);
    std::array<DoubleDouble, 4> values;
    double error = centre.relative * std::fabs(centre.fraction.high);
    double size = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        constexpr std::array<double, 4> kPlaces = {-2, -1, 1, 2};
        p.a = Add(middle, kPlaces[i] * kApart);
        const Value value = BestValue(p, x);
        values[i] = Scale(value.fraction, value.exponent - centre.exponent);
        size = std::max(size, (value.relative + kOfDifferences) * std::fabs(values[i].high));
    }
    const DoubleDouble near = Subtract(values[2], values[1]);
    const DoubleDouble far = Subtract(values[3], values[0]);
    const DoubleDouble slope = Divide(Subtract(Multiply(near, 8), far), 12 * kApart);
    const DoubleDouble bend = Subtract(Add(values[1], values[2]), Multiply(centre.fraction, 2));
    const DoubleDouble half = Divide(bend, 2 * kApart * kApart);
    const DoubleDouble rise = Multiply(Add(slope, Multiply(half, left)), left);
    const DoubleDouble sum = Add(centre.fraction, rise);
    error += size * std::fabs(left.high / kApart);
    const double relative = error / std::fabs(sum.high);
    return {sum, centre.exponent, relative, relative};
}

Value ValueOf(HypergeometricParameters p, double x) {
    constexpr double kTiny = 0x1p-75;      // whose square counts for nothing
    constexpr double kDoubtful = 0x1p-58;  // next to an integer estimates are rough
    if (IsLinear(p, x)) return OnePlusFirstTerm(p, x, {{1, 0}, 0, 0, kGoodEnough / 2});
    if (p.c.high != 0 && std::fabs(p.c.high) < kTiny) return NextToPole(p, x);
    if (std::fabs(p.b.high) < std::fabs(p.a.high) && !IsNegativeInteger(p.c)) std::swap(p.a, p.b);
    Value best;
    if (std::fabs(p.a.high) < kTiny) best = OfTiny(p, x);
    if (best.loss >= kGoodEnough) KeepBetter(best, BestValue(p, x));
    for (int i = 0; i < 2 && best.loss >= kDoubtful && !IsNegativeInteger(p.c); ++i) {
        std::swap(p.a, p.b);
        const DoubleDouble left = BesideInteger(p);
        if (left.high != 0) KeepBetter(best, FromInteger(p, left, x));
    }
    return best;
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
