// A bound of the rounding error of a walk along the contiguous relations, of which
// running_error.cpp has the proof. Internal to the special functions.
#pragma once

#include <cstddef>
#include <vector>

#include "specfun/hypergeometric/shift_steps.h"

namespace kalvex::specfun {

/// rho of running_error.cpp: of an adjoint step in plain arithmetic, eight roundings of 2^-53.
inline constexpr double kPlainError = 0x1p-50;

/// A step or a block of steps: its trace but for the determinant, and what was known before it.
struct RecordedStep {
    MapOf<double> map;
    MapOf<double> bound;
    double value;   // before
    double slope;   // before
    double across;  // before
};

/// Of a solution (value, slope) computed step by step the error e is not known; known of it are
/// what it is at the start, the steps, and a bound of the cross product of e and the solution,
/// that is of the error of the solution's direction.
struct RunningError {
    double value = 0;  // bounds of the errors at the start
    double slope = 0;
    double across = 0;  // of |e x (value, slope)|, here
    std::vector<RecordedStep> steps;
    std::size_t count = 0;  // of the steps that are taken
};

/// Makes room for so many steps more.
void Reserve(RunningError& error, std::size_t more);

/// Takes in a step that led from `before` to `after`; there is room for it.
void Record(const TraceOf<double>& trace, const Column<DoubleDouble>& before,
            const Column<DoubleDouble>& after, RunningError& error);

/// The solution and its error are multiplied by a power of two after the last step.
void Rescale(double power, RunningError& error);

/// A bound of the error of the value at the end of the steps, where the solution is `at`; infinite
/// where none is proved.
[[nodiscard]] double ErrorOfValue(const RunningError& error, const Column<DoubleDouble>& at);

}  // namespace kalvex::specfun
