#include "specfun/hypergeometric/value.h"

#include <cmath>

#include "specfun/specfun.h"

namespace kalvex::specfun {

DoubleDouble LogOneLess(double x) {
    constexpr double kSmall = 0.4;  // chosen: LogOnePlus takes arguments below 1/2
    return std::fabs(x) < kSmall ? LogOnePlus({-x, 0}) : Log(TwoSum(1, -x));
}

Value ValueOf(const Form& form, const HypergeometricPoint& sum, double x) {
    if (sum.singular) throw ap::ap_error{kOverflow};
    if (sum.failed) return {};
    const double own = form.pfaff ? sum.slope.high / (1 - x) : sum.slope.high;
    const double slope = own - form.power.high * x / (1 - x) * sum.value.high;
    Value value = {sum.value, sum.exponent,
                   sum.error / (std::fabs(sum.value.high) + std::fabs(slope)),
                   sum.error / std::fabs(sum.value.high), slope};
    if (form.power.high == 0) return value;
    const DoubleDouble exponent = form.power * LogOneLess(x);
    // Chosen: far beyond the range of a double, 710, and within that of ExpScaled, 1e9.
    constexpr double kMostExponent = 1e8;
    if (!(std::fabs(exponent.high) < kMostExponent)) return {};
    int more = 0;
    const DoubleDouble factor = ExpScaled(exponent, more);
    value.fraction *= factor;
    value.slope *= factor.high;
    value.exponent += more;
    return value;
}

}  // namespace kalvex::specfun
