// A compiled expression as text, to show what the compiler made of it. The same expression gives
// the same text in every release that compiles it alike; tests compare it.
#pragma once

#include <string>

#include "expr/grid.h"
#include "expr/program.h"

namespace kalvex {

/// The tree, one node per line, operands below their operation and indented by two blanks more.
/// Nodes are "x", "y", a number, an operator, "^ 3" for a power with that fixed exponent, "sqrt" or
/// a function's name; "may fail" follows where evaluating the sub-tree can set EvalError.
[[nodiscard]] std::string TreeText(const SyntaxTree& tree);

/// The instructions in their order, one per line, each as a formula such as "r0 = x * r1 + 2": what
/// stands on one line is one pass over the points. "x ^ 3" is the product of a fixed exponent,
/// "pow(x, 2.5)" the general power. The last line is the result, "value = r0".
[[nodiscard]] std::string ProgramText(const InstructionList& list);

/// The parts of x alone (X1, X2, ...), those of y alone (Y1, Y2, ...) and the rest, which takes
/// them as operands.
[[nodiscard]] std::string GridText(const GridPlan& plan);

}  // namespace kalvex
