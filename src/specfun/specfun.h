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

/// Integral orders and degrees beyond this magnitude throw: the recurrences would take too long
/// for one point of a curve.
inline constexpr double MaxOrder = 100000.0;

/// Gamma function. All x. 0 and negative integers give an infinity, above 171.62 plus infinity,
/// below -171 a zero of the right sign. Error 1e-13, less below 30.
double Gamma(double x);

/// Digamma, Gamma'(x)/Gamma(x). Throws "Singularity in Psi(x)" at 0 and the negative integers.
double Psi(double x);

/// Gamma(a) Gamma(b) / Gamma(a + b). All a, b; throws "Overflow in Beta" at poles. For positive
/// arguments with a + b above 170: quotients of the Stirling series. Error 3e-13.
double Beta(double a, double b);

/// exp(-x^2) times the integral of exp(t^2) over 0..x. Odd in x.
double DawsonF(double x);

/// Exponential integral, the principal value of the integral of exp(t)/t over -infinity..x. Minus
/// infinity at 0; -E1(-x) below it; above 700 the asymptotic series (plus infinity beyond 716).
double Ei(double x);

/// Integral of sin(t)/t over 0..x. Odd in x.
double Si(double x);

/// Cosine integral, gamma + ln|x| + the integral of (cos(t)-1)/t over 0..|x|. Even in x: for x
/// below 0 the real part is meant. Minus infinity at 0.
double Ci(double x);

/// Integral of sinh(t)/t over 0..x. Odd in x. Ei(|x|)/2 beyond 80.
double Shi(double x);

/// Hyperbolic cosine integral, gamma + ln|x| + the integral of (cosh(t)-1)/t over 0..|x|. Even in
/// x. Minus infinity at 0. Ei(|x|)/2 beyond 80.
double Chi(double x);

/// Integral of sin(pi/2 t^2) over 0..x. Odd in x. Beyond |x| = 36974 exactly 1/2, absolute
/// error below 1e-5.
double FresnelS(double x);

/// Integral of cos(pi/2 t^2) over 0..x; the rest as FresnelS.
double FresnelC(double x);

/// Airy functions. Beyond x = 25 the asymptotic series (DLMF 9.7.5, 9.7.7), error 3e-13: Ai goes
/// down to 0, Bi up to infinity beyond 104. On the negative axis the phase loses digits as
/// |x|^1.5 grows; beyond |x| = 1e200 the limit 0.
double AiryAi(double x);
double AiryBi(double x);

/// Bessel function of the first kind, integral orders up to MaxOrder in magnitude, all x;
/// J(-n,x) = J(n,-x) = (-1)^n J(n,x). Orders 0 and 1 from the library; above them upward recurrence
/// for |x| >= n, else backward recurrence or the power series (the library's own continued
/// fraction fails for |x| above some 50). Error 1e-12. Orders that are not integral: no routine.
double BesselJ(double order, double x);

/// Bessel function of the second kind, integral orders as in J, x above 0, else it throws
/// "Domain error in BesselY". Forward recurrence from orders 0 and 1; minus (even reflected
/// orders: plus or minus) infinity where it overflows. Orders that are not integral: no routine.
double BesselY(double order, double x);

/// Modified Bessel function of the second kind, integral orders as in J, x above 0, else it throws
/// "Domain error in BesselKN"; "Overflow in BesselKN" where the value overflows. Even in the
/// order. Forward recurrence from orders 0 and 1, hence 0 for every order beyond x = 740 where
/// those vanish. Error 1e-13. Orders that are not integral: no routine.
double BesselK(double order, double x);

/// Modified Bessel function of the first kind, orders -1, 0 and 1, all x. Other orders: no
/// routine.
double BesselI(double order, double x);

/// Gauss hypergeometric function: no routine, throws always.
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
