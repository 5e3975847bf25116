// The definite integral of a sampled curve.
#pragma once

#include <span>

#include "workspace/function_entry.h"

namespace kalvex {

struct SampledIntegral {
    double value = 0.0;
    bool undefined = false;  ///< `value` is the sum up to the first undefined sample
};

/// The composite trapezoidal rule (Davis and Rabinowitz, Methods of Numerical Integration, 2.1.4)
/// with one panel between each two neighbours and the distance of the first two x as the step of
/// all: exact for polygons on evenly spaced samples, otherwise with the rule's error of
/// (b - a) h^2 f''/12. Fewer than two samples give 0.
SampledIntegral IntegrateSamples(std::span<const CurveSample> samples);

}  // namespace kalvex
