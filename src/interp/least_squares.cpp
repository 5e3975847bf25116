// Each term is projected out of the residual of the terms before it. In double precision the
// polynomials lose some of their orthogonality by rounding, so the final residual is projected on
// all of them a second time, which restores the accuracy. Sums are compensated there (A. Neumaier,
// 1974): the errors of a thousand additions would otherwise be the largest of all. Double-double
// arithmetic needs neither. One template serves both.
#include "interp/least_squares.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

#include "interp/stoppable_sort.h"
#include "numbers/decimal.h"
#include "numbers/double_double.h"

namespace kalvex {
namespace {

constexpr std::string_view kRoutine = "LEAST_SET";
/// Operations for one point and one term; then how many times all terms are projected.
template <typename Number>
constexpr double kPointCost = std::is_same_v<Number, double> ? 12.0 : 60.0;
template <typename Number>
constexpr int kRounds = std::is_same_v<Number, double> ? 2 : 1;

/// A sum of many terms; of plain doubles a compensated one.
template <typename Number>
struct LongSum {
    Number total{};
    double rest = 0.0;
};

void AddTo(LongSum<double>& sum, double value) {
    const double total = sum.total + value;
    sum.rest += std::fabs(sum.total) >= std::fabs(value) ? (sum.total - total) + value
                                                         : (value - total) + sum.total;
    sum.total = total;
}

void AddTo(LongSum<DoubleDouble>& sum, DoubleDouble value) {
    sum.total += value;
}

double TotalOf(const LongSum<double>& sum) {
    return sum.total + sum.rest;
}

DoubleDouble TotalOf(const LongSum<DoubleDouble>& sum) {
    return sum.total;
}

/// Any number when the work was stopped.
std::size_t DistinctCount(std::span<const double> X, Work& work) {
    std::vector<double> sorted;
    std::copy_if(X.begin(), X.end(), std::back_inserter(sorted),
                 [](double value) { return !std::isnan(value); });
    const std::size_t different = X.size() - sorted.size();  // a not-a-number equals no other
    if (!SortStoppably(sorted, work)) return different;
    const auto end = std::unique(sorted.begin(), sorted.end());
    return different + static_cast<std::size_t>(end - sorted.begin());
}

Failure CheckDistinct(std::span<const double> X, std::int32_t NTERMS, Work& work) {
    const std::size_t distinct = DistinctCount(X, work);
    if (work.stopped) return std::nullopt;
    if (NTERMS <= 0 || distinct >= static_cast<std::size_t>(NTERMS)) return std::nullopt;
    Diagnostic diagnostic = FatalError(
        kRoutine,
        {"  The number of distinct X values must be",
         "  at least NTERMS = " + std::to_string(NTERMS),
         "  but the input data has only " + std::to_string(distinct), "  distinct entries."},
        StringId::LeastSquaresDistinct);
    // KEEP: this box text has no line feed at its end, the one about the weights has.
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

/// A power of two that scales half the range of X to about 2, where the values of the polynomials
/// stay nearest to 1.
double ScaleOf(std::span<const double> X) {
    const auto [low, high] = std::minmax_element(X.begin(), X.end());
    const double half = *high / 2.0 - *low / 2.0;
    if (!std::isfinite(half) || half <= 0.0) return 1.0;
    const int exponent = std::ilogb(half);
    const bool small = std::ldexp(half, -exponent) < 1.4142135623730951;
    return std::ldexp(1.0, std::clamp((small ? 1 : 0) - exponent, -1000, 1000));
}

/// The values at the points while the terms are computed one by one.
template <typename Number>
struct Orthogonalisation {
    std::vector<double> x;
    std::vector<double> weight;
    std::vector<Number> rest;    ///< residual: the data minus the terms so far
    std::vector<Number> now;     ///< P(k) at the points
    std::vector<Number> before;  ///< P(k-1)
};

template <typename Number>
struct Coefficients {
    std::vector<Number> B;
    std::vector<Number> C;
    std::vector<Number> D;
};

/// The squared norm of P(k), its weighted mean of x, and the coefficient of the residual along it.
template <typename Number>
struct Projection {
    Number square{};
    Number centre{};
    Number part{};
};

template <typename Number>
Projection<Number> Project(const Orthogonalisation<Number>& data) {
    LongSum<Number> square;
    LongSum<Number> centre;
    LongSum<Number> part;
    for (std::size_t i = 0; i < data.x.size(); ++i) {
        const Number weighted = Number{data.weight[i]} * data.now[i];
        const Number squared = weighted * data.now[i];
        AddTo(square, squared);
        AddTo(centre, squared * Number{data.x[i]});
        AddTo(part, weighted * data.rest[i]);
    }
    const Number length = TotalOf(square);
    return {length, TotalOf(centre) / length, TotalOf(part) / length};
}

/// P(k+1) at a point.
template <typename Number>
Number NextValue(double x, Number B, Number C, Number now, Number before) {
    return (Number{x} - B) * now - C * before;
}

/// Subtracts the part along P(k) from the residual and computes P(k+1).
template <typename Number>
void Advance(Orthogonalisation<Number>& data, Number part, Number B, Number C) {
    for (std::size_t i = 0; i < data.x.size(); ++i) {
        data.rest[i] -= part * data.now[i];
        const Number next = NextValue(data.x[i], B, C, data.now[i], data.before[i]);
        data.before[i] = data.now[i];
        data.now[i] = next;
    }
}

/// Projects all terms once. False when the work is stopped, or when underflow or overflow has made
/// a coefficient infinite or not-a-number.
template <typename Number>
bool FitRound(Orthogonalisation<Number>& data, Coefficients<Number>& fit, Work& work) {
    std::fill(data.now.begin(), data.now.end(), Number{1.0});
    std::fill(data.before.begin(), data.before.end(), Number{});
    Number squareBefore = Number{1.0};
    for (std::size_t k = 0; k < fit.D.size(); ++k) {
        const Projection<Number> projection = Project(data);
        fit.D[k] += projection.part;
        fit.B[k] = projection.centre;
        fit.C[k] = k == 0 ? Number{} : projection.square / squareBefore;
        squareBefore = projection.square;
        if (!std::isfinite(HighOf(projection.centre)) || !std::isfinite(HighOf(projection.part)))
            return false;
        Advance(data, projection.part, fit.B[k], fit.C[k]);
        if (!Spend(work, kPointCost<Number> * static_cast<double>(data.x.size()))) return false;
    }
    return true;
}

template <typename Number>
Coefficients<Number> FitTerms(std::span<const double> X, std::span<const double> F,
                              std::span<const double> W, double scale, std::size_t terms,
                              Work& work) {
    Orthogonalisation<Number> data{{X.begin(), X.end()},
                                   {W.begin(), W.end()},
                                   {},
                                   std::vector<Number>(X.size()),
                                   std::vector<Number>(X.size())};
    if (W.empty()) data.weight.assign(X.size(), 1.0);
    for (double& x : data.x)
        x *= scale;
    for (const double value : F)
        data.rest.push_back(Number{value});
    Coefficients<Number> fit{std::vector<Number>(terms), std::vector<Number>(terms),
                             std::vector<Number>(terms)};
    for (int round = 0; round < kRounds<Number>; ++round)
        if (!FitRound(data, fit, work)) break;
    return fit;
}

void Split(const std::vector<DoubleDouble>& numbers, std::vector<double>& high,
           std::vector<double>& low) {
    for (const DoubleDouble& number : numbers) {
        high.push_back(number.high);
        low.push_back(number.low);
    }
}

KALVEX_WITH_FMA void FitTwice(std::span<const double> X, std::span<const double> F,
                              std::span<const double> W, std::size_t terms, LeastSquaresFit& fit,
                              Work& work) {
    const auto found = FitTerms<DoubleDouble>(X, F, W, fit.scale, terms, work);
    Split(found.B, fit.B, fit.lowB);
    Split(found.C, fit.C, fit.lowC);
    Split(found.D, fit.D, fit.lowD);
}

bool FitsTwice(std::size_t points, std::size_t terms) {
    return static_cast<double>(points) * static_cast<double>(terms) <= kTwiceOperations;
}

bool IsFinite(std::span<const double> numbers) {
    return std::all_of(numbers.begin(), numbers.end(),
                       [](double number) { return std::isfinite(number); });
}

/// The sum of the terms at x * scale, where `coefficient` gives B, C and D of a term.
template <typename Number, typename CoefficientOf>
Number SumOfTerms(std::size_t terms, double scaled, const CoefficientOf& coefficient) {
    Number before{};
    Number now = Number{1.0};
    Number value{};
    for (std::size_t k = 0; k < terms; ++k) {
        const auto [B, C, D] = coefficient(k);
        value += D * now;
        const Number next = NextValue(scaled, B, C, now, before);
        before = now;
        now = next;
    }
    return value;
}

KALVEX_WITH_FMA DoubleDouble TwiceValue(const LeastSquaresFit& fit, double scaled) {
    return SumOfTerms<DoubleDouble>(fit.D.size(), scaled, [&fit](std::size_t k) {
        return std::array<DoubleDouble, 3>{DoubleDouble{fit.B[k], fit.lowB[k]},
                                           DoubleDouble{fit.C[k], fit.lowC[k]},
                                           DoubleDouble{fit.D[k], fit.lowD[k]}};
    });
}

double PlainValue(const LeastSquaresFit& fit, double scaled) {
    return SumOfTerms<double>(fit.D.size(), scaled, [&fit](std::size_t k) {
        return std::array<double, 3>{fit.B[k], fit.C[k], fit.D[k]};
    });
}

}  // namespace

Failure LEAST_SET(std::span<const double> X, std::span<const double> F, std::span<const double> W,
                  std::int32_t NTERMS, LeastSquaresFit& fit, Work& work) {
    fit = {};
    if (Failure failure = CheckDistinct(X, NTERMS, work)) return failure;
    if (work.stopped) return std::nullopt;
    if (Failure failure = CheckWeights(W)) return failure;
    const auto terms = static_cast<std::size_t>(std::max(NTERMS, 0));
    if (terms == 0) return std::nullopt;
    if (static_cast<double>(X.size()) * static_cast<double>(terms) > kMostOperations)
        return FatalError(kRoutine, {"  Too many points."}, StringId::TooMuchWork);
    fit.scale = ScaleOf(X);
    if (FitsTwice(X.size(), terms)) FitTwice(X, F, W, terms, fit, work);
    // Double-double arithmetic overflows and underflows earlier than double precision. Where it has
    // failed, double precision may still give a fit.
    const bool failed = !IsFinite(fit.B) || !IsFinite(fit.C) || !IsFinite(fit.D);
    if (fit.D.empty() || failed) {
        auto plain = FitTerms<double>(X, F, W, fit.scale, terms, work);
        fit = {fit.scale, std::move(plain.B), std::move(plain.C), std::move(plain.D), {}, {}, {}};
    }
    if (work.stopped) fit = {};
    return std::nullopt;
}

double LeastSetCost(std::size_t points, std::int32_t NTERMS) {
    const auto terms = static_cast<std::size_t>(std::max(NTERMS, 0));
    const double cost = FitsTwice(points, terms) ? kRounds<DoubleDouble> * kPointCost<DoubleDouble>
                                                 : kRounds<double> * kPointCost<double>;
    return cost * static_cast<double>(points) * static_cast<double>(terms);
}

double LEAST_VAL(const LeastSquaresFit& fit, double x) {
    const double scaled = x * fit.scale;
    if (!fit.lowD.empty()) {
        const DoubleDouble value = TwiceValue(fit, scaled);
        if (std::isfinite(value.high) && std::isfinite(value.low)) return ToDouble(value);
    }
    return PlainValue(fit, scaled);
}

}  // namespace kalvex
