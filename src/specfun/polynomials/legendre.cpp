// Legendre polynomials. Low degrees by the compensated recurrence (DLMF 18.9.1). High degrees, with
// N = n + 1/2 and x = cos(theta):
// - N theta below kSeam: the power series in (1-x)/2 (DLMF 18.5.7). Its terms reach exp(N theta),
//   36 bits more than the sum, of the 104 that double-double arithmetic has.
// - Beyond: Stieltjes' expansion (DLMF 18.15.12; Bogaert, Michiels and Fostier 2012), written as
//     P = K Re(exp(i (N theta - pi/4)) S),  K^2 = 2/(pi sin(theta)) (Gamma(n+1)/Gamma(n+3/2))^2,
//     S = sum of h(m) z^m,  z = (1 - i cot(theta))/2,  h(m)/h(m-1) = (m-1/2)^2 / (m (n+m+1/2)).
//   Its error is below twice the first term left out; the least terms are about exp(-2 N theta).
//   S differs from 1 by at most 2^-7.6, so only its first terms need more than doubles.
// - Beyond x = 1 with theta = i eta: the same series, then the growing half of the same expansion.
#include <cmath>

#include "numbers/double_double.h"
#include "numbers/truncate.h"
#include "specfun/polynomials/angle.h"
#include "specfun/polynomials/recurrence.h"
#include "specfun/specfun.h"

