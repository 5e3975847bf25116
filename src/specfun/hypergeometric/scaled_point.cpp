#include "specfun/hypergeometric/scaled_point.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {

HypergeometricPoint Times(const GammaProduct& product, HypergeometricPoint point) {
    constexpr double kOutOfRange = 1e9;  // of logarithms: what ExpScaled takes
    const double log = product.log.value.high;
    if (point.failed || product.failed || !(std::fabs(log) < kOutOfRange)) return kFailedPoint;
    int exponent = 0;
    const DoubleDouble power = ExpScaled(product.log.value, exponent);
    const DoubleDouble factor = power * product.factor;
    const double size = std::fabs(factor.high);
    // twice: e^x - 1 is at most 2x
    const double relative = 2 * product.log.error + product.ofFactor;
    point.error = size * (point.error + relative * std::fabs(point.value.high));
    point.value *= factor;
    point.slope *= factor;
    point.exponent += exponent;
    return point;
}

HypergeometricPoint Sum(const HypergeometricPoint& left, const HypergeometricPoint& right) {
    constexpr int kFar = 1000;  // chosen: one of the two counts for nothing by then
    if (left.failed || right.failed) return kFailedPoint;
    const int exponent = std::max(left.exponent, right.exponent);
    HypergeometricPoint sum;
    sum.exponent = exponent;
    for (const HypergeometricPoint* part : {&left, &right}) {
        const int by = std::max(part->exponent - exponent, -kFar);
        sum.value += Scale(part->value, by);
        sum.slope += Scale(part->slope, by);
        sum.error += std::ldexp(part->error, by);
    }
    return sum;
}

}  // namespace kalvex::specfun
