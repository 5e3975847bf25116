// The whole picture of the graph window as drawing records.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "graph/approx_failure.h"
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

/// Told after each pixel row of an implicit curve, and now and then while the method of a File line
/// takes long; false stops that curve and keeps what is drawn.
using ImplicitProgress = std::function<bool(const ProgressStretch&)>;

/// Trace function and cursor. Every redraw in normal mode places it anew; the pick modes move its
/// pixel.
struct TraceCursor {
    std::optional<int> function;  ///< slot index; none while no function has been chosen
    std::int32_t index = 0;       ///< sample index in that function's cache
    PixelPoint pixel;
    std::int32_t status = 0;
};

/// What a tap and a drag on the picture mean.
enum class GraphMode : std::int32_t {
    Normal = 0,  ///< dragging pans
    Trace = 1,
    Box = 2,    ///< picks the two corners of a box
    Centre = 3  ///< picks the centre of a zoom
};

enum class ZoomDirection : std::int32_t { In = 0, Out = 1 };

/// What a pen or a finger that is down does at the moment.
enum class PointerUse {
    None,
    Pan,
    Pick,  ///< lifting picks the cursor's pixel
    Box,   ///< has set the first corner; a long drag ends on the second one
    Coordinates,
    Slide
};

struct Pointer {
    PointerUse use = PointerUse::None;
    PixelPoint pressed;  ///< where it came down
    PixelPoint last;     ///< where its last event was
};

struct GraphState {
    Viewport viewport;
    TraceCursor trace;
    GraphMode mode = GraphMode::Normal;
    ZoomDirection direction = ZoomDirection::In;  ///< of mode Centre
    std::optional<WorldPoint> firstCorner;        ///< of mode Box, once it is chosen
    Pointer pointer;
    std::vector<ApproxFailure> approxFailures;  ///< File lines without a curve in the last redraw
};

/// Lays the viewport out for its stored client size and draws background, curves and legend;
/// refills the sample caches of the drawn functions and, in normal mode, the cursor; in trace mode
/// the cursor stays on its sample.
DrawList DrawGraph(GraphState& state, FunctionList& functions, const Options& options,
                   const MeasureText& measure, const ImplicitProgress& progress);

}  // namespace kalvex
