// In which order a walk along the contiguous relations changes a, b and c by 1 to come from one set
// of parameters to another. s is c-a-b throughout. Internal to the special functions.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// The steps of one parameter on the way. Its progress is the part of them that will be done after
/// the next one.
struct Track {
    double count = 0;     // how many, whichever way they go
    bool raises = false;  // whether they make s larger
    double pace = 0;      // 1/count
    double progress = 0;  // above 1 when no step is left
};

struct Route {
    std::array<Track, 3> tracks;  // of a, b and c
    double ups = 0;               // steps that raise s
    double downs = 0;
    double upsDone = 0;
    double downsDone = 0;
};

/// The route that changes a, b and c by these integers.
[[nodiscard]] inline Route RouteOf(const std::array<double, 3>& counts) {
    Route route;
    for (std::size_t i = 0; i < 3; ++i) {
        Track& track = route.tracks[i];
        const double count = std::fabs(counts[i]);
        track = {count, (counts[i] > 0) == (i == 2), 1 / count, 1 / count};
        (track.raises ? route.ups : route.downs) += track.count;
    }
    return route;
}

[[nodiscard]] inline std::array<double, 3> StepsBetween(const HypergeometricParameters& from,
                                                        const HypergeometricParameters& to) {
    return {std::nearbyint((to.a - from.a).high), std::nearbyint((to.b - from.b).high),
            std::nearbyint((to.c - from.c).high)};
}

/// The parameters that a part of the steps, from 0 to 1 or more, leads to from p.
[[nodiscard]] inline HypergeometricParameters Beyond(const HypergeometricParameters& p,
                                                     const std::array<double, 3>& steps,
                                                     double part) {
    return {p.a + std::nearbyint(steps[0] * part), p.b + std::nearbyint(steps[1] * part),
            p.c + std::nearbyint(steps[2] * part)};
}

/// Which parameter takes the next step. Steps that raise s come first whenever they are not ahead
/// of those that lower it, so that s never falls below the straight line between both ends. Among
/// the parameters that qualify, the one with the least progress takes the step.
[[nodiscard]] inline std::size_t NextTrack(Route& route) {
    const bool up = route.upsDone * route.downs < (route.downsDone + 1) * route.ups &&
                    route.upsDone < route.ups;
    std::size_t next = 0;
    double least = INFINITY;
    for (std::size_t i = 0; i < 3; ++i) {
        const Track& track = route.tracks[i];
        if (track.raises != up || track.progress >= least) continue;
        next = i;
        least = track.progress;
    }
    route.tracks[next].progress += route.tracks[next].pace;
    (up ? route.upsDone : route.downsDone) += 1;
    return next;
}

}  // namespace kalvex::specfun
