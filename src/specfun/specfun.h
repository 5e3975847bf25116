// Special functions of real arguments. Each returns a double, keeps no state, and throws
// ap::ap_error where the library reports overflow, loss of precision or a singularity, or where it
// has no routine yet; the evaluator turns that into an undefined point.
#pragma once

#include <string>

namespace ap {

/// The error object of the special functions.
struct ap_error {
    std::string msg;
};

}  // namespace ap

namespace kalvex::specfun {

double Gamma(double x);
double Psi(double x);
double Beta(double a, double b);
double DawsonF(double x);
double Ei(double x);
double Si(double x);
double Ci(double x);
double Shi(double x);
double Chi(double x);
double FresnelS(double x);
double FresnelC(double x);
double AiryAi(double x);
double AiryBi(double x);
double BesselJ(double order, double x);
double BesselY(double order, double x);
double BesselK(double order, double x);
double BesselI(double order, double x);
double Hypergeometric2F1(double a, double b, double c, double x);
double Chebyshev(int kind, double degree, double x);
double Hermite(double degree, double x);
double Laguerre(double degree, double x);
double Legendre(double degree, double x);

}  // namespace kalvex::specfun
