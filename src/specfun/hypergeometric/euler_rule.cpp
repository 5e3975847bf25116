// The peak of Euler's integrand, and the step of the trapezoidal rule.
#include "specfun/hypergeometric/euler_rule.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {
namespace {

constexpr double kTwoPi = 2 * kPi.high;  // of Poisson's summation formula, e^(2 pi d/h)

/// A place where g(v+id) may be large, and the logarithm of g there by its peak.
struct Landmark {
    double ofFirst;   // H(V)
    double ofSecond;  // H(wV)
    double log;
};

}  // namespace

// The zero of Q, which is a quadratic in V, too.
double PeakOf(const Integrand& f) {
    const double last = f.fromB.high * f.w.high;
    const double middle = (f.b - f.fromB).high - (f.b - f.a).high * f.z;
    const double root = std::sqrt(middle * middle + 4 * last * f.b.high);
    return middle > 0 ? (middle + root) / (2 * last) : 2 * f.b.high / (root - middle);
}

// The bound is looked at where g(v+id) is likely to be largest: at the peak and at the humps. Next
// to the peak g is e^(-curvature v^2/2), for which the first d is the best.
Rule RuleFor(const Integrand& f, double peak, double rise) {
    // Of d, for small parameters. Chosen: g is singular at d = pi, where its bound becomes
    // infinite.
    constexpr double kFarthest = 2;
    constexpr double kWanted = 48;  // e-foldings: 2^-69, of which sums at d take some
    constexpr int kTrials = 8;      // chosen: values of d, down to 0.13 of the first
    constexpr double kNext = 0.75;  // chosen: each d by the one before
    const double w = f.w.high;
    const auto log = [&](double v) {
        return f.b.high * std::log(v) - f.fromA.high * std::log1p(v) - f.a.high * std::log1p(w * v);
    };
    const auto landmark = [&, atPeak = log(peak)](double v) {
        return Landmark{Hump(v), Hump(w * v), log(v) - atPeak};
    };
    const Landmark landmarks[] = {landmark(peak), landmark(1), landmark(1 / w)};
    // -L'' at the peak, where a hump 4V/(1+V)^2 counts with a quarter
    const double curvature =
        (f.fromA.high * landmarks[0].ofFirst + f.a.high * landmarks[0].ofSecond) / 4;
    // where e^(curvature d^2/2) is e^48; below a curvature of 1 that is beyond kFarthest anyway
    double d = std::min(kFarthest, std::sqrt(2 * kWanted / std::max(curvature, 1.0)));
    Rule best;
    for (int i = 0; i < kTrials; ++i, d *= kNext) {
        const double square = std::sin(d / 2) * std::sin(d / 2);
        double most = 0;
        for (const Landmark& at : landmarks) {
            most = std::max(most, at.log + RiseOf(f.fromA.high, at.ofFirst, square) +
                                      RiseOf(f.a.high, at.ofSecond, square));
        }
        // few bits, so that multiples are exact
        const double h = static_cast<float>(kTwoPi * d / (kWanted + most + rise));
        if (h > best.h) best = {h, d, square, kTwoPi * d / h};
    }
    return best;
}

}  // namespace kalvex::specfun
