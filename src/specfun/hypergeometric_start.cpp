// Where the walks of hypergeometric_shifts.cpp start. Next to z = 1 and with s = c-a-b between -1/2
// and 1/2 the function is a combination of F(a,b;1-s;w), w = 1-z, and of the divided difference,
// between the exponents 0 and s, of Frobenius's series (DLMF 2.7.5, 15.10)
//   y(r) = sum over k of w^(k+r) (a+r)_k (b+r)_k / ((1+r)_k (1+r-s)_k),
// which tends to the logarithmic solution as s tends to 0. Both are matched at z = 3/4 with the
// series at 0, which alone serves up to some way beyond.
#include <cmath>

#include "specfun/hypergeometric_shift_steps.h"

namespace kalvex::specfun {
namespace {

constexpr double kTolerance = 0x1p-100;
constexpr double kLeastDistance = 0.25;  // of the start from what would be divided by

/// The two solutions at z = 1, at w; slopes are w times the derivative.
struct Solutions {
    DoubleDouble regular;
    DoubleDouble regularSlope;
    DoubleDouble other;
    DoubleDouble otherSlope;
};

/// (w^s - 1)/s.
DoubleDouble PowerQuotient(DoubleDouble s, DoubleDouble logarithm) {
    const DoubleDouble exponent = Multiply(s, logarithm);
    if (exponent.high == 0) return logarithm;
    if (std::fabs(exponent.high) < 1) return Divide(ExpMinusOne(exponent), s);
    return Divide(Subtract(Exp(exponent), 1.0), s);
}

Solutions SolutionsAt(const HypergeometricParameters& p, DoubleDouble w) {
    constexpr int kMostTerms = 400;
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const DoubleDouble sum = Add(p.a, p.b);
    DoubleDouble term = {1, 0};
    DoubleDouble difference = {};
    Solutions at = {{1, 0}, {}, {}, {}};
    for (int k = 0; k < kMostTerms; ++k) {
        const double next = k + 1.0;
        const DoubleDouble above = PlusInteger(s, next);
        const DoubleDouble below = PlusInteger(Negate(s), next);
        const DoubleDouble numerator = LooseProduct(PlusInteger(p.a, k), PlusInteger(p.b, k));
        const DoubleDouble ratio =
            LooseProduct(w, Reciprocal(LooseProduct(Multiply(below, next), above)));
        const DoubleDouble ofLower = LooseProduct(LooseProduct(numerator, above), ratio);
        // (a+s+k)(b+s+k) = numerator + s (a+b+2k+s)
        const DoubleDouble rise = Add(PlusInteger(sum, 2.0 * k), s);
        const DoubleDouble ofUpper =
            LooseProduct(LooseProduct(Add(numerator, LooseProduct(s, rise)), below), ratio);
        const DoubleDouble step =
            Subtract(LooseProduct(rise, below), LooseProduct({2, 0}, numerator));
        difference = SumOfProducts(difference, ofUpper, term, LooseProduct(step, ratio));
        term = LooseProduct(term, ofLower);
        at.regular = QuickAdd(at.regular, term);
        at.regularSlope = QuickAdd(at.regularSlope, Multiply(term, next));
        at.other = QuickAdd(at.other, difference);
        at.otherSlope = QuickAdd(at.otherSlope, Multiply(difference, next));
        if (next * (std::fabs(term.high) + std::fabs(difference.high)) < kTolerance) break;
    }
    // y(s) = w^s (regular + s other'), other = (y(s) - y(0)) / s
    const DoubleDouble logarithm = Log(w);
    const DoubleDouble quotient = PowerQuotient(s, logarithm);
    const DoubleDouble power = Add(Multiply(s, quotient), 1.0);
    const DoubleDouble upper = Add(at.regular, Multiply(s, at.other));
    at.other = Add(Multiply(power, at.other), Multiply(quotient, at.regular));
    at.otherSlope = Add(Add(Multiply(power, at.otherSlope), Multiply(quotient, at.regularSlope)),
                        Multiply(power, upper));
    return at;
}

/// The number of the same fraction between 1/4 and 5/4.
DoubleDouble NextToZero(DoubleDouble a) {
    return PlusInteger(a, -std::floor(a.high - kLeastDistance));
}

bool IsClose(DoubleDouble a, DoubleDouble b) {
    return std::fabs(Subtract(a, b).high) < kLeastDistance;
}

}  // namespace

HypergeometricParameters GeneralStart(const HypergeometricParameters& p) {
    HypergeometricParameters start = {NextToZero(p.a), NextToZero(p.b), p.c};
    const DoubleDouble s = Subtract(Subtract(p.c, start.a), start.b);
    start.c = PlusInteger(p.c, -std::nearbyint(s.high));
    for (int i = 0; i < 2 && start.c.high < kLeastDistance; ++i) {
        start.a = PlusInteger(start.a, 1);
        start.c = PlusInteger(start.c, 1);
    }
    if (IsClose(start.c, start.a)) {
        start.b = PlusInteger(start.b, 1);
        start.c = PlusInteger(start.c, 1);
    }
    if (IsClose(start.c, start.b)) {
        start.a = PlusInteger(start.a, 1);
        start.c = PlusInteger(start.c, 1);
    }
    return start;
}

HypergeometricParameters PolynomialStart(const HypergeometricParameters& p) {
    constexpr double kTwo = 2;
    HypergeometricParameters start = {{0, 0}, NextToZero(p.b), NextToZero(p.c)};
    if (IsNegativeInteger(Subtract(p.c, p.b)) && p.a.high <= -kTwo) {
        start.a = {-kTwo, 0};
        start.b = Add(start.c, kTwo);
    } else if (IsClose(start.c, start.b) || start.c.high < start.b.high) {
        start.c = PlusInteger(start.c, 1);
    }
    return start;
}

KALVEX_WITH_FMA
HypergeometricPoint AtStart(const HypergeometricParameters& p, const Place& place) {
    constexpr double kFarthest = 0.85;
    constexpr double kMeeting = 0.75;
    if (place.z.high <= kFarthest || IsNegativeInteger(p.a))
        return SumHypergeometric(p, place.z, kTolerance);
    HypergeometricPoint start = SumHypergeometric(p, {kMeeting, 0}, kTolerance);
    const Solutions there = SolutionsAt(p, {1 - kMeeting, 0});
    const Solutions at = SolutionsAt(p, place.w);
    // w d/dw there
    const DoubleDouble slope = Divide(Multiply(start.slope, kMeeting - 1), kMeeting);
    const DoubleDouble determinant = Subtract(Multiply(there.regular, there.otherSlope),
                                              Multiply(there.other, there.regularSlope));
    const DoubleDouble first =
        Divide(Subtract(Multiply(start.value, there.otherSlope), Multiply(there.other, slope)),
               determinant);
    const DoubleDouble second =
        Divide(Subtract(Multiply(there.regular, slope), Multiply(there.regularSlope, start.value)),
               determinant);
    start.value = Add(Multiply(first, at.regular), Multiply(second, at.other));
    start.slope = Add(Multiply(first, at.regularSlope), Multiply(second, at.otherSlope));
    start.slope = Negate(Multiply(start.slope, place.odds));
    return start;
}

}  // namespace kalvex::specfun
