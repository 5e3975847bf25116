// Each term is projected out of what the terms before it left over, and when all are done the
// rest is projected once more: rounding makes the polynomials lose some of their orthogonality, and
// the second round gives back what that cost. Sums are compensated (A. Neumaier, 1974), because a
// thousand and more roundings in a row would be the largest error of all.
#include "interp/least_squares.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/decimal.h"

namespace kalvex {
namespace {

constexpr std::string_view kRoutine = "LEAST_SET";
constexpr double kPointCost = 12.0;  ///< of one point for one term, nanoseconds

constexpr int kRounds = 2;

struct Sum {
    double high = 0.0;
    double low = 0.0;
};

void Add(Sum& sum, double value) {
    const double total = sum.high + value;
    sum.low += std::fabs(sum.high) >= std::fabs(value) ? (sum.high - total) + value
                                                       : (value - total) + sum.high;
    sum.high = total;
}

std::size_t DistinctCount(std::span<const double> X) {
    std::vector<double> sorted;
    std::copy_if(X.begin(), X.end(), std::back_inserter(sorted),
                 [](double value) { return !std::isnan(value); });
    const std::size_t different = X.size() - sorted.size();  // each equals nothing, not even itself
    std::sort(sorted.begin(), sorted.end());
    const auto end = std::unique(sorted.begin(), sorted.end());
    return different + static_cast<std::size_t>(end - sorted.begin());
}

Failure CheckDistinct(std::span<const double> X, std::int32_t NTERMS) {
    const std::size_t distinct = DistinctCount(X);
    if (NTERMS <= 0 || distinct >= static_cast<std::size_t>(NTERMS)) return std::nullopt;
    Diagnostic diagnostic = FatalError(
        kRoutine,
        {"  The number of distinct X values must be",
         "  at least NTERMS = " + std::to_string(NTERMS),
         "  but the input data has only " + std::to_string(distinct), "  distinct entries."},
        StringId::LeastSquaresDistinct);
    // KEEP: this text has no line feed at its end, that of the weights has one.
    diagnostic.box = StringId::LeastSetFailed;
    return diagnostic;
}

Failure CheckWeights(std::span<const double> W) {
    for (std::size_t i = 0; i < W.size(); ++i) {
        if (!(W[i] <= 0.0)) continue;
        Diagnostic diagnostic =
            FatalError(kRoutine,
                       {"  All weights W must be positive,",
                        "  but weight " + std::to_string(i + 1), "  is " + FormatGeneral6(W[i])},
                       StringId::LeastSquaresWeights);
        diagnostic.box = StringId::LeastSetFailedWeights;
        return diagnostic;
    }
    return std::nullopt;
}

/// A power of two that brings half the range of X near 2, where the size of the polynomials stays
/// nearest to 1.
double ScaleOf(std::span<const double> X) {
    const auto [low, high] = std::minmax_element(X.begin(), X.end());
    const double half = *high / 2.0 - *low / 2.0;
    if (!std::isfinite(half) || half <= 0.0) return 1.0;
    const int exponent = std::ilogb(half);
    const bool small = std::ldexp(half, -exponent) < 1.4142135623730951;
    return std::ldexp(1.0, std::clamp((small ? 1 : 0) - exponent, -1000, 1000));
}

/// The data on the way through the terms.
struct Orthogonalisation {
    std::vector<double> x;
    std::vector<double> weight;
    std::vector<double> rest;    ///< the data less the terms so far
    std::vector<double> now;     ///< P(k) at the points
    std::vector<double> before;  ///< P(k-1)
};

/// The squared length of P(k), its mean x, and the part of the rest that lies along it.
struct Projection {
    double square = 0.0;
    double centre = 0.0;
    double part = 0.0;
};

Projection Project(const Orthogonalisation& data) {
    Sum square;
    Sum centre;
    Sum part;
    for (std::size_t i = 0; i < data.x.size(); ++i) {
        const double weighted = data.weight[i] * data.now[i];
        Add(square, weighted * data.now[i]);
        Add(centre, weighted * data.now[i] * data.x[i]);
        Add(part, weighted * data.rest[i]);
    }
    const double length = square.high + square.low;
    return {length, (centre.high + centre.low) / length, (part.high + part.low) / length};
}

/// Takes the part along P(k) off the rest and goes on to P(k+1).
void Advance(Orthogonalisation& data, double part, double B, double C) {
    for (std::size_t i = 0; i < data.x.size(); ++i) {
        data.rest[i] -= part * data.now[i];
        const double next = (data.x[i] - B) * data.now[i] - C * data.before[i];
        data.before[i] = data.now[i];
        data.now[i] = next;
    }
}

void Restart(Orthogonalisation& data) {
    std::fill(data.now.begin(), data.now.end(), 1.0);
    std::fill(data.before.begin(), data.before.end(), 0.0);
}

/// One round over all terms. False when the work is stopped or nothing is a number any more, by
/// underflow or overflow.
bool FitRound(Orthogonalisation& data, LeastSquaresFit& fit, Work& work) {
    Restart(data);
    double squareBefore = 1.0;
    for (std::size_t k = 0; k < fit.D.size(); ++k) {
        const Projection projection = Project(data);
        fit.D[k] += projection.part;
        fit.B[k] = projection.centre;
        fit.C[k] = k == 0 ? 0.0 : projection.square / squareBefore;
        squareBefore = projection.square;
        if (!std::isfinite(projection.centre) || !std::isfinite(projection.part)) return false;
        Advance(data, projection.part, fit.B[k], fit.C[k]);
        if (!Spend(work, kPointCost * static_cast<double>(data.x.size()))) return false;
    }
    return true;
}

void FitTerms(Orthogonalisation& data, LeastSquaresFit& fit, Work& work) {
    for (int round = 0; round < kRounds; ++round)
        if (!FitRound(data, fit, work)) return;
}

}  // namespace

Failure LEAST_SET(std::span<const double> X, std::span<const double> F, std::span<const double> W,
                  std::int32_t NTERMS, LeastSquaresFit& fit, Work& work) {
    fit = {};
    if (Failure failure = CheckDistinct(X, NTERMS)) return failure;
    if (Failure failure = CheckWeights(W)) return failure;
    const std::size_t count = X.size();
    const auto terms = static_cast<std::size_t>(std::max(NTERMS, 0));
    if (terms == 0) return std::nullopt;
    if (static_cast<double>(count) * static_cast<double>(terms) > kMostOperations)
        return FatalError(kRoutine, {"  Too many points."}, StringId::TooMuchWork);
    fit.scale = ScaleOf(X);
    fit.B.assign(terms, 0.0);
    fit.C.assign(terms, 0.0);
    fit.D.assign(terms, 0.0);
    Orthogonalisation data{{X.begin(), X.end()},
                           {W.begin(), W.end()},
                           {F.begin(), F.end()},
                           std::vector<double>(count),
                           std::vector<double>(count)};
    if (W.empty()) data.weight.assign(count, 1.0);
    for (double& x : data.x)
        x *= fit.scale;
    FitTerms(data, fit, work);
    if (work.stopped) fit = {};
    return std::nullopt;
}

double LeastSetCost(std::size_t points, std::int32_t NTERMS) {
    return kRounds * kPointCost * static_cast<double>(points) * std::max(NTERMS, 0);
}

double LEAST_VAL(const LeastSquaresFit& fit, double x) {
    const double scaled = x * fit.scale;
    double before = 0.0;
    double now = 1.0;
    double value = 0.0;
    for (std::size_t k = 0; k < fit.D.size(); ++k) {
        value += fit.D[k] * now;
        const double next = (scaled - fit.B[k]) * now - fit.C[k] * before;
        before = now;
        now = next;
    }
    return value;
}

}  // namespace kalvex
