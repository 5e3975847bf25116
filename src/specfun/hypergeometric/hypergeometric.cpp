// Gauss hypergeometric function, -1 < x < 1: the entry. It sorts out what is illegal and what is
// simple, and treats parameters next to 0, where the general methods (best_value.cpp,
// wide_value.cpp) would lose too many digits. docs/hypergeometric.md describes the whole.
#include <algorithm>
#include <cmath>
#include <utility>

#include "specfun/hypergeometric/best_value.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/growth.h"
#include "specfun/hypergeometric/value.h"
#include "specfun/hypergeometric/wide_value.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// The function for x, a and b that are not 0. Where c is 0, -1, -2, ... the series ends by a.
Value ValueOf(const HypergeometricParameters& p, double x);

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

namespace {

// Its square counts for nothing beside the loss of 2^-57, even where 2^90 cancels.
constexpr double kTiny = 0x1p-75;

Value Sum(const Value& left, const Value& right) {
    constexpr int kFar = 1000;  // chosen: beyond, one of the two counts for nothing
    const bool leads =
        right.fraction.high == 0 || (left.fraction.high != 0 && left.exponent > right.exponent);
    const int exponent = leads ? left.exponent : right.exponent;
    double error = 0;
    double slope = 0;
    const auto part = [&](const Value& of) {
        const int by = std::clamp(of.exponent - exponent, -kFar, kFar);
        const DoubleDouble own = by > -kFar ? Scale(of.fraction, by) : DoubleDouble{};
        const double ownSlope = std::ldexp(of.slope, by);
        error += of.loss * (std::fabs(own.high) + std::fabs(ownSlope));
        slope += ownSlope;
        return own;
    };
    const DoubleDouble first = part(left);
    const DoubleDouble sum = first + part(right);
    const double size = std::fabs(sum.high);
    return {sum, exponent, error / (size + std::fabs(slope)), error / size, slope};
}

Value Times(Value value, DoubleDouble factor) {
    int own = 0;
    const double high = std::frexp(factor.high, &own);
    value.fraction *= DoubleDouble{high, std::ldexp(factor.low, -own)};
    value.slope *= high;
    value.exponent += own;
    return value;
}

/// Times x. The slope of x F is x F plus x times the slope of F.
Value TimesArgument(Value value, double x) {
    const double size = std::fabs(value.fraction.high);
    const double error = value.loss * (size + std::fabs(value.slope));
    value.slope += value.fraction.high;
    if (value.slope != 0 || size != 0) value.loss = error / (size + std::fabs(value.slope));
    return Times(value, {x, 0});
}

/// a b x / c factor.
Value FirstTerm(const HypergeometricParameters& p, double x, const Value& factor) {
    int exponent = 0;
    Value term = factor;
    const double inverse = 1 / std::frexp(p.c.high, &exponent);
    term.fraction = factor.fraction / std::frexp(p.c.high, &exponent);
    term.slope *= inverse;
    term.exponent -= exponent;
    return TimesArgument(Times(Times(term, p.a), p.b), x);
}

constexpr Value One(double relative) {
    return {{1, 0}, 0, relative, relative};
}

/// Whether x is so small that all terms after the second count for nothing.
bool IsLinear(const HypergeometricParameters& p, double x) {
    // The third term is (a+1)(b+1)/(2(c+1)) x times the second, which is below 10^-114, as c+1 is
    // not below 2^-53.
    constexpr double kNothing = 1e-250;
    constexpr double kMost = 1e60;  // chosen, with kNothing, for that bound
    return std::fabs(x) < kNothing && std::fabs(p.a.high) < kMost && std::fabs(p.b.high) < kMost;
}

Value CarefulValue(const HypergeometricParameters& p, double x);

/// What a walk takes in place of a parameter next to 0: the nearest multiple of `unit`, but at
/// least kTiny.
double Shortened(double a, double unit) {
    const double multiple = std::nearbyint(a / unit) * unit;
    return std::fabs(multiple) < kTiny ? kTiny : multiple;
}

/// For a or b next to 0. There F-1 is proportional to that parameter, so it is computed with
/// `instead` in its place and scaled.
Value OfTiny(HypergeometricParameters p, DoubleDouble HypergeometricParameters::*tiny,
             double instead, double x) {
    const DoubleDouble factor = p.*tiny / instead;
    p.*tiny = {instead, 0};
    const Value rise = Sum(CarefulValue(p, x), {{-1, 0}, 0, kPairError, kPairError});
    return Sum(One(kPairError), Times(rise, factor));
}

/// Whether the sums of many digits take these parameters.
bool MayBeWide(const HypergeometricParameters& p) {
    // The lowest bit of such a double is 2^-192 at least. With that of its low part and the carry
    // of a+k it fits into the 256 bits of a factor (counter.h).
    constexpr double kLeast = 0x1p-140;
    const auto may = [](DoubleDouble a) { return a.high == 0 || std::fabs(a.high) >= kLeast; };
    return may(p.a) && may(p.b) && may(p.c);
}

// For a parameter below it F-1 is proportional to it: its square, 2^-80, times a logarithm of the
// range, 2^10 at most, counts for nothing beside 2^-57.
constexpr double kProportional = 0x1p-40;

/// By all general methods, the sums of many digits last.
Value CarefulValue(const HypergeometricParameters& p, double x) {
    Value best = BestValue(p, x);
    if (best.loss < kGoodEnough) return best;
    const double unit = ParameterUnit(p);
    for (const auto part : {&HypergeometricParameters::a, &HypergeometricParameters::b}) {
        const double own = (p.*part).high;
        const double instead = Shortened(own, unit);
        if (!(std::fabs(own) < kProportional) || own == instead) continue;
        KeepBetter(best, OfTiny(p, part, instead, x));
        break;
    }
    if (best.loss >= kGoodEnough && MayBeWide(p)) KeepBetter(best, WideValue(p, x));
    return best;
}

/// (1-x)^-b, which is the function where a is c.
Value Power(double b, double x) {
    constexpr double kMost = 1e8;         // of a logarithm, chosen: far beyond the 710 of the range
    constexpr int kOutOfRange = 1 << 20;  // chosen: an exponent that no double has
    const double size = -b * std::log1p(-x);
    if (!(std::fabs(size) < kMost)) {
        return {{1, 0}, size > 0 ? kOutOfRange : -kOutOfRange, kPairError, kPairError, 0};
    }
    HypergeometricPoint one;
    one.value = {1, 0};
    one.error = kPairError;
    return ValueOf(Form{{}, {-b, 0}}, one, x);
}

/// (1-x)^-b - 1 where that is small; denormal b have all their digits, too.
Value PowerMinusOne(double b, double x) {
    // The logarithm and ExpMinusOne are 2^-90 off at most, the products by far less.
    constexpr double kDigits = 0x1p-85;  // chosen: 32 times as much
    constexpr int kLinear = -110;        // exp(l) - 1 is l but for l^2/2, 2^-110 of it
    int exponent = 0;
    const double fraction = -std::frexp(b, &exponent);
    const DoubleDouble log = LogOneLess(x) * fraction;
    const double slope = -fraction * x / (1 - x);
    if (std::ilogb(log.high) + exponent < kLinear) {
        return {log, exponent, kDigits, kDigits, slope};
    }
    const DoubleDouble rise = ExpMinusOne(Scale(log, exponent));
    return {rise, 0, kDigits, kDigits, std::ldexp(slope, exponent) * (1 + rise.high)};
}

/// numerator / c, which may be denormal.
Value Ratio(DoubleDouble numerator, double c) {
    int own = 0;
    int ofC = 0;
    const double divisor = std::frexp(c, &ofC);
    const double high = std::frexp(numerator.high, &own);
    const DoubleDouble fraction = {high, std::ldexp(numerator.low, -own)};
    return {fraction / divisor, own - ofC, kPairError, kPairError};
}

Value Product(const Value& constant, const Value& value) {
    Value product = Times(value, constant.fraction);
    product.exponent += constant.exponent;
    return product;
}

double SizeAt(const Value& value, int exponent) {
    constexpr int kMost = 1000;  // powers of two, chosen: within the range, which ends at 1024
    return std::ldexp(std::fabs(value.fraction.high),
                      std::clamp(value.exponent - exponent, -kMost, kMost));
}

/// For a and c next to 0: with r = a/c the terms are r (b)_k/k! x^k (1 + (a-c) H_(k-1) + ...), and
///   F = 1 + r ((1-x)^-b - 1) + r (a-c) G.
/// As E(y) = (1-y)^-b - 1 is convex or concave, and so E(y)/y monotone, the integral of
/// (E(x) - E(xt)/t)/(1-t) from 0 to 1, which is G, is at most
///   max(|bx|, |E(x)|) (1 + 2 ln((1+|b|)/(1-x))).
Value TiedValue(double a, double b, double c, double x) {
    constexpr double kSmall = 0.5;            // of an exponent: ExpMinusOne takes up to 1
    constexpr double kOfLogarithm = 0x1p-85;  // the error of PowerMinusOne
    constexpr double kHigherOrders = 2;  // chosen: left out are that order and far smaller ones
    const Value ratio = Ratio({a, 0}, c);
    const bool small = std::fabs(b * std::log1p(-x)) < kSmall;
    const Value rise = Product(ratio, small ? PowerMinusOne(b, x) : Power(b, x));
    Value value = Sum(small ? One(kOfLogarithm) : Ratio(TwoSum(c, -a), c), rise);
    // r max(|bx|, |E(x)|), at most: |bx| is below 1.84 |E(x)| where |b ln(1-x)| is below 1/2
    const double most = small ? 2 * SizeAt(rise, value.exponent)
                              : SizeAt(rise, value.exponent) +
                                    SizeAt(ratio, value.exponent) * (1 + std::fabs(b * x));
    const double logarithm = 1 + 2 * (std::log1p(std::fabs(b)) - std::min(0.0, std::log1p(-x)));
    const double error = kHigherOrders * most * std::fabs(a - c) * logarithm;
    const double own = std::fabs(value.fraction.high);
    value.loss += error / (own + std::fabs(value.slope));
    value.relative += error / own;
    return value;
}

/// For c next to 0. The function is the sum of a b x / c F(a+1,b+1;2;x) and of a part that hardly
/// depends on c. The second part is found from the function at a larger c, and is all that counts
/// where F(a+1,b+1;2;x) is next to 0.
Value NextToPole(const HypergeometricParameters& p, double x) {
    // What the larger c changes, relative to the part: kTiny times at most 2^7 for logarithms.
    constexpr double kOfLarger = 0x1p-68;
    const double larger = std::copysign(kTiny, p.c.high);
    const HypergeometricParameters there = {p.a, p.b, {larger, 0}};
    const Value pole = CarefulValue({p.a + 1, p.b + 1, {2, 0}}, x);
    // what 1/c is more than 1/larger
    const Value rise = Times(FirstTerm(p, x, pole), TwoSum(1, -p.c.high / larger));
    Value part = CarefulValue(there, x);
    part.loss += kOfLarger;
    Value best = Sum(part, rise);
    if (best.loss >= kGoodEnough && MayBeWide(p)) KeepBetter(best, WideValue(p, x));
    return best;
}

// The methods in the order of docs/hypergeometric.md.
Value ValueOf(const HypergeometricParameters& p, double x) {
    const double c = p.c.high;
    if (!IsNegativeInteger(p.c) && (p.a.high == c || p.b.high == c)) {
        return Power(p.a.high == c ? p.b.high : p.a.high, x);
    }
    if (IsLinear(p, x)) {
        // A quarter of kGoodEnough, chosen: far above the rounding of the first term.
        return Sum(One(kGoodEnough / 4), FirstTerm(p, x, One(kGoodEnough / 4)));
    }
    if (Overflows(p, x)) throw ap::ap_error{kOverflow};
    if (c == 0 || !(std::fabs(c) < kProportional)) return CarefulValue(p, x);
    Value best;
    for (const auto& [a, b] : {std::pair{p.a.high, p.b.high}, std::pair{p.b.high, p.a.high}}) {
        if (std::fabs(a) < kProportional) KeepBetter(best, TiedValue(a, b, c, x));
    }
    if (best.loss < kGoodEnough) return best;
    KeepBetter(best, std::fabs(c) < kTiny ? NextToPole(p, x) : CarefulValue(p, x));
    return best;
}

}  // namespace

}  // namespace kalvex::specfun
