// Compiling an expression and evaluating it, at one point or over an array of x. (For a grid of
// points see grid_evaluator.h.) All of them run the same program on the same kernels, so that their
// results agree bit for bit.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "base/interruption.h"
#include "expr/eval_error.h"

namespace kalvex {

struct Program;

/// One compiled expression. Copies share the program, which is never changed once made.
struct CompiledExpression {
    std::shared_ptr<const Program> program;  ///< null: nothing compiled
};

/// Compiles a normalised text that passed CheckExpression. Any other text gives an expression
/// whose value is not-a-number; nothing is reported.
[[nodiscard]] CompiledExpression CompileExpression(std::u16string_view text);

/// Releases the program; the expression is then like a new one.
void FreeExpression(CompiledExpression& expression);

/// Value at one point. Sets EvalError to the first failing primitive's code or leaves it alone;
/// the value is then meaningless. An expression that was never compiled is not-a-number.
[[nodiscard]] double EvaluateExpression(const CompiledExpression& expression, double x,
                                        double y = 0.0);

struct EvaluationResult {
    double value = 0.0;      ///< UndefinedValue where a primitive failed
    std::int32_t error = 0;  ///< the code of EvalError; 0: a good point
};

/// One record per x, in order, at y = 0.
[[nodiscard]] std::vector<EvaluationResult> EvaluateAt(const CompiledExpression& expression,
                                                       std::span<const double> xs);

/// The same into two arrays of xs.size() elements, at the given y. Allocates nothing for each
/// point. When `interruption` stops the evaluation, what is left in the two arrays is of no use.
void EvaluateInto(const CompiledExpression& expression, std::span<const double> xs, double y,
                  std::span<double> values, std::span<std::int32_t> errors,
                  Interruption* interruption = nullptr);

/// Values at separate points (xs[i], ys[i]), UndefinedValue where a primitive failed, with the bits
/// of EvaluateExpression. All three arrays have one size. When `interruption` stops the evaluation,
/// what is left in `values` is of no use.
void EvaluatePoints(const CompiledExpression& expression, std::span<const double> xs,
                    std::span<const double> ys, std::span<double> values,
                    Interruption* interruption = nullptr);

}  // namespace kalvex
