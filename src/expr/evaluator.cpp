// Running a program: the arguments are cut into blocks that stay in the first-level cache, every
// instruction is one pass over a block, and the registers of a block lie on the stack. A block's
// last lanes are padded by repeating the last argument, so kernels never look at a ragged end; a
// single point is a block of one such group of lanes.
#include "expr/evaluator.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "expr/program.h"

namespace kalvex {
namespace {

/// Points per block: 4 KiB an array, so a handful of registers fits the first-level cache.
constexpr std::size_t kBlock = 512;

constexpr std::size_t PaddedCount(std::size_t count) {
    return (count + kPaddedLanes - 1) / kPaddedLanes * kPaddedLanes;
}

/// One block's run: where it begins in the inputs and how long it is.
struct BlockRun {
    const InstructionList& list;
    const KernelTable& kernels;
    const ProgramInputs& inputs;
    std::size_t offset = 0;
    std::size_t count = 0;    ///< padded
    std::size_t padding = 0;  ///< how many of the count are padding
    double* registers = nullptr;
    std::size_t registerStride = 0;
    std::int32_t* errors = nullptr;  ///< padded, zero at the start
};

Source SourceOf(const BlockRun& run, const Operand& operand) {
    switch (operand.kind) {
        case OperandKind::Register:
            return {run.registers + operand.index * run.registerStride, 0.0};
        case OperandKind::Array:
            return {run.inputs.arrays[operand.index] + run.offset, 0.0};
        case OperandKind::Scalar:
            return {nullptr, run.inputs.scalars[operand.index]};
        case OperandKind::Constant:
            break;
    }
    return {nullptr, operand.value};
}

bool RunInstruction(const BlockRun& run, const Instruction& instruction, double* out) {
    Source sources[kMostOperands];
    for (std::size_t i = 0; i < instruction.operandCount; ++i) {
        sources[i] = SourceOf(run, instruction.operands[i]);
    }
    const KernelCall call{out,
                          sources,
                          run.count,
                          run.errors,
                          instruction.immediate,
                          run.padding,
                          run.inputs.interruption};
    return run.kernels.kernels[static_cast<std::size_t>(instruction.op)](call);
}

/// Leaves the block's values in `out` (padded) and returns whether a lane failed.
bool RunBlock(const BlockRun& run, double* out) {
    bool anyFailed = false;
    const std::vector<Instruction>& code = run.list.code;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const bool isLast = i + 1 == code.size();
        double* const target = isLast ? out : run.registers + code[i].target * run.registerStride;
        anyFailed |= RunInstruction(run, code[i], target);
    }
    if (code.empty()) {
        const Source source = SourceOf(run, run.list.result);
        for (std::size_t i = 0; i < run.count; ++i) {
            out[i] = source.values != nullptr ? source.values[i] : source.scalar;
        }
    }
    for (std::size_t i = 0; anyFailed && i < run.count; ++i) {
        if (run.errors[i] != 0) out[i] = UndefinedValue;
    }
    return anyFailed;
}

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

/// The last arguments of an array, padded by repeating the very last one.
void PadTail(const double* from, std::size_t count, double* padded) {
    std::copy_n(from, count, padded);
    std::fill(padded + count, padded + PaddedCount(count), from[count - 1]);
}

}  // namespace

bool RunInstructions(const InstructionList& list, const KernelTable& kernels,
                     const ProgramInputs& inputs, std::size_t count, double* values,
                     std::int32_t* errors, std::size_t padding) {
    alignas(64) double registers[kMostRegisters * kBlock];
    bool anyFailed = false;
    BlockRun run{list, kernels, inputs, 0, 0, 0, registers, kBlock, nullptr};
    for (; run.offset < count; run.offset += kBlock) {
        if (IsStopped(inputs.interruption)) break;
        const std::size_t wanted = std::min(kBlock, count - run.offset);
        run.count = PaddedCount(wanted);
        run.padding = run.count - wanted;
        if (run.count == wanted) {
            if (run.offset + wanted == count) run.padding = padding;
            run.errors = errors + run.offset;
            anyFailed |= RunBlock(run, values + run.offset);
            continue;
        }
        double paddedValues[kBlock];
        std::int32_t paddedErrors[kBlock] = {};
        run.errors = paddedErrors;
        if (RunBlock(run, paddedValues)) {
            std::copy_n(paddedErrors, wanted, errors + run.offset);
            anyFailed = true;
        }
        std::copy_n(paddedValues, wanted, values + run.offset);
    }
    return anyFailed;
}

