// Roots, extremums, mean value and integral of a curve over the visible interval, from its samples.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "workspace/function_entry.h"
#include "workspace/view_window.h"

namespace kalvex {

/// The result of an analysis. The counts stay valid when the arrays are released.
struct AnalysisResult {
    double a = 0.0;  ///< the interval, world x
    double b = 0.0;
    std::vector<double> roots;  ///< world x, in the order of the samples
    std::vector<CurveSample> minimums;
    std::vector<CurveSample> maximums;
    double greatestY = 0.0;
    double leastY = 0.0;
    std::int32_t rootCount = 0;
    std::int32_t minimumCount = 0;
    std::int32_t maximumCount = 0;
    double meanValue = 0.0;
    double integral = 0.0;
    bool integralUndefined = false;  ///< `integral` is the sum up to the first undefined sample
};

/// Whether a line can be analysed; an implicit curve cannot, because it has no samples.
[[nodiscard]] bool CanAnalyse(const FunctionEntry& entry);

/// Analyses the sample cache of a drawn function as the last drawing left it; the expression is not
/// evaluated. The results are as accurate as the samples are dense: roots and extremums are the x
/// of a sample, values the y of a sample.
/// Roots, extremums and the interval do not leave out undefined samples: their y (and x, of curves
/// with a parameter) is 1e30.
///  - Roots: the left sample of two neighbours with a change of sign, unless the curve jumps by
///    `viewHeight` pixel rows or more between them (a pole). A sample whose y is exactly 0 is two
///    roots unless such a jump follows it.
///  - Minimums and maximums: samples strictly below or above both neighbours, without such a jump
///    on either side. Flat tops and the two ends do not count.
///  - a and b: Xmin and Xmax of the view; the least and greatest sample x of `Polar` and
///    `Parametric` functions.
///  - Mean value: the sum of the means of neighbours that are both defined, over the number of
///    samples.
///  - Greatest and least value: of the defined samples. When the first sample is undefined, the
///    search starts at -1e100 for the greatest value and at the y of that sample for the least one.
///  - Integral: see integral.h.
/// Without samples everything but the interval is 0.
/// @param viewHeight height of the graph area in logical pixels
void analyzeSampledCurve(AnalysisResult& result, const FunctionEntry& entry,
                         std::int32_t viewHeight, const ViewWindow& view);

/// Releases the three arrays; the report that showed them is closed.
void ReleaseArrays(AnalysisResult& result);

}  // namespace kalvex
