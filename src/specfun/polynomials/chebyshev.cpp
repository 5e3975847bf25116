// Chebyshev polynomials by doubling the degree. The pair (T(m), U(m-1)) is cosine and sine of m
// times an angle, the sine divided by that of the angle itself, hence (DLMF 18.5.1, 18.5.2)
//   T(2m) = 2 T(m)^2 - 1,              U(2m-1) = 2 T(m) U(m-1),
//   T(m+1) = x T(m) - (1-x^2) U(m-1),  U(m) = T(m) + x U(m-1).
// The bits of the degree, from the highest down, say when to double only and when to add one too.
// Rounding errors grow with the square of the degree, so all is done at twice the precision:
// 1e-21 of the amplitude is left at the greatest degree. The products keep the relative accuracy
// of the odd polynomials near x = 0; where their parts would become denormal they are linear.
#include <cmath>

#include "base/truncate.h"
#include "specfun/polynomials/degree.h"
#include "specfun/precision/double_double.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

struct Pair {
    DoubleDouble t;  // T(m)
    DoubleDouble u;  // U(m-1)
};

Pair Doubled(const Pair& p) {
    const DoubleDouble square = Multiply(p.t, p.t);
    const DoubleDouble product = Multiply(p.t, p.u);
    return {Add({2 * square.high, 2 * square.low}, -1.0), {2 * product.high, 2 * product.low}};
}

Pair Next(const Pair& p, double x, DoubleDouble oneLessSquare) {
    return {Subtract(Multiply(p.t, x), Multiply(oneLessSquare, p.u)), Add(p.t, Multiply(p.u, x))};
}

/// The pair of degree m >= 1.
Pair PairOf(unsigned m, double x) {
    const DoubleDouble oneLessSquare = Multiply(TwoSum(1, -x), TwoSum(1, x));
    unsigned bit = 1;
    while (bit <= m / 2)
        bit *= 2;
    Pair p = {{x, 0}, {1, 0}};
    for (bit /= 2; bit != 0; bit /= 2) {
        p = Doubled(p);
        if ((m & bit) != 0) p = Next(p, x, oneLessSquare);
    }
    return p;
}

/// T(n) and U(n) for |x| so small that the next term vanishes beside the first.
double OfTiny(int n, double leading, double x) {
    const double sign = n % 4 < 2 ? 1 : -1;
    return sign * (n % 2 == 0 ? 1 : leading * x);
}

constexpr double kTiny = 0x1p-100;

double FirstKind(int n, double x) {
    if (n == 0) return 1;
    if (n == 1) return x;
    if (std::fabs(x) < kTiny) return OfTiny(n, n, x);
    return ToDouble(PairOf(static_cast<unsigned>(n), x).t);
}

double SecondKind(int n, double x) {
    if (n == -1) return 0;
    if (n < 0) return -SecondKind(-n - 2, x);
    if (n == 0) return 1;
    if (n == 1) return 2 * x;
    if (std::fabs(x) < kTiny) return OfTiny(n, n + 1.0, x);
    return ToDouble(PairOf(static_cast<unsigned>(n) + 1, x).u);
}

}  // namespace

KALVEX_WITH_FMA
double Chebyshev(int kind, double degree, double x) {
    if (std::fabs(IntegralDegree(degree, -INFINITY, "Chebyshev")) > MaxOrder)
        throw ap::ap_error{"Chebyshev: the degree is too large"};
    const int n = TruncateToInt32(degree);
    if (kind != 1 && kind != 2) throw ap::ap_error{"Domain error in Chebyshev"};
    if (std::isnan(x)) return x;
    const double value = kind == 1 ? FirstKind(std::abs(n), x) : SecondKind(n, x);
    if (!std::isfinite(value)) throw ap::ap_error{"Overflow in Chebyshev"};
    return value;
}

}  // namespace kalvex::specfun
