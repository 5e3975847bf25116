// Gauss hypergeometric function, -1 < x < 1. The power series is taken in the form that converges
// fast and is not likely to cancel (DLMF 15.8.1):
//   F(a,b;c;x) = (1-x)^(c-a-b) F(c-a,c-b;c;x)
//              = (1-x)^(-a) F(a,c-b;c;x/(x-1)) = (1-x)^(-b) F(c-a,b;c;x/(x-1)).
// Each form measures what it lost; if that was too much for a double the next one is tried. Where
// the forms cancel or converge slowly a walk along the contiguous relations leads from parameters
// next to 0 to those wanted (hypergeometric_shifts.cpp). Large positive parameters with c-a-b near
// 0, where that loses too much, have a series of positive terms that bears plain arithmetic. What
// is left falls to the solutions at x = 1 and to Taylor steps of the differential equation.
#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric_forms.h"
#include "specfun/hypergeometric_parts.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr char kOverflow[] = "Overflow in Hypergeometric2F1";

struct Value {
    DoubleDouble fraction;
    int exponent = 0;
    double loss = INFINITY;  // estimated error by what the last bit of x does
};

constexpr double kGoodEnough = 0x1p-56;
constexpr double kBearable = 0x1p-52;

DoubleDouble LogOneLess(double x) {
    constexpr double kSmall = 0.4;
    return std::fabs(x) < kSmall ? LogOnePlus({-x, 0}) : Log(TwoSum(1, -x));
}

/// The function from that of the form, `sum` at z.
Value ValueOf(const Form& form, const HypergeometricPoint& sum, double x) {
    if (sum.singular) throw ap::ap_error{kOverflow};
    if (sum.failed) return {};
    const double own = form.pfaff ? sum.slope.high / (1 - x) : sum.slope.high;
    const double slope = own - form.power.high * x / (1 - x) * sum.value.high;
    Value value = {sum.value, sum.exponent,
                   sum.error / (std::fabs(sum.value.high) + std::fabs(slope))};
    if (form.power.high == 0) return value;
    const DoubleDouble exponent = Multiply(form.power, LogOneLess(x));
    constexpr double kMostExponent = 1e8;
    if (!(std::fabs(exponent.high) < kMostExponent)) return {};
    int more = 0;
    value.fraction = Multiply(value.fraction, ExpScaled(exponent, more));
    value.exponent += more;
    return value;
}

DoubleDouble ArgumentOf(const Form& form, double x) {
    return form.pfaff ? Divide({x, 0}, TwoSum(x, -1)) : DoubleDouble{x, 0};
}

Value BySeries(const Form& form, double x) {
    constexpr double kTolerance = 0x1p-62;
    return ValueOf(form, SumHypergeometric(form.p, ArgumentOf(form, x), kTolerance), x);
}

Value ValueOf(const HypergeometricPoint& p) {
    if (p.singular) throw ap::ap_error{kOverflow};
    if (p.failed) return {};
    return {p.value, 0, p.error / (std::fabs(p.value.high) + std::fabs(p.slope.high))};
}

void KeepBetter(Value& best, const Value& other) {
    if (other.loss < best.loss) best = other;
}

/// The degree if the form is a polynomial, else infinite.
double DegreeOf(const Form& form) {
    double degree = INFINITY;
    if (EndsBefore(form.p.a, form.p.c)) degree = -form.p.a.high;
    if (EndsBefore(form.p.b, form.p.c)) degree = std::min(degree, -form.p.b.high);
    return degree;
}

/// The transformations divide by c or by what else is 0 there.
bool HasOneForm(const HypergeometricParameters& p) {
    constexpr double kNextToPole = 1e-250;
    return IsNegativeInteger(p.c) || std::fabs(p.c.high) < kNextToPole;
}

Form WithDegreeFirst(Form form) {
    const bool aEnds = EndsBefore(form.p.a, form.p.c);
    const bool bEnds = EndsBefore(form.p.b, form.p.c);
    if (bEnds && !(aEnds && form.p.a.high > form.p.b.high)) std::swap(form.p.a, form.p.b);
    return form;
}