namespace kalvex::specfun {
namespace {

/// One step of the recurrence: P(k+1) = t + k/(k+1) (t - P(k-1)), t = x P(k).
void Step(Neighbours& p, double x, double k) {
    const double ratio = k / (k + 1);
    const double ratioLow = std::fma(-ratio, k + 1, k) / (k + 1);
    const DoubleDouble t = TwoProduct(x, p.now.high);
    const double tLow = t.low + x * p.now.low;
    const DoubleDouble s = TwoSum(t.high, -p.before.high);
    const double sLow = s.low + (tLow - p.before.low);
    const DoubleDouble q = TwoProduct(s.high, ratio);
    const double qLow = q.low + (s.high * ratioLow + sLow * ratio);
    const DoubleDouble sum = TwoSum(t.high, q.high);
    p.before = p.now;
    p.now = {sum.high, sum.low + (tLow + qLow)};
}

double ByRecurrence(int n, double x) {
    Neighbours p = {{1, 0}, {x, 0}};
    for (int k = 1; k < n; ++k)
        Step(p, x, k);
    return ToDouble(p.now);
}

/// The power series in t = (1-x)/2, which is exact.
double BySeries(double n, double t) {
    constexpr double kNegligible = 0x1p-70;  // relative to 1 (largest term) or 0.15 (amplitude)
    constexpr double kSmall = 0x1p-18;       // below it plain doubles suffice for the terms
    const DoubleDouble first = TwoSum(n, 1) * n * -t;
    DoubleDouble sum = {1, 0};
    DoubleDouble term = {1, 0};
    double k = 0;
    do {
        const DoubleDouble factor = TwoProduct(k * (k + 1), t) + first;
        ++k;
        term = term * factor / (k * k);
        sum += term;
    } while (std::fabs(term.high) > kSmall || std::fabs(first.high) > k * k);
    double rest = 0;
    for (double next = term.high; std::fabs(next) > kNegligible; rest += next) {
        next *= (k * (k + 1) * t + first.high) / ((k + 1) * (k + 1));
        ++k;
    }
    return ToDouble(sum + rest);
}

struct Complex {
    DoubleDouble real;
    DoubleDouble imaginary;
};

/// S - 1, for z = (1 - i c)/2, or z = (1 + c)/2 where `real` is true.
Complex ExpansionLessOne(double n, DoubleDouble c, bool real) {
    const DoubleDouble eighth = 0.125 / TwoSum(n, 1.5);
    const DoubleDouble product = eighth * c;
    const Complex first = real ? Complex{eighth + product, {}} : Complex{eighth, -product};
    const double zReal = real ? (1 + c.high) / 2 : 0.5;
    const double zImaginary = real ? 0 : -c.high / 2;
    constexpr double kNegligible = 0x1p-64;
    constexpr double kMostTerms = 60;  // up to the least one where N theta is at kSeam
    double termReal = first.real.high;
    double termImaginary = first.imaginary.high;
    double sumReal = 0;
    double sumImaginary = 0;
    for (double m = 2; m < kMostTerms; ++m) {
        const double ratio = (m - 0.5) * (m - 0.5) / (m * (n + m + 0.5));
        const double nextReal = termReal * zReal - termImaginary * zImaginary;
        const double nextImaginary = termReal * zImaginary + termImaginary * zReal;
        termReal = nextReal * ratio;
        termImaginary = nextImaginary * ratio;
        sumReal += termReal;
        sumImaginary += termImaginary;
        if (std::fabs(termReal) + std::fabs(termImaginary) < kNegligible) break;
    }
    return {first.real + sumReal, first.imaginary + sumImaginary};
}

/// K of the method, for a given sine. With w = n + 3/4 the quotient of the gamma functions is
/// w^(-1/2) times a series in 1/w^2 (DLMF 5.11.14).
DoubleDouble Amplitude(double n, DoubleDouble sine) {
    constexpr DoubleDouble kTwoOverPi = {0.6366197723675814, -3.935735335036497e-17};
    constexpr double kSeries[] = {180323.0 / 134217728, -671.0 / 524288, 21.0 / 8192, -1.0 / 64};
    const DoubleDouble w = TwoSum(n, 0.75);
    const double t = 1 / w.high / w.high;
    double sum = 0;
    for (const double coefficient : kSeries)
        sum = coefficient + t * sum;
    const DoubleDouble leading = Sqrt(kTwoOverPi / (w * sine));
    return leading + leading.high * (t * sum);
}

/// Stieltjes' expansion, 0 <= x < 1.
double ByPhase(double n, double x) {
    constexpr DoubleDouble kQuarterPi = {0.7853981633974483, 3.061616997868383e-17};
    const Angle angle = AngleOf(x);
    DoubleDouble phase = TwoSum(n, 0.5) * angle.rest;
    if (angle.quarters == 0) phase -= kQuarterPi;
    if (!(std::fabs(phase.high) <= kLargestPhase))
        throw ap::ap_error{"Legendre: the degree is too large"};
    const auto [cosine, sine] = CosineSineAt(phase, angle.quarters * QuartersOf(n));
    const Complex s = ExpansionLessOne(n, x / angle.sine, false);
    const DoubleDouble wave = cosine * (s.real + 1.0) - sine * s.imaginary;
    return ToDouble(Amplitude(n, angle.sine) * wave);
}

/// The same for x above 1; infinite where the value overflows.
double ByGrowth(double n, double x) {
    constexpr double kLargest = 0x1p100;  // beyond it the values of all degrees from 11 on overflow
    if (x > kLargest) return INFINITY;
    const auto [angle, sine] = HyperbolicAngleOf(x);
    const DoubleDouble phase = TwoSum(n, 0.5) * angle;
    constexpr double kLargestExponent = 1e5;  // times an amplitude above 2^-600
    if (!(phase.high < kLargestExponent)) return INFINITY;
    int exponent = 0;
    const DoubleDouble growth = ExpScaled(phase, exponent);
    const Complex s = ExpansionLessOne(n, x / sine, true);
    const DoubleDouble wave = growth * (s.real + 1.0);
    return std::ldexp(ToDouble(Amplitude(n, sine) * wave), exponent - 1);
}

/// For x >= 0.
double OfMagnitude(double n, double x) {
    constexpr double kRecurred = 60;  // below it the expansion is not faster
    constexpr double kSeam = 25;
    if (n < kRecurred) return ByRecurrence(TruncateToInt32(n), x);
    if (x == 1) return 1;
    if ((n + 0.5) * std::sqrt(2 * std::fabs(1 - x)) < kSeam) return BySeries(n, (1 - x) / 2);
    return x < 1 ? ByPhase(n, x) : ByGrowth(n, x);
}

}  // namespace

KALVEX_WITH_FMA
double Legendre(double degree, double x) {
    const double n = IntegralDegree(degree, 0, "Legendre");
    if (std::isnan(x)) return x;
    if (n == 0) return 1;
    const bool odd = QuartersOf(n) % 2 == 1;
    const int tinyBits = odd ? TinyBits(x) : 0;
    const double magnitude = OfMagnitude(n, std::fabs(std::ldexp(x, tinyBits)));
    const double value = std::ldexp(odd ? std::copysign(1, x) * magnitude : magnitude, -tinyBits);
    return Finite("Legendre", value);
}

}  // namespace kalvex::specfun
