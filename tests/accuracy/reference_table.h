// The reference tables of tests/data and the distance of the program's values from them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "expr/evaluator.h"
#include "expr/kernels.h"

namespace kalvex::accuracy {

struct ReferenceRow {
    std::vector<double> arguments;  ///< in written order
    double high = 0;                ///< the value is high + low
    double low = 0;
    double condition = 0;
    int line = 0;  ///< in the file, from 1
};

/// The rows of tests/data/<name>.tsv; none where the file does not exist. A line that cannot be
/// read gives a row without arguments.
std::vector<ReferenceRow> ReadReferenceTable(std::string_view name);

/// The function as the language writes it, with the last argument x, the one before it y and the
/// others as constants: "J(y,x)"; for "power" y^x. Compiled for these kernels.
CompiledExpression ExpressionFor(std::string_view name, const ReferenceRow& row,
                                 const KernelTable& kernels = ActiveKernels());

/// The value for y in the expression above; 0 for functions of one argument.
double OrdinateOf(const ReferenceRow& row);

/// The result at the row's point.
EvaluationResult ResultAt(std::string_view name, const ReferenceRow& row,
                          const KernelTable& kernels = ActiveKernels());

/// The error in units in the last place of the exact value, divided by 1 + condition number. Where
/// the exact value overflows: 0 for an infinity of its sign or an undefined point, infinite for any
/// other result.
double MeasuredError(const ReferenceRow& row, const EvaluationResult& result);

/// The largest MeasuredError that is allowed in this row, for a function with this goal.
double GoalAt(const ReferenceRow& row, double goal);

/// The call as text, such as "J(5,200)", with enough digits to identify the row.
std::string CallText(std::string_view name, const ReferenceRow& row);

}  // namespace kalvex::accuracy
