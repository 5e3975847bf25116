// Special functions of real arguments. Each returns a double, keeps no state, allocates no memory
// and accepts every argument, including infinities and not-a-number; not-a-number as the argument x
// gives not-a-number. Each throws ap::ap_error where the value overflows, where the function is
// singular and where no method applies. The evaluator turns that into an undefined point. It also
// applies the language's own rules about domains before it calls; the domains given here are those
// of the routines themselves.
//
// In what follows n is the error in units in the last place, divided by 1 + |x f'(x)/f(x)|, where x
// is the last argument. Next to a zero of the function n is small even though few digits are right
// there. docs/accuracy.md has the values measured on the reference rows and the greatest found by a
// search.
#pragma once

#include <string>

namespace ap {

/// What the special functions throw.
struct ap_error {
    std::string msg;
};

}  // namespace ap

namespace kalvex::specfun {

/// Modified Bessel functions throw for orders beyond this magnitude.
inline constexpr double MaxModifiedOrder = 1e12;

// The bounds of n from Psi to FresnelC come from a search of 1.2 million points for each function,
// without denormal values. Half of the points were random; the other half climbed from the worst of
// these. No greater n was found.

/// Digamma, Gamma'(x)/Gamma(x). Throws "Singularity in Psi(x)" at 0 and the negative integers.
/// Polynomials from 1/2 to 16, the asymptotic series (DLMF 5.11.2) beyond, recurrence between -1
/// and 1/2, reflection (DLMF 5.5.4) below. n below 0.6.
double Psi(double x);

/// Gamma(a) Gamma(b) / Gamma(a + b), for all a and b. Throws "Overflow in Beta" at poles; infinite
/// where 1/a or 1/b overflows. For positive arguments Stirling's series (DLMF 5.11.1) for all three
/// gamma functions at once, after a shift of the arguments above 10, with the exponent in
/// double-double arithmetic; n below 0.6, 1 us. A negative argument is reflected (DLMF 5.5.3): the
/// error is 1e-14 on the nine rows of its test and greater next to the poles and zeros, since sines
/// and sums are computed in plain doubles.
double Beta(double a, double b);

/// exp(-x^2) times the integral of exp(t^2) over 0..x. Odd in x. Power series (DLMF 7.6.3) to 1/2,
/// polynomials to 16, asymptotic series. n below 0.6.
double DawsonF(double x);

/// Exponential integral, the principal value of the integral of exp(t)/t over -infinity..x. Minus
/// infinity at 0. Below 0 it is -E1(-x) (DLMF 6.6.2, 6.9.1; error 4e-15 on the rows of its test).
/// Above 0 logarithm and power series (DLMF 6.6.2) to 1/4, polynomials to 4, polynomials times
/// exp(x) beyond; infinite above 716.35549. n below 0.6 for positive x.
double Ei(double x);

/// Logarithmic integral, Ei(ln x), for x above 0; throws for others. Minus infinity at 1. The
/// logarithm is a double-double. n below 0.6 above 1.
double Li(double x);

/// Integral of sin(t)/t over 0..x. Odd in x. Power series to 1/2, polynomials to 4, the auxiliary
/// functions (DLMF 6.2.19) beyond. n below 0.6.
double Si(double x);

/// Cosine integral, gamma + ln|x| + the integral of (cos(t)-1)/t over 0..|x|. Even in x: for
/// negative x it is the real part. Minus infinity at 0. The same methods as for Si. n below 0.6.
double Ci(double x);

/// Integral of sinh(t)/t over 0..x. Odd in x. Power series to 1/2, polynomials to 4, polynomials
/// times exp(|x|) to 32, Ei(|x|)/2 beyond. n below 0.6.
double Shi(double x);

/// Hyperbolic cosine integral, gamma + ln|x| + the integral of (cosh(t)-1)/t over 0..|x|. Even in
/// x. Minus infinity at 0. The same methods as for Shi, with the logarithm below 1/2. n below 0.6.
double Chi(double x);

/// Integral of sin(pi/2 t^2) over 0..x. Odd in x. Power series to 1/2, polynomials to 3/2, beyond
/// that the auxiliary functions (DLMF 7.5.3, 7.5.4; from 8 on by 7.12.2, 7.12.3) with the exact
/// square of x; 1/2 beyond 1e17. n below 0.6.
double FresnelS(double x);

/// Integral of cos(pi/2 t^2) over 0..x; otherwise as FresnelS.
double FresnelC(double x);

/// Airy functions. Polynomials near 0. For positive x the leading terms, with zeta = 2/3 |x|^(3/2)
/// in double-double arithmetic, times polynomials in 1/zeta (DLMF 9.7.5, 9.7.7). Below -1.875
/// modulus and phase (DLMF 9.8). Down to -1e10 the phase is reduced in double-double arithmetic,
/// beyond that with as many digits as it has, so that value and sign are those of the given double
/// for all arguments; this takes a third of a microsecond at -1e20 and two at the end of the range.
/// Ai is denormal from 103.9 on and 0 from 107.5 on, Bi is infinite beyond 104.436; both are 0 at
/// minus infinity. n below 0.55; below -1e10 the error is below 0.8 units in the last place.
double AiryAi(double x);
double AiryBi(double x);

/// Bessel functions of real order: J and Y of every finite order, the modified ones of orders up to
/// MaxModifiedOrder in magnitude; they throw for other orders. All are computed as double-doubles
/// with some 57 to 60 correct bits (J and Y relative to their modulus; K has 55 next to x = 2) and
/// rounded once, with the same bits on every processor. n is below 0.51 by a search over orders to
/// 100,000 that included extrema and points next to zeros; above order 1000 it has few points,
/// because exact values take long there. Beyond order 100,000 J and Y lose less than one unit
/// within 20 order^(1/3) of x = order, and elsewhere less than 2^-9 of what a rounding of x
/// changes. A call takes 0.1 to 0.4 us, twice that for J and Y of negative orders.
///
/// First kind. All x for integral orders, x from 0 on for others, otherwise "Domain error in
/// BesselJV"; negative orders that are not integral throw "Overflow in BesselJV" at 0 and where the
/// value overflows. Orders from 100 on: Olver's uniform expansion (DLMF 10.20.4) near x = order,
/// Debye's expansions below (10.19.3) and above (10.19.6) it, above already from order 24 on.
/// Smaller orders: the power series while x^2/4 <= order + 1 (10.2.2); up to x = 22 (64 for orders
/// above x) Steed's method with Temme's confluent recurrence (1975); beyond, Hankel's expansion
/// (10.17.5) for an order within 1/2 of 0 and recurrence upward, with the Wronskian for orders
/// above x. Negative orders by J and Y of the positive order.
double BesselJ(double order, double x);

/// Second kind. x above 0, otherwise "Domain error in BesselY". For an order within 1/2 of 0
/// Neumann series up to x = 1.5 (Goldstein and Thaler 1959), Steed's method up to 22 and Hankel's
/// expansion beyond, then recurrence upward. Expansions for large orders (10.20.5, 10.19.3,
/// 10.19.6) where J uses them. Minus infinity where it overflows; for negative orders plus or minus
/// infinity.
double BesselY(double order, double x);

/// Modified, second kind. x above 0, otherwise "Domain error in BesselKN"; "Overflow in BesselKN"
/// where the value overflows. Even in the order. Temme's series up to x = 2, his confluent
/// recurrence beyond, then recurrence upward; above order 50 the uniform expansion (DLMF 10.41.4).
double BesselK(double order, double x);

/// Modified, first kind. All x for integral orders, otherwise order and x from 0 on; "Domain error
/// in BesselIV" for others, "Overflow in BesselIV" where the value overflows. Power series up to x
/// = 20 or x^2/4 = order + 1; Hankel's expansion from 25 on while order^2 <= 4 x; otherwise the
/// Wronskian with K; above order 50 the uniform expansion (DLMF 10.41.3).
double BesselI(double order, double x);

/// Gauss hypergeometric function, -1 < x < 1, else "Domain error in Hypergeometric2F1". A negative
/// integral a or b ends the series, before an integral c = 0, -1, ... divides by zero; otherwise
/// such a c throws "Overflow in Hypergeometric2F1", as do values beyond the range and where every
/// method loses too many digits: most parameters beyond tens of thousands and some of thousands
/// with x next to 1. Power series, directly or in Euler's or Pfaff's form (DLMF 15.8.1), each
/// judged by a bound of its error; contiguous relations from small parameters (15.5.11 to 15.5.22),
/// outwards or, where other solutions outgrow the function, inwards (Gautschi 1967); polynomials
/// also about x = 1 (15.8.7); double-double arithmetic. For a = c or b = c a power of 1-x (15.4.6),
/// which is also most of the function for a or b and c next to 0. Where that is not enough, with
/// parameters next to 0 or next to integers above all, the series or the solutions at 1 (15.10.13,
/// 15.10.14) with 192 to 2048 bits. What is not known to 2^-57 is thrown. n at most 0.55 at 250,000
/// random points with parameters to 300, tied ones among them, and at 60,000 aimed at the hard
/// cases. 0.4 to 5 us for parameters to 10, below 30 to 200 and below 50 to 1000, beyond in
/// proportion to them; numbers of many bits take 20 to 250 us, rarely some milliseconds.
/// docs/performance.md tells more.
double Hypergeometric2F1(double a, double b, double c, double x);

/// Chebyshev polynomial of kind 1 (T) or 2 (U), for integral degrees and all x. T(-n) = T(n), U(-n)
/// = -U(n-2), U(-1) = 0. A zero has no sign; this holds for all polynomials here. Throws "Overflow
/// in Chebyshev" where the value overflows, which happens only beyond |x| = 1. Throws "Chebyshev:
/// the degree is too large" where the degree is beyond 2^53 and so is its product with the angle
/// from x to the middle or to the nearer end of the interval. Up to degree 16384 by doubling of the
/// degree (DLMF 18.5.1, 18.5.2), beyond that by the cosine of the multiplied angle, in
/// double-double arithmetic. n below 0.51 for degrees to 2^53; 0.05 to 0.2 us.
double Chebyshev(int kind, double degree, double x);

/// Physicists' Hermite polynomials, for integral degrees from 0 on and all x. Throws "Overflow in
/// Hermite" where the value overflows: beyond degree 600 everywhere except at the zero in the
/// middle of odd degrees. Compensated three-term recurrence (DLMF 18.9.1). n below 0.51; up to 3
/// us, 0.2 us at degree 50.
double Hermite(double degree, double x);

/// Laguerre polynomials, for integral degrees from 0 on and all x. Throws "Overflow in Laguerre"
/// where the value overflows, and "Laguerre: the degree is too large" where sqrt(4 degree x) is
/// above 1e15, which takes a degree above 1e26. Compensated recurrence of the differences (DLMF
/// 18.9.1). From degree 600 on the power series in double-double arithmetic, or for x above 1156/(4
/// degree + 2) the expansions of amplitude and phase. n below 0.51; up to 6 us, 0.3 us at degree
/// 50.
double Laguerre(double degree, double x);

/// Legendre polynomial, for integral degrees from 0 on and all x. Throws "Overflow in Legendre"
/// where the value overflows, which happens only beyond |x| = 1, and "Legendre: the degree is too
/// large" under the same condition as Chebyshev. Compensated recurrence (DLMF 18.9.1) below degree
/// 60. Above, near |x| = 1, the power series in 1-x in double-double arithmetic, elsewhere
/// Stieltjes' expansion (18.15.12). n below 0.51 for degrees to 2^53; 0.3 to 0.6 us at any degree
/// above 50.
double Legendre(double degree, double x);

}  // namespace kalvex::specfun
