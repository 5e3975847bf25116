// The stretches take equal steps, so that their maps can be worked out lane by lane; what is left
// over is walked between them, where it keeps clear of the zeros that the steps divide by.
#include "specfun/hypergeometric/stretches.h"

#include <cmath>

#include "specfun/hypergeometric/route.h"

namespace kalvex::specfun {
namespace {

/// Of the steps between two sets of parameters what each of four stretches takes: a quarter rounded
/// towards 0, but the longest ways up where that lets s rise by a quarter of its whole rise.
std::array<double, 3> Quarters(const std::array<double, 3>& all) {
    constexpr std::array<double, 3> kOfS = {-1, -1, 1};  // s = c-a-b
    std::array<double, 3> quarters = {};
    std::array<bool, 3> isRounded = {};
    double rise = 0;
    double done = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        quarters[i] = std::trunc(all[i] / kLanes);
        isRounded[i] = quarters[i] * kLanes != all[i];
        rise += kOfS[i] * all[i];
        done += kOfS[i] * quarters[i];
    }
    double missing = std::floor(rise / kLanes) - done;
    while (missing != 0) {
        std::size_t longest = 3;
        for (std::size_t i = 0; i < 3; ++i) {
            if (!isRounded[i] || (kOfS[i] * all[i] > 0) != (missing > 0)) continue;
            if (longest == 3 || std::fabs(all[i]) > std::fabs(all[longest])) longest = i;
        }
        quarters[longest] += std::copysign(1, all[longest]);
        isRounded[longest] = false;
        missing -= std::copysign(1, missing);
    }
    return quarters;
}

/// Of what is left over the part that lies before a stretch.
double PartBefore(std::size_t lane, LeftOver leftOver) {
    if (leftOver == LeftOver::kFirst) return lane > 0 ? 1 : 0;
    if (leftOver == LeftOver::kLast) return lane + 1 == kLanes ? 1 : 0;
    return static_cast<double>(lane) / (kLanes - 1);  // evenly in the gaps between the stretches
}

}  // namespace

Stretches StretchesOf(const HypergeometricParameters& from, const std::array<double, 3>& all,
                      LeftOver leftOver) {
    Stretches stretches = {Quarters(all), {}};
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        const double part = PartBefore(lane, leftOver);
        std::array<double, 3> done = {};
        for (std::size_t i = 0; i < 3; ++i) {
            const double steps = stretches.steps[i];
            done[i] = static_cast<double>(lane) * steps +
                      std::nearbyint(part * (all[i] - kLanes * steps));
        }
        stretches.starts[lane] = Beyond(from, done, 1);
    }
    return stretches;
}

bool Crosses(const Stretches& stretches, const HypergeometricParameters& from,
             const HypergeometricParameters& to) {
    const auto divisors = [](const HypergeometricParameters& p) {
        return std::array<double, 5>{p.a.high, p.b.high, p.c.high, (p.c - p.a).high,
                                     (p.c - p.b).high};
    };
    const auto first = divisors(from);
    const auto last = divisors(to);
    const auto crosses = [&](const HypergeometricParameters& p) {
        const auto here = divisors(p);
        for (std::size_t i = 0; i < here.size(); ++i) {
            if (first[i] * last[i] > 0 && first[i] * here[i] <= 0) return true;
        }
        return false;
    };
    for (const HypergeometricParameters& start : stretches.starts) {
        if (crosses(start) || crosses(Beyond(start, stretches.steps, 1))) return true;
    }
    return false;
}

double Length(const std::array<double, 3>& steps) {
    return std::fabs(steps[0]) + std::fabs(steps[1]) + std::fabs(steps[2]);
}

}  // namespace kalvex::specfun
