// Stirling's series (DLMF 5.11.1). Arguments below 32 are raised by the recurrence first: from 32
// on, the first term left out is below 2^-87. Arguments below 0 are reflected (DLMF 5.5.3).
#include "specfun/hypergeometric/log_gamma.h"

#include <cmath>

#include "numbers/extended.h"
#include "specfun/gamma/stirling.h"

namespace kalvex::specfun {
namespace {

constexpr double kLeast = 32;  // see above
// Twice the 2^-95 of Log. Its other part, 2^-102 |ln a|, counts into kOfSum.
constexpr double kOfLogarithm = 0x1p-94;
constexpr double kOfSum = 0x1p-100;  // kPairError, by the sizes of what is added

/// The sum of B(2k) / (2k (2k-1) x^(2k-1)) for k from 1 to 8. The second term is below 2^-23, and
/// it and the others are in plain arithmetic, which is off by some 2^-53 of it.
DoubleDouble Correction(DoubleDouble x) {
    const double r = 1 / x.high;
    const double s = r * r;
    const double tail = 1.0 / 1188 - s * (691.0 / 360360 - s * (1.0 / 156 - s * (3617.0 / 122400)));
    return 1 / (x * 12) - r * s * (1.0 / 360 - s * (1.0 / 1260 - s * (1.0 / 1680 - s * tail)));
}

void AddToLog(const BoundedNumber& more, double sign, GammaProduct& product) {
    BoundedNumber& log = product.log;
    log.value += more.value * sign;
    log.error += more.error + kOfSum * (std::fabs(log.value.high) + std::fabs(more.value.high));
}

/// sin(pi x) / pi, with a relative error below 2^-59.
DoubleDouble SineOverPi(DoubleDouble x) {
    return CosineSinePi(x).sine / kPi;
}

constexpr double kOfSine = 0x1p-59;  // the same bound

}  // namespace

KALVEX_WITH_FMA
BoundedNumber LogGamma(DoubleDouble x) {
    // Of Correction. Measured: at most 2^-73.7, next to x = 32.
    constexpr double kOfCorrection = 0x1p-73;
    DoubleDouble product = {1, 0};
    for (; x.high < kLeast; x += 1)
        product *= x;
    const DoubleDouble log = Log(x);
    const DoubleDouble main = (x - 0.5) * log;
    DoubleDouble value = main - x + kHalfLnTwoPi + Correction(x);
    if (product.high != 1) value -= Log(product);
    const double sizes = std::fabs(main.high) + x.high + std::fabs(value.high) + 1;
    return {value, kOfCorrection + kOfLogarithm * x.high + kOfSum * sizes};
}

void MultiplyByGamma(DoubleDouble x, GammaProduct& product) {
    if (x.high > 0) {
        AddToLog(LogGamma(x), 1, product);
        return;
    }
    const DoubleDouble sine = SineOverPi(x);
    product.failed = product.failed || sine.high == 0;
    product.factor = product.factor / sine;
    product.ofFactor += kOfSine;
    AddToLog(LogGamma(1 - x), -1, product);
}

void DivideByGamma(DoubleDouble x, GammaProduct& product) {
    if (x.high > 0) {
        AddToLog(LogGamma(x), -1, product);
        return;
    }
    const DoubleDouble sine = SineOverPi(x);
    product.vanishes = product.vanishes || sine.high == 0;
    product.factor *= sine;
    product.ofFactor += kOfSine;
    AddToLog(LogGamma(1 - x), 1, product);
}

void MultiplyByPower(DoubleDouble logOfBase, DoubleDouble exponent, GammaProduct& product) {
    const DoubleDouble power = exponent * logOfBase;
    const double error = kOfLogarithm * std::fabs(exponent.high) + kOfSum * std::fabs(power.high);
    AddToLog({power, error}, 1, product);
}

}  // namespace kalvex::specfun
