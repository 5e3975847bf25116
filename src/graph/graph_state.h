// What the graph window remembers between two events: the visible rectangle, the mode and the
// trace cursor.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "graph/approx_failure.h"
#include "graph/contours.h"
#include "graph/draw_list.h"
#include "graph/viewport.h"

namespace kalvex {

/// Trace function and cursor. Every redraw in normal mode places it anew; the pick modes move its
/// pixel.
struct TraceCursor {
    std::optional<int> function;  ///< slot index; none while no function has been chosen
    std::int32_t index = 0;       ///< sample index in that function's cache
    PixelPoint pixel;
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
    bool incomplete = false;                    ///< the last redraw was stopped before its end
    bool contours = true;                       ///< implicit curves get lines too
};

}  // namespace kalvex
