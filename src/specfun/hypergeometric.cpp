// Gauss hypergeometric function, -1 < x < 1. The power series is taken in the form that converges
// fast and is not likely to cancel (DLMF 15.8.1):
//   F(a,b;c;x) = (1-x)^(c-a-b) F(c-a,c-b;c;x)
//              = (1-x)^(-a) F(a,c-b;c;x/(x-1)) = (1-x)^(-b) F(c-a,b;c;x/(x-1)).
// Each form measures what it lost; if that was too much for a double the next one is tried. Near
// x = 1 the solutions there are used, and where all forms cancel (parameters of opposite sign
// and some hundreds) the differential equation is followed in Taylor steps.
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
constexpr double kBearable = 0x1p-40;
constexpr double kHopeless = 1e6;  // added to the cost of what is likely to cancel

bool IsPole(DoubleDouble c) {
    return c.high <= 0 && c.low == 0 && std::floor(c.high) == c.high;
}

/// A negative integer whose series ends before c meets 0.
bool EndsBefore(DoubleDouble a, DoubleDouble c) {
    return IsPole(a) && (!IsPole(c) || a.high >= c.high);
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

/// Terms of the series, as far as they can be foreseen.
double CostOf(const Form& form, double x) {
    constexpr double kPowerCost = 30;
    const double z = form.pfaff ? x / (x - 1) : x;
    const double magnitude = std::fabs(z);
    double terms = 40 / -std::log(magnitude);
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
    constexpr double kLoss = 40;
    return ExpectedLoss(form.p, z) > kLoss ? terms + kHopeless : terms;
}

DoubleDouble LogOneLess(double x) {
    constexpr double kSmall = 0.4;
    return std::fabs(x) < kSmall ? LogOnePlus({-x, 0}) : Log(TwoSum(1, -x));
}

Value ValueOf(const Form& form, double x) {
    constexpr double kTolerance = 0x1p-62;
    const DoubleDouble z = form.pfaff ? Divide({x, 0}, TwoSum(x, -1)) : DoubleDouble{x, 0};
    const HypergeometricPoint sum = SumHypergeometric(form.p, z, kTolerance);
    if (sum.singular) throw ap::ap_error{kOverflow};
    if (sum.failed) return {};
    const double own = form.pfaff ? sum.slope.high / (1 - x) : sum.slope.high;
    const double slope = own - form.power.high * x / (1 - x) * sum.value.high;
    Value value = {sum.value, 0, sum.error / (std::fabs(sum.value.high) + std::fabs(slope))};
    if (form.power.high == 0) return value;
    const DoubleDouble exponent = Multiply(form.power, LogOneLess(x));
    constexpr double kMostExponent = 1e8;
    if (!(std::fabs(exponent.high) < kMostExponent)) return {};
    value.fraction = Multiply(value.fraction, ExpScaled(exponent, value.exponent));
    return value;
}

Value ValueOf(const HypergeometricPoint& p) {
    if (p.singular) throw ap::ap_error{kOverflow};
    if (p.failed) return {};
    return {p.value, 0, p.error / (std::fabs(p.value.high) + std::fabs(p.slope.high))};
}

void KeepBetter(Value& best, const Value& other) {
    if (other.loss < best.loss) best = other;
}

/// The forms from the cheapest up, until one is good enough or only long ones are left. Those that
/// are likely to cancel are measured first.
Value BySeries(const HypergeometricParameters& p, double x) {
    constexpr double kMostTerms = 1200;
    constexpr double kBearableLoss = 28;
    constexpr double kNextToPole = 1e-250;
    const bool onlyDirect = IsPole(p.c) || std::fabs(p.c.high) < kNextToPole;
    std::array<Form, 4> forms = FormsOf(p);
    for (Form& form : forms)
        form.cost = CostOf(form, x);
    std::sort(forms.begin(), forms.end(),
              [](const Form& left, const Form& right) { return left.cost < right.cost; });
    Value best;
    for (const Form& form : forms) {
        if (onlyDirect && (form.pfaff || form.power.high != 0)) continue;
        const double terms = form.cost < kHopeless ? form.cost : form.cost - kHopeless;
        if (terms > kMostTerms) continue;
        const double z = form.pfaff ? x / (x - 1) : x;
        if (form.cost >= kHopeless && MeasuredLoss(form.p, z) > kBearableLoss) continue;
        KeepBetter(best, ValueOf(form, x));
        if (best.loss < kGoodEnough) break;
    }
    return best;
}

Value BestValue(const HypergeometricParameters& p, double x) {
    constexpr double kNearOne = 0.9;
    Value best = BySeries(p, x);
    if (best.loss < kGoodEnough) return best;
    if (x > kNearOne && !IsPole(p.c)) KeepBetter(best, ValueOf(HypergeometricNearOne(p, x)));
    if (best.loss < kGoodEnough) return best;
    KeepBetter(best, ValueOf(HypergeometricByParts(p, x)));
    return best;
}

}  // namespace

double Hypergeometric2F1(double a, double b, double c, double x) {
    if (std::isnan(x)) return x;
    if (!std::isfinite(a + b + c)) throw ap::ap_error{kOverflow};
    if (!(std::fabs(x) < 1)) throw ap::ap_error{"Domain error in Hypergeometric2F1"};
    const HypergeometricParameters p = {{a, 0}, {b, 0}, {c, 0}};
    if (IsPole(p.c) && !EndsBefore(p.a, p.c) && !EndsBefore(p.b, p.c)) {
        throw ap::ap_error{kOverflow};
    }
    if (a == 0 || b == 0 || x == 0) return 1;
    const Value value = BestValue(p, x);
    if (!(value.loss < kBearable)) throw ap::ap_error{kOverflow};
    const double result = std::ldexp(ToDouble(value.fraction), value.exponent);
    if (!std::isfinite(result)) throw ap::ap_error{kOverflow};
    return result;
}

}  // namespace kalvex::specfun
