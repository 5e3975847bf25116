// The derivative is the difference quotient of the cursor's sample and the one before it, which a
// user could also compute from two read-outs. There is no separate step width.
#include "graph/trace.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "expr/eval_error.h"
#include "graph/legend.h"
#include "numbers/decimal.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

bool HasType(const FunctionEntry& entry, EquationType type) {
    return entry.type == type;
}

bool HasParameter(const FunctionEntry& entry) {
    return HasType(entry, EquationType::Polar) || HasType(entry, EquationType::Parametric);
}

std::u16string YText(const CurveSample& sample) {
    if (sample.y == UndefinedValue && sample.status != 0) {
        std::u16string title;
        std::u16string message;
        // No box for an unknown code: the picture asks for this text each time it is painted.
        DescribeEvalError(sample.status, title, message, {});
        if (!message.empty()) return title + u'\n' + message;
    }
    return FillIn(Text(StringId::TraceY), {FixedText(sample.y)});
}

/// The quotient of differences; nothing when a value is undefined or the quotient is not finite.
std::optional<double> Quotient(double to, double from, double argument, double argumentBefore) {
    if (to == UndefinedValue || from == UndefinedValue || argument == argumentBefore) return {};
    const double quotient = (to - from) / (argument - argumentBefore);
    if (!std::isfinite(quotient)) return {};
    return quotient;
}

std::u16string DerivativeText(const CurveSample* before, const CurveSample& at) {
    const auto slope =
        before != nullptr ? Quotient(at.y, before->y, at.x, before->x) : std::optional<double>{};
    if (!slope) return std::u16string(Text(StringId::TraceDerivativeError));
    return FillIn(Text(StringId::TraceDerivative), {FixedText(*slope)});
}

std::u16string DerivativesText(const CurveSample* before, const CurveSample& at) {
    if (before == nullptr) return std::u16string(Text(StringId::TraceDerivativesError));
    const auto slope = Quotient(at.y, before->y, at.x, before->x);
    const auto ofX = Quotient(at.x, before->x, at.parameter, before->parameter);
    const auto ofY = Quotient(at.y, before->y, at.parameter, before->parameter);
    if (!slope || !ofX || !ofY) return std::u16string(Text(StringId::TraceDerivativesError));
    return FillIn(Text(StringId::TraceDerivatives),
                  {FixedText(*slope), FixedText(*ofX), FixedText(*ofY)});
}

}  // namespace

bool CanTrace(const FunctionEntry& entry) {
    return IsDrawn(entry) && !HasType(entry, EquationType::Implicit);
}

const FunctionEntry* TracedFunction(const GraphState& state, const FunctionList& functions) {
    if (!state.trace.function) return nullptr;
    const FunctionEntry& entry = functions[static_cast<std::size_t>(*state.trace.function)];
    return CanTrace(entry) ? &entry : nullptr;
}

void MoveTraceTo(GraphState& state, const FunctionList& functions, std::int64_t index) {
    TraceCursor& trace = state.trace;
    trace.pixel = {};
    const FunctionEntry* const entry = TracedFunction(state, functions);
    if (entry == nullptr || entry->samples.empty()) return;
    const auto last = static_cast<std::int64_t>(entry->samples.size()) - 1;
    trace.index = static_cast<std::int32_t>(std::clamp<std::int64_t>(index, 0, last));
    const CurveSample& sample = entry->samples[static_cast<std::size_t>(trace.index)];
    trace.pixel = {sample.column, sample.row};
}

void RefreshTraceCursor(GraphState& state, const FunctionList& functions) {
    MoveTraceTo(state, functions, state.trace.index);
}

void ChangeTraceFunction(GraphState& state, const FunctionList& functions, int step) {
    const int from = state.trace.function.value_or(0);
    for (int i = 1; i <= kSlotCount; ++i) {
        const int slot = ((from + i * step) % kSlotCount + kSlotCount) % kSlotCount;
        if (!CanTrace(functions[static_cast<std::size_t>(slot)])) continue;
        state.trace.function = slot;
        break;
    }
    RefreshTraceCursor(state, functions);
}

bool OffersAnalysis(const FunctionEntry& entry) {
    return !HasParameter(entry);
}

std::vector<std::u16string> TraceTexts(const FunctionEntry& entry, std::int32_t index,
                                       bool withDerivatives) {
    const auto place = static_cast<std::size_t>(index);
    if (index < 0 || place >= entry.samples.size()) return {};
    const CurveSample& at = entry.samples[place];
    const CurveSample* const before = place > 0 ? &entry.samples[place - 1] : nullptr;
    std::vector<std::u16string> texts;
    if (HasParameter(entry))
        texts.push_back(FillIn(Text(StringId::TraceParameter), {FixedText(at.parameter)}));
    texts.push_back(FillIn(Text(StringId::TraceX), {FixedText(at.x)}));
    texts.push_back(YText(at));
    if (!withDerivatives) return texts;
    texts.push_back(HasParameter(entry) ? DerivativesText(before, at) : DerivativeText(before, at));
    return texts;
}

}  // namespace kalvex
