// How each function is computed, for the accuracy page.
#pragma once

#include <array>
#include <string_view>

namespace kalvex::accuracy {

struct Method {
    std::string_view name;  ///< as in goals.h
    std::string_view domain;
    std::string_view method;
    std::string_view source;
};

inline constexpr std::array<Method, 41> kMethods = {{
    {"sin", "all x", "array kernel", "SLEEF"},
    {"cos", "all x", "array kernel", "SLEEF"},
    {"tg", "all x", "array kernel", "SLEEF"},
    {"ln", "x > 0", "array kernel", "SLEEF"},
    {"lg", "x > 0", "array kernel", "SLEEF"},
    {"sh", "all x", "array kernel; half the exponential beyond 709", "SLEEF"},
    {"ch", "all x", "array kernel; half the exponential beyond 709", "SLEEF"},
    {"th", "all x", "array kernel; the double below 1 from 18.52 to 19.06", "SLEEF"},
    {"exp", "all x", "array kernel; of a smaller argument beyond 709", "SLEEF"},
    {"acos", "-1 to 1", "array kernel", "SLEEF"},
    {"asin", "-1 to 1", "array kernel", "SLEEF"},
    {"atg", "all x", "array kernel", "SLEEF"},
    {"int", "all x", "exact", "floor"},
    {"frac", "all x", "the rounded difference", "x - floor(x)"},
    {"abs", "all x", "exact", "sign"},
    {"Gamma", "all x", "array kernel; from Gamma(x + 8) where the value is denormal", "SLEEF"},
    {"Si", "all x", "power series to 0.5, polynomials to 4, auxiliary functions beyond",
     "DLMF 6.6.5, 6.2.19, 6.12.3"},
    {"Ci", "x not 0", "logarithm and power series to 0.5, polynomials to 4, auxiliary functions",
     "DLMF 6.6.6, 6.2.20, 6.12.4"},
    {"Shi", "all x", "power series to 0.5, polynomials on pieces of an octave, times exp(x) from 4",
     "DLMF 6.6.5"},
    {"Chi", "x not 0",
     "logarithm and power series to 0.5, polynomials on pieces of an octave, times exp(x) from 4",
     "DLMF 6.6.6"},
    {"Psi", "all x but 0, -1, -2, ...",
     "polynomials on pieces of an octave to 16, asymptotic series, recurrence about 0, reflection",
     "DLMF 5.5.2, 5.5.4, 5.11.2"},
    {"DawsonF", "all x",
     "power series to 0.5, polynomials on pieces of an octave to 16, asymptotic series",
     "DLMF 7.6.3, 7.12.1"},
    {"Ei", "x > 0",
     "logarithm and power series to 0.25, polynomials on pieces of an octave, times exp(x) from 4",
     "DLMF 6.6.2"},
    {"Sf", "all x",
     "power series to 0.5, polynomials to 1.5, auxiliary functions with the exact square beyond",
     "DLMF 7.6.4, 7.5.3, 7.12.2, 7.12.3"},
    {"Cf", "all x",
     "power series to 0.5, polynomials to 1.5, auxiliary functions with the exact square beyond",
     "DLMF 7.6.6, 7.5.4, 7.12.2, 7.12.3"},
    {"Ai", "all x",
     "polynomials near 0 and in 1/zeta; below -1.9 modulus and phase, the phase reduced exactly",
     "DLMF 9.7.5, 9.8"},
    {"Bi", "all x",
     "polynomials near 0 and in 1/zeta; below -1.9 modulus and phase, the phase reduced exactly",
     "DLMF 9.7.7, 9.8"},
    {"erf", "all x", "array kernel", "SLEEF"},
    {"Li", "x > 1", "Ei(ln x), the logarithm a pair of doubles", "DLMF 6.2.8"},
    {"Beta", "a > 0, b > 0", "one Stirling series for the three gamma functions", "DLMF 5.11.1"},
    {"J", "real orders; x >= 0 unless the order is integral",
     "power series, Steed's method with Temme's recurrence, Hankel's expansion, recurrence; "
     "uniform and Debye's expansions from order 100 and far from x = order",
     "DLMF 10.2.2, 10.17.5, 10.19.3, 10.19.6, 10.20.4; Temme 1975"},
    {"Y", "real orders, x > 0", "Neumann series, then as J",
     "Goldstein and Thaler 1959; Temme 1975; DLMF 10.17.5, 10.19.3, 10.19.6, 10.20.5"},
    {"K", "orders >= 0, x > 0", "Temme's series, continued fraction, recurrence; uniform expansion",
     "Temme 1975; DLMF 10.41.4"},
    {"I", "orders >= 0, x > 0", "power series, Wronskian with K; uniform expansion",
     "DLMF 10.25.2, 10.28.2, 10.41.3"},
    {"Hyper", "-1 < x < 1",
     "the power series or transformation that cancels least; contiguous relations from small "
     "parameters outwards or, where the function is the lesser solution, inwards; sums of 256 to "
     "2048 bits where these lose too many digits",
     "DLMF 15.2.1, 15.8.1, 15.8.7, 15.5.11 to 15.5.22, 15.10.13; Gautschi 1967; Gil, Segura and "
     "Temme 2007"},
    {"log", "base > 0 and not 1, x > 0", "quotient of logarithms of twice the precision",
     "DLMF 4.38.5"},
    {"Cheb", "integral degrees, -1 to 1",
     "doubling of the degree, above 16384 the multiplied angle, in double-double arithmetic",
     "DLMF 18.5.1, 18.5.2"},
    {"Hi", "degrees from 0, all x", "compensated recurrence", "DLMF 18.9.1"},
    {"Lag", "degrees from 0, all x",
     "compensated recurrence; from degree 600 power series, expansions of amplitude and phase",
     "DLMF 18.9.1, 18.5.12, 18.8.1"},
    {"Leg", "degrees from 1, -1 to 1",
     "compensated recurrence below 60; power series near the ends, Stieltjes' expansion elsewhere",
     "DLMF 18.9.1, 18.5.7, 18.15.12; Bogaert, Michiels and Fostier 2012"},
    {"power", "y^x: y >= 0 or x integral",
     "products for integral x, else array kernel; by a logarithm of twice the precision at the end",
     "SLEEF; Dekker 1971"},
}};

}  // namespace kalvex::accuracy
