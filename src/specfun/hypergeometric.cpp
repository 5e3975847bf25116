// Gauss hypergeometric function, -1 < x < 1. The power series is taken in the form that converges
// fast and is not likely to cancel (DLMF 15.8.1):
//   F(a,b;c;x) = (1-x)^(c-a-b) F(c-a,c-b;c;x)
//              = (1-x)^(-a) F(a,c-b;c;x/(x-1)) = (1-x)^(-b) F(c-a,b;c;x/(x-1)).
// Each form measures what it lost; if that was too much for a double the next one is tried. Where
// the forms cancel or converge slowly a walk along the contiguous relations leads from parameters
// next to 0 to those wanted (hypergeometric_shifts.cpp). What that loses too much of, mostly large
// positive parameters with c-a-b near 0, is left to the solutions at x = 1 and to Taylor steps of
// the differential equation.
#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric_parts.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr char kOverflow[] = "Overflow in Hypergeometric2F1";

/// F = (1-x)^power times the series.
struct Form {
    HypergeometricParameters p;
    DoubleDouble power;
    bool pfaff = false;
    double cost = 0;
};

struct Value {
    DoubleDouble fraction;
    int exponent = 0;
    double loss = INFINITY;  // estimated error by what the last bit of x does
};

constexpr double kGoodEnough = 0x1p-56;
constexpr double kBearable = 0x1p-52;
constexpr double kHopeless = 1e6;  // added to the cost of what is likely to cancel

/// A negative integer whose series ends before c meets 0.
bool EndsBefore(DoubleDouble a, DoubleDouble c) {
    return IsNegativeInteger(a) && (!IsNegativeInteger(c) || a.high >= c.high);
}

bool Terminates(const HypergeometricParameters& p) {
    constexpr double kLongest = -3000;
    const bool first = EndsBefore(p.a, p.c) && p.a.high > kLongest;
    return first || (EndsBefore(p.b, p.c) && p.b.high > kLongest);
}

std::array<Form, 4> FormsOf(const HypergeometricParameters& p) {
    const DoubleDouble fromA = Subtract(p.c, p.a);
    const DoubleDouble fromB = Subtract(p.c, p.b);
    return {Form{p, {}}, Form{{fromA, fromB, p.c}, Subtract(fromA, p.b)},
            Form{{p.a, fromB, p.c}, Negate(p.a), true}, Form{{fromA, p.b, p.c}, Negate(p.b), true}};
}

/// Short series are not worth a look: they tell themselves. Before the term where c+k becomes
/// positive nothing is known of those behind it.
bool IsLikelyToCancel(const HypergeometricParameters& p, double z, double terms) {
    constexpr double kLoss = 28;
    constexpr double kMostLoss = 40;
    constexpr double kShort = 100;
    constexpr double kSmall = 0.1;
    const double loss = ExpectedLoss(p, z);
    if (p.c.high < -kShort && std::fabs(z) > kSmall) return true;
    return loss > kMostLoss || (terms > kShort && loss > kLoss);
}

/// Where terms of one sign stop growing: (a+k)(b+k) z = (c+k)(1+k).
double GreatestTerm(const HypergeometricParameters& p, double z) {
    if (!(p.a.high > 0 && p.b.high > 0 && p.c.high > 0 && z < 1)) return 0;
    const double linear = z * (p.a.high + p.b.high) - p.c.high - 1;
    const double root = linear * linear + 4 * (1 - z) * (z * p.a.high * p.b.high - p.c.high);
    return root > 0 ? std::max(0.0, (linear + std::sqrt(root)) / (2 * (1 - z))) : 0;
}

