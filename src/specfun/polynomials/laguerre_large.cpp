// With z = sqrt((4n+2) x), L(n,x) oscillates like exp(x/2) J(0,z), with n zeros up to about 4n; for
// degrees from 600 on it overflows long before that. Two methods share what is left:
//
// - The power series (DLMF 18.5.12) for x < 0, where no term is negative and some 900 terms suffice
//   for every value that does not overflow, and up to z = 34, where its largest term is
//   exp(z) / (2 pi z), 2^42, of the 2^104 that two doubles hold.
// - Amplitude and phase of the solutions of the differential equation (DLMF 18.8.1), each by its
//   expansion in powers of 1/z, for which scripts/make-laguerre-coefficients has the formulas. Its
//   first term left out is 2^-60 at z = 34 and falls fast. The constants of integration are 0: in
//   the amplitude they would be even powers of 1/(4n+2), which cancel in a quotient of Gamma
//   functions that is 1; the phase has only half-integral powers of x and therefore no constant.
#include "specfun/polynomials/laguerre_large.h"

#include <cmath>
#include <iterator>
#include <limits>

#include "numbers/double_double.h"
#include "specfun/polynomials/laguerre_coefficients.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

constexpr double kLargestSeriesSquare = 34 * 34;
/// Beyond this x the amplitude is above exp(800). No double is so close to a zero that its value,
/// the amplitude times the distance from the zero, would be finite.
constexpr double kLargestFinite = 1600;
constexpr double kLargestPhase = 1e15;
constexpr double kTinyRatio = 0x1p-106;  // below it 1 - t/6 is 1
constexpr DoubleDouble kQuarterPi = {kPi.high / 4, kPi.low / 4};

/// The sum is scaled by this power of two, so that neither the last term underflows nor the sum
/// overflows.
constexpr int kSeriesBits = 200;
constexpr double kNegligible = 0x1p-80;

double SumOfSeries(double n, double x) {
    DoubleDouble term = {std::ldexp(1.0, -kSeriesBits), 0};
    DoubleDouble sum = term;
    double k = 0;
    do {
        const DoubleDouble ratio = TwoSum(n, -k) * -x / ((k + 1) * (k + 1));
        term *= ratio;
        sum += term;
        ++k;
    } while (std::fabs(term.high) > kNegligible * std::fabs(sum.high));
    return std::ldexp(ToDouble(sum), kSeriesBits);
}

struct CosineSine {
    DoubleDouble cosine;
    DoubleDouble sine;
};

/// Cosine and sine by power series, for |a| up to 1; relative error below 2^-95.
CosineSine CosineSineOf(DoubleDouble a) {
    constexpr int kTerms = 26;    // 1/26! is 2^-88
    constexpr int kDoubles = 14;  // from here on one double is enough: 1/14! is 2^-36
    const DoubleDouble square = a * a;
    double tails[2] = {1, 1};
    for (int k = kTerms; k > kDoubles; k -= 2) {
        tails[0] = 1 - square.high * tails[0] / (k * (k - 1));
        tails[1] = 1 - square.high * tails[1] / (k * (k + 1));
    }
    CosineSine result = {{tails[0], 0}, {tails[1], 0}};
    for (int k = kDoubles; k > 0; k -= 2) {
        const DoubleDouble even = square * result.cosine / (k * (k - 1));
        const DoubleDouble odd = square * result.sine / (k * (k + 1));
        result = {1.0 - even, 1.0 - odd};
    }
    result.sine *= a;
    return result;
}

DoubleDouble CosineOf(DoubleDouble phase) {
    int quadrant = 0;
    const CosineSine rest = CosineSineOf(ReduceByHalfPi(phase, quadrant));
    const DoubleDouble value = quadrant % 2 == 0 ? rest.cosine : rest.sine;
    return quadrant == 1 || quadrant == 2 ? -value : value;
}

double Sum(const LaguerreOrder& order, double t) {
    double sum = 0;
    for (int i = order.count; i-- > 0;)
        sum = sum * t + order.coefficients[i];
    return sum;
}

/// The sum of the orders times powers of w, beginning with the first power.
template <std::size_t count>
double Sum(const LaguerreOrder (&orders)[count], double t, double w) {
    double sum = 0;
    for (std::size_t k = count; k-- > 0;)
        sum = (sum + Sum(orders[k], t)) * w;
    return sum;
}

/// (sqrt(t (1-t)) + arcsin(sqrt(t))) / (2 sqrt(t)), given the roots of t and 1-t. The runtime's arc
/// sine is corrected by the sine of its error.
DoubleDouble MeanFrequency(DoubleDouble root, DoubleDouble otherRoot) {
    const double rough = std::asin(root.high);
    const CosineSine at = CosineSineOf({rough, 0});
    const DoubleDouble error = root * at.cosine - otherRoot * at.sine;
    const DoubleDouble sum = otherRoot + (error + rough) / root;
    return {sum.high / 2, sum.low / 2};
}

/// Amplitude times the cosine of the phase. `quarter` is n + 1/2, `square` is z^2.
double Oscillation(DoubleDouble quarter, double x, DoubleDouble square) {
    const DoubleDouble z = Sqrt(square);
    if (z.high > kLargestPhase) throw ap::ap_error{"Laguerre: the degree is too large"};
    const DoubleDouble t = (x / 4) / quarter;
    const bool isTiny = t.high < kTinyRatio;
    const DoubleDouble otherRoot = isTiny ? DoubleDouble{1, 0} : Sqrt(1.0 - t);
    const DoubleDouble main = isTiny ? z : z * MeanFrequency(Sqrt(t), otherRoot);
    const double u = 1 / (z.high * (otherRoot.high * otherRoot.high * otherRoot.high));
    const double phase = Sum(kLaguerrePhase, t.high, u * u) / u;
    const double amplitude = Sum(kLaguerreAmplitude, t.high, u * u);
    const DoubleDouble cosine = CosineOf(main - kQuarterPi + phase);
    const DoubleDouble modulusSquare = (DoubleDouble{2 * amplitude, 0} + 2) / (z * otherRoot * kPi);
    int exponent = 0;
    const DoubleDouble growth = ExpScaled({x / 2, 0}, exponent);
    const DoubleDouble value = growth * Sqrt(modulusSquare) * cosine;
    return std::ldexp(ToDouble(value), exponent);
}

}  // namespace

KALVEX_WITH_FMA
double LargeLaguerre(double n, double x) {
    if (x > kLargestFinite) return std::numeric_limits<double>::infinity();
    const DoubleDouble quarter = TwoSum(n, 0.5);
    const DoubleDouble product = quarter * x;
    const DoubleDouble square = {4 * product.high, 4 * product.low};
    if (square.high < kLargestSeriesSquare) return SumOfSeries(n, x);
    return Oscillation(quarter, x, square);
}

}  // namespace kalvex::specfun
