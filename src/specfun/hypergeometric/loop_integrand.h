// The integrand of the loop integral: loop_integral.cpp has the notation. Internal to the special
// functions.
#pragma once

#include <array>
#include <cstddef>

#include "specfun/hypergeometric/complex_pair.h"

namespace kalvex::specfun {

inline constexpr std::size_t kFactors = 3;  // one for each root: 0, w and 1

/// f = W^e0 (w-W)^e1 (1-W)^e2.
struct LoopIntegrand {
    std::array<DoubleDouble, kFactors> exponents;
    std::array<DoubleDouble, kFactors> roots;  // 0, w and 1
};

/// W, w-W or 1-W.
[[nodiscard]] inline ComplexPair FactorAt(const LoopIntegrand& f, std::size_t k,
                                          const ComplexPair& at) {
    if (k == 0) return at;
    return {f.roots[k] - at.real, -at.imaginary};
}

/// ln |f|.
[[nodiscard]] double LogSize(const LoopIntegrand& f, PlainComplex at);

/// The first and the second derivative of ln f.
[[nodiscard]] PlainComplex FirstDerivative(const LoopIntegrand& f, PlainComplex at);
[[nodiscard]] PlainComplex SecondDerivative(const LoopIntegrand& f, PlainComplex at);

/// A bound of the second derivative within `radius` of a point; infinite next to a root.
[[nodiscard]] double MostCurvature(const LoopIntegrand& f, PlainComplex at, double radius);

/// How far the next root is.
[[nodiscard]] double LeastDistance(const LoopIntegrand& f, PlainComplex at);

/// Where a path of integration ends.
enum class PathEnd { kInfinity, kZero };  // kZero: at w

/// A bound of the integral of |f| e^-by on some path in the upper half-plane from a point to an
/// end of the path; infinite if none is found.
[[nodiscard]] double BoundOfTail(const LoopIntegrand& f, double by, PlainComplex at, PathEnd end);

}  // namespace kalvex::specfun