/// The forms to walk to, with z from 0 to 1: first a polynomial if there is one, a being its
/// degree, else that with c-a-b at least 0.
std::array<Form, 2> FormsForShifts(const std::array<Form, 4>& forms, double x) {
    const std::size_t first = x > 0 ? 0 : 2;
    std::array<Form, 2> found = {WithDegreeFirst(forms[first]), WithDegreeFirst(forms[first + 1])};
    const double degrees[] = {DegreeOf(found[0]), DegreeOf(found[1])};
    const double s = Subtract(Subtract(found[0].p.c, found[0].p.a), found[0].p.b).high;
    if (degrees[1] < degrees[0] || (degrees[1] == degrees[0] && s < 0)) {
        std::swap(found[0], found[1]);
    }
    return found;
}

/// A polynomial's own walk, then the general ones, the second of them where the function may
/// swing.
Value ByShifts(const std::array<Form, 2>& forms, double x) {
    const DoubleDouble z = ArgumentOf(forms[0], x);
    const DoubleDouble w = forms[0].pfaff ? Divide({1, 0}, TwoSum(1, -x)) : TwoSum(1, -x);
    const HypergeometricParameters& p = forms[0].p;
    const bool polynomial = EndsBefore(p.a, p.c);
    Value best;
    if (polynomial) best = ValueOf(forms[0], PolynomialByShifts(p, z, w), x);
    for (const Form& form : forms) {
        if (best.loss < kGoodEnough) break;
        KeepBetter(best, ValueOf(form, HypergeometricByShifts(form.p, z, w), x));
        if (!polynomial && (p.a.high < 0) == (p.b.high < 0)) break;
    }
    return best;
}

/// The forms that cost `least` to `most`, the cheapest first, until one is good enough. Those that
/// are likely to cancel are measured first.
void TrySeries(const std::array<Form, 4>& sorted, double x, double least, double most,
               Value& best) {
    constexpr double kBearableLoss = 28;
    const bool onlyDirect = HasOneForm(sorted[0].p);
    for (const Form& form : sorted) {
        if (best.loss < kGoodEnough) return;
        if (form.cost <= least || form.cost > most) continue;
        if (onlyDirect && (form.pfaff || form.power.high != 0)) continue;
        const double z = form.pfaff ? x / (x - 1) : x;
        if (form.cost >= kHopeless && MeasuredLoss(form.p, z) > kBearableLoss) continue;
        KeepBetter(best, BySeries(form, x));
    }
}

/// The long series of large positive parameters, in the form that is shorter.
Value OfPositive(const std::array<Form, 4>& sorted, double x) {
    constexpr double kMostTerms = 10000;
    constexpr int kOverflowing = 1100;
    constexpr int kFar = 1000000;
    for (const Form& form : sorted) {
        const HypergeometricParameters& p = form.p;
        if (form.pfaff || !(p.a.high > 0 && p.b.high > 0)) continue;
        if (form.cost > kMostTerms) continue;
        const int most = form.power.high > 0 ? kFar : kOverflowing;
        return ValueOf(form, SumOfPositive(p, x, most), x);
    }
    return {};
}

/// The methods from the quickest up, until one is good enough.
Value BestValue(const HypergeometricParameters& p, double x) {
    constexpr double kNearOne = 0.9;
    constexpr double kMostTerms = 1200;
    constexpr double kShort = 500;
    std::array<Form, 4> forms = FormsOf(p);
    const std::array<Form, 2> shifted = FormsForShifts(forms, x);
    for (Form& form : forms)
        form.cost = CostOf(form, x);
    std::sort(forms.begin(), forms.end(),
              [](const Form& left, const Form& right) { return left.cost < right.cost; });
    const bool isOutgrown = IsOutgrown(p, x);
    const bool walks = !HasOneForm(p) && !isOutgrown;
    const double walk = walks ? CostOfShifts(shifted[0], x) : kMostTerms;
    Value best;
    TrySeries(forms, x, -1, isOutgrown ? kShort : walk, best);
    if (isOutgrown && best.loss >= kGoodEnough) KeepBetter(best, OfPositive(forms, x));
    if (isOutgrown && best.loss < kBearable) return best;
    if (walks && best.loss >= kGoodEnough) KeepBetter(best, ByShifts(shifted, x));
    TrySeries(forms, x, walk, kMostTerms, best);
    TrySeries(forms, x, kHopeless, kHopeless + kMostTerms, best);
    if (best.loss < kGoodEnough || IsNegativeInteger(p.c)) return best;
    if (x > kNearOne) KeepBetter(best, ValueOf(HypergeometricNearOne(p, x)));
    if (best.loss < kGoodEnough) return best;
    KeepBetter(best, ValueOf(HypergeometricByParts(p, x)));
    return best;
}

