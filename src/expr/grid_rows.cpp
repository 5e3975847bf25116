// Rows of a grid. The tree is cut at the largest sub-trees that depend on one variable alone:
// those of x are computed once for all rows, those of y once per row, and only the rest runs over
// every point. Nothing is regrouped, so each value has the bits of a point-by-point evaluation.
#include <algorithm>

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

std::size_t Padded(std::size_t count) {
    return (count + kPaddedLanes - 1) / kPaddedLanes * kPaddedLanes;
}

/// Computes an x-only part over all abscissas and keeps it as a further input array.
void AddColumnPart(GridRows& rows, NodeIndex part) {
    const SyntaxTree& tree = rows.program->tree;
    const InstructionList list = Flatten(tree, part, {});
    std::vector<double> values(rows.columns[0].size());
    const double* const arrays[] = {rows.columns[0].data()};
    RunInstructions(list, *tree.kernels, {arrays, {}}, values.size(), values.data(),
                    rows.errors.data());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (rows.errors[i] == 0) continue;
        rows.columnFailed[i] = 1;
        rows.anyColumnFailed = true;
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
    Cut cut;
    FindParts(tree, tree.root, cut);
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
    rows->body = Flatten(tree, tree.root, replacements);
    return rows;
}

void EvaluateGridRow(GridRows& rows, double y, std::span<double> values) {
    if (rows.count == 0) return;
    if (!ComputeRowParts(rows, y)) {
        std::fill_n(values.begin(), rows.count, UndefinedValue);
        return;
    }
    RunInstructions(rows.body, *rows.program->tree.kernels, {rows.columnPointers, rows.scalars},
                    rows.count, values.data(), rows.errors.data());
    for (std::size_t i = 0; rows.anyColumnFailed && i < rows.count; ++i) {
        if (rows.columnFailed[i] != 0) values[i] = UndefinedValue;
    }
}

}  // namespace kalvex
