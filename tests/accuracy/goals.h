// How accurate each function must be, and by which method it is computed, for the accuracy page. An
// error is measured in units in the last place of the exact value and divided by
// 1 + |x f'(x)/f(x)|, because a rounding of x alone changes the value by that much. The goal is the
// largest such error that is allowed anywhere in the domain.
#pragma once

#include <array>
#include <string_view>

namespace kalvex::accuracy {

struct Goal {
    std::string_view name;  ///< of the table in tests/data, without its ending
    double most;
    std::string_view domain;
    std::string_view method;
    std::string_view source;
};

/// A denormal result has few digits. Its error may be this many times the least positive double.
inline constexpr double kDenormalUnits = 4;

/// In the order of the functions in src/expr/functions.inc; powers last.
inline constexpr auto kGoals = std::to_array<Goal>({
    {"sin", 1, "all x", "array kernel", "SLEEF"},
    {"cos", 1, "all x", "array kernel", "SLEEF"},
    {"tg", 1, "all x", "array kernel", "SLEEF"},
    {"ln", 1, "x > 0", "array kernel", "SLEEF"},
    {"lg", 1, "x > 0", "array kernel", "SLEEF"},
    {"sh", 1, "all x", "array kernel; half the exponential beyond 709", "SLEEF"},
    {"ch", 1, "all x", "array kernel; half the exponential beyond 709", "SLEEF"},
    {"th", 1, "all x", "array kernel; the double below 1 from 18.52 to 19.06", "SLEEF"},
    {"exp", 1, "all x", "array kernel; of a smaller argument beyond 709", "SLEEF"},
    {"acos", 1, "-1 to 1", "array kernel", "SLEEF"},
    {"asin", 1, "-1 to 1", "array kernel", "SLEEF"},
    {"atg", 1, "all x", "array kernel", "SLEEF"},
    {"int", 0, "all x", "exact", "floor"},
    {"frac", 0, "all x", "the rounded difference", "x - floor(x)"},
    {"abs", 0, "all x", "exact", "sign"},
    {"Gamma", 1, "all x", "array kernel; from Gamma(x + 8) where the value is denormal", "SLEEF"},
    {"Si", 1, "all x", "power series to 0.5, polynomials to 4, auxiliary functions beyond",
     "DLMF 6.6.5, 6.2.19, 6.12.3"},
    {"Ci", 1, "x not 0", "logarithm and power series to 0.5, polynomials to 4, auxiliary functions",
     "DLMF 6.6.6, 6.2.20, 6.12.4"},
    {"Shi", 1, "all x",
     "power series to 0.5, polynomials on pieces of an octave, times exp(x) from 4", "DLMF 6.6.5"},
    {"Chi", 1, "x not 0",
     "logarithm and power series to 0.5, polynomials on pieces of an octave, times exp(x) from 4",
     "DLMF 6.6.6"},
    {"Psi", 1, "all x but 0, -1, -2, ...",
     "polynomials on pieces of an octave to 16, asymptotic series, recurrence about 0, reflection",
     "DLMF 5.5.2, 5.5.4, 5.11.2"},
    {"DawsonF", 1, "all x",
     "power series to 0.5, polynomials on pieces of an octave to 16, asymptotic series",
     "DLMF 7.6.3, 7.12.1"},
    {"Ei", 1, "x > 0",
     "logarithm and power series to 0.25, polynomials on pieces of an octave, times exp(x) from 4",
     "DLMF 6.6.2"},
    {"Sf", 1, "all x",
     "power series to 0.5, polynomials to 1.5, auxiliary functions with the exact square beyond",
     "DLMF 7.6.4, 7.5.3, 7.12.2, 7.12.3"},
    {"Cf", 1, "all x",
     "power series to 0.5, polynomials to 1.5, auxiliary functions with the exact square beyond",
     "DLMF 7.6.6, 7.5.4, 7.12.2, 7.12.3"},
    {"Ai", 1, "all x",
     "polynomials near 0 and in 1/zeta; below -1.9 modulus and phase, the phase reduced exactly",
     "DLMF 9.7.5, 9.8"},
    {"Bi", 1, "all x",
     "polynomials near 0 and in 1/zeta; below -1.9 modulus and phase, the phase reduced exactly",
     "DLMF 9.7.7, 9.8"},
    {"erf", 1, "all x", "array kernel", "SLEEF"},
    {"Li", 1, "x > 1", "Ei(ln x), the logarithm a pair of doubles", "DLMF 6.2.8"},
    {"Beta", 1.5, "a > 0, b > 0", "one Stirling series for the three gamma functions",
     "DLMF 5.11.1"},
    {"J", 0.55, "real orders; x >= 0 unless the order is integral",
     "power series, Steed's method with Temme's recurrence, Hankel's expansion, recurrence; "
     "uniform and Debye's expansions from order 100 and far from x = order",
     "DLMF 10.2.2, 10.17.5, 10.19.3, 10.19.6, 10.20.4; Temme 1975"},
    {"Y", 0.55, "real orders, x > 0", "Neumann series, then as J",
     "Goldstein and Thaler 1959; Temme 1975; DLMF 10.17.5, 10.19.3, 10.19.6, 10.20.5"},
    {"K", 0.55, "orders >= 0, x > 0",
     "Temme's series, continued fraction, recurrence; uniform expansion",
     "Temme 1975; DLMF 10.41.4"},
    {"I", 0.55, "orders >= 0, x > 0", "power series, Wronskian with K; uniform expansion",
     "DLMF 10.25.2, 10.28.2, 10.41.3"},
    {"Hyper", 0.55, "-1 < x < 1",
     "the power series or transformation that cancels least; contiguous relations from small "
     "parameters outwards or, where the function is the minimal solution, inwards; for large "
     "parameters integrals through saddle points by the trapezoidal rule; sums of 192 to 2048 bits "
     "where these lose too many digits",
     "DLMF 15.2.1, 15.8.1, 15.8.7, 15.5.11 to 15.5.22, 15.6.1, 15.6.2, 15.10.13, 15.10.17; "
     "Gautschi "
     "1967; Gil, Segura and Temme 2007; Trefethen and Weideman 2014"},
    {"log", 1.5, "base > 0 and not 1, x > 0", "quotient of logarithms of twice the precision",
     "DLMF 4.38.5"},
    {"Cheb", 0.55, "integral degrees, -1 to 1",
     "doubling of the degree, above 16384 the multiplied angle, in double-double arithmetic",
     "DLMF 18.5.1, 18.5.2"},
    {"Hi", 0.55, "degrees from 0, all x", "compensated recurrence", "DLMF 18.9.1"},
    {"Lag", 0.55, "degrees from 0, all x",
     "compensated recurrence; from degree 600 power series, expansions of amplitude and phase",
     "DLMF 18.9.1, 18.5.12, 18.8.1"},
    {"Leg", 0.55, "degrees from 1, -1 to 1",
     "compensated recurrence below 60; power series near the ends, Stieltjes' expansion elsewhere",
     "DLMF 18.9.1, 18.5.7, 18.15.12; Bogaert, Michiels and Fostier 2012"},
    {"power", 1, "y^x: y >= 0 or x integral",
     "products for integral x, else array kernel; by a logarithm of twice the precision at the end",
     "SLEEF; Dekker 1971"},
});

}  // namespace kalvex::accuracy
