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
    {"th", "all x", "array kernel", "SLEEF"},
    {"exp", "all x", "array kernel", "SLEEF"},
    {"acos", "-1 to 1", "array kernel", "SLEEF"},
    {"asin", "-1 to 1", "array kernel", "SLEEF"},
    {"atg", "all x", "array kernel", "SLEEF"},
    {"int", "all x", "exact", "floor"},
    {"frac", "all x", "the rounded difference", "x - floor(x)"},
    {"abs", "all x", "exact", "sign"},
    {"Gamma", "all x", "array kernel", "SLEEF"},
    {"Si", "all x", "power series to 1.5, polynomials to 4, auxiliary functions beyond",
     "DLMF 6.6.5, 6.2.19, 6.12.3"},
    {"Ci", "x not 0", "logarithm and power series to 0.75, polynomials to 4, auxiliary functions",
     "DLMF 6.6.6, 6.2.20, 6.12.4"},
    {"Shi", "all x", "power series to 2, Chebyshev series to 40, half of Ei beyond",
     "ALGLIB; DLMF 6.6.5, 6.12.2"},
    {"Chi", "x not 0", "power series to 1, Chebyshev series to 40, half of Ei beyond",
     "ALGLIB; DLMF 6.6.6, 6.12.2"},
    {"Psi", "all x but 0, -1, -2, ...",
     "polynomial about the zero, recurrence to 10, asymptotic series, reflection",
     "DLMF 5.5.2, 5.5.4, 5.11.2"},
    {"DawsonF", "all x", "power series to 0.5, polynomials to 10, asymptotic series",
     "DLMF 7.6.3, 7.12.1"},
    {"Ei", "x > 0", "rational approximations to 700, asymptotic series", "ALGLIB; DLMF 6.12.2"},
    {"Sf", "all x", "rational approximations to 8, asymptotic series with the exact square",
     "ALGLIB; DLMF 7.5.3, 7.12.2, 7.12.3"},
    {"Cf", "all x", "rational approximations to 8, asymptotic series with the exact square",
     "ALGLIB; DLMF 7.5.4, 7.12.2, 7.12.3"},
    {"Ai", "all x", "polynomials near 0 and in 1/zeta, asymptotic series beyond 25",
     "ALGLIB from -25 to -1.9; DLMF 9.7.5, 9.7.9"},
    {"Bi", "all x", "polynomials near 0 and in 1/zeta, asymptotic series beyond 25",
     "ALGLIB from -25 to -2.5 and 0.75 to 3.3; DLMF 9.7.7, 9.7.11"},
    {"erf", "all x", "array kernel", "SLEEF"},
    {"Li", "x > 1", "Ei(ln x), the logarithm in double-double arithmetic", "DLMF 6.2.8"},
    {"Beta", "a > 0, b > 0", "one Stirling series for the three gamma functions", "DLMF 5.11.1"},
    {"J", "real orders; x >= 0 unless the order is integral",
     "power series, Steed's method with Temme's recurrence, Hankel's expansion, recurrence; "
     "uniform and Debye's expansions beyond order 100,000",
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
    {"log", "base > 0 and not 1, x > 0", "quotient of array kernels", "SLEEF"},
    {"Cheb", "integral degrees, -1 to 1", "doubling of the degree in double-double arithmetic",
     "DLMF 18.5.1, 18.5.2"},
    {"Hi", "degrees from 0, all x", "compensated recurrence", "DLMF 18.9.1"},
    {"Lag", "degrees from 0, all x", "compensated recurrence", "DLMF 18.9.1"},
    {"Leg", "degrees from 1, -1 to 1", "compensated recurrence", "DLMF 18.9.1"},
    {"power", "y^x: y >= 0 or x integral", "array kernel", "SLEEF"},
}};

}  // namespace kalvex::accuracy