/// Terms of the series, as far as they can be foreseen.
double CostOf(const Form& form, double x) {
    constexpr double kPowerCost = 30;
    const double z = form.pfaff ? x / (x - 1) : x;
    const double magnitude = std::fabs(z);
    double terms = 40 / -std::log(magnitude) + 2 * GreatestTerm(form.p, magnitude);
    const double decay = form.p.c.high - form.p.a.high - form.p.b.high;
    if (decay > 0) {  // the terms fall as k^(-1-decay) even at z = 1
        const double scale = 1 + std::fabs(form.p.a.high) + std::fabs(form.p.b.high);
        terms = std::min(terms, (scale + std::fabs(form.p.c.high)) * std::exp(40 / decay));
    }
    if (Terminates(form.p)) {
        const double length = -std::max(EndsBefore(form.p.a, form.p.c) ? form.p.a.high : -1e9,
                                        EndsBefore(form.p.b, form.p.c) ? form.p.b.high : -1e9);
        terms = std::min(terms, length);
    } else if (magnitude >= 1) {
        return 1e9;
    }
    if (form.power.high != 0) terms += kPowerCost;
    return IsLikelyToCancel(form.p, z, terms) ? terms + kHopeless : terms;
}

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

/// Terms of a series that take as long.
double CostOfShifts(const Form& form, double x) {
    constexpr double kOfOne = 2;
    constexpr double kOfStart = 100;
    constexpr double kOfStartNearOne = 700;
    return kOfOne * ShiftsTo(form.p) + (x > 0.5 ? kOfStartNearOne : kOfStart);
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

/// The methods from the quickest up, until one is good enough.
Value BestValue(const HypergeometricParameters& p, double x) {
    constexpr double kNearOne = 0.9;
    constexpr double kMostTerms = 1200;
    std::array<Form, 4> forms = FormsOf(p);
    const std::array<Form, 2> shifted = FormsForShifts(forms, x);
    for (Form& form : forms)
        form.cost = CostOf(form, x);
    std::sort(forms.begin(), forms.end(),
              [](const Form& left, const Form& right) { return left.cost < right.cost; });
    const bool walks = !HasOneForm(p);
    const double walk = walks ? CostOfShifts(shifted[0], x) : kMostTerms;
    Value best;
    TrySeries(forms, x, -1, walk, best);
    if (walks && best.loss >= kGoodEnough) KeepBetter(best, ByShifts(shifted, x));
    TrySeries(forms, x, walk, kMostTerms, best);
    TrySeries(forms, x, kHopeless, kHopeless + kMostTerms, best);
    if (best.loss < kGoodEnough || IsNegativeInteger(p.c)) return best;
    if (x > kNearOne) KeepBetter(best, ValueOf(HypergeometricNearOne(p, x)));
    if (best.loss < kGoodEnough) return best;
    KeepBetter(best, ValueOf(HypergeometricByParts(p, x)));
    return best;
}

/// The mean of the values on both sides of c. Their difference tells what the square of the
/// distance leaves, a mean that is small beside them what their errors become.
Value MeanBeside(const HypergeometricParameters& p, double x, double distance) {
    constexpr double kCurvature = 0x1p10;  // the second derivative by the first, with a margin
    HypergeometricParameters moved = p;
    moved.c.low = distance;
    Value mean = BestValue(moved, x);
    moved.c.low = -distance;
    const Value other = BestValue(moved, x);
    const DoubleDouble above = mean.fraction;
    const DoubleDouble below = Scale(other.fraction, other.exponent - mean.exponent);
    mean.fraction = Add(above, below);
    mean.exponent -= 1;
    const double size = std::fabs(mean.fraction.high);
    const double share = (std::fabs(above.high) + std::fabs(below.high)) / size;
    const double spread = std::fabs(Subtract(above, below).high) / size;
    mean.loss = std::max(mean.loss, other.loss) * share + spread * kCurvature * distance;
    return mean;
}

/// A polynomial at a pole of the other forms, from both sides. So near to a pole the walks' own
/// estimates are not enough: a second distance must agree.
Value BesidePole(const HypergeometricParameters& p, double x) {
    constexpr double kDistance = 0x1p-40;
    Value mean = MeanBeside(p, x, kDistance);
    if (!(mean.loss < kBearable)) return mean;
    const Value again = MeanBeside(p, x, kDistance * 0.7);
    const DoubleDouble second = Scale(again.fraction, again.exponent - mean.exponent);
    const double change = std::fabs(Subtract(mean.fraction, second).high);
    mean.loss += again.loss + change / std::fabs(mean.fraction.high);
    return mean;
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
