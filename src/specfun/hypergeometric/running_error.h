// A bound of the rounding error of a walk along the contiguous relations, of which
// running_error.cpp has the proof. Internal to the special functions.
#pragma once

#include <cstddef>
#include <vector>

#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

/// The trace of a step or of a block of steps, and value, slope and `across` before it.
struct RecordedStep {
    MapOf<double> map;
    MapOf<double> bound;
    double value;   // before
    double slope;   // before
    double across;  // before
};

/// What is known of the error e of a solution Y = (value, slope) that is computed step by step: how
/// large it is at the start, what each step does, and how far Y is off in its direction by now.
struct RunningError {
    double value = 0;  // bounds of the errors at the start
    double slope = 0;
    double across = 0;  // of |e x (value, slope)|, here
    std::vector<RecordedStep> steps;
    std::size_t count = 0;  // of the steps that are taken
};

/// Makes room for so many steps more.
void Reserve(RunningError& error, std::size_t more);

/// Records a step that led from `before` to `after`; Reserve has made room for it.
void Record(const TraceOf<double>& trace, const Column<DoubleDouble>& before,
            const Column<DoubleDouble>& after, RunningError& error);

/// The solution and its error are multiplied by a power of two after the last step.
void Rescale(double power, RunningError& error);

/// A bound of the error of the value at the end of the steps, where the solution is `at`; infinite
/// where none is proved.
[[nodiscard]] double ErrorOfValue(const RunningError& error, const Column<DoubleDouble>& at);

}  // namespace kalvex::specfun
