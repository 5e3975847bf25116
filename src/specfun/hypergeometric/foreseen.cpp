// The terms of a series in plain arithmetic, scaled down where they grow, until they fall for good.
#include "specfun/hypergeometric/foreseen.h"

#include <algorithm>
#include <cmath>

#include "specfun/hypergeometric/counter.h"
#include "specfun/hypergeometric/forms.h"
#include "specfun/hypergeometric/rest_bound.h"

namespace kalvex::specfun {
namespace {

/// Whether the terms from there on fall for good.
bool FallsFrom(const HypergeometricParameters& p, double k, double z) {
    return RestAfter(p.a.high + k, p.b.high + k, p.c.high + k, k + 1, z, 0) < INFINITY;
}

}  // namespace

Foreseen ForeseenOf(const HypergeometricParameters& p, double z) {
    constexpr int kMost = kMostWideTerms;  // longer series are not summed
    constexpr int kScale = 300;  // chosen: term and sum stay within the range when multiplied
    // Of the 53 bits of a double 13 are lost by the roundings of 6000 terms, so that a sum that is
    // smaller than the greatest term by more than the other 40 may be nothing but rounding.
    constexpr double kMeasured = 40;
    const double large = std::ldexp(1, kScale);
    const double settled = -std::min({p.a.high, p.b.high, p.c.high});
    if (settled > kMost && DegreeOf(p) > kMost) return {};
    double term = 1;
    double sum = 1;
    double greatest = 1;
    double scale = 0;
    for (int k = 0; k < kMost; ++k) {
        const double numerator = (p.a.high + k + p.a.low) * (p.b.high + k + p.b.low) * z;
        const double ratio = numerator / ((p.c.high + k + p.c.low) * (k + 1.0));
        term *= ratio;
        sum += term;
        greatest = std::max(greatest, std::fabs(term));
        if (greatest > large) {
            for (double* part : {&term, &sum, &greatest})
                *part = std::ldexp(*part, -kScale);
            scale += kScale;
        }
        const bool isSmall = std::fabs(term) * PowerOfTwo(kWanted) < std::fabs(sum);
        if (numerator != 0 && !(k > settled && isSmall && FallsFrom(p, k + 1.0, z))) continue;
        const double largest = std::log2(greatest);
        const double own = std::log2(std::fabs(sum));
        const bool measured = own > largest - kMeasured;
        return {largest + scale, (measured ? own : largest) + scale, k + 1.0, measured};
    }
    return {};
}

}  // namespace kalvex::specfun
