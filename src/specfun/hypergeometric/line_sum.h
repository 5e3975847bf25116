// The trapezoidal rule on a straight line through a saddle point of the loop integral's integrand.
// Internal to the special functions.
#pragma once

#include <optional>

#include "specfun/hypergeometric/loop_integrand.h"

namespace kalvex::specfun {

/// A line through a point where |f| is largest on it, and the rule on it.
struct Line {
    PlainComplex start;
    PlainComplex step;      // from node to node
    double d = 0;           // how far from the line f is bounded
    double gain = 0;        // e-foldings by which the error of the rule is less than that bound
    double logAtStart = 0;  // of |f|
};

/// The line with the longest step for which the rule is good enough; d is 0 where there is none or
/// where it would take too many steps.
[[nodiscard]] Line LineThrough(const LoopIntegrand& f, PlainComplex start, PlainComplex direction);

/// What the nodes add up to, by f at the start of the line and by the step.
struct LineSum {
    ComplexPair value;
    PlainComplex slope;  // the same of f/(w-W)
    double sizes = 0;    // of |f|
    double error = 0;    // a bound of the error of the sum
    bool failed = false;
};

/// Where one side of a line leads: to an end of the path or, on the real axis, to a point up to
/// which f falls.
struct SideEnd {
    PathEnd end = PathEnd::kInfinity;
    std::optional<double> barrier = {};
};

/// Adds the start of the line, or a part of it.
void AddStart(const LoopIntegrand& f, const Line& line, double part, LineSum& sum);

/// Adds the nodes on one side of the start, along the steps (sign 1) or against them (-1).
void AddSide(const LoopIntegrand& f, const Line& line, double sign, const SideEnd& end,
             LineSum& sum);

}  // namespace kalvex::specfun
