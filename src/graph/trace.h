// Trace: a cursor on the samples of one drawn function, and the values that it shows. Everything is
// read from the samples of the last redraw; nothing is evaluated.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "graph/graph_state.h"

namespace kalvex {

/// Whether a function can be traced: drawn and not `Implicit` (which keeps no samples).
[[nodiscard]] bool CanTrace(const FunctionEntry& entry);

/// The function under trace, or null when none is chosen or it cannot be traced.
[[nodiscard]] const FunctionEntry* TracedFunction(const GraphState& state,
                                                  const FunctionList& functions);

/// Puts the cursor on the sample of its index, which is clamped to the cache of the trace function.
void RefreshTraceCursor(GraphState& state, const FunctionList& functions);

/// Puts the cursor on a sample; an index outside the cache becomes its first or last one.
void MoveTraceTo(GraphState& state, const FunctionList& functions, std::int64_t index);

/// Makes the next (step 1) or the one before (step -1) of the traceable functions, round the list,
/// the trace function. The index is kept.
void ChangeTraceFunction(GraphState& state, const FunctionList& functions, int step);

/// Whether the analysis can be started from a trace of this function: neither `Polar` nor
/// `Parametric`.
[[nodiscard]] bool OffersAnalysis(const FunctionEntry& entry);

/// The read-out at a sample, one text per item: parameter (`Polar`, `Parametric`), x, y or the
/// reason why there is none (title and message of the error code, on two lines), and unless
/// `withDerivatives` is false the backward difference quotients, three in one text with line breaks
/// for a curve with a parameter. A quotient that has no finite value, or no sample before it, gives
/// the error text. No texts for an index outside the cache.
[[nodiscard]] std::vector<std::u16string> TraceTexts(const FunctionEntry& entry, std::int32_t index,
                                                     bool withDerivatives);

}  // namespace kalvex
