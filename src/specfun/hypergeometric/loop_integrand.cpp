// Sizes and derivatives of the integrand of the loop integral in plain arithmetic, and what is left
// of the integral beyond a point.
//
// On a ray W = w + r e^(i phi), with V = r/w or V = -r/z, z = 1-w,
//   d ln|f| / d ln r = e1 + e0 p(r/w, phi) + e2 p(r/z, phi+pi),
//   p(V, phi) = Re(V e^(i phi) / (1 + V e^(i phi))) = (V^2 + V cos phi) / (1 + 2V cos phi + V^2),
// and p has its turns where V cos phi = -1 + sin phi and -1 - sin phi, if anywhere. Its range from
// V on, or up to V, follows. If with it |f| r falls on the ray at least like r^-m, the integral is
// below |f| r / m.
#include "specfun/hypergeometric/loop_integrand.h"

#include <algorithm>
#include <cmath>

namespace kalvex::specfun {
namespace {

PlainComplex FromRoot(const LoopIntegrand& f, std::size_t k, PlainComplex at) {
    return at - f.roots[k].high;
}

double Part(double v, double cosine) {
    return (v * v + v * cosine) / (1 + 2 * v * cosine + v * v);
}

struct Range {
    double least;
    double greatest;
};

/// The range of Part from v to the end of the ray.
Range RangeOf(double v, double cosine, PathEnd end) {
    // Chosen: any number below 2^-26, the least sine but 0 that a rounded cosine leads to.
    constexpr double kOnAxis = 1e-9;
    const bool outwards = end == PathEnd::kInfinity;
    const double here = Part(v, cosine);
    const double there = outwards ? 1 : 0;
    Range range = {std::min(here, there), std::max(here, there)};
    if (cosine >= 0) return range;
    const double sine = std::sqrt(std::max(0.0, 1 - cosine * cosine));
    for (const double turn : {(1 - sine) / -cosine, (1 + sine) / -cosine}) {
        if ((turn > v) != outwards) continue;
        if (sine < kOnAxis) return {-INFINITY, INFINITY};  // the ray meets a root
        range.least = std::min(range.least, Part(turn, cosine));
        range.greatest = std::max(range.greatest, Part(turn, cosine));
    }
    return range;
}

double Greatest(double factor, const Range& range) {
    return std::max(factor * range.least, factor * range.greatest);
}

/// The integral on the ray by |f| at its start, as a logarithm; infinite if f is not known to fall.
double LogOfRay(const LoopIntegrand& f, PlainComplex at, PathEnd end) {
    const PlainComplex ray = FromRoot(f, 1, at);
    const double r = std::abs(ray);
    const double cosine = ray.real() / r;
    const double w = f.roots[1].high;
    const double z = (f.roots[2] - f.roots[1]).high;
    const double sign = end == PathEnd::kInfinity ? 1 : -1;
    const double change = sign * (f.exponents[1].high + 1) +
                          Greatest(sign * f.exponents[0].high, RangeOf(r / w, cosine, end)) +
                          Greatest(sign * f.exponents[2].high, RangeOf(r / z, -cosine, end));
    return change < 0 ? std::log(r / -change) : INFINITY;
}

}  // namespace

double LogSize(const LoopIntegrand& f, PlainComplex at) {
    double sum = 0;
    for (std::size_t k = 0; k < kFactors; ++k)
        sum += f.exponents[k].high * std::log(std::norm(FromRoot(f, k, at)));
    return sum / 2;
}

PlainComplex FirstDerivative(const LoopIntegrand& f, PlainComplex at) {
    PlainComplex sum = 0;
    for (std::size_t k = 0; k < kFactors; ++k)
        sum += f.exponents[k].high / FromRoot(f, k, at);
    return sum;
}

PlainComplex SecondDerivative(const LoopIntegrand& f, PlainComplex at) {
    PlainComplex sum = 0;
    for (std::size_t k = 0; k < kFactors; ++k)
        sum -= f.exponents[k].high / (FromRoot(f, k, at) * FromRoot(f, k, at));
    return sum;
}

double MostCurvature(const LoopIntegrand& f, PlainComplex at, double radius) {
    double sum = 0;
    for (std::size_t k = 0; k < kFactors; ++k) {
        const double distance = std::sqrt(std::norm(FromRoot(f, k, at))) - radius;
        if (!(distance > 0)) return INFINITY;
        sum += std::fabs(f.exponents[k].high) / (distance * distance);
    }
    return sum;
}

double LeastDistance(const LoopIntegrand& f, PlainComplex at) {
    double least = INFINITY;
    for (std::size_t k = 0; k < kFactors; ++k)
        least = std::min(least, std::norm(FromRoot(f, k, at)));
    return std::sqrt(least);
}

// Along the steepest descent, in pieces so short that f falls on each of them, until f is known to
// fall on the ray to the end.
double BoundOfTail(const LoopIntegrand& f, double by, PlainComplex at, PathEnd end) {
    // Chosen: as many as a side of a line has nodes. Where that is not enough, the integral is not
    // used.
    constexpr int kMostPieces = 60;
    double sum = 0;
    for (int i = 0; i < kMostPieces && at.imag() >= 0; ++i) {
        const double size = LogSize(f, at) - by;
        const double ray = LogOfRay(f, at, end);
        if (ray < INFINITY) return sum + std::exp(size + ray);
        const PlainComplex slope = FirstDerivative(f, at);
        const double steepness = std::abs(slope);
        // half the way to the next root, so that the second derivative has a bound on it
        double length = LeastDistance(f, at) / 2;
        length = std::min(length, steepness / MostCurvature(f, at, length));
        sum += length * std::exp(size);
        at -= std::conj(slope) * (length / steepness);
    }
    return INFINITY;
}

}  // namespace kalvex::specfun
