// A product of many differences overflows or underflows although the value of the polynomial does
// not, so products carry their exponent separately. For many equally spaced points the polynomial
// itself overflows almost everywhere. The weights of a few points in the middle suffice to detect
// that, and all the other weights are computed only when a value needs them.
#include "interp/lagrange.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace kalvex {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kProbes = 9;  ///< points whose weights are tried first
constexpr std::size_t kBlock = 4096;
constexpr double kFactorCost = 2.0;  ///< operations for one difference and product

bool HasEqual(const LagrangeForm& form) {
    for (std::size_t i = 1; i < form.order.size(); ++i)
        if (form.x[form.order[i - 1]] == form.x[form.order[i]]) return true;
    return false;
}

double DirectValue(std::span<const double> x, std::span<const double> y, double t) {
    double sum = 0.0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        double product = 1.0;
        for (std::size_t j = 0; j < x.size(); ++j)
            if (j != i) product *= (t - x[j]) / (x[i] - x[j]);
        sum += y[i] * product;
    }
    return sum;
}

/// The index of the point at t; the number of points when there is none.
std::size_t PointAt(const LagrangeForm& form, double t) {
    const auto found = std::partition_point(form.order.begin(), form.order.end(),
                                            [&](std::size_t index) { return form.x[index] < t; });
    const bool hit = found != form.order.end() && form.x[*found] == t;
    return hit ? *found : form.x.size();
}

/// Multiplies by a factor and keeps the magnitude between 2^-500 and 2^500.
void Multiply(ScaledNumber& number, double factor) {
    const auto isExtreme = [](double value) {
        return std::fabs(value) < 0x1p-250 || std::fabs(value) > 0x1p+250;
    };
    int exponent = 0;
    if (isExtreme(factor)) {
        factor = std::frexp(factor, &exponent);
        number.exponent += exponent;
    }
    number.factor *= factor;
    if (isExtreme(number.factor)) {
        number.factor = std::frexp(number.factor, &exponent);
        number.exponent += exponent;
    }
}

/// The product of t - x[j] over all j but `without`.
ScaledNumber ProductOfDifferences(std::span<const double> x, double t, std::size_t without,
                                  Work& work) {
    ScaledNumber product{1.0, 0};
    for (std::size_t begin = 0; begin < x.size(); begin += kBlock) {
        const std::size_t end = std::min(begin + kBlock, x.size());
        for (std::size_t j = begin; j < end; ++j)
            if (j != without) Multiply(product, t - x[j]);
        if (!Spend(work, kFactorCost * static_cast<double>(end - begin))) break;
    }
    return product;
}

ScaledNumber WeightOf(std::span<const double> x, std::size_t i, Work& work) {
    const ScaledNumber product = ProductOfDifferences(x, x[i], i, work);
    return {1.0 / product.factor, -product.exponent};
}

double Term(const LagrangeForm& form, std::size_t i, const ScaledNumber& weight,
            const ScaledNumber& product, double t) {
    constexpr std::int64_t kFar = 5000;  // overflows or underflows with any factor
    int divisorExponent = 0;
    const double divisor = std::frexp(t - form.x[i], &divisorExponent);
    const std::int64_t exponent = weight.exponent + product.exponent - divisorExponent;
    const double basis = std::ldexp(weight.factor * (product.factor / divisor),
                                    static_cast<int>(std::clamp(exponent, -kFar, kFar)));
    return basis * form.y[i];
}

void MakeProbes(LagrangeForm& form, Work& work) {
    if (!form.probes.empty()) return;
    for (std::size_t k = 1; k <= kProbes; ++k)
        form.probes.push_back(
            WeightOf(form.x, form.order[k * form.x.size() / (kProbes + 1)], work));
}

/// Whether the term of a probe is not finite; then the value is not finite either.
bool ProbesOverflow(const LagrangeForm& form, const ScaledNumber& product, double t) {
    for (std::size_t k = 1; k <= kProbes; ++k) {
        const std::size_t point = form.order[k * form.x.size() / (kProbes + 1)];
        if (!std::isfinite(Term(form, point, form.probes[k - 1], product, t))) return true;
    }
    return false;
}

bool MakeWeights(LagrangeForm& form, Work& work) {
    if (!form.weights.empty()) return true;
    const auto count = static_cast<double>(form.x.size());
    work.total += kFactorCost * count * count;
    std::vector<ScaledNumber> weights(form.x.size());
    for (std::size_t i = 0; i < weights.size() && !work.stopped; ++i)
        weights[i] = WeightOf(form.x, i, work);
    if (work.stopped) return false;
    form.weights = std::move(weights);
    return true;
}

}  // namespace

Failure LAGRANGE_SET(std::span<const double> x, std::span<const double> y, LagrangeForm& form) {
    form = {};
    form.x = x;
    form.y = y;
    const auto count = static_cast<double>(x.size());
    if (count * count > kMostOperations)
        return FatalError("LAGRANGE_SET", {"  Too many points."}, StringId::TooMuchWork);
    if (x.size() <= kLagrangeDirect) return std::nullopt;
    form.degenerate = !std::all_of(x.begin(), x.end(), [](double v) { return std::isfinite(v); });
    if (form.degenerate) return std::nullopt;
    form.order.resize(x.size());
    std::iota(form.order.begin(), form.order.end(), std::size_t{0});
    std::sort(form.order.begin(), form.order.end(),
              [&](std::size_t a, std::size_t b) { return x[a] < x[b]; });
    form.degenerate = HasEqual(form);
    return std::nullopt;
}

double LAGRANGE_VAL(LagrangeForm& form, double t, Work& work) {
    const std::size_t n = form.x.size();
    if (n <= kLagrangeDirect) return DirectValue(form.x, form.y, t);
    if (form.degenerate || !std::isfinite(t)) return kNan;
    if (const std::size_t point = PointAt(form, t); point < n) return form.y[point];
    MakeProbes(form, work);
    const ScaledNumber product = ProductOfDifferences(form.x, t, n, work);
    if (work.stopped || ProbesOverflow(form, product, t) || !MakeWeights(form, work)) return kNan;
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i)
        sum += Term(form, i, form.weights[i], product, t);
    return Spend(work, kFactorCost * static_cast<double>(n)) ? sum : kNan;
}

}  // namespace kalvex
