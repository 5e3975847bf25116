// Special functions of real arguments. Each returns a double, keeps no state, allocates nothing
// and returns for every argument, infinities and not-a-number included; not-a-number as the
// argument x gives not-a-number. Each throws ap::ap_error where a value overflows its method, is
// singular, or where there is no routine. The evaluator turns that into an undefined point and
// applies the language's own domain rules before calling; what is written here as a domain is what
// the routines themselves accept.
//
// In what follows n is the error in units in the last place over 1 + |x f'(x)/f(x)|, x the last
// argument: next to a zero it is small however few digits are right there. docs/accuracy.md has the
// values measured on the reference rows and those that a search found.
#pragma once

#include <string>

namespace ap {

/// The error object of the special functions.
struct ap_error {
    std::string msg;
};

}  // namespace ap

namespace kalvex::specfun {

/// Orders of the modified Bessel functions beyond this magnitude throw.
inline constexpr double MaxModifiedOrder = 1e12;

// The bounds from Psi to FresnelC were searched for on 1.2 million points each, denormal values
// left out, half of them random and half climbing from the worst of these; nothing above was found.

/// Digamma, Gamma'(x)/Gamma(x). Throws "Singularity in Psi(x)" at 0 and the negative integers.
/// Polynomials from 1/2 to 16, the asymptotic series (DLMF 5.11.2) beyond, recurrence between -1
/// and 1/2, reflection (DLMF 5.5.4) below. n below 0.6.
double Psi(double x);

/// Gamma(a) Gamma(b) / Gamma(a + b). All a, b; throws "Overflow in Beta" at poles, infinite where
/// 1/a or 1/b overflows. Positive arguments: Stirling's series (DLMF 5.11.1) for all three gamma
/// functions at once, shifted above 10, the exponent in double-double arithmetic; n below 0.6, 1
/// us. A negative argument is reflected (DLMF 5.5.3): error 1e-14 on the nine rows of its test,
/// more next to the poles and zeros, since sine and sums are taken in one double.
double Beta(double a, double b);

/// exp(-x^2) times the integral of exp(t^2) over 0..x. Odd in x. Power series (DLMF 7.6.3) to 1/2,
/// polynomials to 16, asymptotic series. n below 0.6.
double DawsonF(double x);

/// Exponential integral, the principal value of the integral of exp(t)/t over -infinity..x. Minus
/// infinity at 0; -E1(-x) below it (DLMF 6.6.2, 6.9.1; error 4e-15 on the rows of its test);
/// above it logarithm and power series (DLMF 6.6.2) to 1/4,
/// polynomials to 4, polynomials times exp(x) beyond; plus infinity above 716.35549. n below 0.6
/// for positive x.
double Ei(double x);

/// Logarithmic integral, Ei(ln x), for x above 0, else it throws. Minus infinity at 1. The
/// logarithm is a pair of doubles. n below 0.6 above 1.
double Li(double x);

/// Integral of sin(t)/t over 0..x. Odd in x. Power series to 1/2, polynomials to 4, beyond the
/// auxiliary functions (DLMF 6.2.19). n below 0.6.
double Si(double x);

/// Cosine integral, gamma + ln|x| + the integral of (cos(t)-1)/t over 0..|x|. Even in x: for x
/// below 0 the real part is meant. Minus infinity at 0. Method as Si. n below 0.6.
double Ci(double x);

/// Integral of sinh(t)/t over 0..x. Odd in x. Power series to 1/2, polynomials to 4, polynomials
/// times exp(|x|) to 32, Ei(|x|)/2 beyond. n below 0.6.
double Shi(double x);

/// Hyperbolic cosine integral, gamma + ln|x| + the integral of (cosh(t)-1)/t over 0..|x|. Even in
/// x. Minus infinity at 0. Method as Shi, with the logarithm below 1/2. n below 0.6.
double Chi(double x);

/// Integral of sin(pi/2 t^2) over 0..x. Odd in x. Power series to 1/2, polynomials to 3/2, beyond
/// the auxiliary functions (DLMF 7.5.3, 7.5.4; from 8 on by 7.12.2, 7.12.3) with the exact square;
/// 1/2 beyond 1e17. n below 0.6.
double FresnelS(double x);

/// Integral of cos(pi/2 t^2) over 0..x; the rest as FresnelS. n below 0.6.
double FresnelC(double x);

/// Airy functions. Polynomials near 0; for positive x the leading terms, with zeta = 2/3 |x|^(3/2)
/// in double-double arithmetic, times polynomials in 1/zeta (DLMF 9.7.5, 9.7.7); below -1.875
/// modulus and phase (DLMF 9.8). Down to -1e10 the phase is reduced in double-double arithmetic,
/// beyond with as many digits as it has, so that value and sign are those of the given double down
/// to the largest; that takes a third of a microsecond for 1e20, two at the end of the range.
/// Ai is denormal from 103.9 and 0 from 107.5 on, Bi infinite beyond 104.436; both are 0 at minus
/// infinity. n below 0.55; below -1e10 the error is below 0.8 units in the last place.
double AiryAi(double x);
double AiryBi(double x);

/// Bessel functions of real order: J and Y of every finite order, the modified ones up to
/// MaxModifiedOrder in magnitude; for other orders they throw. All are computed in pairs of doubles
/// with some 57 to 60 bits of precision (J and Y against their modulus, K 55 next to x = 2) and
/// rounded once, to the same bits on every processor: n below 0.51 by search over orders to
/// 100,000, at extrema and next to zeros too, with few points above 1000, where exact values take
/// long. Beyond 100,000, J and Y lose below one unit within 20 order^(1/3) of x = order and below
/// 2^-9 of what a rounding of x changes elsewhere. A call takes 0.1 to 0.4 us, of J and Y of
/// negative orders twice that.
///
/// First kind. All x for integral orders, x from 0 for others, else it throws "Domain error in
/// BesselJV"; negative orders that are not integral throw "Overflow in BesselJV" at 0 and where
/// the value overflows. Orders from 100: Olver's uniform expansion (DLMF 10.20.4) near x = order,
/// Debye's expansions below (10.19.3) and above (10.19.6), there from order 24 on. Smaller ones:
/// power series while x^2/4 <= order + 1 (10.2.2); up to x = 22 (64 for orders above x) Steed's
/// method with Temme's confluent recurrence (1975); beyond, Hankel's expansion (10.17.5) for an
/// order within 1/2 of 0 and recurrence upward, with the Wronskian for orders above x. Negative
/// orders by J and Y of the positive one.
double BesselJ(double order, double x);

/// Second kind. x above 0, else it throws "Domain error in BesselY". For an order within 1/2 of 0
/// Neumann series up to x = 1.5 (Goldstein and Thaler 1959), Steed's method up to 22 and Hankel's
/// expansion beyond, then recurrence upward; expansions for large orders (10.20.5, 10.19.3,
/// 10.19.6) where J has them. Minus infinity (negative orders: plus or minus) where it overflows.
double BesselY(double order, double x);

/// Modified, second kind. x above 0, else it throws "Domain error in BesselKN"; "Overflow in
/// BesselKN" where the value overflows. Even in the order. Temme's series up to x = 2, his
/// confluent recurrence beyond, then upward recurrence; above order 50 the uniform expansion
/// (DLMF 10.41.4).
double BesselK(double order, double x);

/// Modified, first kind. All x for integral orders, else order and x from 0, else it throws
/// "Domain error in BesselIV"; "Overflow in BesselIV" where the value overflows. Power series up
/// to x = 20 or x^2/4 = order + 1; Hankel's expansion from 25 while order^2 <= 4 x; else the
/// Wronskian with K; above order 50 the uniform expansion (DLMF 10.41.3).
double BesselI(double order, double x);

/// Gauss hypergeometric function, -1 < x < 1, else "Domain error in Hypergeometric2F1". A negative
/// integral a or b ends the series, before an integral c = 0, -1, ... divides by zero; otherwise
/// such a c throws "Overflow in Hypergeometric2F1", as do values beyond the range and where every
/// method loses too many digits: most parameters beyond tens of thousands and some of thousands
/// with x next to 1. Power series, directly or in Euler's or Pfaff's form (DLMF 15.8.1); contiguous
/// relations from small parameters (15.5.11 to 15.5.22), outwards or, where the function is the
/// minimal solution, inwards (Gautschi 1967); polynomials also about x = 1 (15.8.7); numbers of two
/// doubles, each method with a bound of its error. For a = c or b = c a power of 1-x (15.4.6),
/// which is also most of the function for a or b and c next to 0. Where that is not enough, with
/// parameters next to 0 or next to integers above all, the series or the solutions at 1 (15.10.13,
/// 15.10.14) with 192 to 2048 bits. What is not known to 2^-57 is thrown. n at most 0.55 at 250,000
/// random points with parameters to 300, tied ones among them, and at 60,000 aimed at the hard
/// cases. Most calls take 0.4 to 5 us for parameters to 10, below 15 to 200 and below 60 to 1000,
/// beyond in proportion to them; numbers of many bits take 20 to 300 us, next to x = 1 up to 1000.
/// docs/hypergeometric.md tells more.
double Hypergeometric2F1(double a, double b, double c, double x);

/// Chebyshev polynomial of kind 1 (T) or 2 (U), integral degrees, all x; T(-n) = T(n),
/// U(-n) = -U(n-2), U(-1) = 0. A zero has no sign, as of all polynomials here. Throws "Overflow in
/// Chebyshev" where the value overflows, only beyond |x| = 1, and "Chebyshev: the degree is too
/// large" where the degree is beyond 2^53 and, times the angle from x to the middle or to the
/// nearer end of the interval, beyond 2^53 too. Doubling of the degree (DLMF 18.5.1, 18.5.2) up to
/// degree 16384, beyond that the cosine of the multiplied angle, in double-double arithmetic. n
/// below 0.51 for degrees to 2^53; 0.05 to 0.2 us.
double Chebyshev(int kind, double degree, double x);

/// Physicists' Hermite polynomials, integral degrees from 0, all x. Throws "Overflow in Hermite"
/// where the value overflows: beyond degree 600 everywhere but at the zero in the middle of odd
/// degrees. Three-term recurrence (DLMF 18.9.1), compensated. n below 0.51; up to 3 us, 0.2 us at
/// degree 50.
double Hermite(double degree, double x);

/// Laguerre polynomials, integral degrees from 0, all x. Throws "Overflow in Laguerre" where the
/// value overflows, and "Laguerre: the degree is too large" where sqrt(4 degree x) passes 1e15,
/// which takes a degree above 1e26. Recurrence of the differences (DLMF 18.9.1), compensated; from
/// degree 600 on the power series in double-double arithmetic, for x above 1156/(4 degree + 2) the
/// expansions of amplitude and phase. n below 0.51; up to 6 us, 0.3 us at degree 50.
double Laguerre(double degree, double x);

/// Legendre polynomial, integral degrees from 0, all x. Throws "Overflow in Legendre" where the
/// value overflows, only beyond |x| = 1, and "Legendre: the degree is too large" as Chebyshev does.
/// Compensated recurrence (DLMF 18.9.1) below degree 60; above, near |x| = 1 the power series in
/// 1-x in double-double arithmetic, elsewhere Stieltjes' expansion (18.15.12). n below 0.51 for
/// degrees to 2^53; 0.3 to 0.6 us at any degree above 50.
double Legendre(double degree, double x);

}  // namespace kalvex::specfun
