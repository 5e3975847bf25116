// Special functions of real arguments. Every function returns a double, keeps no state, allocates
// nothing and returns in finite time for every argument, infinities and not-a-number included. If
// the argument x is not-a-number, so is the value. A function throws ap::ap_error where it is
// singular, where its value overflows inside its method, and where it has no method for the
// arguments. The evaluator turns the error into an undefined point. It also applies the language's
// own domain rules before it calls a function; the domains given here are those that the functions
// themselves accept.
//
// Accuracy is given as n: the error in units in the last place, divided by 1 + |x f'(x)/f(x)|,
// where x is the last argument. The divisor is large next to a zero of the function, so a small n
// does not promise correct digits there. docs/accuracy.md has the values measured on the reference
// tables and the worst ones that a search found.
#pragma once

#include <string>

namespace ap {

/// The error object of the special functions.
struct ap_error {
    std::string msg;
};

}  // namespace ap

namespace kalvex::specfun {

/// The modified Bessel functions throw for orders above this magnitude.
inline constexpr double MaxModifiedOrder = 1e12;

// The values of n given from Psi to FresnelC come from a search over 1.2 million points for each
// function, denormal values left out. Half of the points were random, the other half climbed from
// the worst of these towards larger errors. No error above the given n was found.

/// Digamma, Gamma'(x)/Gamma(x). Throws "Singularity in Psi(x)" at 0 and the negative integers.
/// Method: polynomials from 1/2 to 16, the asymptotic series (DLMF 5.11.2) above, recurrence
/// between -1 and 1/2, reflection (DLMF 5.5.4) below. n below 0.6.
[[nodiscard]] double Psi(double x);

/// Gamma(a) Gamma(b) / Gamma(a + b) for all a and b. Throws "Overflow in Beta" at poles; infinite
/// where 1/a or 1/b overflows. For positive arguments one Stirling series (DLMF 5.11.1) serves all
/// three gamma functions; arguments below 10 are shifted above it, and the exponent is computed in
/// double-double arithmetic. n below 0.6; 1 us. Negative arguments are reflected (DLMF 5.5.3). The
/// relative error there is 1e-14 on the nine rows of the test and grows next to poles and zeros,
/// because the sine and the sums of arguments are single doubles.
[[nodiscard]] double Beta(double a, double b);

/// exp(-x^2) times the integral of exp(t^2) over 0..x. Odd in x. Method: power series (DLMF 7.6.3)
/// up to 1/2, polynomials up to 16, the asymptotic series above. n below 0.6.
[[nodiscard]] double DawsonF(double x);

/// Exponential integral, the principal value of the integral of exp(t)/t over -infinity..x. Minus
/// infinity at 0, plus infinity above 716.35549. Method for negative x: -E1(-x)
/// (DLMF 6.6.2, 6.9.1), with a relative error of 4e-15 on the rows of its test. Method for positive
/// x: logarithm and power series (DLMF 6.6.2) up to 1/4, polynomials up to 4, polynomials times
/// exp(x) above; n below 0.6.
[[nodiscard]] double Ei(double x);

/// Logarithmic integral, Ei(ln x), with the logarithm as a pair of doubles. Throws unless x is
/// above 0. Minus infinity at 1. n below 0.6 for x above 1.
[[nodiscard]] double Li(double x);

/// Integral of sin(t)/t over 0..x. Odd in x. Method: power series up to 1/2, polynomials up to 4,
/// the auxiliary functions (DLMF 6.2.19) above. n below 0.6.
[[nodiscard]] double Si(double x);

/// Cosine integral, gamma + ln|x| + the integral of (cos(t)-1)/t over 0..|x|. Even in x: for
/// negative x this is the real part of the function. Minus infinity at 0. Method: as Si. n below
/// 0.6.
[[nodiscard]] double Ci(double x);

/// Integral of sinh(t)/t over 0..x. Odd in x. Method: power series up to 1/2, polynomials up to 4,
/// polynomials times exp(|x|) up to 32, Ei(|x|)/2 above. n below 0.6.
[[nodiscard]] double Shi(double x);

/// Hyperbolic cosine integral, gamma + ln|x| + the integral of (cosh(t)-1)/t over 0..|x|. Even in
/// x. Minus infinity at 0. Method: as Shi, with the logarithm added below 1/2. n below 0.6.
[[nodiscard]] double Chi(double x);

/// Integral of sin(pi/2 t^2) over 0..x. Odd in x. Method: power series up to 1/2, polynomials up to
/// 3/2, above these the auxiliary functions (DLMF 7.5.3, 7.5.4; from 8 on by 7.12.2, 7.12.3), for
/// which x^2 is computed exactly; 1/2 above 1e17. n below 0.6.
[[nodiscard]] double FresnelS(double x);

/// Integral of cos(pi/2 t^2) over 0..x. Odd in x. Method: as FresnelS. n below 0.6.
[[nodiscard]] double FresnelC(double x);

/// Airy functions. Method: polynomials near 0. For larger positive x the leading terms times
/// polynomials in 1/zeta (DLMF 9.7.5, 9.7.7), with zeta = 2/3 |x|^(3/2) in double-double
/// arithmetic. Below -1.875 modulus and phase (DLMF 9.8). Down to -1e10 the phase is reduced in
/// double-double arithmetic; below that it is reduced with all its digits, so that value and sign
/// are right for every double. The exact reduction takes a third of a microsecond at -1e20 and two
/// at the end of the range. Ai is denormal from 103.9 and 0 from 107.5 on, Bi is infinite above
/// 104.436, and both are 0 at minus infinity. n below 0.55; below -1e10 the error is below 0.8
/// units in the last place.
[[nodiscard]] double AiryAi(double x);
[[nodiscard]] double AiryBi(double x);

/// Bessel functions of real order: J and Y for every finite order, the modified ones I and K for
/// orders up to MaxModifiedOrder in magnitude; for other orders they throw.
///
/// All four are computed in pairs of doubles and rounded once, to the same bits on every processor.
/// The pairs are right to 57 to 60 bits: of J and Y relative to their modulus, of K 55 bits next to
/// x = 2. n is below 0.51 by a search over orders up to 100,000, at extrema and next to zeros too.
/// Few of its points have orders above 1000, where exact values take long. For orders above 100,000
/// the error of J and Y is below one unit in the last place where |x - order| < 20 order^(1/3), and
/// elsewhere below 2^-9 of the change that one rounding of x causes. A call takes 0.1 to 0.4 us; J
/// and Y of negative orders take twice that.
///
/// Bessel function of the first kind. Accepts all x for integral orders, x from 0 on for others;
/// throws "Domain error in BesselJV" otherwise. For negative orders that are not integral it throws
/// "Overflow in BesselJV" at x = 0 and where the value overflows.
/// Method for orders from 100 on: Olver's uniform expansion (DLMF 10.20.4) near x = order, Debye's
/// expansions for smaller (10.19.3) and larger x (10.19.6); the latter already from order 24 on.
/// Method for smaller orders: the power series (10.2.2) while x^2/4 <= order + 1; up to x = 22 (64
/// for orders above x) Steed's method with Temme's confluent recurrence (1975); for larger x
/// Hankel's expansion (10.17.5) for an order within 1/2 of 0, then recurrence upward, with the
/// Wronskian for orders above x. Negative orders follow from J and Y of the positive order.
[[nodiscard]] double BesselJ(double order, double x);

/// Bessel function of the second kind. Throws "Domain error in BesselY" unless x is above 0.
/// Infinite where it overflows: minus infinity for positive orders, either sign for negative ones.
/// Method: for an order within 1/2 of 0 Neumann series up to x = 1.5 (Goldstein and Thaler 1959),
/// Steed's method up to 22 and Hankel's expansion above, then recurrence upward; the expansions for
/// large orders (DLMF 10.20.5, 10.19.3, 10.19.6) where J uses its own.
[[nodiscard]] double BesselY(double order, double x);

/// Modified Bessel function of the second kind. Even in the order. Throws "Domain error in
/// BesselKN" unless x is above 0, and "Overflow in BesselKN" where the value overflows. Method:
/// Temme's series up to x = 2, his confluent recurrence above, then recurrence upward; for orders
/// above 50 the uniform expansion (DLMF 10.41.4).
[[nodiscard]] double BesselK(double order, double x);

/// Modified Bessel function of the first kind. Accepts all x for integral orders, otherwise order
/// and x from 0 on; throws "Domain error in BesselIV" for the rest, and "Overflow in BesselIV"
/// where the value overflows. Method: the power series up to x = 20 or x^2/4 = order + 1; Hankel's
/// expansion from x = 25 on while order^2 <= 4 x; otherwise the Wronskian with K; for orders above
/// 50 the uniform expansion (DLMF 10.41.3).
[[nodiscard]] double BesselI(double order, double x);

/// Gauss hypergeometric function for -1 < x < 1; throws "Domain error in Hypergeometric2F1" for
/// other x. For c = 0, -1, ... it has a value only where a or b is a negative integer that ends the
/// series before a term divides by zero. For any other such c it throws "Overflow in
/// Hypergeometric2F1". It throws the same where the value overflows, and where every method loses
/// too many digits: for most parameters above some tens of thousands, and for some above a thousand
/// with x next to 1.
/// Methods, in double-double arithmetic: the power series, directly or in Euler's or Pfaff's form
/// (DLMF 15.8.1); contiguous relations from small parameters (15.5.11 to 15.5.22), outwards or,
/// where the function is the minimal solution, inwards (Gautschi 1967); for polynomials also the
/// expansion about x = 1 (15.8.7). For a = c or b = c the function is a power of 1-x (15.4.6); the
/// same power is the main part of it where c and one of a and b are next to 0. Where none of these
/// is accurate enough, above all for parameters next to 0 or next to integers, the power series or
/// the solutions at x = 1 (15.10.13, 15.10.14) are summed with 192 to 2048 bits. A value that is
/// not known to 2^-57 is not returned: the function throws. n is at most 0.55 at 250,000 random
/// points with parameters up to 300, some with a or b equal to c or close to it, and at 60,000
/// points aimed at the hard cases. Most calls take 0.4 to 5 us for parameters up to 10, less than
/// 15 us up to 200 and less than 60 us up to 1000, and beyond that time in proportion to them. Sums
/// of many bits take 20 to 300 us, next to x = 1 up to 1000. docs/hypergeometric.md has more.
[[nodiscard]] double Hypergeometric2F1(double a, double b, double c, double x);

/// Chebyshev polynomial of kind 1 (T) or 2 (U) for integral degrees and all x, with T(-n) = T(n),
/// U(-n) = -U(n-2) and U(-1) = 0. A zero of this and the other polynomials is always +0. Throws
/// "Overflow in Chebyshev" where the value overflows, which happens only for |x| > 1. Throws
/// "Chebyshev: the degree is too large" where the degree is above 2^53 and its product with the
/// angle from x to the middle or to the nearer end of the interval is above 2^53 as well. Method,
/// in double-double arithmetic: doubling of the degree (DLMF 18.5.1, 18.5.2) up to degree 16384,
/// above that the cosine of the multiplied angle. n below 0.51 for degrees up to 2^53; 0.05 to 0.2
/// us.
[[nodiscard]] double Chebyshev(int kind, double degree, double x);

/// Physicists' Hermite polynomials for integral degrees from 0 on and all x. Throws "Overflow in
/// Hermite" where the value overflows: for degrees above 600 everywhere except at x = 0 for odd
/// degrees. Method: compensated three-term recurrence (DLMF 18.9.1). n below 0.51; up to 3 us, 0.2
/// us at degree 50.
[[nodiscard]] double Hermite(double degree, double x);

/// Laguerre polynomials for integral degrees from 0 on and all x. Throws "Overflow in Laguerre"
/// where the value overflows, and "Laguerre: the degree is too large" where sqrt(4 degree x) is
/// above 1e15, which takes a degree above 1e26. Method: compensated recurrence of the differences
/// (DLMF 18.9.1); from degree 600 on the power series in double-double arithmetic and, for x above
/// 1156/(4 degree + 2), the expansions of amplitude and phase. n below 0.51; up to 6 us, 0.3 us at
/// degree 50.
[[nodiscard]] double Laguerre(double degree, double x);

/// Legendre polynomial for integral degrees from 0 on and all x. Throws "Overflow in Legendre"
/// where the value overflows, which happens only for |x| > 1, and "Legendre: the degree is too
/// large" where Chebyshev does. Method: compensated recurrence (DLMF 18.9.1) below degree 60; for
/// larger degrees the power series in 1-x in double-double arithmetic near |x| = 1, and Stieltjes'
/// expansion (18.15.12) elsewhere. n below 0.51 for degrees up to 2^53; 0.3 to 0.6 us for degrees
/// above 50.
[[nodiscard]] double Legendre(double degree, double x);

}  // namespace kalvex::specfun