/// A mean, and half of what the function rises from one side to the other.
struct Mean {
    Value value;
    DoubleDouble rise;
};

/// The mean of the values on both sides of c; its loss is what their errors become where it is
/// small beside them.
Mean MeanBeside(const HypergeometricParameters& p, double x, double distance) {
    HypergeometricParameters moved = p;
    moved.c.low = distance;
    Value mean = BestValue(moved, x);
    moved.c.low = -distance;
    const Value other = BestValue(moved, x);
    const DoubleDouble above = mean.fraction;
    const DoubleDouble below = Scale(other.fraction, other.exponent - mean.exponent);
    mean.fraction = Add(above, below);
    mean.exponent -= 1;
    const double sizes = std::fabs(above.high) + std::fabs(below.high);
    mean.loss = std::max(mean.loss, other.loss) * sizes / std::fabs(mean.fraction.high);
    return {mean, Subtract(above, below)};
}

/// a less b, relative to a.
double Apart(const Value& a, const Value& b) {
    const DoubleDouble other = Scale(b.fraction, b.exponent - a.exponent);
    return std::fabs(Subtract(a.fraction, other).high) / std::fabs(a.fraction.high);
}

/// The mean less the square of the distance, from a mean at twice the distance.
Value WithoutSquare(Value near, const Value& far) {
    const DoubleDouble other = Scale(far.fraction, far.exponent - near.exponent);
    near.fraction = Add(near.fraction, Divide(Subtract(near.fraction, other), 3.0));
    near.loss = 2 * std::max(near.loss, far.loss);
    return near;
}

/// Farther from the pole less is lost, but the square of the distance counts.
Value FartherFromPole(const HypergeometricParameters& p, double x) {
    constexpr double kDistance = 0x1p-30;
    const Value first = MeanBeside(p, x, kDistance).value;
    const Value second = MeanBeside(p, x, 2 * kDistance).value;
    const Value third = MeanBeside(p, x, 4 * kDistance).value;
    Value value = WithoutSquare(first, second);
    const Value check = WithoutSquare(second, third);
    value.loss += check.loss + Apart(value, check);
    return value;
}

/// A polynomial at a pole of the other forms, from both sides. What the square of the distance
/// leaves is told by the rise. So near to a pole the walks' own estimates are not enough: a third
/// value must lie on the line through the two.
Value BesidePole(const HypergeometricParameters& p, double x) {
    constexpr double kDistance = 0x1p-40;
    constexpr double kPart = 0.7;
    constexpr double kCurvature = 0x1p10;  // the second derivative by the first, with a margin
    Mean mean = MeanBeside(p, x, kDistance);
    HypergeometricParameters moved = p;
    moved.c.low = kPart * kDistance;
    const Value third = BestValue(moved, x);
    Value expected = mean.value;
    expected.fraction = Add(expected.fraction, Multiply(mean.rise, kPart));
    const double spread = std::fabs(mean.rise.high / mean.value.fraction.high);
    mean.value.loss += third.loss + Apart(expected, third) + spread * kCurvature * kDistance;
    return mean.value.loss < kBearable ? mean.value : FartherFromPole(p, x);
}

}  // namespace

double Hypergeometric2F1(double a, double b, double c, double x) {
    if (std::isnan(x)) return x;
    if (!std::isfinite(a + b + c)) throw ap::ap_error{kOverflow};
    if (!(std::fabs(x) < 1)) throw ap::ap_error{"Domain error in Hypergeometric2F1"};
    const HypergeometricParameters p = {{a, 0}, {b, 0}, {c, 0}};
    if (IsNegativeInteger(p.c) && !EndsBefore(p.a, p.c) && !EndsBefore(p.b, p.c)) {
        throw ap::ap_error{kOverflow};
    }
    if (a == 0 || b == 0 || x == 0) return 1;
    Value value = BestValue(p, x);
    if (!(value.loss < kBearable) && IsNegativeInteger(p.c)) value = BesidePole(p, x);
    if (!(value.loss < kBearable)) throw ap::ap_error{kOverflow};
    const double result = std::ldexp(ToDouble(value.fraction), value.exponent);
    if (!std::isfinite(result)) throw ap::ap_error{kOverflow};
    return result;
}

}  // namespace kalvex::specfun
