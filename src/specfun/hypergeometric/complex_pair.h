// Complex numbers of two doubles for each part. Internal to the special functions.
#pragma once

#include <complex>

#include "numbers/double_double.h"
#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

using PlainComplex = std::complex<double>;

struct ComplexPair {
    DoubleDouble real;
    DoubleDouble imaginary;
};

[[nodiscard]] inline PlainComplex Plain(const ComplexPair& a) {
    return {a.real.high, a.imaginary.high};
}

[[nodiscard]] inline ComplexPair operator+(const ComplexPair& a, const ComplexPair& b) {
    return {LooseSum(a.real, b.real), LooseSum(a.imaginary, b.imaginary)};
}

[[nodiscard]] inline ComplexPair operator*(const ComplexPair& a, const ComplexPair& b) {
    return {LooseDifference(LooseProduct(a.real, b.real), LooseProduct(a.imaginary, b.imaginary)),
            LooseSum(LooseProduct(a.real, b.imaginary), LooseProduct(a.imaginary, b.real))};
}

[[nodiscard]] inline ComplexPair operator*(const ComplexPair& a, DoubleDouble b) {
    return {a.real * b, a.imaginary * b};
}

[[nodiscard]] inline ComplexPair operator*(const ComplexPair& a, double b) {
    return {a.real * b, a.imaginary * b};
}

/// |a|^2.
[[nodiscard]] inline DoubleDouble Norm(const ComplexPair& a) {
    return LooseSum(LooseProduct(a.real, a.real), LooseProduct(a.imaginary, a.imaginary));
}

[[nodiscard]] inline ComplexPair operator/(const ComplexPair& a, const ComplexPair& b) {
    const DoubleDouble inverse = LooseQuotient(1, Norm(b));
    return a * ComplexPair{b.real, -b.imaginary} * inverse;
}

/// The logarithm of a, which is not 0; absolute error below 2^-91 (1 + |ln |a||). Measured at
/// 60,000 points with |a| next to 1: at most 2^-91.9.
[[nodiscard]] ComplexPair LogOf(const ComplexPair& a);

}  // namespace kalvex::specfun
