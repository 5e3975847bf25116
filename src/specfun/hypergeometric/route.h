// The order of the steps of 1 in the parameters of the hypergeometric function that lead from one
// set of parameters to another. Internal to the special functions.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "specfun/hypergeometric/parts.h"

namespace kalvex::specfun {

/// Steps of one of the parameters along the way.
struct Track {
    double count = 0;     // without its sign
    bool raises = false;  // s
    double pace = 0;      // 1/count
    double progress = 0;  // after the next step, above 1 when there is none left
};

struct Route {
    std::array<Track, 3> tracks;  // of a, b and c
    double ups = 0;               // steps that raise s
    double downs = 0;
    double upsDone = 0;
    double downsDone = 0;
};

/// By so many steps, negative ones downwards.
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
    return {std::nearbyint(Subtract(to.a, from.a).high),
            std::nearbyint(Subtract(to.b, from.b).high),
            std::nearbyint(Subtract(to.c, from.c).high)};
}

/// A part of the steps beyond p.
[[nodiscard]] inline HypergeometricParameters Beyond(const HypergeometricParameters& p,
                                                     const std::array<double, 3>& steps,
                                                     double part) {
    return {PlusInteger(p.a, std::nearbyint(steps[0] * part)),
            PlusInteger(p.b, std::nearbyint(steps[1] * part)),
            PlusInteger(p.c, std::nearbyint(steps[2] * part))};
}

/// The next step: one that lowers s only when those that raise it are ahead, so that s stays at
/// least where the straight line has it; of its kind the one that is most behind.
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
