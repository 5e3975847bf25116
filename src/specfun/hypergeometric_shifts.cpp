// The Gauss hypergeometric function by steps of 1 in its parameters. The walk starts at parameters
// of the same fractions next to 0, where the series at 0 and at 1 are short, and follows the
// straight line to those wanted: on it the turning points of the equation stay where they are, so
// that a point between them stays there and no solution outgrows the other (Gil, Segura, Temme
// 2007). It costs as many steps as the parameters are large, however fast the function swings.
//
// Beside w^0 the other behaviour at z = 1 is w^s, w = 1-z, s = c-a-b: a step that lowers s
// multiplies rounding errors of that kind by 1/w, one that raises it by w. So both kinds alternate.
#include <algorithm>
#include <array>
#include <cmath>

#include "specfun/hypergeometric_shift_steps.h"

namespace kalvex::specfun {
namespace {

constexpr double kTolerance = 0x1p-100;
constexpr double kStepError = 0x1p-99;
constexpr double kMostShifts = 4000;

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

Route RouteBetween(const HypergeometricParameters& from, const HypergeometricParameters& to) {
    const double counts[] = {std::nearbyint(Subtract(to.a, from.a).high),
                             std::nearbyint(Subtract(to.b, from.b).high),
                             std::nearbyint(Subtract(to.c, from.c).high)};
    Route route;
    for (std::size_t i = 0; i < 3; ++i) {
        Track& track = route.tracks[i];
        const double count = std::fabs(counts[i]);
        track = {count, (counts[i] > 0) == (i == 2), 1 / count, 1 / count};
        (track.raises ? route.ups : route.downs) += track.count;
    }
    return route;
}

/// The next step: one that lowers s only when those that raise it are ahead, so that s stays at
/// least where the straight line has it; of its kind the one that is most behind.
std::size_t NextTrack(Route& route) {
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

double Size(double value, double slope, double scale) {
    return std::fabs(value) + std::fabs(slope) / scale;
}

/// Keeps the numbers normalised and within the range.
void Tidy(Walker& at) {
    constexpr double kLarge = 0x1p800;
    constexpr int kScale = 800;
    at.value = QuickTwoSum(at.value.high, at.value.low);
    at.slope = QuickTwoSum(at.slope.high, at.slope.low);
    const double size = std::fabs(at.value.high) + std::fabs(at.slope.high);
    if (size < kLarge && size > 1 / kLarge) return;
    const int by = size > 1 ? -kScale : kScale;
    at.value = Scale(at.value, by);
    at.slope = Scale(at.slope, by);
    at.companion = std::ldexp(at.companion, by);
    at.companionSlope = std::ldexp(at.companionSlope, by);
    at.exponent -= by;
}

/// What the slope of a solution may be beside its value, that of w^s above all.
double ScaleOf(const HypergeometricParameters& p, const Place& place) {
    const double size = 1 + std::fabs(p.a.high) + std::fabs(p.b.high) + std::fabs(p.c.high);
    return size * std::max(1.0, place.odds.high);
}

/// What is known of the error of a walk: a part along the value, relative to it, and a part along
/// the companion, in units of that.
struct Noise {
    double relative = 0;
    double growth = 0;
};

/// A companion at right angles to the value, where the error is known.
Noise NoiseAt(Walker& at, double error, double scale) {
    at.companion = at.slope.high / scale;
    at.companionSlope = -at.value.high * scale;
    at.collapsed = false;
    return {0, error / Size(at.companion, at.companionSlope, scale)};
}

/// Takes the part along the value off the companion and makes it as large as the value. What is
/// left tells what becomes of the other solution even where the value outgrows it for a while; when
/// it is no more than rounding a new companion takes over.
void Straighten(Walker& at, double scale, Noise& noise) {
    constexpr double kRounding = 0x1p-50;
    constexpr double kDoubtful = 0x1p-40;
    const double size = Size(at.value.high, at.slope.high, scale);
    const double u = at.value.high / size;
    const double v = at.slope.high / size / scale;
    const double before = Size(at.companion, at.companionSlope, scale);
    const double along = (at.companion * u + at.companionSlope / scale * v) / (u * u + v * v);
    at.companion -= along * u;
    at.companionSlope -= along * v * scale;
    const double left = Size(at.companion, at.companionSlope, scale);
    noise.relative += noise.growth * std::fabs(along) / size;
    const double across = noise.growth * std::max(left, before * kRounding);
    if (left < before * kDoubtful) {
        at.companion = v;
        at.companionSlope = -u * scale;
    }
    const double stretch = size / Size(at.companion, at.companionSlope, scale);
    at.companion *= stretch;
    at.companionSlope *= stretch;
    noise.growth = across / size;
}

/// Relative to the value or to its slope.
double ErrorOf(const Walker& at, const Noise& noise, double scale) {
    return kStepError + noise.relative +
           noise.growth * Size(at.companion, at.companionSlope, scale) /
               Size(at.value.high, at.slope.high, scale);
}

/// From the start, where value and slope are given, to p.
HypergeometricPoint Walk(const HypergeometricParameters& from, const HypergeometricPoint& start,
                         const HypergeometricParameters& to, const Place& place) {
    constexpr int kBetweenTidying = 16;
    constexpr double kHopeless = 0x1p-45;
    Route route = RouteBetween(from, to);
    const double steps = route.ups + route.downs;
    if (!(steps <= kMostShifts)) return {{}, {}, 0, true};
    double scale = ScaleOf(from, place);
    Walker at = {from, start.value, start.slope};
    Noise noise = NoiseAt(at, start.error, scale);
    for (int n = 0; n < steps; ++n) {
        const double size = Size(at.value.high, at.slope.high, scale);
        const std::size_t next = NextTrack(route);
        noise.growth += kStepError * size / Size(at.companion, at.companionSlope, scale);
        const double error = ErrorOf(at, noise, scale);
        TakeStep(at, next, route.tracks[next].raises, place);
        scale = ScaleOf(at.p, place);
        if (at.collapsed) {
            noise = NoiseAt(at, error * Size(at.value.high, at.slope.high, scale), scale);
        }
        if (n % kBetweenTidying == 0) {
            Tidy(at);
            Straighten(at, scale, noise);
            const bool lost = noise.relative > kHopeless || !(ErrorOf(at, noise, scale) < 1);
            if (lost) return {{}, {}, 0, true};
        }
    }
    Tidy(at);
    const double size = Size(at.value.high, at.slope.high, scale);
    const double total = size * ErrorOf(at, noise, scale);
    return {at.value, at.slope, total, !std::isfinite(total + at.value.high), false, at.exponent};
}

HypergeometricPoint WalkFrom(const HypergeometricParameters& from,
                             const HypergeometricParameters& to, const Place& place) {
    const HypergeometricPoint start = AtStart(from, place);
    return start.failed ? start : Walk(from, start, to, place);
}

/// F(-n,b;c;z) = (c-b)_n / (c)_n F(-n,b;1+b-c-n;1-z) (DLMF 15.8.7), for c-a-b below 0 and z
/// above 1/2, where the behaviour w^s outgrows the polynomial.
HypergeometricPoint Reflected(const HypergeometricParameters& p, const Place& place) {
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const HypergeometricParameters other = {p.a, p.b, PlusInteger(Negate(s), 1)};
    const Place mirrored = {place.w,    place.z,        place.evens,
                            place.odds, place.inverseZ, place.inverse};
    constexpr double kBearable = 28;
    const double w = place.w.high;  // exact: z is above 1/2
    HypergeometricPoint point = ExpectedLoss(other, w) < kBearable
                                    ? SumHypergeometric(other, place.w, kTolerance)
                                    : WalkFrom(PolynomialStart(other), other, mirrored);
    if (point.failed) point = HypergeometricByParts(other, w);  // before the first zero
    if (point.failed) return point;
    point.slope = LooseProduct(Negate(point.slope), place.odds);
    DoubleDouble numerator = Subtract(p.c, p.b);
    DoubleDouble denominator = p.c;
    DoubleDouble factor = {1, 0};
    for (double k = 0; k < -p.a.high; ++k) {
        factor = LooseProduct(factor, LooseProduct(numerator, Reciprocal(denominator)));
        numerator = PlusInteger(numerator, 1);
        denominator = PlusInteger(denominator, 1);
        int exponent = 0;
        factor.high = std::frexp(factor.high, &exponent);
        factor.low = std::ldexp(factor.low, -exponent);
        point.exponent += exponent;
    }
    point.value = Multiply(point.value, factor);
    point.slope = Multiply(point.slope, factor);
    point.error *= std::fabs(factor.high);
    return point;
}

}  // namespace

KALVEX_WITH_FMA
HypergeometricPoint HypergeometricByShifts(const HypergeometricParameters& p, DoubleDouble z,
                                           DoubleDouble w) {
    return WalkFrom(GeneralStart(p), p, PlaceAt(z, w));
}

KALVEX_WITH_FMA
HypergeometricPoint PolynomialByShifts(const HypergeometricParameters& p, DoubleDouble z,
                                       DoubleDouble w) {
    const DoubleDouble s = Subtract(Subtract(p.c, p.a), p.b);
    const Place place = PlaceAt(z, w);
    if (s.high < 0 && z.high > 0.5) return Reflected(p, place);
    return WalkFrom(PolynomialStart(p), p, place);
}

double ShiftsTo(const HypergeometricParameters& p) {
    const Route route =
        RouteBetween(IsNegativeInteger(p.a) ? PolynomialStart(p) : GeneralStart(p), p);
    return route.ups + route.downs;
}

}  // namespace kalvex::specfun
