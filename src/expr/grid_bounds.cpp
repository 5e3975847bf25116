// Interval arithmetic: the body of a grid's plan is run over intervals instead of numbers. The
// interval of a column or row holds all its computed values in the rectangle. Rounding to nearest
// is monotone: when an operand grows, the rounded sum, difference, product or quotient never moves
// against the exact one. So the rounded results at the ends of the operands' intervals bound every
// rounded result in between, and no outward rounding is needed. The same holds for the square root.
// The functions of the language bring their own bounds (function_bounds.h); an expression with a
// function that has none has no bounds.
#include <algorithm>
#include <array>
#include <cmath>

#include "expr/function_table.h"
#include "expr/grid.h"
#include "expr/grid_evaluator.h"

namespace kalvex {
namespace {

MaybeBounds Checked(double low, double high) {
    if (std::isnan(low) || std::isnan(high)) return std::nullopt;
    return Bounds{low, high};
}

MaybeBounds Sum(const Bounds& a, const Bounds& b) {
    return Checked(a.low + b.low, a.high + b.high);
}

MaybeBounds Difference(const Bounds& a, const Bounds& b) {
    return Checked(a.low - b.high, a.high - b.low);
}

MaybeBounds OfCorners(const std::array<double, 4>& corners) {
    if (std::ranges::any_of(corners, [](double c) { return std::isnan(c); })) return std::nullopt;
    const auto [low, high] = std::ranges::minmax(corners);
    return Bounds{low, high};
}

MaybeBounds Product(const Bounds& a, const Bounds& b) {
    return OfCorners({a.low * b.low, a.low * b.high, a.high * b.low, a.high * b.high});
}

/// No bounds where the divisor may be zero.
MaybeBounds Quotient(const Bounds& a, const Bounds& b) {
    if (!(b.low > 0.0) && !(b.high < 0.0)) return std::nullopt;
    return OfCorners({a.low / b.low, a.low / b.high, a.high / b.low, a.high / b.high});
}

/// The product of an interval with itself, where both factors are the same number: never negative.
MaybeBounds Square(const Bounds& a) {
    const MaybeBounds product = Product(a, a);
    if (!product) return product;
    const bool hasZero = a.low <= 0.0 && a.high >= 0.0;
    const double low = hasZero ? 0.0 : std::min(a.low * a.low, a.high * a.high);
    return Bounds{low, product->high};
}

MaybeBounds SquareRoot(const Bounds& a) {
    if (!(a.low >= 0.0)) return std::nullopt;
    return Bounds{std::sqrt(a.low), std::sqrt(a.high)};
}

MaybeBounds OfFunction(FunctionNumber function, const Bounds* arguments) {
    const FunctionBounds bounds = FunctionAt(function).bounds;
    return bounds != nullptr ? bounds(arguments) : std::nullopt;
}

using Operands = std::array<Bounds, kMostOperands>;

bool HasEqualOperands(const Instruction& instruction) {
    const Operand& a = instruction.operands[0];
    const Operand& b = instruction.operands[1];
    return a.kind == b.kind && a.index == b.index && a.kind != OperandKind::Constant;
}

MaybeBounds OfProduct(const Instruction& instruction, const Operands& in) {
    return HasEqualOperands(instruction) ? Square(in[0]) : Product(in[0], in[1]);
}

/// Product, then sum or difference with the third operand, then sum with the fourth.
MaybeBounds OfMerged(const Instruction& instruction, const Operands& in) {
    const MaybeBounds product = OfProduct(instruction, in);
    if (!product) return product;
    MaybeBounds result;
    switch (instruction.op) {
        case OpCode::MultiplyAdd:
        case OpCode::MultiplyAddPlus:
            result = Sum(*product, in[2]);
            break;
        case OpCode::MultiplySubtract:
        case OpCode::MultiplySubtractPlus:
            result = Difference(*product, in[2]);
            break;
        case OpCode::SubtractMultiplied:
        case OpCode::SubtractMultipliedPlus:
            result = Difference(in[2], *product);
            break;
        default:
            return std::nullopt;
    }
    return result && instruction.operandCount == 4 ? Sum(*result, in[3]) : result;
}

MaybeBounds OfInstruction(const Instruction& instruction, const Operands& in) {
    switch (instruction.op) {
        case OpCode::Add:
            return Sum(in[0], in[1]);
        case OpCode::Subtract:
            return Difference(in[0], in[1]);
        case OpCode::Multiply:
            return OfProduct(instruction, in);
        case OpCode::Divide:
            return Quotient(in[0], in[1]);
        case OpCode::IntegerPower:
            return instruction.immediate == 2 ? Square(in[0]) : std::nullopt;
        case OpCode::SquareRoot:
            return SquareRoot(in[0]);
        case OpCode::MultiplyAdd:
        case OpCode::MultiplySubtract:
        case OpCode::SubtractMultiplied:
        case OpCode::MultiplyAddPlus:
        case OpCode::MultiplySubtractPlus:
        case OpCode::SubtractMultipliedPlus:
            return OfMerged(instruction, in);
        case OpCode::Power:
        case OpCode::PowerTerm:
            return std::nullopt;
        default:
            return OfFunction(FunctionOf(instruction.op), in.data());
    }
}

struct Rectangle {
    const Grid& grid;
    std::vector<Bounds> rowBounds;  ///< of each scalar, over the rows of the rectangle
    std::size_t tile = 0;
};

Bounds OfOperand(const Rectangle& rectangle, const std::vector<Bounds>& registers,
                 const Operand& operand) {
    switch (operand.kind) {
        case OperandKind::Register:
            return registers[operand.index];
        case OperandKind::Array:
            return rectangle.grid.columnBounds[operand.index][rectangle.tile];
        case OperandKind::Scalar:
            return rectangle.rowBounds[operand.index];
        case OperandKind::Constant:
            break;
    }
    return {operand.value, operand.value};
}

MaybeBounds OfRectangle(const Rectangle& rectangle, std::vector<Bounds>& registers) {
    const InstructionList& body = rectangle.grid.body;
    for (const Instruction& instruction : body.code) {
        Operands in = {};
        for (std::size_t i = 0; i < instruction.operandCount; ++i) {
            in[i] = OfOperand(rectangle, registers, instruction.operands[i]);
            if (std::isnan(in[i].low)) return std::nullopt;
        }
        const MaybeBounds result = OfInstruction(instruction, in);
        if (!result) return result;
        registers[instruction.target] = *result;
    }
    const Bounds result = OfOperand(rectangle, registers, body.result);
    return Checked(result.low, result.high);
}

bool HasFailed(const std::vector<std::uint8_t>& failed, std::size_t first, std::size_t count) {
    const auto begin = failed.begin() + static_cast<std::ptrdiff_t>(first);
    return std::any_of(begin, begin + static_cast<std::ptrdiff_t>(count),
                       [](std::uint8_t f) { return f != 0; });
}

Bounds OfRows(const std::vector<double>& values, std::size_t first, std::size_t count) {
    Bounds bounds{values[first], values[first]};
    for (std::size_t i = first; i < first + count; ++i) {
        if (std::isnan(values[i])) return {values[i], values[i]};
        bounds.low = std::min(bounds.low, values[i]);
        bounds.high = std::max(bounds.high, values[i]);
    }
    return bounds;
}

}  // namespace

std::vector<MaybeBounds> GridTileBounds(const Grid& grid, std::size_t firstRow,
                                        std::size_t rowCount) {
    const std::size_t tiles = (grid.columnCount + kTileColumns - 1) / kTileColumns;
    std::vector<MaybeBounds> bounds(tiles);
    if (HasFailed(grid.rowFailed, firstRow, rowCount)) return bounds;
    Rectangle rectangle{grid, {}};
    for (const auto& row : grid.rows)
        rectangle.rowBounds.push_back(OfRows(row, firstRow, rowCount));
    std::vector<Bounds> registers(static_cast<std::size_t>(grid.body.registerCount));
    for (std::size_t tile = 0; tile < tiles; ++tile) {
        const std::size_t first = tile * kTileColumns;
        const std::size_t count = std::min(kTileColumns + 1, grid.columnCount - first);
        if (grid.anyColumnFailed && HasFailed(grid.columnFailed, first, count)) continue;
        rectangle.tile = tile;
        bounds[tile] = OfRectangle(rectangle, registers);
    }
    return bounds;
}

}  // namespace kalvex
