// The tree is cut at the largest sub-trees that depend on one variable alone: those of x are
// computed once for all rows, those of y once for all columns, and only the rest runs over every
// point. Nothing is regrouped, so each value has the bits of a point-by-point evaluation; only the
// sign of a zero may differ, see WithoutZeroTerm.
#include "expr/grid_evaluator.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "expr/grid.h"

namespace kalvex {
namespace {

/// The largest sub-trees of one variable alone, and of none.
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

/// The root without the term "x*0+" in front of it, with which texts of two variables begin. For a
/// finite x the term is a zero of either sign, and adding it to every point would be wasted work.
NodeIndex WithoutZeroTerm(const SyntaxTree& tree) {
    const Node& root = tree.nodes[static_cast<std::size_t>(tree.root)];
    if (root.kind != NodeKind::Operation || root.op != OpCode::Add) return tree.root;
    const Node& term = tree.nodes[static_cast<std::size_t>(root.operands[0])];
    if (term.kind != NodeKind::Operation || term.op != OpCode::Multiply) return tree.root;
    const Node& left = tree.nodes[static_cast<std::size_t>(term.operands[0])];
    const Node& right = tree.nodes[static_cast<std::size_t>(term.operands[1])];
    const bool isZero =
        left.kind == NodeKind::X && right.kind == NodeKind::Constant && right.value == 0.0;
    return isZero ? root.operands[1] : tree.root;
}

/// Length of the arrays of an axis with `count` elements. A run of values may begin at any element
/// and its length is rounded up to a multiple of eight, so up to seven elements behind the last one
/// are read; the length itself is a multiple of eight too, for runs over the whole axis.
std::size_t WithSpare(std::size_t count) {
    return (count + 3 * kPaddedLanes - 1) / kPaddedLanes * kPaddedLanes;
}

std::vector<double> Copied(std::span<const double> values) {
    std::vector<double> copy(values.begin(), values.end());
    copy.resize(WithSpare(copy.size()), values.empty() ? 0.0 : values.back());
    return copy;
}

/// Computes a part over the first `count` elements of an axis, whose own values are axis[0], and
/// appends the results as a further array, filled up with the last result. Marks in `failedAt` the
/// elements where the part failed and returns whether it failed anywhere.
bool AddPart(const InstructionList& list, const Grid& grid, std::vector<std::vector<double>>& axis,
             std::size_t count, std::vector<std::uint8_t>& failedAt) {
    std::vector<double> values(count);
    std::vector<std::int32_t> errors(count);
    const double* const arrays[] = {axis[0].data()};
    const bool failed =
        RunInstructions(list, *grid.program->tree.kernels, {arrays, {}, grid.interruption}, count,
                        values.data(), errors.data());
    for (std::size_t i = 0; failed && i < count; ++i) {
        if (errors[i] != 0) failedAt[i] = 1;
    }
    values.resize(axis[0].size(), values.empty() ? 0.0 : values.back());
    axis.push_back(std::move(values));
    return failed;
}

/// The bounds of each tile of an array; both are not-a-number where the tile holds one.
std::vector<Bounds> TileBounds(const std::vector<double>& values, std::size_t count) {
    std::vector<Bounds> tiles;
    for (std::size_t first = 0; first < count; first += kTileColumns) {
        const std::size_t end = std::min(first + kTileColumns + 1, count);
        Bounds bounds{values[first], values[first]};
        for (std::size_t i = first; i < end; ++i) {
            bounds.low = std::min(bounds.low, values[i]);
            bounds.high = std::max(bounds.high, values[i]);
            if (!std::isnan(values[i])) continue;
            bounds = {values[i], values[i]};
            break;
        }
        tiles.push_back(bounds);
    }
    return tiles;
}

/// Computes the parts of one variable as further arrays of their axis.
void AddParts(Grid& grid, const GridPlan& plan) {
    for (const InstructionList& part : plan.columns) {
        grid.anyColumnFailed |=
            AddPart(part, grid, grid.columns, grid.columnCount, grid.columnFailed);
    }
    for (const InstructionList& part : plan.rows)
        AddPart(part, grid, grid.rows, grid.rowCount, grid.rowFailed);
}

}  // namespace

GridPlan PlanGrid(const SyntaxTree& tree, bool xIsFinite) {
    const NodeIndex root = xIsFinite ? WithoutZeroTerm(tree) : tree.root;
    Cut cut;
    FindParts(tree, root, cut);
    GridPlan plan;
    std::vector<Replacement> replacements;
    for (const NodeIndex part : cut.columnParts) {
        plan.columns.push_back(Flatten(tree, part, {}));
        const auto index = static_cast<std::uint16_t>(plan.columns.size());
        replacements.push_back({part, {OperandKind::Array, index, 0.0}});
    }
    for (const NodeIndex part : cut.rowParts) {
        plan.rows.push_back(FlattenOverY(tree, part));
        const auto index = static_cast<std::uint16_t>(plan.rows.size());
        replacements.push_back({part, {OperandKind::Scalar, index, 0.0}});
    }
    plan.body = Flatten(tree, root, replacements);
    return plan;
}

std::shared_ptr<Grid> PrepareGrid(const CompiledExpression& expression, std::span<const double> xs,
                                  std::span<const double> ys, Interruption* interruption) {
    auto grid = std::make_shared<Grid>();
    grid->interruption = interruption;
    grid->program = expression.program ? expression.program : CompileExpression(u"").program;
    grid->columnCount = xs.size();
    grid->rowCount = ys.size();
    grid->columns.push_back(Copied(xs));
    grid->rows.push_back(Copied(ys));
    grid->columnFailed.resize(grid->columns[0].size());
    grid->rowFailed.resize(grid->rows[0].size());
    grid->errors.resize(grid->columns[0].size());

    const bool xIsFinite = std::ranges::all_of(xs, [](double x) { return std::isfinite(x); });
    GridPlan plan = PlanGrid(grid->program->tree, xIsFinite);
    AddParts(*grid, plan);
    grid->body = std::move(plan.body);
    for (const auto& column : grid->columns) {
        grid->columnBounds.push_back(TileBounds(column, grid->columnCount));
    }
    grid->scalars.resize(grid->rows.size());
    grid->arrays.resize(grid->columns.size());
    return grid;
}

void EvaluateGridRow(Grid& grid, std::size_t row, std::size_t firstColumn, std::size_t count,
                     double* values) {
    if (grid.rowFailed[row] != 0) {
        std::fill_n(values, count, UndefinedValue);
        return;
    }
    for (std::size_t i = 0; i < grid.rows.size(); ++i)
        grid.scalars[i] = grid.rows[i][row];
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        grid.arrays[i] = grid.columns[i].data() + firstColumn;
    }
    const std::size_t padded = (count + kPaddedLanes - 1) / kPaddedLanes * kPaddedLanes;
    if (RunInstructions(grid.body, *grid.program->tree.kernels,
                        {grid.arrays, grid.scalars, grid.interruption}, padded, values,
                        grid.errors.data(), padded - count)) {
        std::fill_n(grid.errors.begin(), padded, 0);
    }
    for (std::size_t i = 0; grid.anyColumnFailed && i < count; ++i) {
        if (grid.columnFailed[firstColumn + i] != 0) values[i] = UndefinedValue;
    }
}

bool HasSignChange(const double* a, const double* b, std::size_t count) {
    return ActiveKernels().anyProductNotPositive(a, b, count);
}

}  // namespace kalvex
