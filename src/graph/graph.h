// The whole picture of the graph window as drawing records.
#pragma once

#include "graph/draw_list.h"
#include "graph/draw_progress.h"
#include "graph/graph_state.h"
#include "workspace/function_entry.h"
#include "workspace/options.h"

namespace kalvex {

/// Lays the viewport out for its stored client size and draws background, curves and legend;
/// refills the sample caches of the drawn functions and, in normal mode, the cursor; in trace mode
/// the cursor stays on its sample. `progress`, which may be empty, and `interruption`, which may be
/// null, can stop the drawing: then what has been drawn of the curve stays, no further curve is
/// begun, the picture is incomplete, and the caches of that curve and of those behind it are empty.
DrawList DrawGraph(GraphState& state, FunctionList& functions, const Options& options,
                   const MeasureText& measure, const DrawProgress& progress,
                   Interruption* interruption = nullptr);

}  // namespace kalvex
