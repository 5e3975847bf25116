// Estimates of what the forms of the hypergeometric function cost. The unit is one term of a series
// in numbers of two doubles, 7 ns. The length of a series follows from how fast its terms fall and
// from where they stop growing. The estimates only order the methods: with half or twice any of the
// constants below scripts/time-hypergeometric tells the same times but for its noise of 5 %.
#include "specfun/hypergeometric/forms.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {
namespace {

/// Whether cancellation is likely to take too many digits. The estimate is pessimistic, and to sum
/// a short series costs little; so a short one is tried up to a higher estimate, and its own error
/// bound decides. With c far below 0 the terms may grow again after they have fallen, when c+k
/// comes near 0; then nothing can be foreseen.
bool IsLikelyToCancel(const HypergeometricParameters& p, double z, double terms) {
    // In e-foldings: the errors of steps, 2^-102, become 2^-61.6, less than a value may have.
    constexpr double kLoss = 28;
    // They become 2^-44. No series that loses that much serves.
    constexpr double kMostLoss = 40;
    constexpr double kShort = 100;  // terms, chosen: they take 0.7 us
    // Up to |z| = 0.1 the powers of z alone have fallen to 10^-40 when c+k comes near 0.
    constexpr double kSmall = 0.1;
    // Chosen: so many terms come before c+k can be next to 0, which is what kSmall counts on.
    constexpr double kFarBelow = -40;
    const double loss = ExpectedLoss(p, z);
    if (p.c.high < kFarBelow && std::fabs(z) > kSmall) return true;
    return loss > kMostLoss || (terms > kShort && loss > kLoss);
}

/// Where the terms stop growing at last: (|a|+k)(|b|+k) z = (c+k)(1+k).
double GreatestTerm(const HypergeometricParameters& p, double z) {
    if (!(z < 1)) return 0;
    const double a = std::fabs(p.a.high);
    const double b = std::fabs(p.b.high);
    const double c = std::max(0.0, p.c.high);
    const double linear = z * (a + b) - c - 1;
    const double root = linear * linear + 4 * (1 - z) * (z * a * b - c);
    return root > 0 ? std::max(0.0, (linear + std::sqrt(root)) / (2 * (1 - z))) : 0;
}

}  // namespace

bool EndsBefore(DoubleDouble a, DoubleDouble c) {
    return IsNegativeInteger(a) && (!IsNegativeInteger(c) || a.high >= c.high);
}

double DegreeOf(const HypergeometricParameters& p) {
    double degree = INFINITY;
    if (EndsBefore(p.a, p.c)) degree = -p.a.high;
    if (EndsBefore(p.b, p.c)) degree = std::min(degree, -p.b.high);
    return degree;
}

std::array<Form, 4> FormsOf(const HypergeometricParameters& p) {
    const DoubleDouble fromA = p.c - p.a;
    const DoubleDouble fromB = p.c - p.b;
    return {Form{p, {}}, Form{{fromA, fromB, p.c}, fromA - p.b},
            Form{{p.a, fromB, p.c}, -p.a, true}, Form{{fromA, p.b, p.c}, -p.b, true}};
}

double ExpectedLoss(const HypergeometricParameters& p, double z) {
    const double a = p.a.high;
    const double b = p.b.high;
    const double c = p.c.high;
    const bool oneSign = c > 0 && (a > 0) == (b > 0) && z > 0;
    if (oneSign) return 0;
    // The terms grow about like |abz|^k/k!^2, whose sum is below e^(2 sqrt(|abz|)), or, beside a
    // large c, like (|abz|/c)^k/k!. A c below 1 counts as 1.
    const double product = std::fabs(a * b * z);
    const double loss = 2 * std::sqrt(product);
    return c > 0 ? std::min(loss, product / std::max(c, 1.0)) : loss;
}

double CostOf(const Form& form, double x) {
    constexpr double kPowerCost = 30;     // logarithm and exponential, some 0.2 us
    constexpr double kMostDegree = 3000;  // more terms than SumHypergeometric takes
    constexpr double kFew = 20;           // terms, chosen: they cost less than any other method
    constexpr double kImpossible = 1e9;   // more than any series that may be tried
    constexpr double kFoldings = 40;      // e-foldings that the terms fall by: 2^-57.7
    const double z = form.pfaff ? x / (x - 1) : x;
    const double magnitude = std::fabs(z);
    // chosen: from where the terms stop growing they take three times as long to fall again
    double terms = kFoldings / -std::log(magnitude) + 4 * GreatestTerm(form.p, magnitude);
    const double decay = form.p.c.high - form.p.a.high - form.p.b.high;
    if (decay > 0) {  // the terms fall as k^(-1-decay) even at z = 1
        const double scale = 1 + std::fabs(form.p.a.high) + std::fabs(form.p.b.high);
        terms = std::min(terms, (scale + std::fabs(form.p.c.high)) * std::exp(kFoldings / decay));
    }
    const double degree = DegreeOf(form.p);
    if (magnitude >= 1 && degree > kMostDegree) return kImpossible;
    terms = std::min(terms, degree);
    if (form.power.high != 0) terms += kPowerCost;
    if (degree < kFew) return terms;
    return IsLikelyToCancel(form.p, z, terms) ? terms + kHopeless : terms;
}

}  // namespace kalvex::specfun
