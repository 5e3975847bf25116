// Rows of a grid. The tree is cut at the largest sub-trees that depend on one variable alone:
// those of x are computed once for all rows, those of y once per row, and only the rest runs over
// every point. Nothing is regrouped, so each value has the bits of a point-by-point evaluation (but
// for the sign of a zero, see WithoutZeroTerm).
#include <algorithm>
#include <cmath>

#include "expr/evaluator.h"
#include "expr/program.h"

namespace kalvex {

struct GridRows {
    std::shared_ptr<const Program> program;
    std::size_t count = 0;                     ///< abscissas
    std::vector<std::vector<double>> columns;  ///< array 0: x; then the x-only parts; all padded
    std::vector<const double*> columnPointers;
    std::vector<std::uint8_t> columnFailed;  ///< by abscissa: an x-only part failed there
    bool anyColumnFailed = false;
    std::vector<InstructionList> rowParts;  ///< y-only parts; their values are scalars 1, 2, ...
    std::vector<double> scalars;            ///< scalar 0: y
    InstructionList body;
    std::vector<std::int32_t> errors;
};

namespace {

struct Cut {
    std::vector<NodeIndex> columnParts;
    std::vector<NodeIndex> rowParts;
};

void FindParts(const SyntaxTree& tree, NodeIndex index, Cut& cut) {
    const Node& node = tree.nodes[static_cast<std::size_t>(index)];
    if (node.kind != NodeKind::Operation) return;
    if (node.usesX && !node.usesY) {
        cut.columnParts.push_back(index);
    } else if (!node.usesX) {
        cut.rowParts.push_back(index);
    } else {
        for (std::size_t i = 0; i < node.operandCount; ++i)
            FindParts(tree, node.operands[i], cut);
    }
}

/// The node whose values are those of the root. Texts of two variables begin with "x*0+", which is
/// a sum with zero (of either sign) wherever x is finite; it need not be added to every point.
NodeIndex WithoutZeroTerm(const SyntaxTree& tree, std::span<const double> xs) {
    const Node& root = tree.nodes[static_cast<std::size_t>(tree.root)];
    if (root.kind != NodeKind::Operation || root.op != OpCode::Add) return tree.root;
    const Node& term = tree.nodes[static_cast<std::size_t>(root.operands[0])];
    if (term.kind != NodeKind::Operation || term.op != OpCode::Multiply) return tree.root;
    const Node& left = tree.nodes[static_cast<std::size_t>(term.operands[0])];
    const Node& right = tree.nodes[static_cast<std::size_t>(term.operands[1])];
    const bool isZero =
        left.kind == NodeKind::X && right.kind == NodeKind::Constant && right.value == 0.0;
    const bool finite =
        std::all_of(xs.begin(), xs.end(), [](double x) { return std::isfinite(x); });
    return isZero && finite ? root.operands[1] : tree.root;
}

std::size_t Padded(std::size_t count) {
    return (count + kPaddedLanes - 1) / kPaddedLanes * kPaddedLanes;
}

/// Computes an x-only part over all abscissas and keeps it as a further input array.
void AddColumnPart(GridRows& rows, NodeIndex part) {
    const SyntaxTree& tree = rows.program->tree;
    const InstructionList list = Flatten(tree, part, {});
    std::vector<double> values(rows.columns[0].size());
    const double* const arrays[] = {rows.columns[0].data()};
    if (RunInstructions(list, *tree.kernels, {arrays, {}}, values.size(), values.data(),
                        rows.errors.data())) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (rows.errors[i] != 0) rows.columnFailed[i] = 1;
        }
        rows.anyColumnFailed = true;
        std::fill(rows.errors.begin(), rows.errors.end(), 0);
    }
    rows.columns.push_back(std::move(values));
}

/// Computes the y-only parts into the scalars; false when one failed.
bool ComputeRowParts(GridRows& rows, double y) {
    rows.scalars[0] = y;
    const double unusedX[kPaddedLanes] = {};
    const double* const arrays[] = {unusedX};
    for (std::size_t i = 0; i < rows.rowParts.size(); ++i) {
        std::int32_t error = 0;
        RunInstructions(rows.rowParts[i], *rows.program->tree.kernels, {arrays, rows.scalars}, 1,
                        &rows.scalars[i + 1], &error);
        if (error != 0) return false;
    }
    return true;
}

}  // namespace

std::shared_ptr<GridRows> PrepareGridRows(const CompiledExpression& expression,
                                          std::span<const double> xs) {
    auto rows = std::make_shared<GridRows>();
    rows->program = expression.program ? expression.program : CompileExpression(u"").program;
    rows->count = xs.size();
    std::vector<double> x(xs.begin(), xs.end());
    x.resize(Padded(x.size()), xs.empty() ? 0.0 : xs.back());
    rows->errors.resize(x.size());
    rows->columnFailed.resize(x.size());
    rows->columns.push_back(std::move(x));

    const SyntaxTree& tree = rows->program->tree;
    const NodeIndex root = WithoutZeroTerm(tree, xs);
    Cut cut;
    FindParts(tree, root, cut);
    std::vector<Replacement> replacements;
    for (const NodeIndex part : cut.columnParts) {
        AddColumnPart(*rows, part);
        const auto index = static_cast<std::uint16_t>(rows->columns.size() - 1);
        replacements.push_back({part, {OperandKind::Array, index, 0.0}});
    }
    for (const NodeIndex part : cut.rowParts) {
        rows->rowParts.push_back(Flatten(tree, part, {}));
        const auto index = static_cast<std::uint16_t>(rows->rowParts.size());
        replacements.push_back({part, {OperandKind::Scalar, index, 0.0}});
    }
    rows->scalars.resize(rows->rowParts.size() + 1);
    for (const auto& column : rows->columns)
        rows->columnPointers.push_back(column.data());
    rows->body = Flatten(tree, root, replacements);
    return rows;
}

void EvaluateGridRow(GridRows& rows, double y, std::span<double> values) {
    if (rows.count == 0) return;
    if (!ComputeRowParts(rows, y)) {
        std::fill_n(values.begin(), rows.count, UndefinedValue);
        return;
    }
    const std::size_t padded = Padded(rows.count);
    if (RunInstructions(rows.body, *rows.program->tree.kernels, {rows.columnPointers, rows.scalars},
                        values.size() >= padded ? padded : rows.count, values.data(),
                        rows.errors.data())) {
        std::fill(rows.errors.begin(), rows.errors.end(), 0);
    }
    for (std::size_t i = 0; rows.anyColumnFailed && i < rows.count; ++i) {
        if (rows.columnFailed[i] != 0) values[i] = UndefinedValue;
    }
}

bool HasSignChange(const double* a, const double* b, std::size_t count) {
    return ActiveKernels().anyProductNotPositive(a, b, count);
}

}  // namespace kalvex
