// The definite integral of a sampled curve.
#pragma once

#include <span>

#include "workspace/function_entry.h"

namespace kalvex {

struct SampledIntegral {
    double value = 0.0;
    bool undefined = false;  ///< `value` is the sum up to the first undefined sample
};

/// The composite trapezoidal rule (Davis and Rabinowitz, Methods of Numerical Integration, 2.1.4).
/// Each pair of neighbours is a panel; the step h of all panels is the distance between the first
/// two x. With evenly spaced samples the rule is exact for piecewise linear functions; otherwise
/// its error is (b - a) h^2 f''/12 in magnitude. Fewer than two samples give 0.
[[nodiscard]] SampledIntegral IntegrateSamples(std::span<const CurveSample> samples);

}  // namespace kalvex
