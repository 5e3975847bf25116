// A second implementation of the analysis, written for clarity and not for speed: each result is
// computed separately from the list of all samples.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "analysis/analysis.h"

namespace kalvex::slow {

using Samples = std::vector<CurveSample>;

inline bool JumpsOverThePicture(const CurveSample& one, const CurveSample& other, int viewHeight) {
    return std::fabs(static_cast<double>(one.row) - static_cast<double>(other.row)) >= viewHeight;
}

inline double GreatestY(const Samples& samples) {
    std::vector<double> candidates = {-1e100};
    if (samples.front().status == 0) candidates = {samples.front().y};
    for (std::size_t p = 1; p < samples.size(); ++p)
        if (samples[p].status == 0 && !std::isnan(samples[p].y)) candidates.push_back(samples[p].y);
    if (std::isnan(candidates.front())) return candidates.front();
    return *std::max_element(candidates.begin(), candidates.end());
}

inline double LeastY(const Samples& samples) {
    std::vector<double> candidates = {samples.front().y};
    for (std::size_t p = 1; p < samples.size(); ++p)
        if (samples[p].status == 0 && !std::isnan(samples[p].y)) candidates.push_back(samples[p].y);
    if (std::isnan(candidates.front())) return candidates.front();
    return *std::min_element(candidates.begin(), candidates.end());
}

inline std::vector<double> Roots(const Samples& samples, int viewHeight) {
    std::vector<double> roots;
    for (std::size_t p = 1; p < samples.size(); ++p) {
        const double here = samples[p].y;
        const double before = samples[p - 1].y;
        if (here == 0) {
            roots.push_back(samples[p].x);
            continue;
        }
        if (JumpsOverThePicture(samples[p], samples[p - 1], viewHeight)) continue;
        const double product = here * before;
        if (product < 0 || product == 0) roots.push_back(samples[p - 1].x);
    }
    return roots;
}

/// The x and y of the samples that lie strictly above (`side` 1: maximums) or below (`side` -1:
/// minimums) both neighbours.
inline std::vector<std::pair<double, double>> Extremums(const Samples& samples, int viewHeight,
                                                        double side) {
    std::vector<std::pair<double, double>> found;
    for (std::size_t p = 0; p < samples.size(); ++p) {
        if (p == 0 || p + 1 == samples.size()) continue;
        bool extreme = true;
        for (const std::size_t neighbour : {p - 1, p + 1}) {
            if (!(side * samples[p].y > side * samples[neighbour].y)) extreme = false;
            if (JumpsOverThePicture(samples[p], samples[neighbour], viewHeight)) extreme = false;
        }
        if (extreme) found.emplace_back(samples[p].x, samples[p].y);
    }
    return found;
}

inline double MeanValue(const Samples& samples) {
    double mean = 0;
    for (std::size_t p = 1; p < samples.size(); ++p) {
        const bool bothDefined = samples[p - 1].status == 0 && samples[p].status == 0;
        if (bothDefined)
            mean = mean +
                   (samples[p - 1].y + samples[p].y) / (2.0 * static_cast<double>(samples.size()));
    }
    return mean;
}

inline bool IntegralUndefined(const Samples& samples) {
    return std::any_of(samples.begin(), samples.end() - 1,
                       [](const CurveSample& sample) { return sample.status != 0; });
}

inline double Integral(const Samples& samples) {
    double sum = 0;
    for (std::size_t p = 1; p < samples.size() && samples[p - 1].status == 0; ++p)
        sum = sum + (samples[p].y + samples[p - 1].y) * (samples[1].x - samples[0].x) / 2;
    return sum;
}

inline std::pair<double, double> Interval(const FunctionEntry& entry, const ViewWindow& view) {
    const bool alongX = entry.type != EquationType::Polar && entry.type != EquationType::Parametric;
    if (alongX) return {view.Xmin, view.Xmax};
    const auto less = [](const CurveSample& one, const CurveSample& other) {
        return one.x < other.x;
    };
    const auto ends = std::minmax_element(entry.samples.begin(), entry.samples.end(), less);
    return {ends.first->x, ends.second->x};
}

}  // namespace kalvex::slow
