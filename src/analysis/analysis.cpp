// One linear pass over the samples for each figure, in the order in which the report names them.
// The extreme values, the mean and the integral ask whether a sample is defined. Roots, extremums
// and the interval do not: to them the marker 1e30 of an undefined sample is a value like any
// other. The row test does not keep it out either, because an unplotted sample has row 0.
#include "analysis/analysis.h"

#include <cmath>
#include <cstdlib>

#include "analysis/integral.h"

namespace kalvex {
namespace {

using Samples = std::span<const CurveSample>;

bool HasType(const FunctionEntry& entry, EquationType type) {
    return entry.type == type;
}

bool IsDefined(const CurveSample& sample) {
    return sample.status == 0;
}

/// Whether two neighbours are less than the height of the picture apart; otherwise the curve jumps
/// there.
bool Joined(const CurveSample& left, const CurveSample& right, std::int32_t viewHeight) {
    const std::int64_t jump = static_cast<std::int64_t>(left.row) - right.row;
    return std::abs(jump) < viewHeight;
}

void FindExtremeValues(AnalysisResult& result, Samples samples) {
    // KEEP: when the first sample is undefined, the greatest value starts at -1e100 but the least
    // one at that sample's y; existing reports depend on it.
    result.greatestY = IsDefined(samples[0]) ? samples[0].y : -1e100;
    result.leastY = samples[0].y;
    for (const CurveSample& sample : samples.subspan(1)) {
        if (result.greatestY < sample.y && IsDefined(sample)) result.greatestY = sample.y;
        if (result.leastY > sample.y && IsDefined(sample)) result.leastY = sample.y;
    }
}

void FindRoots(AnalysisResult& result, Samples samples, std::int32_t viewHeight) {
    // KEEP: undefined samples are not left out. A curve that is negative beside a gap has a root
    // there, because the marker is positive.
    for (std::size_t p = 1; p < samples.size(); ++p) {
        const CurveSample& left = samples[p - 1];
        const CurveSample& right = samples[p];
        if (right.y == 0.0) {
            // KEEP: a sample that is exactly 0 is a root here and again as the left one of the next
            // pair.
            result.roots.push_back(right.x);
        } else if (right.y * left.y <= 0.0 && Joined(left, right, viewHeight)) {
            result.roots.push_back(left.x);
        }
    }
    result.rootCount = static_cast<std::int32_t>(result.roots.size());
}

void FindExtremums(AnalysisResult& result, Samples samples, std::int32_t viewHeight) {
    for (std::size_t p = 1; p + 1 < samples.size(); ++p) {
        const CurveSample& left = samples[p - 1];
        const CurveSample& at = samples[p];
        const CurveSample& right = samples[p + 1];
        const bool low = left.y > at.y && right.y > at.y;
        const bool high = left.y < at.y && right.y < at.y;
        // KEEP: undefined samples are not left out. The last value beside a gap is a minimum when
        // its other neighbour is higher, and a gap of one sample is a maximum.
        if (!low && !high) continue;
        if (!Joined(left, at, viewHeight) || !Joined(at, right, viewHeight)) continue;
        (low ? result.minimums : result.maximums).push_back(at);
    }
    result.minimumCount = static_cast<std::int32_t>(result.minimums.size());
    result.maximumCount = static_cast<std::int32_t>(result.maximums.size());
}

void FindInterval(AnalysisResult& result, const FunctionEntry& entry, const ViewWindow& view) {
    const Samples samples = entry.samples;
    if (!HasType(entry, EquationType::Polar) && !HasType(entry, EquationType::Parametric)) {
        result.a = view.Xmin;
        result.b = view.Xmax;
        return;
    }
    if (samples.empty()) return;
    // KEEP: undefined samples are not left out; the x of one, 1e30, becomes an end of the interval.
    result.a = samples[0].x;
    result.b = samples[0].x;
    for (const CurveSample& sample : samples.subspan(1)) {
        if (result.a > sample.x) result.a = sample.x;
        if (result.b < sample.x) result.b = sample.x;
    }
}

double MeanOf(Samples samples) {
    // KEEP: the divisor is the number of samples, not of pairs, also when pairs were left out.
    const double divisor = static_cast<double>(samples.size()) * 2.0;
    double mean = 0.0;
    for (std::size_t p = 0; p + 1 < samples.size(); ++p) {
        if (!IsDefined(samples[p]) || !IsDefined(samples[p + 1])) continue;
        mean += (samples[p].y + samples[p + 1].y) / divisor;
    }
    return mean;
}

}  // namespace

bool CanAnalyse(const FunctionEntry& entry) {
    return !HasType(entry, EquationType::Implicit);
}

void analyzeSampledCurve(AnalysisResult& result, const FunctionEntry& entry,
                         std::int32_t viewHeight, const ViewWindow& view) {
    result = {};
    FindInterval(result, entry, view);
    const Samples samples = entry.samples;
    if (samples.empty()) return;
    FindExtremeValues(result, samples);
    FindRoots(result, samples, viewHeight);
    FindExtremums(result, samples, viewHeight);
    result.meanValue = MeanOf(samples);
    const SampledIntegral integral = IntegrateSamples(samples);
    result.integral = integral.value;
    result.integralUndefined = integral.undefined;
}

void ReleaseArrays(AnalysisResult& result) {
    result.roots = {};
    result.minimums = {};
    result.maximums = {};
}

}  // namespace kalvex
