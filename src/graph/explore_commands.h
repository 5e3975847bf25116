// The commands that look at the graph: zoom, fixed windows, trace, and the same by keys and wheel.
#pragma once

#include <optional>

#include "graph/pick.h"
#include "resources/command_ids.h"

namespace kalvex {

/// Runs a command of the Zoom or QUICK submenu that needs no dialog, or `Trace`. Automatic zoom and
/// the fixed windows leave the mode as it is. Nothing for any other command.
std::optional<PictureChange> RunExploreCommand(GraphState& state, const FunctionList& functions,
                                               CommandId command, const ShowMessage& show);

/// Zooms about a pixel at once, without a pick mode (the popup of the full-screen mode): saves the
/// window before, returns to normal mode.
PictureChange ZoomAtOnce(GraphState& state, const PixelPoint& centre, ZoomDirection direction);

/// A burst of small zooms (wheel, pinch, a held key) saves one window as previous: the one before
/// its first step.
struct ZoomGesture {
    bool running = false;
};

/// One step of a gesture; the world point at `fixed` stays where it is.
PictureChange StepGesture(GraphState& state, ZoomGesture& gesture, const PixelPoint& fixed,
                          double extentX, double extentY);

/// One step of a gesture in the middle of the picture by the zoom factors.
PictureChange StepGestureByFactors(GraphState& state, ZoomGesture& gesture,
                                   ZoomDirection direction);

/// Moves the window by tenths of its extent: to the right and upward where positive.
PictureChange PanByTenths(GraphState& state, int right, int up);

}  // namespace kalvex
