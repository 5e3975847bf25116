// Gauss hypergeometric function, -1 < x < 1. The power series is taken in the form that converges
// fast and is not likely to cancel (DLMF 15.8.1):
//   F(a,b;c;x) = (1-x)^(c-a-b) F(c-a,c-b;c;x)
//              = (1-x)^(-a) F(a,c-b;c;x/(x-1)) = (1-x)^(-b) F(c-a,b;c;x/(x-1)).
// Each sum comes with a bound of its error; where that is too large, the next form is tried. Where
// all forms cancel or converge slowly, a walk along the contiguous relations leads from parameters
// next to 0 to those wanted (shifts.cpp).
#include "specfun/hypergeometric/best_value.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric/euler_integral.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/integral_value.h"
#include "specfun/hypergeometric/series.h"
#include "specfun/hypergeometric/shifts.h"

namespace kalvex::specfun {
namespace {

/// The cost of the walk to the form, counted in terms of a series of 7 ns. The counts were measured
/// when steps took 20 ns one by one and 6 ns in blocks. Steps that record their errors take 28 and
/// 8 to 10 ns, but the counts need not be exact: with half or twice any of them
/// scripts/time-hypergeometric tells the same times, and one value in 24,000 differs in a bit.
double CostOfShifts(const Form& form, double x) {
    constexpr double kOfOne = 3;             // a step one by one
    constexpr double kOfOneInBlock = 0.9;    // a step in blocks,
    constexpr double kOfBlocks = 200;        // and for setting them up
    constexpr double kOfStart = 100;         // the series at z = 1/2 to 2^-100, a bit for each term
    constexpr double kOfStartNearOne = 450;  // that at z = 0.85; beyond, a match takes 3 us, too
    const double steps = ShiftsTo(form.p);
    const double ofSteps = std::min(kOfOne * steps, kOfBlocks + kOfOneInBlock * steps);
    // up to x = 1/2 z is 1/2 at most, also where it is x/(x-1)
    return ofSteps + (x > 0.5 ? kOfStartNearOne : kOfStart);
}

Value BySeries(const Form& form, double x) {
    // 1/16 of kGoodEnough, so that what is left out hardly adds to the loss by rounding.
    constexpr double kTolerance = 0x1p-62;
    return ValueOf(form, SumHypergeometric(form.p, ArgumentOf(form, x), kTolerance), x);
}

/// Whether the i-th form is valid. Where c is 0, -1, -2, ... the function is a polynomial because
/// of its parameter a. There Pfaff's form with the power -a always holds, the other one and Euler's
/// only if b makes the series end, too.
bool IsValid(const HypergeometricParameters& p, std::size_t i) {
    return i == 0 || !IsNegativeInteger(p.c) || i == 2 || EndsBefore(p.b, p.c);
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
    if (found[1].cost == INFINITY) return found;
    const double degrees[] = {DegreeOf(found[0].p), DegreeOf(found[1].p)};
    const double s = (found[0].p.c - found[0].p.a - found[0].p.b).high;
    if (degrees[1] < degrees[0] || (degrees[1] == degrees[0] && s < 0)) {
        std::swap(found[0], found[1]);
    }
    return found;
}

/// Whether the parameters along a walk and their differences, by which it divides, are exact: the
/// bound of its error counts the rounding of value and slope and of coefficients only.
bool KeepsParameters(const HypergeometricParameters& p) {
    const double unit = ParameterUnit(p);
    const auto isMultiple = [unit](DoubleDouble a) {
        const double multiple = a.high / unit;  // integral from 2^52 on
        return std::floor(multiple) == multiple;
    };
    return isMultiple(p.a) && isMultiple(p.b) && isMultiple(p.c);
}

/// For a polynomial the walk from a polynomial, then, or else, the general walks.
Value ByShifts(const std::array<Form, 2>& forms, double x) {
    const DoubleDouble z = ArgumentOf(forms[0], x);
    const DoubleDouble w = forms[0].pfaff ? 1 / TwoSum(1, -x) : TwoSum(1, -x);
    const HypergeometricParameters& p = forms[0].p;
    const bool polynomial = EndsBefore(p.a, p.c);
    Value best;
    if (polynomial) best = ValueOf(forms[0], PolynomialByShifts(p, z, w), x);
    for (const Form& form : forms) {
        if (best.loss < kGoodEnough || IsNegativeInteger(p.c)) break;
        KeepBetter(best, ValueOf(form, HypergeometricByShifts(form.p, z, w), x));
    }
    return best;
}

/// The forms that cost `least` to `most`, the cheapest first, until one is good enough. Those that
/// are likely to cancel are measured first.
void TrySeries(const std::array<Form, 4>& sorted, double x, double least, double most,
               Value& best) {
    // In e-foldings: 2^40.4 times the error of a step, 2^-102, is 2^-61.6. The rest to kGoodEnough
    // is for the number of the terms.
    constexpr double kBearableLoss = 28;
    for (const Form& form : sorted) {
        if (best.loss < kGoodEnough) return;
        if (form.cost <= least || form.cost > most) continue;
        const double z = form.pfaff ? x / (x - 1) : x;
        if (form.cost >= kHopeless && MeasuredLoss(form.p, z) > kBearableLoss) continue;
        KeepBetter(best, BySeries(form, x));
    }
}

}  // namespace

double ParameterUnit(const HypergeometricParameters& p) {
    // Two doubles hold 106 bits. The four bits left over let parameters grow to 16 times their
    // size, as they do on walks that start far beyond those wanted.
    constexpr int kBits = 102;
    constexpr double kMost = 0x1p1000;  // keeps the sum of magnitudes finite
    // Walks pass through parameters of some units, however small those wanted are.
    const double size = 8 + std::fabs(p.a.high) + std::fabs(p.b.high) + std::fabs(p.c.high);
    return std::ldexp(1, std::ilogb(std::min(size, kMost)) - kBits);
}

Value BestValue(const HypergeometricParameters& p, double x) {
    constexpr double kMostTerms = 1200;  // 8 us, as a walk of parameters of some hundred takes
    // What the integrals take, measured, in terms of a series of 7 ns:
    constexpr double kOfEuler = 1000;  // 6 to 8 us
    constexpr double kOfLoop = 3000;   // 20 us
    constexpr double kOfTwo = 4500;    // c below 0: a loop or, after that has failed, two integrals
    std::array<Form, 4> forms = FormsOf(p);
    for (std::size_t i = 0; i < forms.size(); ++i)
        forms[i].cost = IsValid(p, i) ? CostOf(forms[i], x) : INFINITY;
    const std::array<Form, 2> shifted = FormsForShifts(forms, x);
    const std::array<Form, 4> unsorted = forms;
    std::sort(forms.begin(), forms.end(),
              [](const Form& left, const Form& right) { return left.cost < right.cost; });
    const bool walks = KeepsParameters(p);
    const double steps = CostOfShifts(shifted[0], x);
    const double walk = walks ? steps : kMostTerms;
    const double integral = HasEulerIntegral(p) ? kOfEuler : p.c.high > 0 ? kOfLoop : kOfTwo;
    const bool isLarge = steps > integral;
    const double first = std::min({walk, kMostTerms, isLarge ? integral : INFINITY});
    Value best;
    TrySeries(forms, x, -1, first, best);  // from -1: every cost is above it
    if (best.loss >= kGoodEnough && isLarge) KeepBetter(best, ByIntegral(unsorted, x));
    if (best.loss >= kGoodEnough && walks) KeepBetter(best, ByShifts(shifted, x));
    TrySeries(forms, x, first, kMostTerms, best);
    TrySeries(forms, x, kHopeless, kHopeless + kMostTerms, best);
    return best;
}

}  // namespace kalvex::specfun