double EvaluateExpression(const CompiledExpression& expression, double x, double y) {
    if (!expression.program) return kNotANumber;
    alignas(64) double registers[kMostRegisters * kPaddedLanes];
    double xs[kPaddedLanes];
    std::fill(std::begin(xs), std::end(xs), x);
    const double* const arrays[] = {xs};
    const double scalars[] = {y};
    const ProgramInputs inputs{arrays, scalars};
    std::int32_t errors[kPaddedLanes] = {};
    double values[kPaddedLanes];
    const BlockRun run{expression.program->instructions,
                       *expression.program->tree.kernels,
                       inputs,
                       0,
                       kPaddedLanes,
                       kPaddedLanes - 1,
                       registers,
                       kPaddedLanes,
                       errors};
    if (RunBlock(run, values) && EvalError == 0) EvalError = errors[0];
    return values[0];
}

void EvaluateInto(const CompiledExpression& expression, std::span<const double> xs, double y,
                  std::span<double> values, std::span<std::int32_t> errors,
                  Interruption* interruption) {
    if (xs.empty()) return;
    std::fill_n(errors.begin(), xs.size(), 0);
    if (!expression.program) {
        std::fill_n(values.begin(), xs.size(), kNotANumber);
        return;
    }
    const Program& program = *expression.program;
    const double scalars[] = {y};
    const auto runPart = [&](const double* x, std::size_t offset, std::size_t count) {
        const double* const arrays[] = {x};
        // Whether a point failed at all is of no use here; each one has its code in `errors`.
        static_cast<void>(RunInstructions(program.instructions, *program.tree.kernels,
                                          {arrays, scalars, interruption}, count,
                                          values.data() + offset, errors.data() + offset));
    };
    // All full blocks read the caller's array; only the ragged end needs a padded copy.
    const std::size_t full = xs.size() / kPaddedLanes * kPaddedLanes;
    if (full > 0) runPart(xs.data(), 0, full);
    if (full == xs.size()) return;
    double tail[kPaddedLanes];
    PadTail(xs.data() + full, xs.size() - full, tail);
    runPart(tail, full, xs.size() - full);
}

void EvaluatePoints(const CompiledExpression& expression, std::span<const double> xs,
                    std::span<const double> ys, std::span<double> values,
                    Interruption* interruption) {
    if (!expression.program) {
        std::ranges::fill(values, kNotANumber);
        return;
    }
    const Program& program = *expression.program;
    const InstructionList list = FlattenOverPoints(program.tree, program.tree.root);
    double paddedX[kBlock];
    double paddedY[kBlock];
    double results[kBlock];
    for (std::size_t offset = 0; offset < xs.size(); offset += kBlock) {
        const std::size_t count = std::min(kBlock, xs.size() - offset);
        PadTail(xs.data() + offset, count, paddedX);
        PadTail(ys.data() + offset, count, paddedY);
        const double* const arrays[] = {paddedX, paddedY};
        std::int32_t errors[kBlock] = {};
        // A point that failed has the undefined value.
        static_cast<void>(RunInstructions(list, *program.tree.kernels, {arrays, {}, interruption},
                                          count, results, errors));
        std::copy_n(results, count, values.data() + offset);
    }
}

std::vector<EvaluationResult> EvaluateAt(const CompiledExpression& expression,
                                         std::span<const double> xs) {
    std::vector<EvaluationResult> results(xs.size());
    double values[kBlock];
    std::int32_t errors[kBlock];
    for (std::size_t offset = 0; offset < xs.size(); offset += kBlock) {
        const std::size_t count = std::min(kBlock, xs.size() - offset);
        EvaluateInto(expression, xs.subspan(offset, count), 0.0, {values, count}, {errors, count});
        for (std::size_t i = 0; i < count; ++i)
            results[offset + i] = {values[i], errors[i]};
    }
    return results;
}

}  // namespace kalvex
