// The whole picture of the graph window as drawing records.
#pragma once

#include <functional>
#include <optional>

#include "graph/draw_list.h"
#include "graph/viewport.h"
#include "workspace/function_entry.h"
#include "workspace/options.h"

namespace kalvex {

/// A stretch of the progress bar of an implicit curve: columns first..last over rows 0 to 3.
struct ProgressStretch {
    std::int32_t firstColumn = 0;
    std::int32_t lastColumn = 0;
    Rgb color;
};

/// Told after each pixel row of an implicit curve; false stops that curve and keeps what is drawn.
using ImplicitProgress = std::function<bool(const ProgressStretch&)>;

/// Trace function and cursor, refilled by every redraw while trace is not active.
struct TraceCursor {
    std::optional<int> function;  ///< slot index; none while no function has been chosen
    std::int32_t index = 0;       ///< sample index in that function's cache
    PixelPoint pixel;
    std::int32_t status = 0;
};

struct GraphState {
    Viewport viewport;
    TraceCursor trace;
    bool traceActive = false;
};

/// Lays the viewport out for its stored client size and draws background, curves and legend;
/// refills the sample caches of the drawn functions and, unless trace is active, the cursor.
DrawList DrawGraph(GraphState& state, FunctionList& functions, const Options& options,
                   const MeasureText& measure, const ImplicitProgress& progress);

}  // namespace kalvex
