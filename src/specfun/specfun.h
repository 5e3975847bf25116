// Special functions of real arguments. Each returns a double, keeps no state, allocates nothing
// and returns for every argument, infinities and not-a-number included; not-a-number as the
// argument x gives not-a-number. Each throws ap::ap_error where a value overflows its method, is
// singular, or where there is no routine. The evaluator turns that into an undefined point and
// applies the language's own domain rules before calling; what is written here as a domain is what
// the routines themselves accept.
//
// Sources: the special-function unit of ALGLIB 3.19 (Cephes algorithms) where nothing else is
// said. Errors below are relative, measured against 40-digit values; near a zero of a function
// they are relative to the local amplitude.
#pragma once

#include <string>

namespace ap {

/// The error object of the special functions.
struct ap_error {
    std::string msg;
};

}  // namespace ap

namespace kalvex::specfun {

/// Degrees of polynomials beyond this magnitude throw: the recurrences would take too long for one
/// point of a curve.
inline constexpr double MaxOrder = 100000.0;

/// The same for the orders of the modified Bessel functions.
inline constexpr double MaxModifiedOrder = 1e12;

/// Gamma function. All x. 0 and negative integers give an infinity, above 171.62 plus infinity,
/// below -171 a zero of the right sign. Error 1e-13, less below 30.
double Gamma(double x);

/// Digamma, Gamma'(x)/Gamma(x). Throws "Singularity in Psi(x)" at 0 and the negative integers. A
/// polynomial about the zero between 1 and 2, recurrence up to 10, the asymptotic series (DLMF
/// 5.11.2) beyond, reflection (DLMF 5.5.4) below 0. n below 1.
double Psi(double x);

/// Gamma(a) Gamma(b) / Gamma(a + b). All a, b; throws "Overflow in Beta" at poles, infinite where
/// 1/a or 1/b overflows. Positive arguments: Stirling's series (DLMF 5.11.1) for all three gamma
/// functions at once, shifted above 10, the exponent in double-double arithmetic; error 2 ulp times
/// 1 + condition number, 1 us. A negative argument: the library, error 3e-13.
double Beta(double a, double b);

// In what follows n is the error in units in the last place over 1 + |x f'(x)/f(x)|, the most seen
// over some thousands of points; docs/accuracy.md has the measured values.

/// exp(-x^2) times the integral of exp(t^2) over 0..x. Odd in x. Power series (DLMF 7.6.3),
/// interpolating polynomials, asymptotic series. n below 0.8.
double DawsonF(double x);

/// Exponential integral, the principal value of the integral of exp(t)/t over -infinity..x. Minus
/// infinity at 0; -E1(-x) below it; above 700 the asymptotic series (DLMF 6.12.2; plus infinity
/// beyond 716.3). n below 1.3 for positive x.
double Ei(double x);

/// Logarithmic integral, Ei(ln x), for x above 0, else it throws. Minus infinity at 1. The
/// logarithm is carried in double-double arithmetic. n below 2.3 above 1.
double Li(double x);

/// Integral of sin(t)/t over 0..x. Odd in x. Power series, polynomials, and from 4 on the auxiliary
/// functions (DLMF 6.2.19). n below 1.
double Si(double x);

/// Cosine integral, gamma + ln|x| + the integral of (cos(t)-1)/t over 0..|x|. Even in x: for x
/// below 0 the real part is meant. Minus infinity at 0. Method as Si. n below 1.4.
double Ci(double x);

/// Integral of sinh(t)/t over 0..x. Odd in x. Ei(|x|)/2 beyond 40. n below 1.2.
double Shi(double x);

/// Hyperbolic cosine integral, gamma + ln|x| + the integral of (cosh(t)-1)/t over 0..|x|. Even in
/// x. Minus infinity at 0. Ei(|x|)/2 beyond 40. n below 1.3.
double Chi(double x);

/// Integral of sin(pi/2 t^2) over 0..x. Odd in x. From 8 on the asymptotic series of the auxiliary
/// functions (DLMF 7.12.2, 7.12.3) with the exact square; 1/2 beyond 1e17. n below 1.
double FresnelS(double x);

/// Integral of cos(pi/2 t^2) over 0..x; the rest as FresnelS. n below 1.2.
double FresnelC(double x);

/// Airy functions. Polynomials near 0; for positive x the leading terms times polynomials in
/// 1/zeta, zeta = 2/3 |x|^(3/2); beyond 25 in magnitude the asymptotic series (DLMF 9.7), below -25
/// with zeta in double-double arithmetic. Ai goes down to 0, Bi up to infinity beyond 104.5. Beyond
/// zeta = 1e15 on the negative axis a rounding of x is a good part of a turn; below -1e200 the
/// limit 0. n below 1.7.
double AiryAi(double x);
double AiryBi(double x);

/// Bessel functions of real order: J and Y of every finite order, the modified ones up to
/// MaxModifiedOrder in magnitude; for other orders they throw. All are computed with 64 bits of
/// precision (53 for what is small beside the rest) and rounded once: n below 0.6, for I and K
/// slowly growing above order 1000. Near the zeros of J and Y the error is that small against their
/// modulus for orders to 1000; from there to 100,000 it grows to some ten units in the last place.
/// Beyond, it is below one within 20 order^(1/3) of x = order and below 2^-9 of what a rounding of
/// x changes elsewhere. J and Y of orders to 100,000 take 4 to 6 ns for each order that x is
/// beyond, so half a millisecond at the largest; of larger ones 0.3 to 1 us, of negative ones twice
/// that.
///
/// First kind. All x for integral orders, x from 0 for others, else it throws "Domain error in
/// BesselJV"; negative orders that are not integral throw "Overflow in BesselJV" at 0 and where
/// the value overflows. Power series while x^2/4 <= order + 1 (DLMF 10.2.2); up to x = 22 (64 for
/// orders above x) Steed's method with Temme's confluent recurrence (1975); beyond, Hankel's
/// expansion (10.17.5) for an order within 1/2 of 0 and recurrence upward, with the Wronskian for
/// orders above x. Orders above 100,000: Olver's uniform expansion (10.20.4) near x = order,
/// Debye's expansions below (10.19.3) and above (10.19.6), there down to 0. Negative orders by J
/// and Y of the positive one.
double BesselJ(double order, double x);

/// Second kind. x above 0, else it throws "Domain error in BesselY". For an order within 1/2 of 0
/// Neumann series up to x = 1.5 (Goldstein and Thaler 1959), Steed's method up to 22 and Hankel's
/// expansion beyond, then recurrence upward; orders above 100,000 as J (10.20.5, 10.19.3, 10.19.6).
/// Minus infinity (negative orders: plus or minus) where it overflows.
double BesselY(double order, double x);

/// Modified, second kind. x above 0, else it throws "Domain error in BesselKN"; "Overflow in
/// BesselKN" where the value overflows. Even in the order. Temme's series up to x = 2, his
/// confluent recurrence beyond, then upward recurrence; above order 1000 the uniform expansion
/// (DLMF 10.41.4).
double BesselK(double order, double x);

/// Modified, first kind. All x for integral orders, else order and x from 0, else it throws
/// "Domain error in BesselIV"; "Overflow in BesselIV" where the value overflows. Power series up
/// to x = 20 or x^2/4 = order + 1; Hankel's expansion from 25 while order^2 <= 4 x; else the
/// Wronskian with K; above order 1000 the uniform expansion (DLMF 10.41.3).
double BesselI(double order, double x);

/// Gauss hypergeometric function, -1 < x < 1, else "Domain error in Hypergeometric2F1". A negative
/// integral a or b ends the series, before an integral c = 0, -1, ... divides by zero; otherwise
/// such a c throws "Overflow in Hypergeometric2F1", as do values beyond the range and where every
/// method loses too many digits: most parameters beyond tens of thousands and some of thousands
/// with x next to 1. Power series, directly or in Euler's or Pfaff's form (DLMF 15.8.1), each
/// judged by a bound of its error; contiguous relations from small parameters (15.5.11 to 15.5.22),
/// outwards or, where other solutions outgrow the function, inwards (Gautschi 1967); polynomials
/// also about x = 1 (15.8.7); double-double arithmetic. Where that is not enough, with parameters
/// next to 0 or next to integers above all, the series or the solutions at 1 (15.10.13, 15.10.14)
/// with 256 to 2048 bits. What is not known to 2^-57 is thrown. n at most 0.55 at 500,000 random
/// points with parameters to 1000, most of them aimed at the hard cases. 0.4 to 5 us for parameters
/// to 10, below 30 to 200 and below 50 to 1000, beyond in proportion to them; numbers of many bits
/// take 40 us to some milliseconds. docs/performance.md tells more.
double Hypergeometric2F1(double a, double b, double c, double x);

/// Chebyshev polynomial of kind 1 (T) or 2 (U), integral degrees up to MaxOrder in magnitude, all x
/// (throws "Overflow in Chebyshev" where the value overflows, only beyond |x| = 1);
/// T(-n) = T(n), U(-n) = -U(n-2), U(-1) = 0. Doubling of the degree (DLMF 18.5.1, 18.5.2) in
/// double-double arithmetic. Error 0.5 ulp times 1 + condition number; 0.2 us at degree 50.
double Chebyshev(int kind, double degree, double x);

/// Physicists' Hermite, Laguerre and Legendre polynomials, integral degrees 0 to MaxOrder, all x.
/// Three-term recurrence (DLMF 18.9), compensated. Each throws "Overflow in ..." where the value
/// overflows. Error 0.5 ulp times 1 + condition number; below 1 us up to degree 50, time grows
/// with the degree.
double Hermite(double degree, double x);
double Laguerre(double degree, double x);
double Legendre(double degree, double x);

}  // namespace kalvex::specfun
